// Caller objects built from their batch descriptions and written back as their
// state: every kind, nested containers, the calls, descriptions that do not fit.
#include "cli/object_json.h"

#include <gtest/gtest.h>

#include "objects/flex_grid.h"
#include "objects/form.h"
#include "support/support.h"

namespace telvaro::cli {
namespace {

ObjectRef built(const char* description, ObjectBuilder& builder) { return builder.build(Json::parse(description)); }

TEST(ObjectJson, GridComesBackWithItsCellsFormatsAndCalls) {
    ObjectBuilder builder;
    ObjectRef grid = built(R"({"object": "grid", "name": "grdItems", "rows": 3, "cols": 3, "row": 2, "col": 1,
        "cells": [["", "Codigo", "Nombre"], ["1", "A-1"], [2, 2.5]], "colWidths": [300, -1],
        "formats": [{"row": 1, "col": 2, "backColor": 255, "fontBold": true, "picture": "imSI"}]})",
                           builder);
    EXPECT_EQ(grid->typeName(), u"MSFlexGrid");
    EXPECT_TRUE(identical(grid->get(u"TextMatrix", {Variant(2), Variant(1)}), Variant(u"2.5")));
    grid->put(u"Row", Variant(1));
    grid->put(u"Col", Variant(2));
    grid->put(u"CellAlignment", Variant(std::int16_t(4)));
    grid->call(u"RemoveItem", {Variant(2)});

    const Json state = objectState(*grid);
    const Json expected = Json::parse(R"({"object": "grid", "name": "grdItems", "rows": 2,
        "cells": [["", "Codigo", "Nombre"], ["1", "A-1", ""]], "colWidths": [300, 960, 960],
        "formats": [{"row": 1, "col": 2, "backColor": 255, "alignment": 4, "fontBold": true, "picture": "imSI"}],
        "calls": ["TextMatrix", "Row=", "Col=", "CellAlignment=", "RemoveItem"]})");
    for (const auto& [field, value] : expected.items()) EXPECT_EQ(state[field], value) << field;
}

TEST(ObjectJson, EveryControlKindRoundTrips) {
    struct Case {
        const char* description;
        const char* field;  // a field of the state, and what it must hold
        const char* expected;
    };
    const Case cases[] = {
        {R"({"object": "list", "items": ["a", "b"], "itemData": [7, 8], "listIndex": 1})", "text", R"("b")"},
        {R"({"object": "combobox", "items": ["a"], "text": "libre"})", "text", R"("libre")"},
        {R"({"object": "checkbox", "value": 1, "caption": "Activo"})", "value", "1"},
        {R"({"object": "optionbutton", "value": true})", "value", "true"},
        {R"({"object": "label", "name": "lblNombre", "caption": "Nombre:"})", "caption", R"("Nombre:")"},
        {R"({"object": "textbox", "font": {"name": "Arial", "size": 12}})", "font",
         R"({"object": "font", "name": "Arial", "size": 12.0, "bold": false, "italic": false, "underline": false,
            "strikethrough": false})"},
        {R"({"object": "picturebox", "name": "picFoto", "width": 1500, "picture": "imNOd"})", "picture",
         R"({"object": "picture", "source": "imNOd", "width": 13, "height": 13, "calls": []})"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.description);
        ObjectBuilder builder;
        const Json state = objectState(*built(c.description, builder));
        EXPECT_EQ(state[c.field], Json::parse(c.expected)) << state.dump();
        EXPECT_EQ(state["object"], Json::parse(c.description)["object"]);
    }
}

TEST(ObjectJson, FormNestsControlsInItsFramesAndReportsItsRecords) {
    ObjectBuilder builder;
    ObjectRef form = built(R"({"object": "form", "name": "frmClientes", "changed": true, "saveSucceeds": [false, true],
        "controls": [
          {"object": "frame", "name": "fraDatos", "controls": [
             {"object": "textbox", "name": "txtNombre"},
             {"object": "frame", "name": "fraOpciones", "controls": [{"object": "checkbox", "name": "chkActivo"}]}]},
          {"object": "optionbutton", "name": "optA", "container": "fraOpciones"},
          {"object": "grid", "name": "grdItems"}]})",
                           builder);
    form->call(u"GuardaRegistro");
    form->call(u"CargaDatosRegistro", {Variant(u"C-7")});
    const Json state = objectState(*form);
    EXPECT_EQ(state["changed"], true);
    EXPECT_EQ(state["saves"], 1);
    EXPECT_EQ(state["loaded"], Json::parse(R"([{"type": "String", "value": "C-7"}])"));
    EXPECT_EQ(state["calls"], Json::parse(R"(["GuardaRegistro", "CargaDatosRegistro"])"));
    std::vector<std::pair<std::string, std::string>> containers;
    for (const auto& c : state["controls"]) containers.emplace_back(c["name"], c.value("container", "-"));
    EXPECT_EQ(containers, (std::vector<std::pair<std::string, std::string>>{{"fraDatos", "-"},
                                                                            {"txtNombre", "fraDatos"},
                                                                            {"fraOpciones", "fraDatos"},
                                                                            {"chkActivo", "fraOpciones"},
                                                                            {"optA", "fraOpciones"},
                                                                            {"grdItems", "-"}}));
}

TEST(ObjectJson, MdiFormsParentTheirChild) {
    ObjectBuilder builder;
    ObjectRef mdi =
        built(R"({"object": "form", "mdi": true, "activeForm": {"object": "form", "name": "frmClientes"}})", builder);
    EXPECT_EQ(mdi->typeName(), u"MDIForm");
    EXPECT_EQ(objectState(*mdi)["activeForm"]["name"], "frmClientes");
}

TEST(ObjectJson, DescriptionsThatDoNotFitTheirKindNameTheField) {
    struct Case {
        const char* description;
        int error;
        const char* named;  // what the description of the error must name
    };
    const Case cases[] = {
        {R"({"object": "grid", "rows": -1})", 5, "\"rows\" of a grid expects a whole number from 0"},
        {R"({"object": "nave"})", 445, "\"nave\""},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.description);
        ObjectBuilder builder;
        try {
            built(c.description, builder);
            ADD_FAILURE() << "no error";
        } catch (const RuntimeError& e) {
            EXPECT_EQ(e.number(), c.error);
            EXPECT_NE(toUtf8(e.description()).find(c.named), std::string::npos) << toUtf8(e.description());
        }
    }
}

}  // namespace
}  // namespace telvaro::cli

// Caller objects built from their batch descriptions and written back as
// their state: every kind, forms with nested containers, the record of the
// calls, the hooks for kinds built elsewhere, and descriptions that do not
// fit their kind.
#include "cli/object_json.h"

#include <gtest/gtest.h>

#include "objects/flex_grid.h"
#include "objects/form.h"
#include "objects/frame.h"
#include "support/support.h"

namespace telvaro::cli {
namespace {

using objects::Control;

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
    EXPECT_EQ(state["object"], "grid");
    EXPECT_EQ(state["name"], "grdItems");
    EXPECT_EQ(state["rows"], 2);
    EXPECT_EQ(state["cells"], Json::parse(R"([["", "Codigo", "Nombre"], ["1", "A-1", ""]])"));
    EXPECT_EQ(state["colWidths"], Json::parse("[300, 960, 960]"));
    EXPECT_EQ(state["formats"], Json::parse(R"([{"row": 1, "col": 2, "backColor": 255, "alignment": 4,
        "fontBold": true, "picture": "imSI"}])"));
    EXPECT_EQ(state["calls"], Json::parse(R"(["TextMatrix", "Row=", "Col=", "CellAlignment=", "RemoveItem"])"));
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
        {R"({"object": "combobox", "items": ["a"], "style": 2, "text": "A"})", "listIndex", "0"},
        {R"({"object": "textbox", "name": "txtCodigo", "text": "12.3", "selStart": 2})", "selStart", "2"},
        {R"({"object": "checkbox", "value": 1, "caption": "Activo"})", "value", "1"},
        {R"({"object": "optionbutton", "value": true})", "value", "true"},
        {R"({"object": "label", "name": "lblNombre", "caption": "Nombre:"})", "caption", R"("Nombre:")"},
        {R"({"object": "textbox", "font": {"name": "Arial", "size": 12}})", "font",
         R"({"object": "font", "name": "Arial", "size": 12.0, "bold": false, "italic": false, "underline": false,
            "strikethrough": false})"},
        {R"({"object": "picturebox", "name": "picFoto", "width": 1500, "picture": "imNOd"})", "picture",
         R"({"object": "picture", "source": "imNOd", "width": 13, "height": 13, "calls": []})"},
        {R"({"object": "grid", "cells": [["a", "b", "c"]]})", "cols", "3"},
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
    auto f = std::dynamic_pointer_cast<objects::Form>(form);
    ASSERT_TRUE(f);
    struct Case {
        const char16_t* control;
        const char16_t* container;
    };
    const Case cases[] = {{u"fraDatos", u"frmClientes"},  {u"txtNombre", u"fraDatos"}, {u"fraOpciones", u"fraDatos"},
                          {u"chkActivo", u"fraOpciones"}, {u"optA", u"fraOpciones"},   {u"grdItems", u"frmClientes"}};
    for (const auto& c : cases) {
        SCOPED_TRACE(toUtf8(c.control));
        auto control = f->controlNamed(c.control);
        ASSERT_TRUE(control);
        auto container = std::dynamic_pointer_cast<Control>(control->container());
        ASSERT_TRUE(container);
        EXPECT_EQ(container->name(), c.container);
        EXPECT_EQ(control->parent(), form);
    }
    form->call(u"GuardaRegistro");
    form->call(u"CargaDatosRegistro", {Variant(u"C-7")});
    const Json state = objectState(*form);
    EXPECT_EQ(state["changed"], true);
    EXPECT_EQ(state["saves"], 1);
    EXPECT_EQ(state["loaded"], Json::parse(R"([{"type": "String", "value": "C-7"}])"));
    EXPECT_EQ(state["calls"], Json::parse(R"(["GuardaRegistro", "CargaDatosRegistro"])"));
    ASSERT_EQ(state["controls"].size(), 6u);
    EXPECT_EQ(state["controls"][3]["name"], "chkActivo");
    EXPECT_EQ(state["controls"][3]["container"], "fraOpciones");
    EXPECT_FALSE(state["controls"][5].contains("container"));
}

TEST(ObjectJson, FrameOnItsOwnHasAFormAroundItAndMdiParentsTheirChild) {
    ObjectBuilder builder;
    ObjectRef frame = built(R"({"object": "frame", "name": "fraDatos", "controls": [{"object": "textbox"}]})", builder);
    ObjectRef parent = frame->get(u"Parent").get<ObjectRef>();
    ASSERT_TRUE(parent);
    EXPECT_TRUE(identical(parent->get(u"Controls").get<ObjectRef>()->get(u"Count"), Variant(2)));
    ObjectRef mdi =
        built(R"({"object": "form", "mdi": true, "activeForm": {"object": "form", "name": "frmClientes"}})", builder);
    EXPECT_EQ(mdi->typeName(), u"MDIForm");
    EXPECT_EQ(objectState(*mdi)["activeForm"]["name"], "frmClientes");
}

// A stand-in for a kind another layer builds.
class Recordset : public Object {
public:
    Variant invoke(StringView, InvokeKind, std::span<Variant>) override { return Variant(7); }
    String typeName() const override { return u"Recordset"; }
};

// Kinds another layer builds come through the hooks (without them they are
// unknown kinds); a data grid gives what is bound to it.
TEST(ObjectJson, KindsBuiltElsewhereComeThroughTheHooks) {
    const char* form = R"({"object": "form", "lista": {"object": "recordset", "source": "SELECT 1"}})";
    {
        ObjectBuilder builder;
        EXPECT_EQ(errorNumberOf([&] { built(form, builder); }), 445);
    }
    ObjectKindHooks hooks;
    hooks.build = [](const std::string& kind, const Json& d) -> ObjectRef {
        if (kind != "recordset") return nullptr;
        EXPECT_EQ(d["source"], "SELECT 1");
        return std::make_shared<Recordset>();
    };
    hooks.state = [](const Object& o) -> std::optional<Json> {
        if (o.typeName() != u"Recordset") return std::nullopt;
        return Json{{"object", "recordset"}, {"position", 1}};
    };
    const Json recordset = Json::parse(R"({"object": "recordset", "position": 1})");
    ObjectBuilder builder(hooks);
    ObjectRef built_form = built(form, builder);
    EXPECT_EQ(built_form->get(u"Lista").get<ObjectRef>()->typeName(), u"Recordset");
    EXPECT_EQ(objectState(*built_form, hooks)["lista"], recordset);
    EXPECT_EQ(errorNumberOf([&] { built(R"({"object": "slider"})", builder); }), 445);
    ObjectRef bound =
        built(R"({"object": "datagrid", "dataSource": {"object": "recordset", "source": "SELECT 1"}})", builder);
    EXPECT_EQ(objectState(*bound, hooks)["dataSource"], recordset);
}

TEST(ObjectJson, DescriptionsThatDoNotFitTheirKindNameTheField) {
    struct Case {
        const char* description;
        int error;
        const char* named;  // what the description of the error must name
    };
    const Case cases[] = {
        {R"({"object": "grid", "rows": -1})", 5, "\"rows\" of a grid expects a whole number from 0"},
        {R"({"object": "grid", "rows": 100000, "cols": 1000})", 5, "10000000 cells"},
        {R"({"object": "grid", "cells": [[{"x": 1}]]})", 5, "\"cells\" of a grid expects a text"},
        {R"({"object": "grid", "rows": 18446744073709551615})", 5, "\"rows\""},
        {R"({"object": "grid", "redraw": "si"})", 5, "\"redraw\" of a grid expects true or false"},
        {R"({"object": "list", "items": "a"})", 5, "\"items\" of a list expects a list"},
        {R"({"object": "font", "size": 0})", 5, "\"size\" of a font"},
        {R"({"object": "form", "controls": [{"object": "font"}]})", 5, "\"controls\""},
        {R"({"object": "form", "controls": [{"object": "frame", "name": "a", "container": "b"},
            {"object": "frame", "name": "b", "container": "a"}]})",
         5, "not inside the control itself"},
        {R"({"object": "form", "saveSucceeds": [true, 2]})", 5, "\"saveSucceeds\""},
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

// Every field of a full description of each kind replaced by junk: the
// builder gives an object or a run-time error, never anything else, and
// the state of what it built can be written.
TEST(ObjectJson, JunkInAnyFieldIsAnErrorOrAnObject) {
    const char* const full[] = {
        R"({"object": "grid", "name": "g", "rows": 3, "cols": 2, "fixedRows": 1, "fixedCols": 1, "row": 1, "col": 1,
            "redraw": true, "cells": [["a", "b"]], "colWidths": [1], "rowHeights": [1], "colAlignments": [1],
            "formats": [{"row": 0, "col": 0, "backColor": 1, "picture": "imSI"}], "font": {"size": 9}})",
        R"({"object": "textbox", "text": "x", "selStart": 0, "selLength": 1, "maxLength": 3, "locked": false,
            "tag": "t", "enabled": true, "left": 1, "top": 1, "width": 1, "height": 1, "tabIndex": 1})",
        R"({"object": "form", "name": "f", "caption": "c", "changed": true, "saveSucceeds": [true], "mdi": true,
            "activeForm": {"object": "form"}, "controls": [{"object": "frame", "name": "fr"},
            {"object": "textbox", "container": "fr"}]})",
    };
    // clang-format off
    const Json junk[] = {nullptr, true, -1, 4294967296LL, 1e300, -1.5, "texto", Json::array(), Json::array({1, "a", nullptr}),
                         Json::object(), Json{{"object", "textbox"}}, Json::array({Json::array({Json::object()})})};
    // clang-format on
    std::size_t built_count = 0, errors = 0;
    for (const char* description : full) {
        const Json base = Json::parse(description);
        for (const auto& [field, value] : base.items()) {
            if (field == "object") continue;
            for (const auto& j : junk) {
                Json d = base;
                d[field] = j;
                SCOPED_TRACE(d.dump());
                ObjectBuilder builder;
                try {
                    ObjectRef object = builder.build(d);
                    EXPECT_TRUE(objectState(*object).is_object());
                    ++built_count;
                } catch (const RuntimeError& e) {
                    EXPECT_TRUE(e.number() == 5 || e.number() == 445) << e.what();
                    ++errors;
                }
            }
        }
    }
    EXPECT_GT(built_count, 0u);
    EXPECT_GT(errors, 0u);
}

}  // namespace
}  // namespace telvaro::cli

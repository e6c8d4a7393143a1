// Text boxes, check boxes, option buttons, labels, frames, picture boxes
// and forms: their members, the Container and Parent links, the form's
// Controls, and the members of a data-entry form that moves through records.
#include <tuple>

#include "member_script.h"
#include "objects/check_box.h"
#include "objects/flex_grid.h"
#include "objects/form.h"
#include "objects/frame.h"
#include "objects/label.h"
#include "objects/option_button.h"
#include "objects/picture_box.h"
#include "objects/text_box.h"

namespace telvaro::objects {
namespace {

using enum Access;

TEST(Controls, TextBoxCheckBoxAndLabelMembers) {
    // clang-format off
    runScript(*std::make_shared<TextBox>(u"txtCodigo"), {
        {Put, u"Text", {S(u"12.3")}}, {Get, u"SelStart", {}, L(0)}, {Put, u"SelStart", {L(4)}},
        {Put, u"SelText", {S(u"5")}}, {Get, u"", {}, S(u"12.35")}, {Get, u"SelStart", {}, L(5)},
        {Put, u"SelStart", {L(99)}}, {Get, u"SelStart", {}, L(5)}, {Put, u"SelStart", {L(-1)}, {}, 380},
        {Put, u"SelStart", {L(1)}}, {Put, u"SelLength", {L(10)}}, {Get, u"SelText", {}, S(u"2.35")},
        {Get, u"Name", {}, S(u"txtCodigo")}, {Put, u"Name", {S(u"otro")}, {}, 383}, {Put, u"Width", {L(-1)}, {}, 380},
        {Put, u"Left", {L(-100)}}, {Get, u"Left", {}, Variant(-100.0)}});
    // clang-format on
    // clang-format off
    runScript(*std::make_shared<CheckBox>(u"chkActivo"), {
        {Get, u"", {}, I(0)}, {Put, u"Value", {I(1)}}, {Get, u"Value", {}, I(1)}, {Put, u"Value", {I(3)}, {}, 380},
        {Get, u"Text", {}, {}, 438}});
    // clang-format on
    runScript(
        *std::make_shared<Label>(u"lblNombre"),
        {{Put, u"Caption", {S(u"Nombre:")}}, {Get, u"", {}, S(u"Nombre:")}, {Put, u"Alignment", {I(3)}, {}, 380}});
}

// A form: a frame holding a text box and two option buttons, a frame inside
// that frame holding a check box, and a grid directly on the form.
struct SampleForm {
    std::shared_ptr<Form> form = std::make_shared<Form>(u"frmClientes");
    std::shared_ptr<Frame> outer = std::make_shared<Frame>(u"fraDatos");
    std::shared_ptr<Frame> inner = std::make_shared<Frame>(u"fraOpciones");
    std::shared_ptr<TextBox> text = std::make_shared<TextBox>(u"txtNombre");
    std::shared_ptr<OptionButton> first = std::make_shared<OptionButton>(u"optA");
    std::shared_ptr<OptionButton> second = std::make_shared<OptionButton>(u"optB");
    std::shared_ptr<OptionButton> elsewhere = std::make_shared<OptionButton>(u"optC");
    std::shared_ptr<CheckBox> check = std::make_shared<CheckBox>(u"chkActivo");
    std::shared_ptr<FlexGrid> grid = std::make_shared<FlexGrid>(u"grdItems");

    SampleForm() {
        // clang-format off
        for (const auto& [c, in] : std::vector<std::pair<ObjectRef, ObjectRef>>{
                 {outer, {}}, {inner, outer}, {text, outer}, {first, outer}, {second, outer}, {elsewhere, {}},
                 {check, inner}, {grid, {}}})
            form->add(c, in);
        // clang-format on
    }
};

TEST(Controls, ContainerAndParentLinks) {
    SampleForm f;
    for (const auto& [control, container] :
         std::vector<std::pair<ObjectRef, ObjectRef>>{{f.text, f.outer}, {f.check, f.inner}, {f.grid, f.form}}) {
        EXPECT_EQ(control->get(u"Container").get<ObjectRef>(), container) << describe(Variant(control));
        EXPECT_EQ(control->get(u"Parent").get<ObjectRef>(), f.form);
    }
    EXPECT_EQ(errorNumberOf([&] { f.form->get(u"Container"); }), 438);
    EXPECT_EQ(errorNumberOf([&] { f.form->get(u"Parent"); }), 438);
    EXPECT_TRUE(f.form->calls().empty());
    EXPECT_EQ(errorNumberOf([&] { f.form->add(std::make_shared<Font>()); }), 13);
    // The links do not keep the form alive.
    std::weak_ptr<Form> gone = f.form;
    auto text = f.text;
    f = SampleForm();
    EXPECT_TRUE(gone.expired());
    EXPECT_EQ(text->get(u"Parent").get<ObjectRef>(), nullptr);
}

TEST(Controls, OptionButtonsOfOneContainerExcludeEachOther) {
    SampleForm f;
    f.elsewhere->put(u"Value", B(true));
    f.first->put(u"Value", B(true));
    f.second->put(u"Value", B(true));
    EXPECT_EQ(std::make_tuple(f.first->value(), f.second->value(), f.elsewhere->value()),
              std::make_tuple(false, true, true));
}

TEST(Controls, FormControlsByPositionByNameAndAsAList) {
    SampleForm f;
    ObjectRef controls = f.form->get(u"Controls").get<ObjectRef>();
    // clang-format off
    runScript(*controls, {
        {Get, u"Count", {}, L(8)}, {Get, u"Item", {L(2)}, Variant(ObjectRef(f.text))},
        {Get, u"", {S(u"CHKACTIVO")}, Variant(ObjectRef(f.check))}, {Get, u"Item", {S(u"noHay")}, {}, 730},
        {Get, u"Item", {L(8)}, {}, 9}, {Put, u"Count", {L(1)}, {}, 383}});
    // clang-format on
    Variant all = controls->get(u"_NewEnum");
    ASSERT_TRUE(all.isArray() && all.array().size() == 8u);
    EXPECT_EQ(all.array().at(7).get<ObjectRef>(), f.grid);
    EXPECT_EQ(f.form->get(u"txtNombre").get<ObjectRef>(), f.text);
    EXPECT_EQ(errorNumberOf([&] { f.form->put(u"txtNombre", S(u"x")); }), 438);
    EXPECT_EQ(f.form->calls(), (std::vector<String>{u"Controls", u"txtNombre"}));
}

TEST(Controls, DataEntryFormSavesAndLoadsAsToldAndAnMdiParentGivesItsChild) {
    struct Case {
        std::vector<bool> answers;
        std::vector<bool> changedAfterEachSave;
    };
    const Case cases[] = {{{}, {false, false}}, {{false}, {true, true}}, {{false, true}, {true, false, false}}};
    for (const auto& c : cases) {
        auto form = std::make_shared<Form>(u"frmClientes");
        form->saveSucceeds = c.answers;
        for (std::size_t i = 0; i < c.changedAfterEachSave.size(); ++i) {
            SCOPED_TRACE(i);
            form->put(u"Changed", B(true));
            form->call(u"GuardaRegistro");
            EXPECT_TRUE(identical(form->get(u"Changed"), B(c.changedAfterEachSave[i])));
        }
        EXPECT_EQ(form->saves(), static_cast<std::int32_t>(c.changedAfterEachSave.size()));
    }
    auto form = std::make_shared<Form>(u"frmClientes");
    auto key = std::make_shared<TextBox>(u"txtClave");
    key->setText(u"C-7");
    form->call(u"CargaDatosRegistro", {L(12)});
    form->call(u"CargaDatosRegistro", {Variant(ObjectRef(key))});
    ASSERT_EQ(form->loaded().size(), 2u);
    EXPECT_TRUE(identical(form->loaded()[0], L(12)) && identical(form->loaded()[1], S(u"C-7")));
    EXPECT_EQ(errorNumberOf([&] { form->call(u"CargaDatosRegistro"); }), 450);
    EXPECT_EQ(errorNumberOf([&] { form->get(u"ActiveForm"); }), 438);
    EXPECT_TRUE(identical(form->get(u"Lista"), Variant(ObjectRef())));
    auto parent = std::make_shared<Form>(u"mdiPrincipal", true);
    parent->activeForm = form;
    EXPECT_EQ(parent->get(u"ActiveForm").get<ObjectRef>(), form);
}

TEST(Controls, PictureBoxImageFollowsItsSize) {
    auto box = std::make_shared<PictureBox>(u"picFoto");
    box->put(u"Width", L(1500));
    box->put(u"Height", L(750));
    ObjectRef image = box->get(u"Image").get<ObjectRef>();
    auto picture = std::dynamic_pointer_cast<Picture>(image);
    ASSERT_TRUE(picture);
    EXPECT_EQ(std::make_pair(picture->width(), picture->height()), std::make_pair(100, 50));
    box->put(u"Picture", Variant(image));
    EXPECT_EQ(box->get(u"").get<ObjectRef>(), image);
    EXPECT_EQ(errorNumberOf([&] { box->put(u"ScaleMode", I(8)); }), 380);
    EXPECT_EQ(errorNumberOf([&] { box->put(u"hDC", L(1)); }), 383);
    box->put(u"Width", Variant(1e9));
    EXPECT_EQ(std::dynamic_pointer_cast<Picture>(box->get(u"Image").get<ObjectRef>())->width(),
              PictureBox::kMaxImageSide);
}

}  // namespace
}  // namespace telvaro::objects

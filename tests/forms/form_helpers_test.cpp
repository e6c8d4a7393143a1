// The change test, clearing, trimming and enabling a form's controls, and
// the window calls as the in-memory windows keep them.
#include <tuple>

#include "forms_fixture.h"
#include "objects/check_box.h"
#include "objects/frame.h"
#include "objects/label.h"
#include "objects/option_button.h"

namespace telvaro {
namespace {

using objects::ListControl;

TEST_F(FormsTest, EsChangedByKindKeyAndTag) {
    struct Case {
        ObjectRef control;
        std::int16_t key;
        Boolean before, expected;
    };
    auto search = textBox(u"");
    search->tag = u"buscar";
    const auto combo = std::make_shared<ListControl>(ListControl::Kind::ComboBox, u"cbo");
    const auto check = std::make_shared<objects::CheckBox>();
    const auto option = std::make_shared<objects::OptionButton>();
    const auto label = std::make_shared<objects::Label>();
    const std::vector<Case> cases = {
        {textBox(u""), 'a', False, True}, {textBox(u""), 27, False, False}, {combo, 'x', False, True},
        {search, 'a', False, False},      {search, 'a', True, True},        {check, 32, False, True},
        {check, 'a', False, False},       {option, 32, False, True},        {label, 'a', False, False},
    };
    for (const auto& c : cases) {
        const Variant result = call("esChanged", {Variant(c.control), Variant(c.key), Variant(c.before)});
        EXPECT_TRUE(identical(result, Variant(c.expected))) << toUtf8(c.control->typeName()) << " key " << c.key;
    }
}

struct SampleForm {
    std::shared_ptr<objects::Form> form = std::make_shared<objects::Form>(u"frmClientes");
    std::shared_ptr<objects::TextBox> name = std::make_shared<objects::TextBox>(u"txtNombre");
    std::shared_ptr<ListControl> editable = std::make_shared<ListControl>(ListControl::Kind::ComboBox, u"cboCiudad");
    std::shared_ptr<ListControl> dropDown = std::make_shared<ListControl>(ListControl::Kind::ComboBox, u"cboTipo");
    std::shared_ptr<objects::FlexGrid> grid = std::make_shared<objects::FlexGrid>(u"grdDetalle", 2, 2);
    std::shared_ptr<objects::Label> label = std::make_shared<objects::Label>(u"lblNombre");
    std::shared_ptr<objects::Frame> frame = std::make_shared<objects::Frame>(u"fraDatos");
    std::shared_ptr<objects::Frame> inner = std::make_shared<objects::Frame>(u"fraInterno");
    std::shared_ptr<objects::TextBox> nested = std::make_shared<objects::TextBox>(u"txtNested");

    SampleForm() {
        name->setText(u"  Ana  ");
        editable->setText(u" Quito ");
        dropDown->addItem(u" A ");
        dropDown->setStyle(2);
        dropDown->setText(u" A ");
        grid->setTextMatrix(1, 1, u" 5 ");
        for (ObjectRef c : std::vector<ObjectRef>{name, editable, dropDown, grid, label, frame}) form->add(c);
        form->add(inner, frame);
        form->add(nested, inner);
    }
    auto texts() const {
        return std::make_tuple(name->text(), editable->text(), dropDown->text(), grid->textMatrix(1, 1));
    }
};

TEST_F(FormsTest, ClearingEmptiesTextsButNotGridsNorDropDownLists) {
    SampleForm f;
    call("fn_LimpiaTextObjetos", {Variant(ObjectRef(f.form))});
    EXPECT_EQ(f.texts(), std::make_tuple(u"", u"", u" A ", u" 5 "));
    EXPECT_TRUE(f.grid->calls() == std::vector<String>{u"TextMatrix"});
    EXPECT_TRUE(f.name->calls() == (std::vector<String>{u"TextMatrix", u"Text", u"Text="}) ||
                f.name->calls() == (std::vector<String>{u"Text", u"Text="}));
}

TEST_F(FormsTest, TrimmingTakesGridCellsTooButNotDropDownLists) {
    SampleForm f;
    call("QuitaEspacios", {Variant(ObjectRef(f.form))});
    EXPECT_EQ(f.texts(), std::make_tuple(u"Ana", u"Quito", u" A ", u"5"));
}

TEST_F(FormsTest, EnablingSwitchesEverythingInsideTheContainer) {
    SampleForm f;
    call("HabilitaControles", {Variant(ObjectRef(f.frame))});  // default False
    EXPECT_FALSE(f.frame->enabled || f.inner->enabled || f.nested->enabled);
    EXPECT_TRUE(f.name->enabled);
    call("HabilitaControles", {Variant(ObjectRef(f.frame)), Variant(True)});
    EXPECT_TRUE(f.frame->enabled && f.inner->enabled && f.nested->enabled);
}

TEST_F(FormsTest, StatementSkippingMethodsNeverFail) {
    const auto label = std::make_shared<objects::Label>();
    const auto orphan = std::make_shared<objects::TextBox>(u"suelto");
    const std::vector<Variant> junk = {Variant(ObjectRef()), Variant(ObjectRef(label)), Variant(ObjectRef(orphan))};
    for (const char* method : {"fn_LimpiaTextObjetos", "QuitaEspacios", "HabilitaControles"})
        for (const auto& arg : junk) EXPECT_EQ(errorOf(method, {arg}), 0) << method << " " << describe(arg);
    // Without a form, the control itself is still switched.
    call("HabilitaControles", {Variant(ObjectRef(orphan))});
    EXPECT_FALSE(orphan->enabled);
}

TEST_F(FormsTest, ScrollExtentFromTheLongestItem) {
    struct Case {
        std::vector<String> items;
        double fontSize;
        int extent;  // -1: error 6
    };
    const std::vector<Case> cases = {
        {{}, 8, 200},
        {{u"abc", u"abcdefgh", u"a"}, 8, 48},
        {{u"ab"}, 10.25, 16},           // 16.5 rounds to even
        {{String(6000, u'x')}, 8, -1},  // 36000 does not fit an Integer
    };
    for (const auto& c : cases) {
        auto list = std::make_shared<ListControl>(ListControl::Kind::ListBox, u"lst");
        for (const auto& item : c.items) list->addItem(item);
        list->font()->put(u"Size", Variant(c.fontSize));
        const int error = errorOf("fn_ScrollHListBox", {Variant(ObjectRef(list))});
        const auto* effect = windows_->find(list->hwnd());
        if (c.extent < 0) {
            EXPECT_EQ(error, 6);
            EXPECT_EQ(effect, nullptr);
            continue;
        }
        ASSERT_EQ(error, 0);
        ASSERT_NE(effect, nullptr);
        EXPECT_EQ(effect->horizontalExtent, c.extent) << c.items.size() << " items at " << c.fontSize;
    }
}

TEST_F(FormsTest, WindowCallsReachTheWindowsOfTheirHandles) {
    auto form = std::make_shared<objects::Form>(u"frmBuscar");
    auto owner = std::make_shared<objects::Form>(u"frmPrincipal");
    call("fn_FormSiempreVisible", {Variant(ObjectRef(form))});
    call("fn_VentanaFlotante", {Variant(ObjectRef(form)), Variant(ObjectRef(owner))});
    call("fn_MoverControl", {Variant(owner->hwnd())});
    call("fn_MoverControl", {Variant(owner->hwnd())});
    const auto* top = windows_->find(form->hwnd());
    ASSERT_NE(top, nullptr);
    EXPECT_TRUE(top->topmost);
    EXPECT_EQ(top->owner, owner->hwnd());
    EXPECT_EQ(windows_->find(owner->hwnd())->drags, 2);
    EXPECT_FALSE(windows_->find(owner->hwnd())->topmost);
}

TEST_F(FormsTest, UntrappedMethodsGiveTheObjectsErrors) {
    const auto label = std::make_shared<objects::Label>();
    const Variant nothing{ObjectRef()};
    struct Case {
        const char* method;
        std::vector<Variant> args;
        int error;
    };
    const std::vector<Case> cases = {
        {"VerificaNumero", {nothing, Variant(std::int16_t('1'))}, 91},
        {"fn_Backspace", {Variant(ObjectRef(label))}, 438},
        {"esChanged", {nothing, Variant(std::int16_t(1)), Variant(False)}, 91},
        {"fn_ScrollHListBox", {Variant(ObjectRef(label))}, 438},
        {"fn_FormSiempreVisible", {nothing}, 91},
        {"fn_VentanaFlotante", {Variant(ObjectRef(label)), nothing}, 91},
    };
    for (const auto& c : cases) EXPECT_EQ(errorOf(c.method, c.args), c.error) << c.method;
    EXPECT_TRUE(windows_->effects().empty());
}

}  // namespace
}  // namespace telvaro

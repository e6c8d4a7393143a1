// The list box and the combo box through their members: items and their
// numbers, the selection, the position of the last item added, and the
// combo box's own text under each style.
#include "objects/list_control.h"

#include "member_script.h"

namespace telvaro::objects {
namespace {

using enum Access;

TEST(ListControl, ListBoxMembers) {
    auto list = std::make_shared<ListControl>(ListControl::Kind::ListBox, u"lstClientes");
    // clang-format off
    runScript(*list, {
        {Get, u"ListCount", {}, L(0)}, {Get, u"ListIndex", {}, L(-1)}, {Get, u"Text", {}, S(u"")},
        {Get, u"ItemData", {L(-1)}, {}, 381}, {Call, u"AddItem", {S(u"Pérez")}}, {Call, u"AddItem", {S(u"Andrade")}},
        {Call, u"AddItem", {S(u"Zambrano"), L(0)}}, {Get, u"NewIndex", {}, L(0)}, {Put, u"ItemData", {L(0), L(30)}},
        {Put, u"ItemData", {L(2), L(20)}}, {Get, u"ItemData", {L(2)}, L(20)}, {Get, u"ItemData", {L(3)}, {}, 381},
        {Get, u"List", {L(1)}, S(u"Pérez")}, {Get, u"List", {L(-2)}, {}, 381}, {Get, u"ListCount", {}, L(3)},
        {Put, u"ListIndex", {L(2)}}, {Get, u"Text", {}, S(u"Andrade")}, {Put, u"ListIndex", {L(3)}, {}, 380},
        {Put, u"Text", {S(u"PÉREZ")}}, {Get, u"ListIndex", {}, L(1)}, {Call, u"RemoveItem", {L(0)}},
        {Get, u"ListIndex", {}, L(0)}, {Get, u"ItemData", {L(1)}, L(20)}, {Call, u"RemoveItem", {L(5)}, {}, 5},
        {Call, u"AddItem", {S(u"x"), L(9)}, {}, 5}, {Call, u"AddItem", {}, {}, 450}, {Put, u"Style", {I(1)}, {}, 383},
        {Put, u"SelStart", {L(0)}, {}, 438}, {Call, u"Clear"}, {Get, u"ListCount", {}, L(0)},
        {Get, u"ListIndex", {}, L(-1)}});
    // clang-format on
}

TEST(ListControl, ComboBoxTextByStyle) {
    struct Case {
        std::int16_t style;
        const char16_t* assigned;
        int error;
        const char16_t* text;
        std::int32_t listIndex;
    };
    const Case cases[] = {{0, u"libre", 0, u"libre", -1},
                          {0, u"DOS", 0, u"DOS", 1},
                          {2, u"dos", 0, u"dos", 1},
                          {2, u"libre", 383, u"", -1}};
    for (const auto& c : cases) {
        SCOPED_TRACE(std::to_string(c.style) + " " + toUtf8(c.assigned));
        auto combo = std::make_shared<ListControl>(ListControl::Kind::ComboBox, u"cboTipo");
        combo->setStyle(c.style);
        combo->addItem(u"uno");
        combo->addItem(u"dos");
        EXPECT_EQ(errorNumberOf([&] { combo->put(u"Text", S(c.assigned)); }), c.error);
        EXPECT_EQ(std::make_pair(combo->text(), combo->listIndex()), std::make_pair(String(c.text), c.listIndex));
    }
}

}  // namespace
}  // namespace telvaro::objects

// The list box and the combo box: items (text and a Long `ItemData` each),
// the selected item `ListIndex` (-1 for none), `NewIndex` (where the last
// `AddItem` put its item) and `Style`; the combo box adds its own edit text
// (`Text`, `SelStart`, `SelLength`), which a drop-down list (`Style` 2)
// only lets the caller set to one of its items.
//
// Errors as the controls raise them: `List(i)` for i below 0 and
// `ItemData(i)` outside the items are 381 "Invalid property array index"
// (so `ItemData(ListIndex)` with nothing selected fails); `List(i)` past
// the last item reads ""; `ListIndex` outside -1..ListCount-1 is 380;
// `RemoveItem` or `AddItem` at a position outside the list is 5; a
// drop-down list's `Text` set to a text that is no item is 383.
#pragma once

#include <optional>

#include "objects/control.h"

namespace telvaro::objects {

class ListControl : public Control {
public:
    enum class Kind { ListBox, ComboBox };
    static constexpr std::int32_t kMaxItems = 1'000'000;

    ListControl(Kind kind, String name);

    String typeName() const override { return kind_ == Kind::ListBox ? u"ListBox" : u"ComboBox"; }
    Kind kind() const { return kind_; }

    struct Item {
        String text;
        std::int32_t data = 0;
    };
    const std::vector<Item>& items() const { return items_; }
    std::int32_t listCount() const { return static_cast<std::int32_t>(items_.size()); }
    std::int32_t listIndex() const { return listIndex_; }
    std::int32_t newIndex() const { return newIndex_; }
    std::int16_t style() const { return style_; }
    String text() const;
    std::int32_t selStart() const { return selStart_; }

    void addItem(String text, std::optional<std::int32_t> index = std::nullopt);
    void removeItem(std::int32_t index);
    void clear();
    void setListIndex(std::int32_t index);
    void setItemData(std::int32_t index, std::int32_t data);
    void setStyle(std::int16_t style);  // 0, 1 (and 2 for a combo box)
    void setText(String text);
    void setSelStart(std::int32_t start);

protected:
    const MemberTable& members() const override;
    int defaultMember() const override;
    Variant dispatch(int id, const MemberCall& call) override;

private:
    std::int32_t itemIndex(const Variant& v) const;  // 381 outside the items

    Kind kind_;
    std::vector<Item> items_;
    std::int32_t listIndex_ = -1;
    std::int32_t newIndex_ = -1;
    std::int16_t style_ = 0;
    String editText_;  // a combo box's own text
    std::int32_t selStart_ = 0, selLength_ = 0;
};

}  // namespace telvaro::objects

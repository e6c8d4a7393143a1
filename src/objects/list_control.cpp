#include "objects/list_control.h"

#include <algorithm>

#include "runtime/error.h"
#include "runtime/text.h"

namespace telvaro::objects {

namespace {

enum Member {
    AddItem = 0,  // numbered after the common members
    RemoveItem,
    Clear,
    List,
    ListCount,
    ListIndex,
    ItemData,
    NewIndex,
    Style,
    Text,
    SelStart,
    SelLength  // the combo box's only
};

[[noreturn]] void invalidIndex() { raise(381); }

}  // namespace

ListControl::ListControl(Kind kind, String name) : Control(std::move(name)), kind_(kind) {}

const MemberTable& ListControl::members() const {
    static const MemberTable list(commonMemberNames(), {u"AddItem", u"RemoveItem", u"Clear", u"List", u"ListCount",
                                                        u"ListIndex", u"ItemData", u"NewIndex", u"Style", u"Text"});
    static const MemberTable combo(
        commonMemberNames(), {u"AddItem", u"RemoveItem", u"Clear", u"List", u"ListCount", u"ListIndex", u"ItemData",
                              u"NewIndex", u"Style", u"Text", u"SelStart", u"SelLength"});
    return kind_ == Kind::ListBox ? list : combo;
}

int ListControl::defaultMember() const { return static_cast<int>(CommonMemberCount) + Text; }

String ListControl::text() const {
    if (kind_ == Kind::ComboBox && style_ != 2) return editText_;
    return listIndex_ >= 0 ? items_[static_cast<std::size_t>(listIndex_)].text : String();
}

void ListControl::addItem(String text, std::optional<std::int32_t> index) {
    const std::int32_t at = index.value_or(listCount());
    if (at < 0 || at > listCount()) raise(err::InvalidProcedureCall);
    if (listCount() >= kMaxItems) raise(err::OutOfMemory);
    items_.insert(items_.begin() + at, Item{std::move(text), 0});
    if (listIndex_ >= at) ++listIndex_;
    newIndex_ = at;
}

void ListControl::removeItem(std::int32_t index) {
    if (index < 0 || index >= listCount()) raise(err::InvalidProcedureCall);
    items_.erase(items_.begin() + index);
    if (listIndex_ == index)
        listIndex_ = -1;
    else if (listIndex_ > index)
        --listIndex_;
    newIndex_ = -1;
}

void ListControl::clear() {
    items_.clear();
    listIndex_ = newIndex_ = -1;
    editText_.clear();
}

void ListControl::setListIndex(std::int32_t index) {
    if (index < -1 || index >= listCount()) raise(err::InvalidPropertyValue);
    listIndex_ = index;
    if (kind_ == Kind::ComboBox && index >= 0) editText_ = items_[static_cast<std::size_t>(index)].text;
}

void ListControl::setItemData(std::int32_t index, std::int32_t data) {
    if (index < 0 || index >= listCount()) invalidIndex();
    items_[static_cast<std::size_t>(index)].data = data;
}

void ListControl::setStyle(std::int16_t style) {
    if (style < 0 || style > (kind_ == Kind::ComboBox ? 2 : 1)) raise(err::InvalidPropertyValue);
    style_ = style;
}

void ListControl::setText(String text) {
    std::int32_t match = -1;
    for (std::int32_t i = 0; i < listCount() && match < 0; ++i)
        if (textEquals(items_[static_cast<std::size_t>(i)].text, text)) match = i;
    if (kind_ == Kind::ComboBox && style_ != 2) {
        editText_ = std::move(text);
        listIndex_ = match;
        return;
    }
    if (match < 0 && !text.empty() && kind_ == Kind::ComboBox) raise(383, u"'Text' property is read-only");
    listIndex_ = match;
}

void ListControl::setSelStart(std::int32_t start) {
    if (start < 0) raise(err::InvalidPropertyValue);
    selStart_ = std::min(start, static_cast<std::int32_t>(text().size()));
    selLength_ = 0;
}

std::int32_t ListControl::itemIndex(const Variant& v) const {
    const auto i = longValue(v);
    if (i < 0 || i >= listCount()) invalidIndex();
    return i;
}

Variant ListControl::dispatch(int id, const MemberCall& call) {
    if (id < CommonMemberCount) return dispatchCommon(id, call);
    switch (id - CommonMemberCount) {
        case AddItem: {
            auto args = call.arguments(1, 2);
            String item = textValue(args[0]);
            if (args.size() == 2) return addItem(std::move(item), longValue(args[1])), Variant();
            return addItem(std::move(item)), Variant();
        }
        case RemoveItem: return removeItem(longValue(call.arguments(1, 1)[0])), Variant();
        case Clear: call.arguments(0, 0); return clear(), Variant();
        case List: {
            const auto i = longValue(call.indices(1)[0]);
            if (call.isPut()) {
                String text = textValue(call.value());
                if (i < 0 || i >= listCount()) invalidIndex();
                items_[static_cast<std::size_t>(i)].text = std::move(text);
                return {};
            }
            if (i < 0) invalidIndex();
            return Variant(i < listCount() ? items_[static_cast<std::size_t>(i)].text : String());
        }
        case ListCount: return readOnlyProperty(call, [&] { return Variant(listCount()); });
        case ListIndex:
            return property(
                call, [&] { return Variant(listIndex_); }, [&](const Variant& v) { setListIndex(longValue(v)); });
        case ItemData: {
            const auto i = itemIndex(call.indices(1)[0]);
            if (call.isPut()) return setItemData(i, longValue(call.value())), Variant();
            return Variant(items_[static_cast<std::size_t>(i)].data);
        }
        case NewIndex: return readOnlyProperty(call, [&] { return Variant(newIndex_); });
        case Style: return readOnlyProperty(call, [&] { return Variant(style_); });
        case Text:
            return property(
                call, [&] { return Variant(text()); }, [&](const Variant& v) { setText(textValue(v)); });
        case SelStart:
            return property(
                call, [&] { return Variant(selStart_); }, [&](const Variant& v) { setSelStart(longValue(v)); });
        case SelLength:
            return property(
                call, [&] { return Variant(selLength_); },
                [&](const Variant& v) {
                    const auto n = longValue(v);
                    if (n < 0) raise(err::InvalidPropertyValue);
                    selLength_ = std::min(n, static_cast<std::int32_t>(text().size()) - selStart_);
                });
    }
    raiseNoSuchMember();
}

}  // namespace telvaro::objects

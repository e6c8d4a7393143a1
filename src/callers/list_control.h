// A caller's list box or combo box: its items (text and a Long ItemData
// each), the selection and the index of the item added last.
#pragma once

#include "callers/caller_object.h"

namespace telvaro::callers {

class ListControl : public CallerObject {
public:
    using CallerObject::CallerObject;

    void clear() const { call(u"Clear"); }
    void addItem(const Variant& text) const { call(u"AddItem", {text}); }
    Variant listCount() const { return get(u"ListCount"); }
    Variant list(const Variant& index) const { return get(u"List", {index}); }
    Variant listIndex() const { return get(u"ListIndex"); }
    void setListIndex(const Variant& index) const { put(u"ListIndex", index); }
    Variant newIndex() const { return get(u"NewIndex"); }
    Variant itemData(const Variant& index) const { return get(u"ItemData", {index}); }
    void setItemData(const Variant& index, const Variant& data) const { put(u"ItemData", {index}, data); }
    void setVisible(const Variant& visible) const { put(u"Visible", visible); }
};

}  // namespace telvaro::callers

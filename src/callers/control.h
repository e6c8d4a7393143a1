// A control or form of the caller's form library, as the form helpers use
// it: its text, caret, tag, name, style, enabled state, container and
// parent, a list box's items and font size, a grid's cell text, a form's
// Controls, and the window handle. Every member is looked up by name when
// it is called.
//
// The class tests ("is a text box") ask the object's TypeName, as the
// runtime answers it: on Linux the library's own controls answer their kind
// ("TextBox", "ComboBox", "CheckBox", "OptionButton", "MSFlexGrid"); on
// Windows a caller's control answers the name of its class in its type
// information (IDispatch::GetTypeInfo), which for the form library's
// controls is the same word.
#pragma once

#include <cstdint>
#include <functional>

#include "callers/caller_object.h"
#include "runtime/convert.h"

namespace telvaro::callers {

class Control : public CallerObject {
public:
    using CallerObject::CallerObject;

    bool isTextBox() const { return typeName() == u"TextBox"; }
    bool isComboBox() const { return typeName() == u"ComboBox"; }
    bool isCheckBox() const { return typeName() == u"CheckBox"; }
    bool isOptionButton() const { return typeName() == u"OptionButton"; }

    String text() const { return toString(get(u"Text")); }
    void setText(StringView text) const { put(u"Text", Variant(String(text))); }
    // The value of the default member, as text (a text box's Text).
    String defaultText() const { return toString(get(u"")); }
    void setSelStart(std::int32_t position) const { put(u"SelStart", Variant(position)); }
    // The text of a grid's current cell, where its editor writes.
    String cellText() const { return toString(get(u"CellText")); }
    void setCellText(StringView text) const { put(u"CellText", Variant(String(text))); }
    Variant textMatrix(std::int32_t row, std::int32_t col) const {
        return get(u"TextMatrix", {Variant(row), Variant(col)});
    }

    String tag() const { return toString(get(u"Tag")); }
    String name() const { return toString(get(u"Name")); }
    std::int16_t style() const { return toInteger(get(u"Style")); }
    void setEnabled(Boolean enabled) const { put(u"Enabled", Variant(enabled)); }
    Control container() const { return Control(get(u"Container")); }
    Control parent() const { return Control(get(u"Parent")); }
    std::int32_t hwnd() const { return toLong(get(u"hwnd")); }

    // A list box's items and font.
    std::int32_t listCount() const { return toLong(get(u"ListCount")); }
    String listItem(std::int32_t index) const { return toString(get(u"List", {Variant(index)})); }
    double fontSize() const { return toDouble(get(u"FontSize")); }

    // For Each control In Controls: the collection's enumerator, as the
    // runtime asks it (_NewEnum), walked in order. Each item comes as the
    // Variant the enumerator gives, so that a method in statement-skipping
    // mode can take it as a control in a statement of its own.
    void forEachControl(const std::function<void(const Variant&)>& body) const;
};

}  // namespace telvaro::callers

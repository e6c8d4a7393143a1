#include "grid/backspace.h"

#include "runtime/convert.h"
#include "runtime/object.h"
#include "runtime/text.h"

namespace telvaro::grid {

std::int16_t removeLastCharacter(const Variant& control) {
    const ObjectHandle object = objectOf(control);
    const String text = toString(object.get(u"Text"));
    if (text.empty()) return 0;
    const auto shorter = static_cast<std::int32_t>(text.size()) - 1;
    object.put(u"Text", left(text, shorter));
    const String kind = object.typeName();
    if (textEquals(kind, u"TextBox") || textEquals(kind, u"ComboBox")) object.put(u"SelStart", shorter);
    return 0;
}

}  // namespace telvaro::grid

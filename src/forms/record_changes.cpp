#include "forms/record_changes.h"

#include "callers/control.h"
#include "runtime/text.h"

namespace telvaro::forms {

namespace {
constexpr std::int16_t kEnter = 13;
constexpr std::int16_t kEscape = 27;
constexpr std::int16_t kSpace = 32;
}  // namespace

Boolean esChanged(Fun&, const ObjectRef& aControl, std::int16_t KeyA, Boolean EstActual) {
    Boolean changed = EstActual;
    const callers::Control control{Variant(aControl)};
    if (textEquals(upperCase(control.tag()), u"BUSCAR")) return changed;
    if (KeyA != kEscape && KeyA != kEnter && (control.isTextBox() || control.isComboBox())) changed = True;
    if (KeyA == kSpace && (control.isCheckBox() || control.isOptionButton())) changed = True;
    return changed;
}

}  // namespace telvaro::forms

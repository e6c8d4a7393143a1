#include "forms/backspace.h"

#include "callers/control.h"

namespace telvaro::forms {

std::int16_t fn_Backspace(Fun&, const ObjectRef& Control) {
    const callers::Control box{Variant(Control)};
    const String text = box.text();
    if (!text.empty()) {
        const String shorter = text.substr(0, text.size() - 1);
        box.setText(shorter);
        if (box.isTextBox() || box.isComboBox()) box.setSelStart(static_cast<std::int32_t>(shorter.size()));
    }
    return 0;
}

}  // namespace telvaro::forms

#include "forms/form_texts.h"

#include <optional>

#include "callers/control.h"
#include "context/error_modes.h"
#include "runtime/text.h"

namespace telvaro::forms {

namespace {

constexpr std::int16_t kDropDownList = 2;

// Runs `body` for each control of the form, every statement of it skipped
// on failure; the error is cleared after each control.
template <typename Body>
void forEachControlSkipping(SkipErrors& onError, const ObjectRef& form, Body&& body) {
    onError([&] {
        callers::Control{Variant(form)}.forEachControl([&](const Variant& item) {
            if (auto control = onError.value([&] { return callers::Control{item}; })) body(*control);
            onError.clear();
        });
    });
}

// Writes `text` into the control, unless it is a drop-down list combo,
// whose text cannot be written.
void writeText(SkipErrors& onError, const callers::Control& control, StringView text) {
    if (control.isComboBox()) {
        const auto style = onError.value([&] { return control.style(); });
        if (!style || *style == kDropDownList) return;
    }
    onError([&] { control.setText(text); });
}

}  // namespace

void fn_LimpiaTextObjetos(Fun&, const ObjectRef& Formulario) {
    SkipErrors onError;
    forEachControlSkipping(onError, Formulario, [&](const callers::Control& control) {
        onError([&] { control.textMatrix(0, 0); });
        if (!onError.failed()) return;  // a grid
        onError.clear();
        const auto text = onError.value([&] { return control.text(); });
        if (text && !text->empty()) writeText(onError, control, u"");
    });
    onError.clear();
}

void QuitaEspacios(Fun&, const ObjectRef& Formulario) {
    SkipErrors onError;
    forEachControlSkipping(onError, Formulario, [&](const callers::Control& control) {
        const auto text = onError.value([&] { return control.text(); });
        if (text && !text->empty()) writeText(onError, control, trim(*text));
    });
    onError.clear();
}

}  // namespace telvaro::forms

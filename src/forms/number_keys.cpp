#include "forms/number_keys.h"

#include "callers/control.h"
#include "forms/backspace.h"
#include "runtime/checked.h"
#include "runtime/text.h"

namespace telvaro::forms {

namespace {

constexpr std::int16_t kBackspace = 8;
constexpr std::int16_t kMinus = 45;
constexpr std::int16_t kPoint = 46;

struct KeyRules {
    std::int16_t decimals;
    Boolean withSign;
    std::int16_t maxLength;
};

// Whether `key` may be appended to `text`; a backspace is done here (the
// last character goes) and is never appended.
bool accepts(Fun& fun, const ObjectRef& box, const String& text, std::int16_t key, const KeyRules& rules) {
    const std::int32_t length = static_cast<std::int32_t>(text.size());
    // First, so that a full box refuses even the backspace.
    if (length >= rules.maxLength) return false;
    if (key == kBackspace) return fn_Backspace(fun, box) != 0;

    const bool digit = key >= '0' && key <= '9';
    if (!digit && key != kMinus && key != kPoint) return false;
    if (key == kMinus) {
        if (rules.withSign.bits == 0) return false;
        // Only a True of exactly -1 asks for the sign to come first.
        if (rules.withSign.bits == -1 && (inStr(text, u"-") > 0 || !text.empty())) return false;
    }
    if (key == kPoint) {
        if (rules.decimals == 0) return false;
        if (rules.decimals > 0 && (inStr(text, u".") > 0 || !numPuedePonerPunto(text, toInt16(length), rules.decimals)))
            return false;
    }
    if (digit) {
        // The decimals once full take no digit, wherever the caret is.
        const std::int32_t point = inStr(text, u".");
        if (point > 0 && rules.decimals >= 1 && length > point && length - point >= rules.decimals) return false;
    }
    if (key == kPoint && length == Int16(rules.maxLength) - 1) return false;
    if (length == rules.maxLength) return false;
    return true;
}

}  // namespace

bool numPuedePonerPunto(StringView Texto, std::int16_t Pos, std::int16_t Limite) {
    if (Texto.empty() || Pos <= 0) return false;
    if (Pos == 1 && Texto.front() == u'-') return false;
    const auto rest = mid(Texto, Pos, static_cast<std::int32_t>(Texto.size()) - Pos);
    return static_cast<std::int32_t>(rest.size()) <= Limite;
}

std::int16_t VerificaNumero(Fun& fun, const ObjectRef& Objeto, std::int16_t KeyAscii, std::int16_t NumDecimales,
                            Boolean ConSigno, std::int16_t Longitud, Boolean EsGridEx) {
    const callers::Control box{Variant(Objeto)};
    const bool onGrid = EsGridEx.bits != 0;
    const String text = onGrid ? box.cellText() : box.text();
    if (accepts(fun, Objeto, text, KeyAscii, {NumDecimales, ConSigno, Longitud})) {
        const String key(1, static_cast<char16_t>(KeyAscii));
        if (onGrid) {
            box.setCellText(box.cellText() + key);
        } else {
            box.setText(box.text() + key);
            box.setSelStart(static_cast<std::int32_t>(box.defaultText().size()));
        }
    }
    return 0;
}

}  // namespace telvaro::forms

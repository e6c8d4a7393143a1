#include "ident/cedula_ruc.h"

#include "context/fun.h"
#include "platform/message_box.h"
#include "runtime/checked.h"
#include "runtime/convert.h"
#include "runtime/text.h"

namespace telvaro::ident {

namespace {

// The outcome of a full check: valid, accepted by the user, or refused.
enum Outcome : std::int16_t { Refused = 0, Valid = 1, AcceptedByUser = 2 };

const char16_t* const kCedulaWarning =
    u"El número de cédula parece que está incorrecto, desea ignorar esto y continuar de todas formas?";
const char16_t* const kRucWarning =
    u"El número de RUC parece que está incorrecto, desea ignorar esto y continuar de todas formas?";
constexpr int kWarningStyle = msgbox::YesNo | msgbox::Exclamation;  // 52

// The character at `position` (1-based) as one-character text.
String charAt(const String& text, std::int32_t position) { return mid(text, position, 1); }

// The value of a character: the leading-number reading, 0 for a non-digit.
double valueOf(const String& text) { return val(text); }

// The integer of a character: a non-digit is a type mismatch (13).
std::int16_t integerOf(const String& text) { return toInteger(Variant(text)); }

bool isEstablishment(const String& lastThree) {
    return textEquals(lastThree, u"001") || textEquals(lastThree, u"002") || textEquals(lastThree, u"003");
}

// A doubtful number: with Advertir set, the user may accept it.
Outcome warnIfAsked(Fun& fun, bool valid, Boolean advertir, const char16_t* prompt) {
    if (valid) return Valid;
    if (advertir.isTrue() && fun.showMessage(prompt, kWarningStyle, u"Confirme") == msgbox::Yes) return AcceptedByUser;
    return Refused;
}

Outcome checkCedula(Fun& fun, const String& number, Boolean advertir) {
    if (!fn_ValidaCedula(fun, number).isTrue()) return Refused;
    bool classPasses = !(valueOf(charAt(number, 3)) > 6);
    Int16 sum = 0;
    Int16 weight = 2;
    forLoop(Int16(1), 9, [&](Int16 i) {
        Int16 product = Int16(integerOf(charAt(number, i))) * weight;
        if (product > 9) product -= 9;
        sum += product;
        weight = weight == 2 ? Int16(1) : Int16(2);
    });
    const int r = sum % 10;
    const int expected = r >= 1 ? 10 - r : 0;
    const bool valid = valueOf(charAt(number, 10)) == expected && classPasses;
    return warnIfAsked(fun, valid, advertir, kCedulaWarning);
}

Outcome checkRuc(Fun& fun, const String& number, Boolean advertir) {
    if (!fn_ValidaRUC(fun, number).isTrue()) return Refused;
    // The weights of the two classes with their own check digit, indexed by
    // class: 1 private company, 2 public entity.
    static const char16_t* const weights[] = {u"", u"432765432", u"32765432"};
    const double third = valueOf(charAt(number, 3));
    const int kind = third == 9 ? 1 : third == 6 ? 2 : 0;

    bool valid = true;
    if (kind == 0) {
        valid = fn_ValidaCedula(fun, left(number, 10)).isTrue() && isEstablishment(right(number, 3));
    } else {
        const String w = weights[kind];
        const auto n = static_cast<std::int32_t>(w.size());
        Int16 sum = 0;
        for (std::int32_t i = 1; i <= n; ++i)
            sum = Int16::ofDouble(sum.value() + valueOf(charAt(number, i)) * valueOf(charAt(w, i)));
        const int r = sum % 11;
        const int expected = r > 0 ? 11 - r : 0;
        if (valueOf(charAt(number, n + 1)) != expected) valid = false;
        const String establishment = right(number, 12 - n);
        const String last = right(number, 1);
        if (!(valueOf(establishment) == valueOf(last) && !textEquals(last, u"0"))) valid = false;
    }
    return warnIfAsked(fun, valid, advertir, kRucWarning);
}

}  // namespace

Boolean fn_ValidaCedula(Fun&, const String& NumCedula) {
    return Boolean(!textEquals(NumCedula, u"9999999999") && inStr(NumCedula, u"-") == 0 && NumCedula.size() == 10);
}

Boolean fn_ValidaCedula2(Fun& fun, const String& NumCedula, Boolean Advertir) {
    return Boolean(checkCedula(fun, NumCedula, Advertir) != Refused);
}

std::int16_t fn_ValidaCedula3(Fun& fun, const String& NumCedula, Boolean Advertir) {
    return checkCedula(fun, NumCedula, Advertir);
}

Boolean fn_ValidaRUC(Fun&, const String& NumRUC) {
    bool ok = true;
    if (inStr(NumRUC, u"-") != 0) ok = false;
    if (NumRUC.size() != 13) ok = false;
    if (!isEstablishment(right(NumRUC, 3))) ok = false;
    return Boolean(ok);
}

Boolean fn_ValidaRUC2(Fun& fun, const String& NumRUC, Boolean Advertir) {
    return Boolean(checkRuc(fun, NumRUC, Advertir) != Refused);
}

Boolean fn_ValidaRUC3(Fun& fun, const String& NumRUC, Boolean Advertir) {
    const Outcome code = checkRuc(fun, NumRUC, Advertir);
    return Boolean(code == Valid || code == AcceptedByUser);
}

}  // namespace telvaro::ident

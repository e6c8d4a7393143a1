#include "text/amount_in_words.h"

#include "context/fun.h"
#include "runtime/convert.h"
#include "runtime/error.h"
#include "runtime/text.h"

namespace telvaro::text {

namespace {

const char16_t* const kUnits[] = {
    u"",           u"uno",        u"dos",        u"tres",         u"cuatro",      u"cinco",      u"seis",
    u"siete",      u"ocho",       u"nueve",      u"diez",         u"once",        u"doce",       u"trece",
    u"catorce",    u"quince",     u"dieciséis",  u"diecisiete",   u"dieciocho",   u"diecinueve", u"veinte",
    u"veintiuno",  u"veintidós",  u"veintitrés", u"veinticuatro", u"veinticinco", u"veintiséis", u"veintisiete",
    u"veintiocho", u"veintinueve"};
const char16_t* const kTens[] = {u"",          u"",        u"",        u"treinta", u"cuarenta",
                                 u"cincuenta", u"sesenta", u"setenta", u"ochenta", u"noventa"};
// Hundreds in the masculine; the feminine replaces "ientos" by "ientas".
const char16_t* const kHundreds[] = {u"",           u"ciento",      u"doscientos",  u"trescientos", u"cuatrocientos",
                                     u"quinientos", u"seiscientos", u"setecientos", u"ochocientos", u"novecientos"};

// The word "uno" as it stands: "una" in the feminine, "un" before a
// masculine noun (veintiuno -> veintiún, treinta y uno -> treinta y un).
String adaptOne(String words, eSexo gender, bool beforeNoun) {
    auto endsWith = [&](StringView tail) {
        return words.size() >= tail.size() && words.compare(words.size() - tail.size(), tail.size(), tail) == 0;
    };
    if (endsWith(u"veintiuno")) {
        words.resize(words.size() - 9);
        return words + (gender == eSexo::Femenino ? u"veintiuna" : beforeNoun ? u"veintiún" : u"veintiuno");
    }
    if (endsWith(u"uno")) {
        words.resize(words.size() - 3);
        return words + (gender == eSexo::Femenino ? u"una" : beforeNoun ? u"un" : u"uno");
    }
    return words;
}

// 0 to 999, masculine full forms ("" for 0).
String belowThousand(int n, eSexo gender) {
    String out;
    const int hundreds = n / 100, rest = n % 100;
    if (hundreds > 0) {
        if (n == 100) return u"cien";
        String h = kHundreds[hundreds];
        if (gender == eSexo::Femenino && hundreds > 1) h = replaceText(h, u"ientos", u"ientas");
        out = h;
    }
    if (rest > 0) {
        if (!out.empty()) out += u" ";
        if (rest < 30) {
            out += kUnits[rest];
        } else {
            out += kTens[rest / 10];
            if (rest % 10) out += String(u" y ") + kUnits[rest % 10];
        }
    }
    return out;
}

// A group of up to six digits: thousands and units, the thousands taking
// the same gender as the units ("doscientas mil pesetas") and never "un mil".
String belowMillion(int n, eSexo gender, bool beforeNoun) {
    const int thousands = n / 1000, rest = n % 1000;
    String out;
    if (thousands == 1) {
        out = u"mil";
    } else if (thousands > 1) {
        out = adaptOne(belowThousand(thousands, gender), gender, true) + u" mil";
    }
    if (rest > 0) {
        if (!out.empty()) out += u" ";
        out += adaptOne(belowThousand(rest, gender), gender, beforeNoun);
    }
    return out;
}

}  // namespace

String numberInWords(std::int64_t n, eSexo gender, bool beforeNoun) {
    if (n < 0 || n > 999999999999999) raise(err::Overflow);
    if (n == 0) return u"cero";
    // Long scale: millón = 10^6, billón = 10^12; "mil millones" between.
    const std::int64_t billions = n / 1000000000000, millions = n / 1000000 % 1000000, units = n % 1000000;
    String out;
    auto append = [&](const String& part) {
        if (part.empty()) return;
        if (!out.empty()) out += u" ";
        out += part;
    };
    if (billions > 0) {
        append(billions == 1 ? String(u"un billón")
                             : belowMillion(static_cast<int>(billions), eSexo::Masculino, true) + u" billones");
    }
    if (millions > 0) {
        // Millón is a masculine noun: its multiplier is always masculine.
        append(millions == 1 ? String(u"un millón")
                             : belowMillion(static_cast<int>(millions), eSexo::Masculino, true) + u" millones");
    }
    append(belowMillion(static_cast<int>(units), gender, beforeNoun));
    return out;
}

String Numero2Letra(Fun&, String strNum, std::int32_t Lo, std::int32_t NumDecimales, String sMoneda, String sCentimos,
                    eSexo SexoMoneda, eSexo SexoCentimos) {
    if (NumDecimales < 0 || NumDecimales > 9 || Lo < 0) raise(err::InvalidProcedureCall);
    const Decimal amount = toDecimal(Variant(strNum));  // error 13 for text that is not a number

    // Whole part and cents, the cents rounded half away from zero as
    // amounts on invoices are.
    const bool negative = amount.isNegative();
    const Decimal magnitude = negative ? -amount : amount;
    std::int64_t whole = magnitude.truncate().toInt64();
    std::int64_t scale = 1;
    for (int i = 0; i < NumDecimales; ++i) scale *= 10;
    const Decimal fraction = magnitude - magnitude.truncate();
    std::int64_t cents = (fraction * Decimal::fromInt64(scale) + *Decimal::parse(u"0.5")).truncate().toInt64();
    if (cents == scale && NumDecimales > 0) {
        ++whole;
        cents = 0;
    }
    if (NumDecimales == 0 && !fraction.isZero() && !(fraction < *Decimal::parse(u"0.5"))) ++whole;
    if (whole > 999999999999999) raise(err::Overflow);

    const String currency = trim(sMoneda), centsWord = trim(sCentimos);
    String text = numberInWords(whole, SexoMoneda, !currency.empty());
    if (negative && (whole != 0 || cents != 0)) text = u"menos " + text;
    // "un millón de dólares": a round number of millions takes "de".
    if (!currency.empty() && whole >= 1000000 && whole % 1000000 == 0) text += u" de";
    if (!currency.empty()) text += u" " + currency;
    if (NumDecimales > 0) {
        text += u" con " + numberInWords(cents, SexoCentimos, !centsWord.empty());
        if (!centsWord.empty()) text += u" " + centsWord;
    }
    // Asterisks up to the length asked for, as String$ makes them: error 14
    // past the longest text the library builds.
    if (static_cast<std::int64_t>(text.size()) < Lo)
        text += repeatChar(static_cast<std::int32_t>(Lo - static_cast<std::int64_t>(text.size())), u'*');
    return text;
}

}  // namespace telvaro::text

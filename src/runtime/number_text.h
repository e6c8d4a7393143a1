// Numbers as text, the two halves the conversions stand on: the
// runtime's locale-aware reader, which keeps the digits exactly so that a
// Currency or Decimal read from text is exact and only a Double rounds, and
// the writer of numbers in their shortest form with a given decimal mark.
// Internal to the runtime: other layers use runtime/convert.h.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "runtime/regional.h"
#include "runtime/variant.h"

namespace telvaro {

inline bool isDigit(char16_t c) { return c >= u'0' && c <= u'9'; }
// 0-15 for a hexadecimal digit, 99 for anything else.
int digitValue(char16_t c);
// Blanks the locale-aware reader skips around a number.
bool isBlank(char16_t c);
StringView trimBlanks(StringView t);

struct NumberText {
    bool negative = false;
    std::string digits;         // significant digits, no leading or trailing zeros; empty for zero
    std::int64_t exponent = 0;  // the value is digits * 10^exponent
    bool radix = false;         // "&H" / "&O": the value is radixValue
    std::int32_t radixValue = 0;
    bool radixOverflow = false;  // more than 32 bits of digits
};

// Exponents beyond this are out of every type's range either way; clamping
// keeps the arithmetic on them exact.
constexpr std::int64_t kExponentClamp = 1'000'000'000;

// Digits, fraction digits and the written exponent to the normal form.
void normalize(NumberText& n, std::string raw, std::int64_t fractionDigits, std::int64_t writtenExponent);

// The runtime's locale-aware reading of a number: blanks around, one sign
// and the currency symbol before the number (in either order) or after it,
// parentheses for a negative number, thousands marks anywhere in the
// integer part, the regional decimal mark, an exponent with E or D, and
// "&H"/"&O" prefixes. Empty when the text is not a number.
std::optional<NumberText> scanNumber(StringView text, const RegionalSettings& s);
// The number's value as a Double; error 6 beyond the Double range.
double toDouble(const NumberText& n);
// An exact Currency count (1/10000 units), rounded half to even; error 6
// outside the Currency range.
std::int64_t currencyOf(const NumberText& number);
// An exact Decimal: at most 28 decimal places and the 96-bit mantissa,
// rounded half to even; error 6 when the integer part is too large.
Decimal decimalOf(const NumberText& number);

// Numbers written as text with the decimal mark `mark`: a Double in at most
// 15 significant digits, Currency and Decimal without trailing zeros.
String doubleText(double d, char16_t mark);
String currencyText(Currency c, char16_t mark);
String decimalText(const Decimal& d, char16_t mark);
// The text of a numeric value (not Date, not Boolean).
String numberText(const Variant& v, char16_t mark);

}  // namespace telvaro

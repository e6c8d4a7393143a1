// The Format engine's numbers: the decimal digits a number is written from,
// a number section applied to them, and the general number text.
// Internal to the runtime's Format engine.
#pragma once

#include <cstdint>
#include <string>

#include "runtime/decimal.h"
#include "runtime/format_pattern.h"
#include "runtime/regional.h"

namespace telvaro::formatting {

// A number as decimal digits: value = 0.d1d2d3... x 10^point. `digits`
// has no leading or trailing zeros; zero has no digits. The sign is kept
// apart because the sections decide how it is shown.
struct Digits {
    std::string digits;
    int point = 0;
    bool negative = false;
    // Integer types, Currency and Decimal are written with every digit;
    // a Double only with its 15 significant digits (general number text).
    bool exact = true;

    bool isZero() const { return digits.empty(); }
    static Digits fromDouble(double d);  // 15 significant digits; error 6 for NaN/infinity
    static Digits fromInteger(std::int64_t v);
    static Digits fromCurrency(std::int64_t scaled);
    static Digits fromDecimal(const Decimal& d);

    // Multiplies by 10^power.
    void shift(int power);
    // Rounds half away from zero to `decimals` places after the point.
    void roundTo(int decimals);
    // The digits left of the point ("" for a value below 1).
    std::string integerPart() const;
    // The first `count` digits right of the point, padded with zeros.
    std::string fractionPart(int count) const;

private:
    void normalize();
};

// A number section applied to a magnitude; `minus` puts "-" in front.
String formatNumberSection(const Section& section, Digits magnitude, bool minus, const RegionalSettings& settings);

// The number as the runtime writes it without a pattern: no thousands
// marks, the regional decimal mark, a Double in at most 15 significant
// digits and in exponent form ("1E+20") when that is shorter than plain.
String generalNumber(const Digits& number, const RegionalSettings& settings);

}  // namespace telvaro::formatting

// Decimal: the automation runtime's 96-bit scaled integer. A value is
// (-1)^sign * mantissa / 10^scale with a 96-bit unsigned mantissa and a
// scale from 0 to 28. Results that do not fit raise error 6 (overflow);
// division by zero raises error 11. Results that need more than 28 decimal
// places are rounded half to even, as the runtime rounds them.
#pragma once

#include <compare>
#include <cstdint>
#include <optional>

#include "runtime/ustring.h"

namespace telvaro {

class Decimal {
public:
    static constexpr int kMaxScale = 28;

    Decimal() = default;
    static Decimal fromInt64(std::int64_t v);
    // A Double with at most 15 significant digits, as the runtime converts it;
    // error 6 when the magnitude exceeds the Decimal range, or for NaN/infinity.
    static Decimal fromDouble(double v);
    // A Currency value: an integer count of 1/10000 units.
    static Decimal fromCurrency(std::int64_t scaled);
    // Parts: the 96-bit mantissa as lo, mid, hi words, the scale and the sign;
    // error 5 for a scale outside 0..28.
    static Decimal fromParts(std::uint32_t lo, std::uint32_t mid, std::uint32_t hi, int scale, bool negative);
    // Text in plain or exponent notation with the given decimal mark and
    // optional thousands marks, optional sign and surrounding blanks.
    // Empty optional when the text is not a number; error 6 when out of range.
    // The places written are kept ("1.50" has scale 2); beyond 28 places, or
    // beyond what 96 bits hold, the value is rounded half to even.
    // A thousands mark of u'\0' means none.
    static std::optional<Decimal> parse(StringView text, char16_t decimalMark = u'.', char16_t thousandsMark = u',');

    double toDouble() const;
    // Rounded half to even to a whole number; error 6 outside int64.
    std::int64_t toInt64() const;
    // Currency count of 1/10000 units, rounded half to even; error 6 outside range.
    std::int64_t toCurrency() const;
    // Plain notation, no thousands marks, trailing zeros of the scale kept
    // ("1.50" stays "1.50"), "-" for negatives, never an exponent.
    String toString(char16_t decimalMark = u'.') const;

    bool isZero() const { return lo_ == 0 && mid_ == 0 && hi_ == 0; }
    bool isNegative() const { return negative_ && !isZero(); }
    int scale() const { return scale_; }
    std::uint32_t lo() const { return lo_; }
    std::uint32_t mid() const { return mid_; }
    std::uint32_t hi() const { return hi_; }

    Decimal operator-() const;
    // Sums and differences keep the larger scale, products the sum of the
    // scales, while the result fits. An exact quotient keeps the difference
    // of the scales (1.50 / 0.5 = 3.0, never below 0); an inexact one gets as
    // many places as fit, up to 28, without trailing zeros (10 / 4 = 2.5).
    friend Decimal operator+(const Decimal& a, const Decimal& b);
    friend Decimal operator-(const Decimal& a, const Decimal& b);
    friend Decimal operator*(const Decimal& a, const Decimal& b);
    friend Decimal operator/(const Decimal& a, const Decimal& b);

    // Numeric comparison: 1.50 equals 1.5, -0 equals 0.
    friend std::strong_ordering operator<=>(const Decimal& a, const Decimal& b);
    friend bool operator==(const Decimal& a, const Decimal& b) { return (a <=> b) == 0; }

    // Whole part, toward zero.
    Decimal truncate() const;

private:
    std::uint32_t lo_ = 0, mid_ = 0, hi_ = 0;
    int scale_ = 0;
    bool negative_ = false;
};

}  // namespace telvaro

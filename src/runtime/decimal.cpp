#include "runtime/decimal.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <string>

#include "runtime/error.h"

namespace telvaro {

namespace {

constexpr std::array<std::uint32_t, 10> kPow10 = {1,      10,      100,      1000,      10000,
                                                  100000, 1000000, 10000000, 100000000, 1000000000};

// An unsigned integer of 192 bits in 32-bit words, least significant first.
// It holds the exact product of two 96-bit mantissas and a 96-bit mantissa
// scaled up by 10^28 (below 2^190), so sums, products and comparisons are
// exact before they are rounded to a Decimal. Callers keep values within
// 192 bits.
class Wide {
public:
    static constexpr int kWords = 6;

    Wide() = default;
    explicit Wide(std::uint64_t v) {
        words_[0] = static_cast<std::uint32_t>(v);
        words_[1] = static_cast<std::uint32_t>(v >> 32);
    }
    static Wide pow10(int n) {
        Wide r(1);
        r.scaleUp(n);
        return r;
    }
    static Wide mantissaOf(const Decimal& d) {
        Wide m;
        m.words_[0] = d.lo();
        m.words_[1] = d.mid();
        m.words_[2] = d.hi();
        return m;
    }

    std::uint32_t word(int i) const { return words_[static_cast<std::size_t>(i)]; }
    bool isZero() const {
        return std::all_of(words_.begin(), words_.end(), [](std::uint32_t w) { return w == 0; });
    }
    bool isOdd() const { return (words_[0] & 1) != 0; }
    bool fits96() const { return words_[3] == 0 && words_[4] == 0 && words_[5] == 0; }
    bool fits64() const { return fits96() && words_[2] == 0; }
    std::uint64_t low64() const { return (std::uint64_t(words_[1]) << 32) | words_[0]; }

    // *this = *this * factor + addend.
    void multiplyAdd(std::uint32_t factor, std::uint32_t addend = 0) {
        std::uint64_t carry = addend;
        for (auto& w : words_) {
            const std::uint64_t t = std::uint64_t(w) * factor + carry;
            w = static_cast<std::uint32_t>(t);
            carry = t >> 32;
        }
    }

    // *this /= divisor, toward zero; returns the remainder.
    std::uint32_t divide(std::uint32_t divisor) {
        std::uint64_t remainder = 0;
        for (auto w = words_.rbegin(); w != words_.rend(); ++w) {
            const std::uint64_t t = (remainder << 32) | *w;
            *w = static_cast<std::uint32_t>(t / divisor);
            remainder = t % divisor;
        }
        return static_cast<std::uint32_t>(remainder);
    }

    // *this *= 10^digits.
    void scaleUp(int digits) {
        for (; digits > 0; digits -= 9) multiplyAdd(kPow10[static_cast<std::size_t>(std::min(digits, 9))]);
    }

    // *this /= 10^digits, toward zero; true when nonzero digits were cut off.
    bool scaleDown(int digits) {
        bool cut = false;
        for (; digits > 0; digits -= 9) cut = divide(kPow10[static_cast<std::size_t>(std::min(digits, 9))]) != 0 || cut;
        return cut;
    }

    void add(const Wide& other) {
        std::uint64_t carry = 0;
        for (std::size_t i = 0; i < kWords; ++i) {
            const std::uint64_t t = std::uint64_t(words_[i]) + other.words_[i] + carry;
            words_[i] = static_cast<std::uint32_t>(t);
            carry = t >> 32;
        }
    }

    // *this -= other; *this must not be smaller than other.
    void subtract(const Wide& other) {
        std::uint64_t borrow = 0;
        for (std::size_t i = 0; i < kWords; ++i) {
            const std::uint64_t t = std::uint64_t(words_[i]) - other.words_[i] - borrow;
            words_[i] = static_cast<std::uint32_t>(t);
            borrow = (t >> 32) != 0 ? 1 : 0;
        }
    }

    // The product of two values below 2^96 (it fits 192 bits).
    friend Wide operator*(const Wide& a, const Wide& b) {
        Wide product;
        for (std::size_t i = 0; i < 3; ++i) {
            std::uint64_t carry = 0;
            for (std::size_t j = 0; j < 3; ++j) {
                const std::uint64_t t = std::uint64_t(a.words_[i]) * b.words_[j] + product.words_[i + j] + carry;
                product.words_[i + j] = static_cast<std::uint32_t>(t);
                carry = t >> 32;
            }
            product.words_[i + 3] = static_cast<std::uint32_t>(carry);
        }
        return product;
    }

    // *this %= divisor (nonzero); returns the quotient. Binary long
    // division, one bit of the dividend at a time from its highest word.
    Wide divideBy(const Wide& divisor) {
        Wide quotient, remainder;
        int words = kWords;
        while (words > 0 && words_[static_cast<std::size_t>(words - 1)] == 0) --words;
        for (int bit = words * 32; bit-- > 0;) {
            remainder.shiftLeftOne();
            remainder.words_[0] |= (words_[static_cast<std::size_t>(bit / 32)] >> (bit % 32)) & 1;
            if (remainder >= divisor) {
                remainder.subtract(divisor);
                quotient.words_[static_cast<std::size_t>(bit / 32)] |= std::uint32_t(1) << (bit % 32);
            }
        }
        *this = remainder;
        return quotient;
    }

    friend std::strong_ordering operator<=>(const Wide& a, const Wide& b) {
        for (std::size_t i = kWords; i-- > 0;) {
            if (a.words_[i] != b.words_[i]) return a.words_[i] <=> b.words_[i];
        }
        return std::strong_ordering::equal;
    }

private:
    void shiftLeftOne() {
        for (std::size_t i = kWords; i-- > 1;) words_[i] = (words_[i] << 1) | (words_[i - 1] >> 31);
        words_[0] <<= 1;
    }

    std::array<std::uint32_t, kWords> words_{};
};

// The mantissa of d brought to `scale` places (scale >= d.scale()), exactly.
Wide alignedMantissa(const Decimal& d, int scale) {
    Wide m = Wide::mantissaOf(d);
    m.scaleUp(scale - d.scale());
    return m;
}

// Drops the last `digits` decimal digits of m, rounding half to even.
// `sticky` tells that nonzero digits were already cut off below m, so a
// dropped 5 is more than half; it only matters when digits are dropped.
Wide roundOff(Wide m, int digits, bool sticky) {
    if (digits <= 0) return m;
    sticky = m.scaleDown(digits - 1) || sticky;
    const std::uint32_t dropped = m.divide(10);
    if (dropped > 5 || (dropped == 5 && (sticky || m.isOdd()))) m.add(Wide(1));
    return m;
}

// A Decimal from a mantissa that already fits: zero is never negative.
Decimal fromMantissa(const Wide& m, int scale, bool negative) {
    return Decimal::fromParts(m.word(0), m.word(1), m.word(2), scale, negative && !m.isZero());
}

// The Decimal nearest to m / 10^scale (scale >= 0): as many places as both
// the 28-place limit and the 96-bit mantissa allow, rounded half to even.
// `sticky` tells that nonzero digits were already cut off below m (callers
// then keep at least one digit more than a Decimal holds). Error 6 when the
// whole part does not fit 96 bits.
Decimal nearest(Wide m, int scale, bool negative, bool sticky = false) {
    int drop = std::max(0, scale - Decimal::kMaxScale);
    Wide whole = m;
    whole.scaleDown(drop);
    while (!whole.fits96()) {
        whole.divide(10);
        ++drop;
    }
    if (drop > scale) raise(err::Overflow);
    m = roundOff(m, drop, sticky);
    scale -= drop;
    if (!m.fits96()) {  // the rounding carried up to 2^96: one place less
        if (scale == 0) raise(err::Overflow);
        m = roundOff(m, 1, false);
        --scale;
    }
    return fromMantissa(m, scale, negative);
}

// d without the trailing zeros of its fraction, keeping at least minScale places.
Decimal withoutTrailingZeros(const Decimal& d, int minScale) {
    Wide m = Wide::mantissaOf(d);
    int scale = d.scale();
    while (scale > minScale) {
        Wide shorter = m;
        if (shorter.divide(10) != 0) break;
        m = shorter;
        --scale;
    }
    return fromMantissa(m, scale, d.isNegative());
}

// A magnitude as an int64 with its sign; error 6 outside int64.
std::int64_t toSignedInt64(const Wide& magnitude, bool negative) {
    const std::uint64_t limit = std::uint64_t(1) << 63;
    if (!magnitude.fits64()) raise(err::Overflow);
    const std::uint64_t v = magnitude.low64();
    if (negative) {
        if (v > limit) raise(err::Overflow);
        return v == limit ? INT64_MIN : -static_cast<std::int64_t>(v);
    }
    if (v >= limit) raise(err::Overflow);
    return static_cast<std::int64_t>(v);
}

// ---------------------------------------------------------------------------
// Reading text.

// A number as read from text: value = digits * 10^exponent. Only the first
// kKept significant digits are kept exactly; of the rest,
// only whether any is nonzero matters, for rounding.
struct NumberText {
    static constexpr int kKept = 38;
    static constexpr std::int64_t kExponentLimit = 1000000;

    bool negative = false;
    Wide digits;
    int kept = 0;
    bool cutNonzero = false;
    std::int64_t exponent = 0;

    void addDigit(int digit, bool inFraction) {
        if (kept < kKept) {
            digits.multiplyAdd(10, static_cast<std::uint32_t>(digit));
            if (!digits.isZero()) ++kept;  // leading zeros are not significant
            if (inFraction) --exponent;
        } else {
            cutNonzero = cutNonzero || digit != 0;
            if (!inFraction) ++exponent;
        }
    }
};

bool isBlank(char16_t c) { return c == u' ' || c == u'\t' || c == u'\r' || c == u'\n' || c == u'\v' || c == u'\f'; }
bool isDigit(char16_t c) { return c >= u'0' && c <= u'9'; }
bool isExponentMark(char16_t c) { return c == u'E' || c == u'e' || c == u'D' || c == u'd'; }

// The exponent after E or D: an optional sign and at least one digit, up to
// the end of the text. Huge exponents saturate; they overflow or vanish anyway.
std::optional<std::int64_t> readExponent(StringView text) {
    std::size_t i = 0;
    bool negative = false;
    if (i < text.size() && (text[i] == u'+' || text[i] == u'-')) negative = text[i++] == u'-';
    if (i == text.size()) return std::nullopt;
    std::int64_t value = 0;
    for (; i < text.size(); ++i) {
        if (!isDigit(text[i])) return std::nullopt;
        value = std::min(value * 10 + (text[i] - u'0'), NumberText::kExponentLimit);
    }
    return negative ? -value : value;
}

// Blanks, an optional sign, digits with thousands marks before the decimal
// mark, the decimal mark and more digits, an optional exponent, blanks.
std::optional<NumberText> readNumberText(StringView text, char16_t decimalMark, char16_t thousandsMark) {
    while (!text.empty() && isBlank(text.front())) text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back())) text.remove_suffix(1);
    NumberText number;
    if (!text.empty() && (text.front() == u'+' || text.front() == u'-')) {
        number.negative = text.front() == u'-';
        text.remove_prefix(1);
    }
    bool anyDigit = false, inFraction = false;
    std::size_t i = 0;
    for (; i < text.size(); ++i) {
        const char16_t c = text[i];
        if (isDigit(c)) {
            number.addDigit(c - u'0', inFraction);
            anyDigit = true;
        } else if (c == decimalMark && !inFraction) {
            inFraction = true;
        } else if (c == thousandsMark && thousandsMark != u'\0' && !inFraction && anyDigit) {
            continue;
        } else {
            break;
        }
    }
    if (!anyDigit) return std::nullopt;
    if (i < text.size()) {
        if (!isExponentMark(text[i])) return std::nullopt;
        const auto exponent = readExponent(text.substr(i + 1));
        if (!exponent) return std::nullopt;
        number.exponent += *exponent;
    }
    return number;
}

// The Decimal nearest to the number read; error 6 when its whole part does not fit.
Decimal toDecimal(const NumberText& number) {
    if (number.digits.isZero()) {
        const auto places = std::clamp<std::int64_t>(-number.exponent, 0, Decimal::kMaxScale);
        return fromMantissa(Wide(), static_cast<int>(places), false);
    }
    if (number.exponent >= 0) {
        // 10^29 > 2^96: more than 29 whole digits never fit.
        if (number.kept + number.exponent > Decimal::kMaxScale + 1) raise(err::Overflow);
        Wide m = number.digits;
        m.scaleUp(static_cast<int>(number.exponent));
        return nearest(m, 0, number.negative);
    }
    const std::int64_t scale = -number.exponent;
    // Below 10^-30 the value rounds to zero at the last place.
    if (scale - number.kept >= Decimal::kMaxScale + 2) return fromMantissa(Wide(), Decimal::kMaxScale, false);
    return nearest(number.digits, static_cast<int>(scale), number.negative, number.cutNonzero);
}

}  // namespace

// ---------------------------------------------------------------------------
// Construction and conversion.

Decimal Decimal::fromParts(std::uint32_t lo, std::uint32_t mid, std::uint32_t hi, int scale, bool negative) {
    if (scale < 0 || scale > kMaxScale) raise(err::InvalidProcedureCall);
    Decimal d;
    d.lo_ = lo;
    d.mid_ = mid;
    d.hi_ = hi;
    d.scale_ = scale;
    d.negative_ = negative;
    return d;
}

Decimal Decimal::fromInt64(std::int64_t v) {
    const std::uint64_t magnitude = v < 0 ? 0 - static_cast<std::uint64_t>(v) : static_cast<std::uint64_t>(v);
    return fromMantissa(Wide(magnitude), 0, v < 0);
}

Decimal Decimal::fromCurrency(std::int64_t scaled) {
    const Decimal units = fromInt64(scaled);
    return fromParts(units.lo_, units.mid_, units.hi_, 4, units.negative_);
}

Decimal Decimal::fromDouble(double v) {
    if (!std::isfinite(v) || std::fabs(v) >= std::ldexp(1.0, 96)) raise(err::Overflow);
    if (v == 0) return Decimal();
    // Fifteen significant digits, d.dddddddddddddde±x, correctly rounded.
    std::array<char, 32> text{};
    const auto written = std::to_chars(text.data(), text.data() + text.size(), v, std::chars_format::scientific, 14);
    const auto number = readNumberText(ascii(std::string_view(text.data(), written.ptr)), u'.', u'\0');
    if (!number) raise(err::Overflow);
    return withoutTrailingZeros(toDecimal(*number), 0);
}

std::optional<Decimal> Decimal::parse(StringView text, char16_t decimalMark, char16_t thousandsMark) {
    const auto number = readNumberText(text, decimalMark, thousandsMark);
    if (!number) return std::nullopt;
    return toDecimal(*number);
}

double Decimal::toDouble() const {
    // The exact decimal text read back gives the correctly rounded Double.
    const std::string text = toUtf8(toString(u'.'));
    double v = 0;
    std::from_chars(text.data(), text.data() + text.size(), v);
    return v;
}

std::int64_t Decimal::toInt64() const {
    return toSignedInt64(roundOff(Wide::mantissaOf(*this), scale_, false), isNegative());
}

std::int64_t Decimal::toCurrency() const {
    Wide m = Wide::mantissaOf(*this);
    if (scale_ <= 4) {
        m.scaleUp(4 - scale_);
    } else {
        m = roundOff(m, scale_ - 4, false);
    }
    return toSignedInt64(m, isNegative());
}

String Decimal::toString(char16_t decimalMark) const {
    std::string digits;
    for (Wide m = Wide::mantissaOf(*this); !m.isZero();) digits += static_cast<char>('0' + m.divide(10));
    const auto places = static_cast<std::size_t>(scale_);
    if (digits.size() <= places) digits.resize(places + 1, '0');  // "0.05", not ".05"
    std::reverse(digits.begin(), digits.end());
    String out = isNegative() ? u"-" : u"";
    out += ascii(std::string_view(digits).substr(0, digits.size() - places));
    if (places > 0) {
        out += decimalMark;
        out += ascii(std::string_view(digits).substr(digits.size() - places));
    }
    return out;
}

// ---------------------------------------------------------------------------
// Arithmetic.

Decimal Decimal::operator-() const {
    Decimal d = *this;
    d.negative_ = !d.negative_;
    return d;
}

Decimal operator+(const Decimal& a, const Decimal& b) {
    const int scale = std::max(a.scale(), b.scale());
    Wide x = alignedMantissa(a, scale), y = alignedMantissa(b, scale);
    if (a.isNegative() == b.isNegative()) {
        x.add(y);
        return nearest(x, scale, a.isNegative());
    }
    if (x >= y) {
        x.subtract(y);
        return nearest(x, scale, a.isNegative());
    }
    y.subtract(x);
    return nearest(y, scale, b.isNegative());
}

Decimal operator-(const Decimal& a, const Decimal& b) { return a + (-b); }

Decimal operator*(const Decimal& a, const Decimal& b) {
    const Wide product = Wide::mantissaOf(a) * Wide::mantissaOf(b);
    return nearest(product, a.scale() + b.scale(), a.isNegative() != b.isNegative());
}

// Long division of the mantissas. An exact quotient keeps the scale
// difference of the operands (1.50 / 0.5 = 3.0); otherwise the quotient gets
// as many places as fit, rounded half to even, without trailing zeros
// (10 / 4 = 2.5).
Decimal operator/(const Decimal& a, const Decimal& b) {
    if (b.isZero()) raise(err::DivisionByZero);
    const bool negative = a.isNegative() != b.isNegative();
    const Wide divisor = Wide::mantissaOf(b);
    Wide remainder = Wide::mantissaOf(a);
    Wide quotient = remainder.divideBy(divisor);
    int scale = a.scale() - b.scale();
    const bool exact = remainder.isZero();
    auto nextDigit = [&] {
        remainder.multiplyAdd(10);  // below 10 * 2^96
        std::uint32_t digit = 0;
        for (; remainder >= divisor; ++digit) remainder.subtract(divisor);
        quotient.multiplyAdd(10, digit);
        ++scale;
    };
    // Places down to the units belong to the whole part.
    while (scale < 0) {
        if (!quotient.fits96()) raise(err::Overflow);
        nextDigit();
    }
    // While inexact: one digit beyond what a Decimal holds, for the rounding.
    static const Wide kTooManyDigits = Wide::pow10(Decimal::kMaxScale + 1);
    while (!remainder.isZero() && scale <= Decimal::kMaxScale && quotient < kTooManyDigits) nextDigit();
    const Decimal rounded = nearest(quotient, scale, negative, !remainder.isZero());
    return exact ? rounded : withoutTrailingZeros(rounded, 0);
}

std::strong_ordering operator<=>(const Decimal& a, const Decimal& b) {
    if (a.isNegative() != b.isNegative()) {
        return a.isNegative() ? std::strong_ordering::less : std::strong_ordering::greater;
    }
    const int scale = std::max(a.scale(), b.scale());
    const auto magnitude = alignedMantissa(a, scale) <=> alignedMantissa(b, scale);
    return a.isNegative() ? 0 <=> magnitude : magnitude;
}

Decimal Decimal::truncate() const {
    Wide m = Wide::mantissaOf(*this);
    m.scaleDown(scale_);
    return fromMantissa(m, 0, negative_);
}

}  // namespace telvaro

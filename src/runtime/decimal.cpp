#include "runtime/decimal.h"

#include <cmath>
#include <cstdio>
#include <string>

#include "runtime/error.h"

namespace telvaro {

namespace {

__extension__ typedef unsigned __int128 u128;

const u128 kMax96 = (u128(1) << 96) - 1;

u128 pow10(int n) {
    u128 r = 1;
    for (int i = 0; i < n; ++i) r *= 10;
    return r;
}

// A working value: an unbounded-enough magnitude split into a 128-bit
// mantissa (kept below 2^127 during arithmetic) and a scale.
struct Wide {
    u128 mantissa = 0;
    int scale = 0;
    bool negative = false;
};

// Divides by 10^n rounding half to even.
u128 divRound(u128 m, int n) {
    if (n <= 0) return m;
    u128 q = m, rem = 0, last = 1;
    for (int i = 0; i < n; ++i) {
        u128 r = q % 10;
        q /= 10;
        // Track whether all dropped digits below the last one are zero.
        if (i < n - 1) {
            if (r != 0) rem = 1;
        } else {
            last = r;
        }
    }
    if (last > 5 || (last == 5 && (rem != 0 || (q & 1) != 0))) ++q;
    return q;
}

Decimal make(u128 mantissa, int scale, bool negative) {
    // Scale down while the mantissa does not fit 96 bits or the scale is too big.
    while ((mantissa > kMax96 || scale > Decimal::kMaxScale) && scale > 0) {
        mantissa = divRound(mantissa, 1);
        --scale;
    }
    if (mantissa > kMax96) raise(err::Overflow);
    return Decimal::fromParts(static_cast<std::uint32_t>(mantissa), static_cast<std::uint32_t>(mantissa >> 32),
                              static_cast<std::uint32_t>(mantissa >> 64), scale, negative);
}

u128 mantissaOf(const Decimal& d) {
    return (u128(d.hi()) << 64) | (u128(d.mid()) << 32) | u128(d.lo());
}

// Brings both to the same scale without losing digits where possible.
void align(u128& a, int& sa, u128& b, int& sb) {
    while (sa < sb) {
        if (a > (u128(1) << 123)) {  // cannot grow: round b down instead
            b = divRound(b, 1);
            --sb;
        } else {
            a *= 10;
            ++sa;
        }
    }
    while (sb < sa) {
        if (b > (u128(1) << 123)) {
            a = divRound(a, 1);
            --sa;
        } else {
            b *= 10;
            ++sb;
        }
    }
}

}  // namespace

Decimal Decimal::fromParts(std::uint32_t lo, std::uint32_t mid, std::uint32_t hi, int scale, bool negative) {
    if (scale < 0 || scale > kMaxScale) raise(err::Overflow);
    Decimal d;
    d.lo_ = lo;
    d.mid_ = mid;
    d.hi_ = hi;
    d.scale_ = scale;
    d.negative_ = negative;
    return d;
}

Decimal Decimal::fromInt64(std::int64_t v) {
    bool negative = v < 0;
    u128 m = negative ? u128(-(v + 1)) + 1 : u128(v);
    return make(m, 0, negative);
}

Decimal Decimal::fromCurrency(std::int64_t scaled) {
    Decimal d = fromInt64(scaled);
    d.scale_ = 4;
    return d;
}

Decimal Decimal::fromDouble(double v) {
    if (std::isnan(v) || std::isinf(v)) raise(err::Overflow);
    if (std::fabs(v) >= 7.9228162514264338e28) raise(err::Overflow);
    if (v == 0) return Decimal();
    char buf[64];
    std::snprintf(buf, sizeof buf, "%.14e", v);  // 15 significant digits
    auto parsed = parse(String(buf, buf + std::char_traits<char>::length(buf)), u'.', u'\0');
    if (!parsed) raise(err::Overflow);
    // Drop trailing zeros of the fraction that the 15 digits introduced.
    Decimal d = *parsed;
    u128 m = mantissaOf(d);
    int scale = d.scale_;
    while (scale > 0 && m % 10 == 0) {
        m /= 10;
        --scale;
    }
    return make(m, scale, d.negative_);
}

std::optional<Decimal> Decimal::parse(StringView text, char16_t decimalMark, char16_t thousandsMark) {
    std::size_t i = 0, n = text.size();
    while (i < n && (text[i] == u' ' || text[i] == u'\t')) ++i;
    while (n > i && (text[n - 1] == u' ' || text[n - 1] == u'\t')) --n;
    if (i == n) return std::nullopt;
    bool negative = false;
    if (text[i] == u'+' || text[i] == u'-') negative = text[i++] == u'-';
    u128 m = 0;
    int scale = 0, dropped = 0;  // digits beyond what 128 bits hold
    bool digits = false, point = false;
    u128 droppedRound = 0;
    for (; i < n; ++i) {
        char16_t c = text[i];
        if (c >= u'0' && c <= u'9') {
            digits = true;
            if (m < (u128(1) << 120)) {
                m = m * 10 + (c - u'0');
                if (point) ++scale;
            } else {
                if (!point) ++dropped;
                if (droppedRound == 0) droppedRound = u128(c - u'0') + 1;
            }
        } else if (c == decimalMark && !point) {
            point = true;
        } else if (c == thousandsMark && thousandsMark != u'\0' && !point && digits) {
            continue;
        } else {
            break;
        }
    }
    if (!digits) return std::nullopt;
    int exponent = 0;
    if (i < n && (text[i] == u'e' || text[i] == u'E' || text[i] == u'd' || text[i] == u'D')) {
        ++i;
        bool expNegative = false;
        if (i < n && (text[i] == u'+' || text[i] == u'-')) expNegative = text[i++] == u'-';
        if (i == n) return std::nullopt;
        for (; i < n && text[i] >= u'0' && text[i] <= u'9'; ++i) {
            exponent = exponent * 10 + (text[i] - u'0');
            if (exponent > 10000) exponent = 10000;
        }
        if (expNegative) exponent = -exponent;
    }
    if (i != n) return std::nullopt;
    (void)droppedRound;
    exponent += dropped;
    scale -= exponent;
    while (scale < 0) {
        if (m == 0) {
            scale = 0;
            break;
        }
        if (m > kMax96) raise(err::Overflow);
        m *= 10;
        ++scale;
    }
    if (scale > 60) {
        // Beyond any representable precision: the value rounds to zero or to
        // a few digits; reduce step by step.
        while (scale > 60) {
            m = divRound(m, 1);
            --scale;
        }
    }
    return make(m, scale, negative);
}

double Decimal::toDouble() const {
    std::string t = [&] {
        String s = toString(u'.');
        return std::string(s.begin(), s.end());
    }();
    return std::strtod(t.c_str(), nullptr);
}

std::int64_t Decimal::toInt64() const {
    u128 q = divRound(mantissaOf(*this), scale_);
    if (negative_) {
        if (q > u128(1) << 63) raise(err::Overflow);
        return q == (u128(1) << 63) ? INT64_MIN : -static_cast<std::int64_t>(q);
    }
    if (q > u128(INT64_MAX)) raise(err::Overflow);
    return static_cast<std::int64_t>(q);
}

std::int64_t Decimal::toCurrency() const {
    u128 m = mantissaOf(*this);
    int s = scale_;
    if (s <= 4) {
        for (; s < 4; ++s) {
            m *= 10;
            if (m > (u128(1) << 100)) raise(err::Overflow);
        }
    } else {
        m = divRound(m, s - 4);
    }
    if (negative_) {
        if (m > u128(1) << 63) raise(err::Overflow);
        return m == (u128(1) << 63) ? INT64_MIN : -static_cast<std::int64_t>(m);
    }
    if (m > u128(INT64_MAX)) raise(err::Overflow);
    return static_cast<std::int64_t>(m);
}

String Decimal::toString(char16_t decimalMark) const {
    u128 m = mantissaOf(*this);
    std::string digits;
    do {
        digits.insert(digits.begin(), static_cast<char>('0' + static_cast<int>(m % 10)));
        m /= 10;
    } while (m != 0);
    if (static_cast<int>(digits.size()) <= scale_) digits.insert(0, static_cast<std::size_t>(scale_ + 1) - digits.size(), '0');
    String out;
    if (isNegative()) out += u'-';
    std::size_t whole = digits.size() - static_cast<std::size_t>(scale_);
    for (std::size_t k = 0; k < digits.size(); ++k) {
        if (k == whole) out += decimalMark;
        out += static_cast<char16_t>(digits[k]);
    }
    return out;
}

Decimal Decimal::operator-() const {
    Decimal d = *this;
    d.negative_ = !d.negative_;
    return d;
}

Decimal operator+(const Decimal& a, const Decimal& b) {
    u128 ma = mantissaOf(a), mb = mantissaOf(b);
    int sa = a.scale(), sb = b.scale();
    align(ma, sa, mb, sb);
    bool na = a.isNegative(), nb = b.isNegative();
    if (na == nb) return make(ma + mb, sa, na);
    if (ma >= mb) return make(ma - mb, sa, na);
    return make(mb - ma, sa, nb);
}

Decimal operator-(const Decimal& a, const Decimal& b) { return a + (-b); }

Decimal operator*(const Decimal& a, const Decimal& b) {
    u128 ma = mantissaOf(a), mb = mantissaOf(b);
    int scale = a.scale() + b.scale();
    bool negative = a.isNegative() != b.isNegative();
    // 96 x 96 bits may need 192: multiply in parts, dropping low digits
    // (rounding) while the product does not fit 128 bits.
    while (ma != 0 && mb != 0 && ma > (~u128(0)) / mb) {
        if (scale == 0) raise(err::Overflow);
        if (ma >= mb) {
            ma = divRound(ma, 1);
        } else {
            mb = divRound(mb, 1);
        }
        --scale;
    }
    return make(ma * mb, scale, negative);
}

Decimal operator/(const Decimal& a, const Decimal& b) {
    if (b.isZero()) raise(err::DivisionByZero);
    u128 ma = mantissaOf(a), mb = mantissaOf(b);
    int scale = a.scale() - b.scale();
    bool negative = a.isNegative() != b.isNegative();
    u128 q = ma / mb, r = ma % mb;
    // Long division: more digits while there is a remainder and room.
    while (r != 0 && q < (u128(1) << 120) / 10 && scale < 40) {
        r *= 10;
        q = q * 10 + r / mb;
        r %= mb;
        ++scale;
    }
    // Round on what remains.
    if (r != 0) {
        u128 twice = r * 2;
        if (twice > mb || (twice == mb && (q & 1))) ++q;
    }
    while (scale < 0) {
        if (q > kMax96) raise(err::Overflow);
        q *= 10;
        ++scale;
    }
    // Reduce to the representable precision, then strip trailing zeros that
    // the division itself introduced (the result carries no artificial scale).
    while ((q > kMax96 || scale > Decimal::kMaxScale) && scale > 0) {
        q = divRound(q, 1);
        --scale;
    }
    int minimum = std::max(0, a.scale() - b.scale());
    while (scale > minimum && q % 10 == 0) {
        q /= 10;
        --scale;
    }
    return make(q, scale, negative);
}

std::strong_ordering operator<=>(const Decimal& a, const Decimal& b) {
    bool na = a.isNegative(), nb = b.isNegative();
    if (na != nb) return na ? std::strong_ordering::less : std::strong_ordering::greater;
    u128 ma = mantissaOf(a), mb = mantissaOf(b);
    int sa = a.scale(), sb = b.scale();
    // Compare without losing digits: scale the smaller-scale side up in 128 bits
    // (96-bit mantissas times 10^28 could exceed 128 bits, so compare whole parts first).
    u128 wa = ma / pow10(sa), wb = mb / pow10(sb);
    std::strong_ordering mag = std::strong_ordering::equal;
    if (wa != wb) {
        mag = wa < wb ? std::strong_ordering::less : std::strong_ordering::greater;
    } else {
        u128 fa = ma % pow10(sa), fb = mb % pow10(sb);
        // Bring fractions to scale 28: fractions are below 10^28, times 10^(28-s) stays below 10^28.
        fa *= pow10(Decimal::kMaxScale - sa);
        fb *= pow10(Decimal::kMaxScale - sb);
        if (fa != fb) mag = fa < fb ? std::strong_ordering::less : std::strong_ordering::greater;
    }
    if (na && mag != std::strong_ordering::equal)
        return mag == std::strong_ordering::less ? std::strong_ordering::greater : std::strong_ordering::less;
    return mag;
}

Decimal Decimal::round(int decimals) const {
    if (decimals < 0 || decimals > kMaxScale) raise(err::InvalidProcedureCall);
    if (scale_ <= decimals) return *this;
    return make(divRound(mantissaOf(*this), scale_ - decimals), decimals, negative_);
}

Decimal Decimal::truncate() const {
    return make(mantissaOf(*this) / pow10(scale_), 0, negative_);
}

}  // namespace telvaro

#include "runtime/number_text.h"

#include <charconv>
#include <cmath>
#include <cstdlib>
#include <limits>

#include "runtime/checked.h"
#include "runtime/decimal.h"
#include "runtime/error.h"

namespace telvaro {

namespace {

// "&H1F" or "&O17": hexadecimal or octal digits, nothing else. The value is
// a 16-bit two's complement number when the digits fit 16 bits, else a
// 32-bit one ("&HFFFF" is -1, "&H10000" is 65536).
bool readRadix(StringView t, NumberText& n) {
    if (t.size() < 3 || t[0] != u'&') return false;
    const int radix = (t[1] == u'H' || t[1] == u'h') ? 16 : (t[1] == u'O' || t[1] == u'o') ? 8 : 0;
    if (radix == 0) return false;
    std::uint64_t v = 0;
    for (std::size_t i = 2; i < t.size(); ++i) {
        const int d = digitValue(t[i]);
        if (d >= radix) return false;
        if (!n.radixOverflow) {
            v = v * static_cast<std::uint64_t>(radix) + static_cast<std::uint64_t>(d);
            if (v > 0xFFFFFFFFull) n.radixOverflow = true;
        }
    }
    n.radix = true;
    if (v <= 0xFFFF) {
        n.radixValue = static_cast<std::int16_t>(static_cast<std::uint16_t>(v));
    } else {
        n.radixValue = static_cast<std::int32_t>(static_cast<std::uint32_t>(v & 0xFFFFFFFFull));
    }
    return true;
}

// Round the digit string half to even so that `drop` trailing digits go;
// the result may gain a digit ("999" -> "1000").
void dropDigitsHalfEven(NumberText& n, std::size_t drop) {
    if (drop == 0) return;
    std::string& d = n.digits;
    if (drop > d.size()) {
        // Everything goes and the first dropped digit is an implied 0.
        d.clear();
        n.exponent = 0;
        return;
    }
    const std::size_t keep = d.size() - drop;
    const char first = d[keep];
    const bool restNonZero = d.find_first_not_of('0', keep + 1) != std::string::npos;
    const bool lastKeptOdd = keep > 0 && ((d[keep - 1] - '0') % 2 == 1);
    const bool up = first > '5' || (first == '5' && (restNonZero || lastKeptOdd));
    d.erase(keep);
    n.exponent += static_cast<std::int64_t>(drop);
    if (up) {
        std::size_t k = d.size();
        while (k > 0 && d[k - 1] == '9') d[--k] = '0';
        if (k == 0) {
            d.insert(d.begin(), '1');
        } else {
            ++d[k - 1];
        }
    }
    // Back to the normal form.
    std::size_t last = d.find_last_not_of('0');
    if (last == std::string::npos) {
        d.clear();
        n.exponent = 0;
        return;
    }
    n.exponent += static_cast<std::int64_t>(d.size() - 1 - last);
    d.erase(last + 1);
}

String replaceMark(std::string text, char16_t mark) {
    String out = ascii(text);
    if (mark != u'.') {
        for (auto& c : out)
            if (c == u'.') c = mark;
    }
    return out;
}

}  // namespace

// Digits, fraction digits and the written exponent to the normal form.
void normalize(NumberText& n, std::string raw, std::int64_t fractionDigits, std::int64_t writtenExponent) {
    std::size_t first = raw.find_first_not_of('0');
    if (first == std::string::npos) {
        n.digits.clear();
        n.exponent = 0;
        return;
    }
    raw.erase(0, first);
    std::size_t last = raw.find_last_not_of('0');
    const auto trailing = static_cast<std::int64_t>(raw.size() - 1 - last);
    raw.erase(last + 1);
    n.digits = std::move(raw);
    n.exponent = writtenExponent - fractionDigits + trailing;
}

int digitValue(char16_t c) {
    if (isDigit(c)) return c - u'0';
    if (c >= u'a' && c <= u'f') return c - u'a' + 10;
    if (c >= u'A' && c <= u'F') return c - u'A' + 10;
    return 99;
}

// Blanks the locale-aware reader skips around a number.
bool isBlank(char16_t c) {
    return c == u' ' || c == u'\t' || c == u'\n' || c == u'\r' || c == u'\v' || c == u'\f' || c == 0xA0 || c == 0x3000;
}

StringView trimBlanks(StringView t) {
    std::size_t b = 0, e = t.size();
    while (b < e && isBlank(t[b])) ++b;
    while (e > b && isBlank(t[e - 1])) --e;
    return t.substr(b, e - b);
}

// The runtime's locale-aware reading of a number: blanks around, one sign
// and the currency symbol before the number (in either order) or after it,
// parentheses for a negative number, thousands marks anywhere in the
// integer part, the regional decimal mark, an exponent with E or D.
std::optional<NumberText> scanNumber(StringView text, const RegionalSettings& s) {
    const StringView t = trimBlanks(text);
    if (t.empty()) return std::nullopt;
    NumberText n;
    if (t[0] == u'&') {
        if (readRadix(t, n)) return n;
        return std::nullopt;
    }

    const char16_t decimal = s.decimalMark();
    const char16_t thousands = s.thousandMark() == decimal ? u'\0' : s.thousandMark();
    const String& currency = s.currencySymbol;
    std::size_t i = 0;
    bool parenthesised = false, signSeen = false, currencySeen = false;
    auto skipBlanks = [&] {
        while (i < t.size() && isBlank(t[i])) ++i;
    };
    auto takeCurrency = [&] {
        if (currencySeen || currency.empty() || t.compare(i, currency.size(), currency) != 0) return false;
        i += currency.size();
        currencySeen = true;
        skipBlanks();
        return true;
    };
    if (t[i] == u'(') {
        parenthesised = true;
        ++i;
        skipBlanks();
    }
    for (;;) {
        if (takeCurrency()) continue;
        if (!signSeen && i < t.size() && (t[i] == u'+' || t[i] == u'-')) {
            signSeen = true;
            n.negative = t[i] == u'-';
            ++i;
            skipBlanks();
            continue;
        }
        break;
    }

    std::string raw;
    std::int64_t fractionDigits = 0;
    bool integerDigits = false;
    while (i < t.size()) {
        if (isDigit(t[i])) {
            raw.push_back(static_cast<char>(t[i]));
            integerDigits = true;
        } else if (!(thousands != u'\0' && t[i] == thousands && integerDigits)) {
            break;
        }
        ++i;
    }
    bool anyDigits = integerDigits;
    if (i < t.size() && t[i] == decimal) {
        ++i;
        while (i < t.size() && isDigit(t[i])) {
            raw.push_back(static_cast<char>(t[i++]));
            ++fractionDigits;
            anyDigits = true;
        }
    }
    if (!anyDigits) return std::nullopt;

    std::int64_t writtenExponent = 0;
    if (i < t.size() && (t[i] == u'E' || t[i] == u'e' || t[i] == u'D' || t[i] == u'd')) {
        ++i;
        bool negativeExponent = false;
        if (i < t.size() && (t[i] == u'+' || t[i] == u'-')) negativeExponent = t[i++] == u'-';
        bool exponentDigits = false;
        while (i < t.size() && isDigit(t[i])) {
            if (writtenExponent < kExponentClamp) writtenExponent = writtenExponent * 10 + (t[i] - u'0');
            ++i;
            exponentDigits = true;
        }
        if (!exponentDigits) return std::nullopt;
        if (negativeExponent) writtenExponent = -writtenExponent;
    }

    skipBlanks();
    takeCurrency();
    if (parenthesised) {
        if (signSeen || i >= t.size() || t[i] != u')') return std::nullopt;
        n.negative = true;
        ++i;
        skipBlanks();
    }
    if (i != t.size()) return std::nullopt;
    normalize(n, std::move(raw), fractionDigits, writtenExponent);
    return n;
}

double toDouble(const NumberText& n) {
    if (n.radix) {
        if (n.radixOverflow) raise(err::Overflow);
        return n.radixValue;
    }
    if (n.digits.empty()) return 0.0;
    // The value lies in [10^(magnitude-1), 10^magnitude).
    const std::int64_t magnitude = n.exponent + static_cast<std::int64_t>(n.digits.size());
    if (magnitude > 310) raise(err::Overflow);
    if (magnitude < -330) return 0.0;
    // Integer digits and an exponent: no decimal point, so the C library's
    // locale plays no part in the reading.
    const std::string text = n.digits + "e" + std::to_string(n.exponent);
    const double v = std::strtod(text.c_str(), nullptr);
    if (std::isinf(v)) raise(err::Overflow);
    return n.negative ? -v : v;
}

// An exact Currency count (1/10000 units) of a number read from text,
// rounded half to even; error 6 outside the Currency range.
std::int64_t currencyOf(const NumberText& number) {
    if (number.radix) {
        if (number.radixOverflow) raise(err::Overflow);
        return std::int64_t(number.radixValue) * 10000;
    }
    NumberText n = number;
    n.exponent += 4;  // count in 1/10000 units
    if (n.exponent < 0) dropDigitsHalfEven(n, static_cast<std::size_t>(std::min<std::int64_t>(-n.exponent, 1'000'000)));
    if (n.digits.empty()) return 0;
    if (n.exponent + static_cast<std::int64_t>(n.digits.size()) > 19) raise(err::Overflow);
    std::uint64_t v = 0;
    for (char c : n.digits) v = v * 10 + static_cast<std::uint64_t>(c - '0');
    for (std::int64_t k = 0; k < n.exponent; ++k) {
        if (v > std::numeric_limits<std::uint64_t>::max() / 10) raise(err::Overflow);
        v *= 10;
    }
    const std::uint64_t limit = n.negative ? (std::uint64_t(1) << 63) : (std::uint64_t(1) << 63) - 1;
    if (v > limit) raise(err::Overflow);
    if (!n.negative) return static_cast<std::int64_t>(v);
    return v == (std::uint64_t(1) << 63) ? std::numeric_limits<std::int64_t>::min() : -static_cast<std::int64_t>(v);
}

// An exact Decimal of a number read from text: at most 28 decimal places and
// at most the 96-bit mantissa, rounded half to even; error 6 when the
// integer part is too large.
Decimal decimalOf(const NumberText& number) {
    if (number.radix) {
        if (number.radixOverflow) raise(err::Overflow);
        return Decimal::fromInt64(number.radixValue);
    }
    NumberText n = number;
    if (n.exponent < -Decimal::kMaxScale) {
        dropDigitsHalfEven(
            n, static_cast<std::size_t>(std::min<std::int64_t>(-Decimal::kMaxScale - n.exponent, 1'000'000)));
    }
    static const std::string kMaxMantissa = "79228162514264337593543950335";
    auto tooWide = [&] {
        return n.digits.size() > kMaxMantissa.size() ||
               (n.digits.size() == kMaxMantissa.size() && n.digits > kMaxMantissa);
    };
    while (n.exponent < 0 && tooWide()) dropDigitsHalfEven(n, 1);
    if (n.digits.empty()) return Decimal::fromInt64(0);
    if (n.exponent + static_cast<std::int64_t>(n.digits.size()) > static_cast<std::int64_t>(kMaxMantissa.size()))
        raise(err::Overflow);
    // Plain text with "." for the Decimal reader.
    std::string text = n.negative ? "-" : "";
    if (n.exponent >= 0) {
        text += n.digits;
        text.append(static_cast<std::size_t>(n.exponent), '0');
    } else {
        const auto places = static_cast<std::size_t>(-n.exponent);
        if (places >= n.digits.size()) {
            text += "0." + std::string(places - n.digits.size(), '0') + n.digits;
        } else {
            text += n.digits.substr(0, n.digits.size() - places) + "." + n.digits.substr(n.digits.size() - places);
        }
    }
    auto d = Decimal::parse(ascii(text), u'.', u',');
    if (!d) raise(err::Overflow);
    return *d;
}

String doubleText(double d, char16_t mark) {
    if (!std::isfinite(d)) raise(err::Overflow);
    if (d == 0) return u"0";
    // Whole numbers of up to fifteen digits are their integer text.
    if (std::fabs(d) < 1e15 && d == std::trunc(d)) {
        char whole[24];
        const auto end = std::to_chars(whole, whole + sizeof whole, static_cast<std::int64_t>(d)).ptr;
        return String(whole, end);
    }
    // Fifteen significant digits, correctly rounded, free of the C locale.
    char buf[64];
    auto res = std::to_chars(buf, buf + sizeof buf, std::fabs(d), std::chars_format::scientific, 14);
    const std::string s(buf, res.ptr);
    const auto ePos = s.find('e');
    const int exponent = std::atoi(s.c_str() + ePos + 1);
    std::string digits = s.substr(0, 1) + s.substr(2, ePos - 2);
    while (digits.size() > 1 && digits.back() == '0') digits.pop_back();
    const int sig = static_cast<int>(digits.size());

    // Plain while the integer part has at most 15 digits and the last digit
    // stands at most 15 places after the point.
    const bool plain = exponent >= 0 ? exponent < 15 : (-exponent - 1 + sig) <= 15;
    std::string out = d < 0 ? "-" : "";
    if (plain) {
        if (exponent >= 0) {
            const auto whole = static_cast<std::size_t>(exponent) + 1;
            if (digits.size() <= whole) {
                out += digits + std::string(whole - digits.size(), '0');
            } else {
                out += digits.substr(0, whole) + "." + digits.substr(whole);
            }
        } else {
            out += "0." + std::string(static_cast<std::size_t>(-exponent - 1), '0') + digits;
        }
    } else {
        out += digits.substr(0, 1);
        if (sig > 1) out += "." + digits.substr(1);
        out += exponent < 0 ? "E-" : "E+";
        const int e = std::abs(exponent);
        if (e < 10) out += "0";
        out += std::to_string(e);
    }
    return replaceMark(std::move(out), mark);
}

String currencyText(Currency c, char16_t mark) {
    const bool negative = c.scaled < 0;
    const std::uint64_t magnitude =
        negative ? std::uint64_t(0) - static_cast<std::uint64_t>(c.scaled) : static_cast<std::uint64_t>(c.scaled);
    std::string out = negative ? "-" : "";
    out += std::to_string(magnitude / 10000);
    std::uint64_t fraction = magnitude % 10000;
    if (fraction != 0) {
        std::string f = std::to_string(fraction);
        f.insert(0, 4 - f.size(), '0');
        while (f.back() == '0') f.pop_back();
        out += "." + f;
    }
    return replaceMark(std::move(out), mark);
}

String decimalText(const Decimal& d, char16_t mark) {
    String t = d.toString(mark);
    if (d.scale() > 0 && t.find(mark) != String::npos) {
        while (!t.empty() && t.back() == u'0') t.pop_back();
        if (!t.empty() && t.back() == mark) t.pop_back();
    }
    if (t == u"-0") t = u"0";
    return t;
}

// The text of a numeric value (not Date, not Boolean) with the given mark.
String numberText(const Variant& v, char16_t mark) {
    switch (v.type()) {
        case VarType::Byte: return ascii(std::to_string(v.get<std::uint8_t>()));
        case VarType::Integer: return ascii(std::to_string(v.get<std::int16_t>()));
        case VarType::Long: return ascii(std::to_string(v.get<std::int32_t>()));
        case VarType::Double: return doubleText(v.get<double>(), mark);
        case VarType::Currency: return currencyText(v.get<Currency>(), mark);
        case VarType::Decimal: return decimalText(v.get<Decimal>(), mark);
        default: raise(err::TypeMismatch);
    }
}

}  // namespace telvaro

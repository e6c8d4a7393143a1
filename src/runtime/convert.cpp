#include "runtime/convert.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <string>

#include "runtime/checked.h"
#include "runtime/datetime.h"
#include "runtime/error.h"
#include "runtime/object.h"
#include "runtime/regional.h"
#include "runtime/text.h"

namespace telvaro {

namespace {

constexpr double kMaxCurrency = 922337203685477.5807;

bool isBlank(char16_t c) { return c == u' ' || c == u'\t' || c == u'\n' || c == u'\r' || c == 0xA0; }
bool isDigit(char16_t c) { return c >= u'0' && c <= u'9'; }

// The default member of an object, as the runtime reads it when an object
// is used where a value is expected.
Variant defaultValue(const Variant& v) {
    Object& o = objectOf(v);
    Variant value = o.invoke(u"", InvokeKind::PropertyGet, {});
    if (value.isObject()) raise(err::TypeMismatch);
    return value;
}

// "&H1F" and "&O17": the value, as the runtime reads them (16-bit when the
// digits fit 16 bits, else 32-bit, both two's complement).
std::optional<double> parseRadix(StringView t) {
    if (t.size() < 3 || t[0] != u'&') return std::nullopt;
    int radix = (t[1] == u'H' || t[1] == u'h') ? 16 : (t[1] == u'O' || t[1] == u'o') ? 8 : 0;
    if (!radix) return std::nullopt;
    std::uint64_t v = 0;
    for (std::size_t i = 2; i < t.size(); ++i) {
        char16_t c = t[i];
        int d = isDigit(c) ? c - u'0' : (c >= u'a' && c <= u'f') ? c - u'a' + 10 : (c >= u'A' && c <= u'F') ? c - u'A' + 10 : 99;
        if (d >= radix) return std::nullopt;
        v = v * static_cast<std::uint64_t>(radix) + static_cast<std::uint64_t>(d);
        if (v > 0xFFFFFFFFull) raise(err::Overflow);
    }
    if (v <= 0xFFFF) return static_cast<double>(static_cast<std::int16_t>(static_cast<std::uint16_t>(v)));
    return static_cast<double>(static_cast<std::int32_t>(static_cast<std::uint32_t>(v)));
}

String trimBlanks(StringView t) {
    std::size_t b = 0, e = t.size();
    while (b < e && isBlank(t[b])) ++b;
    while (e > b && isBlank(t[e - 1])) --e;
    return String(t.substr(b, e - b));
}

}  // namespace

std::optional<double> parseNumber(StringView text) {
    const RegionalSettings& s = regional();
    String t = trimBlanks(text);
    if (t.empty()) return std::nullopt;
    if (auto r = parseRadix(t)) return r;

    std::size_t i = 0;
    bool negative = false, parenthesised = false;
    auto skipBlanks = [&] {
        while (i < t.size() && isBlank(t[i])) ++i;
    };
    auto skipCurrency = [&] {
        const String& cur = s.currencySymbol;
        if (!cur.empty() && t.compare(i, cur.size(), cur) == 0) {
            i += cur.size();
            skipBlanks();
        }
    };
    if (t[i] == u'(') {
        parenthesised = true;
        ++i;
        skipBlanks();
    }
    skipCurrency();
    if (i < t.size() && (t[i] == u'+' || t[i] == u'-')) {
        negative = t[i] == u'-';
        ++i;
        skipBlanks();
    }
    skipCurrency();

    std::string ascii;
    bool digits = false;
    const char16_t decimal = s.decimalMark(), thousands = s.thousandMark();
    while (i < t.size()) {
        char16_t c = t[i];
        if (isDigit(c)) {
            ascii.push_back(static_cast<char>(c));
            digits = true;
            ++i;
        } else if (c == thousands && thousands != decimal && digits) {
            ++i;
        } else {
            break;
        }
    }
    if (i < t.size() && t[i] == decimal) {
        ascii.push_back('.');
        ++i;
        while (i < t.size() && isDigit(t[i])) {
            ascii.push_back(static_cast<char>(t[i++]));
            digits = true;
        }
    }
    if (!digits) return std::nullopt;
    if (i < t.size() && (t[i] == u'E' || t[i] == u'e' || t[i] == u'D' || t[i] == u'd')) {
        std::size_t j = i + 1;
        std::string exponent = "e";
        if (j < t.size() && (t[j] == u'+' || t[j] == u'-')) exponent.push_back(static_cast<char>(t[j++]));
        bool expDigits = false;
        while (j < t.size() && isDigit(t[j])) {
            exponent.push_back(static_cast<char>(t[j++]));
            expDigits = true;
        }
        if (!expDigits) return std::nullopt;
        ascii += exponent;
        i = j;
    }
    skipBlanks();
    skipCurrency();
    if (parenthesised) {
        if (i >= t.size() || t[i] != u')' || negative) return std::nullopt;
        negative = true;
        ++i;
        skipBlanks();
    }
    if (i != t.size()) return std::nullopt;
    double value = std::strtod(ascii.c_str(), nullptr);
    if (std::isinf(value)) raise(err::Overflow);
    return negative ? -value : value;
}

String doubleToString(double d) {
    if (std::isnan(d)) return u"NaN";
    if (std::isinf(d)) return d > 0 ? u"Infinity" : u"-Infinity";
    if (d == 0) return u"0";
    char buf[64];
    std::snprintf(buf, sizeof buf, "%.14e", d);  // 15 significant digits
    std::string s(buf);
    bool negative = s[0] == '-';
    if (negative) s.erase(0, 1);
    auto ePos = s.find('e');
    int exponent = std::atoi(s.c_str() + ePos + 1);
    std::string digits = s.substr(0, 1) + s.substr(2, ePos - 2);
    while (digits.size() > 1 && digits.back() == '0') digits.pop_back();
    const int sig = static_cast<int>(digits.size());

    std::string out;
    bool plain = exponent >= 0 ? exponent < 15 : (-exponent - 1 + sig) <= 15;
    if (plain) {
        if (exponent >= 0) {
            std::string whole = digits.substr(0, std::min<std::size_t>(digits.size(), static_cast<std::size_t>(exponent) + 1));
            whole.append(static_cast<std::size_t>(exponent) + 1 - whole.size(), '0');
            out = whole;
            if (sig > exponent + 1) out += "." + digits.substr(static_cast<std::size_t>(exponent) + 1);
        } else {
            out = "0." + std::string(static_cast<std::size_t>(-exponent - 1), '0') + digits;
        }
    } else {
        out = digits.substr(0, 1);
        if (sig > 1) out += "." + digits.substr(1);
        char e[16];
        std::snprintf(e, sizeof e, "E%c%02d", exponent < 0 ? '-' : '+', std::abs(exponent));
        out += e;
    }
    String text = ascii(std::string(negative ? "-" : "") + out);
    const char16_t mark = regional().decimalMark();
    if (mark != u'.')
        for (auto& c : text)
            if (c == u'.') c = mark;
    return text;
}

String currencyToString(Currency c) {
    // Up to four decimal places, without trailing zeros.
    const char16_t mark = regional().decimalMark();
    String t = Decimal::fromCurrency(c.scaled).toString(mark);
    if (t.find(mark) != String::npos) {
        while (t.back() == u'0') t.pop_back();
        if (t.back() == mark) t.pop_back();
    }
    return t;
}

String toString(const Variant& v) {
    switch (v.type()) {
        case VarType::Empty: return {};
        case VarType::Null: raise(err::InvalidUseOfNull);
        case VarType::Boolean: return v.get<Boolean>().isTrue() ? u"True" : u"False";
        case VarType::Byte: return ascii(std::to_string(v.get<std::uint8_t>()));
        case VarType::Integer: return ascii(std::to_string(v.get<std::int16_t>()));
        case VarType::Long: return ascii(std::to_string(v.get<std::int32_t>()));
        case VarType::Double: return doubleToString(v.get<double>());
        case VarType::Currency: return currencyToString(v.get<Currency>());
        case VarType::Decimal: return v.get<Decimal>().toString(regional().decimalMark());
        case VarType::Date: return dateToString(v.get<Date>(), regional());
        case VarType::String: return v.get<String>();
        case VarType::Object: return toString(defaultValue(v));
        default: raise(err::TypeMismatch);
    }
}

double toDouble(const Variant& v) {
    switch (v.type()) {
        case VarType::Empty: return 0;
        case VarType::Null: raise(err::InvalidUseOfNull);
        case VarType::Boolean: return v.get<Boolean>().bits;
        case VarType::Byte: return v.get<std::uint8_t>();
        case VarType::Integer: return v.get<std::int16_t>();
        case VarType::Long: return v.get<std::int32_t>();
        case VarType::Double: return v.get<double>();
        case VarType::Currency: return static_cast<double>(v.get<Currency>().scaled) / 10000.0;
        case VarType::Decimal: return v.get<Decimal>().toDouble();
        case VarType::Date: return v.get<Date>().serial;
        case VarType::String: {
            auto n = parseNumber(v.get<String>());
            if (!n) raise(err::TypeMismatch);
            return *n;
        }
        case VarType::Object: return toDouble(defaultValue(v));
        default: raise(err::TypeMismatch);
    }
}

std::int16_t toInteger(const Variant& v) {
    switch (v.type()) {
        case VarType::Integer: return v.get<std::int16_t>();
        case VarType::Boolean: return v.get<Boolean>().bits;
        case VarType::Byte: return v.get<std::uint8_t>();
        case VarType::Long: return toInt16(v.get<std::int32_t>());
        case VarType::Decimal: return toInt16(v.get<Decimal>().toInt64());
        case VarType::Currency: return toInt16(Decimal::fromCurrency(v.get<Currency>().scaled).toInt64());
        default: return Int16::ofDouble(toDouble(v)).value();
    }
}

std::int32_t toLong(const Variant& v) {
    switch (v.type()) {
        case VarType::Integer: return v.get<std::int16_t>();
        case VarType::Boolean: return v.get<Boolean>().bits;
        case VarType::Byte: return v.get<std::uint8_t>();
        case VarType::Long: return v.get<std::int32_t>();
        case VarType::Decimal: return toInt32(v.get<Decimal>().toInt64());
        case VarType::Currency: return toInt32(Decimal::fromCurrency(v.get<Currency>().scaled).toInt64());
        default: return Int32::ofDouble(toDouble(v)).value();
    }
}

std::uint8_t toByteValue(const Variant& v) {
    switch (v.type()) {
        case VarType::Byte: return v.get<std::uint8_t>();
        case VarType::Integer:
        case VarType::Long:
        case VarType::Boolean:
        case VarType::Decimal:
        case VarType::Currency: return toByte(toLong(v));
        default: {
            double d = toDouble(v);
            if (!(d > -1.0 && d < 256.0)) raise(err::Overflow);
            return toByte(Int32::ofDouble(d).value());
        }
    }
}

Boolean toBoolean(const Variant& v) {
    switch (v.type()) {
        case VarType::Boolean: return v.get<Boolean>();
        case VarType::String: {
            String t = trimBlanks(v.get<String>());
            if (textEquals(t, u"True") || textEquals(t, u"Verdadero")) return True;
            if (textEquals(t, u"False") || textEquals(t, u"Falso")) return False;
            auto n = parseNumber(t);
            if (!n) raise(err::TypeMismatch);
            return Boolean(*n != 0);
        }
        case VarType::Decimal: return Boolean(!v.get<Decimal>().isZero());
        case VarType::Currency: return Boolean(v.get<Currency>().scaled != 0);
        default: return Boolean(toDouble(v) != 0);
    }
}

Currency toCurrency(const Variant& v) {
    switch (v.type()) {
        case VarType::Currency: return v.get<Currency>();
        case VarType::Decimal: return Currency{v.get<Decimal>().toCurrency()};
        case VarType::String: {
            auto d = Decimal::parse(trimBlanks(v.get<String>()), regional().decimalMark(), regional().thousandMark());
            if (d) return Currency{d->toCurrency()};
            break;
        }
        default: break;
    }
    double d = toDouble(v);
    if (!(std::fabs(d) <= kMaxCurrency)) raise(err::Overflow);
    double scaled = roundHalfEven(d * 10000.0);
    if (scaled >= 9.2233720368547758e18 || scaled < -9.2233720368547758e18) raise(err::Overflow);
    return Currency{static_cast<std::int64_t>(scaled)};
}

Decimal toDecimal(const Variant& v) {
    switch (v.type()) {
        case VarType::Decimal: return v.get<Decimal>();
        case VarType::Currency: return Decimal::fromCurrency(v.get<Currency>().scaled);
        case VarType::Byte:
        case VarType::Integer:
        case VarType::Long:
        case VarType::Boolean: return Decimal::fromInt64(toLong(v));
        case VarType::String: {
            auto d = Decimal::parse(trimBlanks(v.get<String>()), regional().decimalMark(), regional().thousandMark());
            if (d) return *d;
            return Decimal::fromDouble(toDouble(v));
        }
        default: return Decimal::fromDouble(toDouble(v));
    }
}

Date toDate(const Variant& v) {
    switch (v.type()) {
        case VarType::Date: return v.get<Date>();
        case VarType::String: {
            auto d = parseDate(v.get<String>(), regional());
            if (d) return Date{*d};
            auto n = parseNumber(v.get<String>());
            if (!n) raise(err::TypeMismatch);
            if (!(*n >= kMinDateSerial && *n < 2958466.0)) raise(err::Overflow);
            return Date{*n};
        }
        case VarType::Object: return toDate(defaultValue(v));
        default: {
            double d = toDouble(v);
            if (!(d >= kMinDateSerial && d < 2958466.0)) raise(err::Overflow);
            return Date{d};
        }
    }
}

Variant coerce(const Variant& v, VarType to) {
    switch (to) {
        case VarType::Variant: return v;
        case VarType::Empty: return Variant();
        case VarType::Null: return Variant(Null{});
        case VarType::String: return toString(v);
        case VarType::Integer: return toInteger(v);
        case VarType::Long: return toLong(v);
        case VarType::Double: return toDouble(v);
        case VarType::Currency: return toCurrency(v);
        case VarType::Date: return toDate(v);
        case VarType::Boolean: return toBoolean(v);
        case VarType::Byte: return toByteValue(v);
        case VarType::Decimal: return toDecimal(v);
        case VarType::Object:
            if (!v.isObject()) raise(err::TypeMismatch);
            return v;
        default: raise(err::TypeMismatch);
    }
}

double val(StringView text) {
    // Blanks, tabs and line feeds are ignored wherever they stand.
    std::string s;
    for (char16_t c : text) {
        if (c == u' ' || c == u'\t' || c == u'\n' || c == u'\r') continue;
        s.push_back(c < 0x80 ? static_cast<char>(c) : '\x7f');
    }
    if (s.size() >= 2 && s[0] == '&' && (s[1] == 'H' || s[1] == 'h' || s[1] == 'O' || s[1] == 'o')) {
        int radix = (s[1] == 'H' || s[1] == 'h') ? 16 : 8;
        std::uint64_t v = 0;
        std::size_t i = 2;
        for (; i < s.size(); ++i) {
            char c = s[i];
            int d = (c >= '0' && c <= '9') ? c - '0' : (c >= 'a' && c <= 'f') ? c - 'a' + 10 : (c >= 'A' && c <= 'F') ? c - 'A' + 10 : 99;
            if (d >= radix) break;
            v = v * static_cast<std::uint64_t>(radix) + static_cast<std::uint64_t>(d);
            if (v > 0xFFFFFFFFull) raise(err::Overflow);
        }
        if (v <= 0xFFFF) return static_cast<std::int16_t>(static_cast<std::uint16_t>(v));
        return static_cast<std::int32_t>(static_cast<std::uint32_t>(v));
    }
    std::string number;
    std::size_t i = 0;
    if (i < s.size() && (s[i] == '+' || s[i] == '-')) number.push_back(s[i++]);
    bool digits = false, point = false;
    for (; i < s.size(); ++i) {
        if (s[i] >= '0' && s[i] <= '9') {
            number.push_back(s[i]);
            digits = true;
        } else if (s[i] == '.' && !point) {
            number.push_back('.');
            point = true;
        } else {
            break;
        }
    }
    if (!digits) return 0;
    if (i < s.size() && (s[i] == 'E' || s[i] == 'e' || s[i] == 'D' || s[i] == 'd')) {
        std::size_t j = i + 1;
        std::string exponent = "e";
        if (j < s.size() && (s[j] == '+' || s[j] == '-')) exponent.push_back(s[j++]);
        bool expDigits = false;
        while (j < s.size() && s[j] >= '0' && s[j] <= '9') {
            exponent.push_back(s[j++]);
            expDigits = true;
        }
        if (expDigits) number += exponent;
    }
    double v = std::strtod(number.c_str(), nullptr);
    if (std::isinf(v)) raise(err::Overflow);
    return v;
}

String str(const Variant& number) {
    Variant n = number;
    if (n.isNull()) raise(err::InvalidUseOfNull);
    if (n.isString() || n.isObject() || n.type() == VarType::Date) n = toDouble(n);
    String text;
    {
        RegionalSettings point = regional();
        point.decimalSeparator = u".";
        RegionalScope scope(point);
        text = toString(n);
    }
    if (n.type() == VarType::Boolean) text = ascii(std::to_string(n.get<Boolean>().bits));
    if (text.empty() || text[0] != u'-') text.insert(text.begin(), u' ');
    return text;
}

bool isNumeric(const Variant& v) {
    switch (v.type()) {
        case VarType::Empty:
        case VarType::Boolean:
        case VarType::Byte:
        case VarType::Integer:
        case VarType::Long:
        case VarType::Double:
        case VarType::Currency:
        case VarType::Decimal: return true;
        case VarType::String:
            try {
                return parseNumber(v.get<String>()).has_value();
            } catch (const RuntimeError&) {
                return true;  // a number too large for a Double is still a number
            }
        default: return false;
    }
}

bool isDate(const Variant& v) {
    if (v.type() == VarType::Date) return true;
    if (v.isString()) return parseDate(v.get<String>(), regional()).has_value();
    return false;
}

}  // namespace telvaro

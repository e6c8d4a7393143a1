#include "runtime/convert.h"

#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <string>

#include "runtime/checked.h"
#include "runtime/datetime.h"
#include "runtime/error.h"
#include "runtime/number_text.h"
#include "runtime/object.h"
#include "runtime/regional.h"
#include "runtime/text.h"

namespace telvaro {

namespace {

// An object used as a value is read through its default member; a default
// member that is itself an object is read in turn, a few levels deep at most.
constexpr int kDefaultMemberDepth = 8;

Variant defaultValue(const Variant& v) {
    Variant value = v;
    for (int depth = 0; value.isObject(); ++depth) {
        if (depth == kDefaultMemberDepth) raise(err::TypeMismatch);
        value = objectOf(value).invoke(u"", InvokeKind::PropertyGet, {});
    }
    return value;
}

std::int64_t currencyToWhole(Currency c) {
    // Half to even on the 1/10000 count.
    std::int64_t q = c.scaled / 10000, r = c.scaled % 10000;
    if (r > 5000 || (r == 5000 && (q % 2 != 0))) ++q;
    if (r < -5000 || (r == -5000 && (q % 2 != 0))) --q;
    return q;
}

std::optional<NumberText> scanText(const Variant& v) { return scanNumber(v.get<String>(), regional()); }

NumberText requireNumber(const Variant& v) {
    auto n = scanText(v);
    if (!n) raise(err::TypeMismatch);
    return *n;
}

// Integer, Long, Boolean, Byte, Currency and Decimal as a whole number
// rounded half to even; everything else through Double.
std::int64_t wholeNumber(const Variant& v) {
    switch (v.type()) {
        case VarType::Byte: return v.get<std::uint8_t>();
        case VarType::Integer: return v.get<std::int16_t>();
        case VarType::Long: return v.get<std::int32_t>();
        case VarType::Boolean: return v.get<Boolean>().bits;
        case VarType::Currency: return currencyToWhole(v.get<Currency>());
        case VarType::Decimal: return v.get<Decimal>().toInt64();
        case VarType::Object: return wholeNumber(defaultValue(v));
        default: {
            const double d = toDouble(v);
            if (!(d > -9.2e18 && d < 9.2e18)) raise(err::Overflow);
            return static_cast<std::int64_t>(roundHalfEven(d));
        }
    }
}

bool inDateRange(double serial) { return serial > kMinDateSerial - 1.0 && serial < 2958466.0; }

}  // namespace

std::optional<double> parseNumber(StringView text) {
    auto n = scanNumber(text, regional());
    if (!n) return std::nullopt;
    return toDouble(*n);
}

String doubleToString(double d) { return doubleText(d, regional().decimalMark()); }

String currencyToString(Currency c) { return currencyText(c, regional().decimalMark()); }

String toString(const Variant& v) {
    switch (v.type()) {
        case VarType::Empty: return {};
        case VarType::Null: raise(err::InvalidUseOfNull);
        case VarType::Boolean: return v.get<Boolean>().isTrue() ? u"True" : u"False";
        case VarType::Byte:
        case VarType::Integer:
        case VarType::Long:
        case VarType::Double:
        case VarType::Currency:
        case VarType::Decimal: return numberText(v, regional().decimalMark());
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
        case VarType::String: return toDouble(requireNumber(v));
        case VarType::Object: return toDouble(defaultValue(v));
        default: raise(err::TypeMismatch);
    }
}

std::int16_t toInteger(const Variant& v) {
    switch (v.type()) {
        case VarType::Double:
        case VarType::Date:
        case VarType::String:
        case VarType::Empty: return Int16::ofDouble(toDouble(v)).value();
        default: return Int16::of(wholeNumber(v)).value();
    }
}

std::int32_t toLong(const Variant& v) {
    switch (v.type()) {
        case VarType::Long: return v.get<std::int32_t>();
        case VarType::Integer: return v.get<std::int16_t>();
        case VarType::Double:
        case VarType::Date:
        case VarType::String:
        case VarType::Empty: return Int32::ofDouble(toDouble(v)).value();
        default: return Int32::of(wholeNumber(v)).value();
    }
}

std::uint8_t toByteValue(const Variant& v) {
    switch (v.type()) {
        // A Boolean keeps its low byte: True is 255.
        case VarType::Boolean:
            return static_cast<std::uint8_t>(static_cast<std::uint16_t>(v.get<Boolean>().bits) & 0xFF);
        case VarType::Double:
        case VarType::Date:
        case VarType::String:
        case VarType::Empty: {
            const double d = toDouble(v);
            if (!(d >= -0.5 && d < 255.5)) raise(err::Overflow);
            return static_cast<std::uint8_t>(roundHalfEven(d));
        }
        default: return toByte(wholeNumber(v));
    }
}

Boolean toBoolean(const Variant& v) {
    switch (v.type()) {
        case VarType::Boolean: return v.get<Boolean>();
        case VarType::String: {
            const String& raw = v.get<String>();
            if (raw == u"#TRUE#") return True;
            if (raw == u"#FALSE#") return False;
            const StringView t = trimBlanks(raw);
            if (textEquals(t, u"True") || textEquals(t, u"Verdadero")) return True;
            if (textEquals(t, u"False") || textEquals(t, u"Falso")) return False;
            const NumberText n = requireNumber(v);
            if (n.radix) {
                if (n.radixOverflow) raise(err::Overflow);
                return Boolean(n.radixValue != 0);
            }
            return Boolean(!n.digits.empty());
        }
        case VarType::Decimal: return Boolean(!v.get<Decimal>().isZero());
        case VarType::Currency: return Boolean(v.get<Currency>().scaled != 0);
        case VarType::Object: return toBoolean(defaultValue(v));
        default: return Boolean(toDouble(v) != 0);
    }
}

Currency toCurrency(const Variant& v) {
    switch (v.type()) {
        case VarType::Currency: return v.get<Currency>();
        case VarType::Decimal: return Currency{v.get<Decimal>().toCurrency()};
        case VarType::Byte:
        case VarType::Integer:
        case VarType::Long:
        case VarType::Boolean: return Currency{wholeNumber(v) * 10000};
        case VarType::String: return Currency{currencyOf(requireNumber(v))};
        case VarType::Object: return toCurrency(defaultValue(v));
        default: break;
    }
    const double scaled = roundHalfEven(toDouble(v) * 10000.0);
    if (!(scaled >= -9223372036854775808.0 && scaled < 9223372036854775808.0)) raise(err::Overflow);
    return Currency{static_cast<std::int64_t>(scaled)};
}

Decimal toDecimal(const Variant& v) {
    switch (v.type()) {
        case VarType::Decimal: return v.get<Decimal>();
        case VarType::Currency: return Decimal::fromCurrency(v.get<Currency>().scaled);
        case VarType::Byte:
        case VarType::Integer:
        case VarType::Long: return Decimal::fromInt64(wholeNumber(v));
        // A Boolean is -1 or 0 whatever bits it carries.
        case VarType::Boolean: return Decimal::fromInt64(v.get<Boolean>().isTrue() ? -1 : 0);
        case VarType::String: return decimalOf(requireNumber(v));
        case VarType::Object: return toDecimal(defaultValue(v));
        default: return Decimal::fromDouble(toDouble(v));
    }
}

Date toDate(const Variant& v) {
    switch (v.type()) {
        case VarType::Date: return v.get<Date>();
        case VarType::String: {
            auto d = parseDate(v.get<String>(), regional());
            if (!d) raise(err::TypeMismatch);
            return Date{*d};
        }
        case VarType::Object: return toDate(defaultValue(v));
        default: {
            const double d = toDouble(v);
            if (!inDateRange(d)) raise(err::Overflow);
            return Date{d};
        }
    }
}

double val(StringView text) {
    // Blanks, tabs and line feeds are dropped wherever they stand; any other
    // character the number cannot use ends it.
    String s;
    s.reserve(text.size());
    for (char16_t c : text)
        if (c != u' ' && c != u'\t' && c != u'\n') s.push_back(c);

    if (s.size() >= 2 && s[0] == u'&' && (s[1] == u'H' || s[1] == u'h' || s[1] == u'O' || s[1] == u'o')) {
        const int radix = (s[1] == u'H' || s[1] == u'h') ? 16 : 8;
        std::uint64_t v = 0;
        std::size_t i = 2;
        for (; i < s.size(); ++i) {
            const int d = digitValue(s[i]);
            if (d >= radix) break;
            v = v * static_cast<std::uint64_t>(radix) + static_cast<std::uint64_t>(d);
            if (v > 0xFFFFFFFFull) raise(err::Overflow);
        }
        // A trailing "&" asks for a Long: "&HFFFF&" is 65535, "&HFFFF" is -1.
        const bool asLong = i < s.size() && s[i] == u'&';
        if (v <= 0xFFFF && !asLong) return static_cast<std::int16_t>(static_cast<std::uint16_t>(v));
        return static_cast<std::int32_t>(static_cast<std::uint32_t>(v));
    }

    NumberText n;
    std::size_t i = 0;
    if (i < s.size() && (s[i] == u'+' || s[i] == u'-')) n.negative = s[i++] == u'-';
    std::string raw;
    std::int64_t fractionDigits = 0;
    bool digits = false, point = false;
    for (; i < s.size(); ++i) {
        if (isDigit(s[i])) {
            raw.push_back(static_cast<char>(s[i]));
            if (point) ++fractionDigits;
            digits = true;
        } else if (s[i] == u'.' && !point) {
            point = true;
        } else {
            break;
        }
    }
    if (!digits) return 0;
    std::int64_t exponent = 0;
    if (i < s.size() && (s[i] == u'E' || s[i] == u'e' || s[i] == u'D' || s[i] == u'd')) {
        std::size_t j = i + 1;
        bool negativeExponent = false;
        if (j < s.size() && (s[j] == u'+' || s[j] == u'-')) negativeExponent = s[j++] == u'-';
        while (j < s.size() && isDigit(s[j])) {
            if (exponent < kExponentClamp) exponent = exponent * 10 + (s[j] - u'0');
            ++j;
        }
        if (negativeExponent) exponent = -exponent;
    }
    normalize(n, std::move(raw), fractionDigits, exponent);
    return toDouble(n);
}

String str(const Variant& number) {
    switch (number.type()) {
        case VarType::Null: raise(err::InvalidUseOfNull);
        case VarType::Error: {
            // A runtime error code 0x800A0000 + n is error n.
            const std::int32_t scode = number.get<ErrorCode>().scode;
            const auto bits = static_cast<std::uint32_t>(scode);
            const std::int64_t shown = (bits & 0xFFFF0000u) == 0x800A0000u ? std::int64_t(bits & 0xFFFFu) : scode;
            return u"Error " + ascii(std::to_string(shown));
        }
        case VarType::Date: return toString(number);
        case VarType::Byte:
        case VarType::Integer:
        case VarType::Long:
        case VarType::Double:
        case VarType::Currency:
        case VarType::Decimal: {
            String text = numberText(number, u'.');
            if (text.empty() || text[0] != u'-') text.insert(text.begin(), u' ');
            return text;
        }
        default: return str(Variant(toDouble(number)));
    }
}

bool isDate(const Variant& v) {
    switch (v.type()) {
        case VarType::Date: return true;
        case VarType::String: return parseDate(v.get<String>(), regional()).has_value();
        case VarType::Object:
            if (!v.get<ObjectRef>()) return false;
            return isDate(defaultValue(v));
        default: return false;
    }
}

}  // namespace telvaro

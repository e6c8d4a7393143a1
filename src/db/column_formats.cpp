#include "db/column_formats.h"

#include "context/enums.h"
#include "runtime/convert.h"
#include "runtime/error.h"
#include "runtime/format.h"
#include "runtime/text.h"
#include "text/strings.h"

namespace telvaro::db {

namespace {

struct FixedCode {
    const char16_t* code;
    const char16_t* pattern;
    const char16_t* suffix;
};

// The time and date codes and their patterns.
constexpr FixedCode kTimeCodes[] = {
    {u"HL", u"Hh:Nn:ss", u""},
    {u"H", u"Hh:Nn", u""},
    {u"HM", u"Hh\\h\\ Nn\\m\\", u""},
    {u"HH", u"Hh", u"h"},
};
constexpr FixedCode kDateCodes[] = {
    {u"FC", u"dd/MM/yy", u""},
    {u"F", u"dd/MM/yyyy", u""},
    {u"FM", u"dd-MMM-yyyy", u""},
    {u"FD", u"ddd, dd-MMM-yyyy", u""},
    {u"FL", u"ddd, dd \\de\\ MMMM \\del\\ yyyy", u""},
    {u"FF", u"dddd, dd \\de\\ MMMM \\del\\ yyyy", u""},
    {u"FT", u"d \\de\\ MMMM \\del\\ yyyy", u""},
};

// "" & value: the value's text, "" for Null.
String textOf(const Variant& value) { return value.isNull() ? String() : toString(value); }

// A value for a number pattern: text must read as a number (13 otherwise);
// numbers, dates, Booleans and Empty go as they are.
Variant asNumber(const Variant& value) {
    if (value.isString()) return Variant(toDouble(value));
    return value;
}

// A value for a time or date pattern: text must read as a date.
Variant asDate(const Variant& value) {
    if (value.isString()) return Variant(toDate(value));
    return value;
}

// The value as a number for the tests "= 0" and "> 0": numbers, dates,
// Booleans and Empty are; text is when it reads as a number; anything else
// is not.
std::optional<double> comparableNumber(const Variant& value) {
    if (value.isString()) return parseNumber(value.get<String>());
    if (value.isNumber() || value.isEmpty() || value.type() == VarType::Date) return toDouble(value);
    return std::nullopt;
}

}  // namespace

ColumnFormat::ColumnFormat(String code, const String& numberPattern) : code_(std::move(code)) {
    if (code_.empty() || code_.front() != u';') {
        if (textEquals(code_, u"x")) {
            kind_ = Kind::Plain;
        } else if (textEquals(code_, u"V")) {
            kind_ = Kind::CheckBox;
        } else if (textEquals(code_, u"N")) {
            kind_ = Kind::Number;
            pattern_ = numberPattern;
        } else if (textEquals(code_, u"N%")) {
            kind_ = Kind::Percent;
        } else if (textEquals(code_, u"N$")) {
            kind_ = Kind::Money;
            pattern_ = u"##0.00";
        } else {
            kind_ = Kind::Pattern;
            pattern_ = code_;
            for (const auto& fixed : kTimeCodes)
                if (textEquals(code_, fixed.code)) {
                    kind_ = Kind::Time;
                    pattern_ = fixed.pattern;
                    suffix_ = fixed.suffix;
                }
            for (const auto& fixed : kDateCodes)
                if (textEquals(code_, fixed.code)) {
                    kind_ = Kind::Date;
                    pattern_ = fixed.pattern;
                }
        }
    } else {
        kind_ = Kind::Conditional;
    }
}

const ColumnFormat::Sections& ColumnFormat::sections(Fun& fun) const {
    if (!sections_) {
        // Cut at the second, third and fourth ";". With fewer of them the
        // search wraps around, and a section of negative length is error 5.
        const std::int32_t p2 = text::strPosicion_XAvo_Caracter(fun, code_, u";", 2);
        const std::int32_t p3 = text::strPosicion_XAvo_Caracter(fun, code_, u";", 3);
        const std::int32_t p4 = text::strPosicion_XAvo_Caracter(fun, code_, u";", 4);
        Sections s;
        s.negative = mid(code_, 2, p2 - 2);
        s.zero = mid(code_, p2 + 1, p3 - p2 - 1);
        s.positive = mid(code_, p3 + 1, p4 - p3 - 1);
        s.null = mid(code_, p4 + 1);
        sections_ = std::move(s);
    }
    return *sections_;
}

std::optional<String> ColumnFormat::cellText(Fun& fun, const Variant& value) const {
    switch (kind_) {
        case Kind::Plain:
        case Kind::CheckBox: return textOf(value);
        case Kind::Number: return format(asNumber(value), pattern_);
        case Kind::Percent: {
            String text = textOf(value);
            if (!(val(text) > 0)) return std::nullopt;
            text += u'%';
            return text;
        }
        case Kind::Money: return u"$ " + format(asNumber(value), pattern_);
        case Kind::Time:
        case Kind::Date: return format(asDate(value), pattern_) + suffix_;
        case Kind::Pattern: return format(value, pattern_);
        case Kind::Conditional: {
            const Sections& s = sections(fun);
            const String* section = nullptr;
            if (value.isNull()) {
                section = &s.null;
            } else if (val(toString(value)) < 0) {
                section = &s.negative;
            } else if (const auto number = comparableNumber(value)) {
                if (*number == 0)
                    section = &s.zero;
                else if (*number > 0)
                    section = &s.positive;
            }
            if (!section) return std::nullopt;
            if (!section->empty() && section->front() == u':') return section->substr(1);
            // A negative value is written without its sign: the section is
            // its pattern as the negative section of a number pattern is.
            if (section == &s.negative && !section->empty()) return format(value, *section + u";" + *section);
            return format(value, *section);
        }
    }
    return std::nullopt;
}

ColumnList readColumnList(Fun& fun, const String& Campos, const String& NumDeci) {
    const Variant entries = text::fn_LlenaVector(fun, Campos, TipoDato::String_, u",");
    const Array& items = entries.array();
    ColumnList list;
    Array names = Array::vector(0, items.ubound(1));
    list.formats.reserve(static_cast<std::size_t>(items.ubound(1)) + 1);
    for (std::int32_t i = 0; i <= items.ubound(1); ++i) {
        const String entry = toString(items.at(i));
        const std::int32_t bar = inStr(entry, u"|");
        if (bar > 0) {
            names.at(i) = Variant(upperCase(trim(left(entry, bar - 1))));
            list.formats.emplace_back(mid(entry, bar + 1), NumDeci);
        } else {
            names.at(i) = Variant(upperCase(trim(entry)));
            list.formats.emplace_back(String(u"x"), NumDeci);
        }
    }
    list.names = Variant(std::move(names));
    return list;
}

}  // namespace telvaro::db

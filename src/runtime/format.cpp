// Format(value, pattern): reads the pattern into sections, decides from the
// first placeholder whether it is a number, date or text pattern, reads the
// value accordingly and hands it to the number, date or text formatter.
// Named formats ("Currency", "Short Date", ...) are recognised first.
#include "runtime/format.h"

#include <array>
#include <optional>
#include <string_view>

#include "runtime/convert.h"
#include "runtime/error.h"
#include "runtime/format_date.h"
#include "runtime/format_number.h"
#include "runtime/format_pattern.h"
#include "runtime/object.h"
#include "runtime/unicode.h"

namespace telvaro {

namespace formatting {

std::vector<Section> splitSections(StringView pattern) {
    std::vector<Section> sections(1);
    for (std::size_t i = 0; i < pattern.size(); ++i) {
        char16_t c = pattern[i];
        if (c == u'\\') {  // the next character as is; a final backslash shows nothing
            if (i + 1 < pattern.size()) sections.back().push_back({pattern[++i], true});
        } else if (c == u'"') {  // quoted text up to the closing quote (or the end)
            std::size_t j = i + 1;
            while (j < pattern.size() && pattern[j] != u'"') sections.back().push_back({pattern[j++], true});
            i = j;
        } else if (c == u';') {
            sections.emplace_back();
        } else {
            sections.back().push_back({c, false});
        }
    }
    return sections;
}

bool matchesAt(const Section& s, std::size_t pos, std::string_view word) {
    if (pos + word.size() > s.size()) return false;
    for (std::size_t k = 0; k < word.size(); ++k) {
        const PatternChar& pc = s[pos + k];
        char16_t c = pc.c;
        if (c >= u'A' && c <= u'Z') c = static_cast<char16_t>(c - u'A' + u'a');
        if (pc.literal || c != static_cast<char16_t>(word[k])) return false;
    }
    return true;
}

SectionKind classify(const Section& s) {
    for (std::size_t i = 0; i < s.size(); ++i) {
        if (s[i].literal) continue;
        switch (s[i].c) {
            case u'0':
            case u'#': return SectionKind::Number;
            case u'd':
            case u'D':
            case u'w':
            case u'W':
            case u'm':
            case u'M':
            case u'q':
            case u'Q':
            case u'y':
            case u'Y':
            case u'h':
            case u'H':
            case u'n':
            case u'N':
            case u's':
            case u'S':
            case u'c':
            case u'C': return SectionKind::Date;
            case u't':
            case u'T':
                if (matchesAt(s, i, "ttttt")) return SectionKind::Date;
                break;
            case u'a':
            case u'A':
                if (matchesAt(s, i, "am/pm") || matchesAt(s, i, "ampm") || matchesAt(s, i, "a/p"))
                    return SectionKind::Date;
                break;
            case u'@':
            case u'&':
            case u'<':
            case u'>':
            case u'!': return SectionKind::Text;
            default: break;
        }
    }
    return SectionKind::Number;
}

String literalText(const Section& section) {
    String out;
    for (const PatternChar& pc : section) {
        bool placeholder = !pc.literal && (pc.c == u'0' || pc.c == u'#' || pc.c == u'.' || pc.c == u',');
        if (!placeholder) out.push_back(pc.c);
    }
    return out;
}

}  // namespace formatting

namespace {

using formatting::DateParts;
using formatting::Digits;
using formatting::Section;
using formatting::SectionKind;

// ---------------------------------------------------------------------------
// Reading the value

// Objects are read through their default member; arrays and error values
// cannot be formatted.
Variant resolve(const Variant& value) {
    Variant v = value;
    for (int depth = 0; v.isObject(); ++depth) {
        if (depth == 8) raise(err::TypeMismatch);
        v = objectOf(v).get(u"");
    }
    if (v.isArray() || v.holds<ErrorCode>()) raise(err::TypeMismatch);
    return v;
}

bool isBlank(char16_t c) { return c == u' ' || c == u'\t'; }

// Digits with at most one decimal mark and an optional sign: a text that is
// a number, not a date, even where the date reader would take it as one.
bool isPlainNumber(StringView text, const RegionalSettings& settings) {
    std::size_t i = 0, end = text.size();
    while (i < end && isBlank(text[i])) ++i;
    while (end > i && isBlank(text[end - 1])) --end;
    if (i < end && (text[i] == u'-' || text[i] == u'+')) ++i;
    bool digit = false, mark = false;
    for (; i < end; ++i) {
        if (text[i] >= u'0' && text[i] <= u'9') {
            digit = true;
        } else if (text[i] == settings.decimalMark() && !mark) {
            mark = true;
        } else {
            return false;
        }
    }
    return digit;
}

// The value as a number for a number pattern; empty for a text that is
// neither a number nor a date.
std::optional<Digits> readNumber(const Variant& v, const RegionalSettings& settings) {
    if (v.isEmpty()) return Digits{};
    if (v.holds<Boolean>()) return Digits::fromInteger(v.get<Boolean>().bits);
    if (v.holds<std::uint8_t>()) return Digits::fromInteger(v.get<std::uint8_t>());
    if (v.holds<std::int16_t>()) return Digits::fromInteger(v.get<std::int16_t>());
    if (v.holds<std::int32_t>()) return Digits::fromInteger(v.get<std::int32_t>());
    if (v.holds<Currency>()) return Digits::fromCurrency(v.get<Currency>().scaled);
    if (v.holds<Decimal>()) return Digits::fromDecimal(v.get<Decimal>());
    if (v.holds<double>()) return Digits::fromDouble(v.get<double>());
    if (v.holds<Date>()) return Digits::fromDouble(v.get<Date>().serial);
    if (v.isString()) {
        const String& text = v.get<String>();
        if (auto n = parseNumber(text)) return Digits::fromDouble(*n);
        if (auto d = parseDate(text, settings)) return Digits::fromDouble(*d);
        return std::nullopt;
    }
    raise(err::TypeMismatch);
}

// The value as a date serial for a date pattern; empty for a text that is
// neither a date nor a number.
std::optional<double> readSerial(const Variant& v, const RegionalSettings& settings) {
    if (v.isEmpty()) return 0.0;
    if (v.holds<Boolean>()) return static_cast<double>(v.get<Boolean>().bits);
    if (v.holds<std::uint8_t>()) return static_cast<double>(v.get<std::uint8_t>());
    if (v.holds<std::int16_t>()) return static_cast<double>(v.get<std::int16_t>());
    if (v.holds<std::int32_t>()) return static_cast<double>(v.get<std::int32_t>());
    if (v.holds<Currency>()) return static_cast<double>(v.get<Currency>().scaled) / 10000.0;
    if (v.holds<Decimal>()) return v.get<Decimal>().toDouble();
    if (v.holds<double>()) return v.get<double>();
    if (v.holds<Date>()) return v.get<Date>().serial;
    if (v.isString()) {
        const String& text = v.get<String>();
        if (isPlainNumber(text, settings)) {
            if (auto n = parseNumber(text)) return *n;
        }
        if (auto d = parseDate(text, settings)) return *d;
        if (auto n = parseNumber(text)) return *n;
        return std::nullopt;
    }
    raise(err::TypeMismatch);
}

// The value's own text: what Format gives without a pattern, and what a
// text pattern works on.
String plainText(const Variant& v, const RegionalSettings& settings) {
    if (v.isEmpty() || v.isNull()) return {};
    if (v.isString()) return v.get<String>();
    if (v.holds<Boolean>()) return v.get<Boolean>().isTrue() ? u"True" : u"False";
    if (v.holds<Date>()) return formatting::generalDate(formatting::splitSerial(v.get<Date>().serial), settings);
    if (auto n = readNumber(v, settings)) return formatting::generalNumber(*n, settings);
    raise(err::TypeMismatch);
}

// ---------------------------------------------------------------------------
// Sections

bool usable(const std::vector<Section>& sections, std::size_t k) { return k < sections.size() && !sections[k].empty(); }

// Positive (and zero) values use section 1; negative values section 2, or
// section 1 with a minus sign when there is no second section or it is
// empty; zero uses section 3 when it is there and not empty.
String formatNumber(const std::vector<Section>& sections, const Digits& n, const RegionalSettings& settings) {
    const Section* chosen = &sections[0];
    bool minus = false;
    if (n.negative && !n.isZero()) {
        if (usable(sections, 1))
            chosen = &sections[1];
        else
            minus = true;
    } else if (n.isZero() && usable(sections, 2)) {
        chosen = &sections[2];
    }
    if (chosen->empty()) return formatting::generalNumber(n, settings);
    return formatting::formatNumberSection(*chosen, n, minus, settings);
}

// Text patterns: @ shows a character or a blank, & a character or nothing;
// with fewer characters than placeholders the first placeholders are left
// over ("!" leaves the last ones instead); characters beyond the
// placeholders follow the formatted text. "<" and ">" (the first one
// given) write the text in lower or upper case.
String formatTextSection(const Section& section, StringView value) {
    std::size_t placeholders = 0;
    bool fromLeft = false;
    char16_t caseRule = 0;
    for (const auto& pc : section) {
        if (pc.literal) continue;
        if (pc.c == u'@' || pc.c == u'&') ++placeholders;
        if (pc.c == u'!') fromLeft = true;
        if ((pc.c == u'<' || pc.c == u'>') && caseRule == 0) caseRule = pc.c;
    }
    String text(value);
    if (caseRule != 0) {
        for (char16_t& c : text) c = caseRule == u'>' ? unicode::toUpper(c) : unicode::toLower(c);
    }
    std::size_t missing = text.size() < placeholders ? placeholders - text.size() : 0;
    std::size_t next = 0, index = 0;
    String out;
    for (const auto& pc : section) {
        if (!pc.literal && (pc.c == u'@' || pc.c == u'&')) {
            bool empty = fromLeft ? index >= placeholders - missing : index < missing;
            if (empty) {
                if (pc.c == u'@') out.push_back(u' ');
            } else if (next < text.size()) {
                out.push_back(text[next++]);
            }
            ++index;
        } else if (pc.literal || (pc.c != u'<' && pc.c != u'>' && pc.c != u'!')) {
            out.push_back(pc.c);
        }
    }
    out.append(text, next);
    return out;
}

Section sectionOf(StringView pattern) { return formatting::splitSections(pattern)[0]; }

String formatDatePattern(StringView pattern, const DateParts& p, const RegionalSettings& settings,
                         const FormatOptions& options) {
    return formatting::formatDateSection(sectionOf(pattern), p, settings, options);
}

// ---------------------------------------------------------------------------
// Named formats

enum class Named {
    GeneralNumber,
    Currency,
    Fixed,
    Standard,
    Percent,
    Scientific,
    YesNo,
    TrueFalse,
    OnOff,
    GeneralDate,
    LongDate,
    MediumDate,
    ShortDate,
    LongTime,
    MediumTime,
    ShortTime,
};

struct NamedFormat {
    std::string_view name;
    Named id;
};

constexpr std::array<NamedFormat, 16> kNamedFormats = {{
    {"general number", Named::GeneralNumber},
    {"currency", Named::Currency},
    {"fixed", Named::Fixed},
    {"standard", Named::Standard},
    {"percent", Named::Percent},
    {"scientific", Named::Scientific},
    {"yes/no", Named::YesNo},
    {"true/false", Named::TrueFalse},
    {"on/off", Named::OnOff},
    {"general date", Named::GeneralDate},
    {"long date", Named::LongDate},
    {"medium date", Named::MediumDate},
    {"short date", Named::ShortDate},
    {"long time", Named::LongTime},
    {"medium time", Named::MediumTime},
    {"short time", Named::ShortTime},
}};

std::optional<Named> namedFormat(StringView pattern) {
    for (const auto& f : kNamedFormats) {
        if (f.name.size() != pattern.size()) continue;
        bool same = true;
        for (std::size_t i = 0; i < pattern.size() && same; ++i) {
            char16_t c = pattern[i];
            if (c >= u'A' && c <= u'Z') c = static_cast<char16_t>(c - u'A' + u'a');
            same = c == static_cast<char16_t>(f.name[i]);
        }
        if (same) return f.id;
    }
    return std::nullopt;
}

String formatNamedNumber(const Variant& v, Named id, const RegionalSettings& settings) {
    std::optional<Digits> n = readNumber(v, settings);
    if (!n) return v.get<String>();
    switch (id) {
        case Named::GeneralNumber: return formatting::generalNumber(*n, settings);
        case Named::Fixed: return formatNumber({sectionOf(u"0.00")}, *n, settings);
        case Named::Standard: return formatNumber({sectionOf(u"#,##0.00")}, *n, settings);
        case Named::Percent: return formatNumber({sectionOf(u"0.00%")}, *n, settings);
        case Named::Scientific: return formatNumber({sectionOf(u"0.00E+00")}, *n, settings);
        case Named::YesNo: return n->isZero() ? u"No" : u"Yes";
        case Named::TrueFalse: return n->isZero() ? u"False" : u"True";
        case Named::OnOff: return n->isZero() ? u"Off" : u"On";
        default: break;
    }
    // Currency: the regional symbol, thousands marks and two decimals, with
    // the monetary marks.
    Section section;
    for (char16_t c : settings.currencySymbol) section.push_back({c, true});
    for (const auto& pc : sectionOf(u"#,##0.00")) section.push_back(pc);
    RegionalSettings monetary = settings;
    if (!settings.monetaryDecimalSeparator.empty()) monetary.decimalSeparator = settings.monetaryDecimalSeparator;
    monetary.thousandSeparator = settings.monetaryThousandSeparator;
    return formatNumber({section}, *n, monetary);
}

String formatNamed(const Variant& v, Named id, const RegionalSettings& settings, const FormatOptions& options) {
    if (v.isNull()) return {};
    switch (id) {
        case Named::GeneralDate:
        case Named::LongDate:
        case Named::MediumDate:
        case Named::ShortDate:
        case Named::LongTime:
        case Named::MediumTime:
        case Named::ShortTime: break;
        default: return formatNamedNumber(v, id, settings);
    }
    std::optional<double> serial = readSerial(v, settings);
    if (!serial) return v.get<String>();
    DateParts p = formatting::splitSerial(*serial);
    switch (id) {
        case Named::GeneralDate: return formatting::generalDate(p, settings);
        case Named::LongDate: return formatting::formatRegionalPattern(settings.longDate, p, settings);
        case Named::MediumDate: return formatDatePattern(u"dd-mmm-yy", p, settings, options);
        case Named::ShortDate: return formatting::formatRegionalPattern(settings.shortDate, p, settings);
        case Named::LongTime: return formatting::formatRegionalPattern(settings.timeFormat, p, settings);
        case Named::MediumTime: return formatDatePattern(u"hh:nn AMPM", p, settings, options);
        default: return formatDatePattern(u"hh:nn", p, settings, options);
    }
}

void checkOptions(const FormatOptions& options) {
    if (options.firstDayOfWeek < 0 || options.firstDayOfWeek > 7) raise(err::InvalidProcedureCall);
    if (options.firstWeekOfYear < 0 || options.firstWeekOfYear > 3) raise(err::InvalidProcedureCall);
}

}  // namespace

String format(const Variant& value, StringView pattern, const FormatOptions& options) {
    return format(value, pattern, regional(), options);
}

String format(const Variant& value, StringView pattern, const RegionalSettings& settings,
              const FormatOptions& options) {
    checkOptions(options);
    Variant v = resolve(value);
    if (pattern.empty()) return plainText(v, settings);
    if (auto named = namedFormat(pattern)) return formatNamed(v, *named, settings, options);

    std::vector<Section> sections = formatting::splitSections(pattern);
    SectionKind kind = SectionKind::Number;
    for (const Section& s : sections) {
        if (s.empty()) continue;
        kind = formatting::classify(s);
        break;
    }

    if (kind == SectionKind::Text) {
        String text = plainText(v, settings);
        if (text.empty()) return sections.size() >= 2 ? formatTextSection(sections[1], text) : String();
        return formatTextSection(sections[0], text);
    }
    if (v.isNull()) return sections.size() >= 4 ? formatting::literalText(sections[3]) : String();

    if (kind == SectionKind::Date) {
        std::optional<double> serial = readSerial(v, settings);
        if (!serial) return v.get<String>();  // a text that is neither a date nor a number stays as it is
        return formatting::formatDateSection(sections[0], formatting::splitSerial(*serial), settings, options);
    }
    std::optional<Digits> n = readNumber(v, settings);
    if (!n) return v.get<String>();
    return formatNumber(sections, *n, settings);
}

}  // namespace telvaro

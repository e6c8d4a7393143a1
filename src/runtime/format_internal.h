// Pieces of the Format engine shared by its three source files: the pattern
// reader (sections and characters), the decimal digits a number is written
// from, and the number and date formatters. Not part of the runtime's
// public interface.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "runtime/datetime.h"
#include "runtime/format.h"

namespace telvaro::formatting {

// One character of a pattern. `literal` marks a character that came from a
// backslash escape or from double-quoted text: it is always shown as is and
// never starts a placeholder.
struct PatternChar {
    char16_t c = 0;
    bool literal = false;
};
using Section = std::vector<PatternChar>;

// The pattern cut at its unescaped, unquoted ";" (one to any number of
// sections; only the first four are used).
std::vector<Section> splitSections(StringView pattern);

// Which formatter a section needs, decided by its first placeholder: a digit
// placeholder makes a number section (later letters are plain text), a date
// or time letter a date section, one of @ & < > ! a text section. A section
// without placeholders is a number section that shows only its text.
enum class SectionKind { Number, Date, Text };
SectionKind classify(const Section& section);

// The characters of the section that are shown as text when the section is
// used for Null: escaped and quoted characters and any character that is
// not a number placeholder.
String literalText(const Section& section);

// True when `s` holds `word` at `pos` in unescaped characters, compared
// without regard to ASCII case.
bool matchesAt(const Section& s, std::size_t pos, std::string_view word);

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

// A date serial split into calendar day and time of day, the time rounded
// to the nearest second.
struct DateParts {
    std::int64_t day = 0;  // whole-day serial
    CivilDate date;
    int hour = 0, minute = 0, second = 0;
    bool hasTime() const { return hour != 0 || minute != 0 || second != 0; }
};
// Error 6 when the serial is outside 1 January 100 .. 31 December 9999.
DateParts splitSerial(double serial);

// A date section applied to a date.
String formatDateSection(const Section& section, const DateParts& parts, const RegionalSettings& settings,
                         const FormatOptions& options);

// A date written with a pattern in the notation of the regional settings
// (d dd ddd dddd, M MM MMM MMMM, y yy yyyy, h hh H HH, m mm, s ss, t tt,
// 'quoted text'): the short and long date and the time format.
String formatRegionalPattern(StringView pattern, const DateParts& parts, const RegionalSettings& settings);

// A date as the runtime writes it without a pattern: the short date and,
// when the time is not midnight, a blank and the time; only the time for
// day 0.
String generalDate(const DateParts& parts, const RegionalSettings& settings);

}  // namespace telvaro::formatting

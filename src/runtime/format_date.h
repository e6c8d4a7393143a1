// The Format engine's dates: a serial split into day and time, a date
// section or a regional pattern applied to it, and the general date text.
// Internal to the runtime's Format engine.
#pragma once

#include "runtime/datetime.h"
#include "runtime/format.h"
#include "runtime/format_pattern.h"
#include "runtime/regional.h"

namespace telvaro::formatting {

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

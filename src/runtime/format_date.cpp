// Date sections of Format (d dd ddd dddd ddddd dddddd w ww m mm mmm mmmm q
// y yy yyyy h hh n nn s ss ttttt c, AM/PM am/pm A/P a/p AMPM, "/" and ":"
// as the regional separators), and the dates written with the regional
// short date, long date and time formats.
#include <algorithm>
#include <cmath>
#include <string>

#include "runtime/error.h"
#include "runtime/format_date.h"

namespace telvaro::formatting {

namespace {

String number(long long v) { return ascii(std::to_string(v)); }

String twoDigits(int v) {
    String s = number(v);
    if (s.size() < 2) s.insert(s.begin(), u'0');
    return s;
}

bool leapYear(int year) { return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0; }

int dayOfYearOf(const CivilDate& d) {
    static constexpr int before[12] = {0, 31, 59, 90, 120, 151, 181, 212, 243, 273, 304, 334};
    int month = std::clamp(d.month, 1, 12);
    return before[month - 1] + d.day + (month > 2 && leapYear(d.year) ? 1 : 0);
}

// 1 = Sunday ... 7 = Saturday; day 0 (30 December 1899) was a Saturday.
int weekdayOf(std::int64_t day) {
    int r = static_cast<int>(((day % 7) + 7) % 7);
    return (r + 6) % 7 + 1;
}

int hour12(int hour) { return hour % 12 == 0 ? 12 : hour % 12; }

// The first day of week 1 of the year whose 1 January is `jan1`.
std::int64_t weekOneStart(std::int64_t jan1, int firstDay, int firstWeek) {
    int offset = (weekdayOf(jan1) - firstDay + 7) % 7;  // days of that week before 1 January
    std::int64_t weekStart = jan1 - offset;
    switch (firstWeek) {
        case 2:  // the first week with at least four days in the new year
            return offset <= 3 ? weekStart : weekStart + 7;
        case 3:  // the first full week
            return offset == 0 ? jan1 : weekStart + 7;
        default:  // the week of 1 January
            return weekStart;
    }
}

int weekOfYear(const DateParts& p, int firstDay, int firstWeek) {
    std::int64_t jan1 = p.day - (dayOfYearOf(p.date) - 1);
    std::int64_t start = weekOneStart(jan1, firstDay, firstWeek);
    if (p.day < start) {  // still in the last week of the previous year
        std::int64_t previousJan1 = jan1 - (leapYear(p.date.year - 1) ? 366 : 365);
        start = weekOneStart(previousJan1, firstDay, firstWeek);
    }
    return static_cast<int>((p.day - start) / 7 + 1);
}

const String& monthName(const RegionalSettings& s, int month, bool abbreviated) {
    auto i = static_cast<std::size_t>(std::clamp(month, 1, 12) - 1);
    return abbreviated ? s.monthAbbreviations[i] : s.monthNames[i];
}

const String& dayName(const RegionalSettings& s, std::int64_t day, bool abbreviated) {
    auto i = static_cast<std::size_t>(weekdayOf(day) - 1);
    return abbreviated ? s.dayAbbreviations[i] : s.dayNames[i];
}

const String& designator(const RegionalSettings& s, int hour) { return hour < 12 ? s.amDesignator : s.pmDesignator; }

char16_t lowerAscii(char16_t c) { return (c >= u'A' && c <= u'Z') ? static_cast<char16_t>(c - u'A' + u'a') : c; }

// ---------------------------------------------------------------------------
// Tokens of a date section

enum class DateKind {
    Text,
    DateSeparator,
    TimeSeparator,
    Day,           // width 1..6: d dd ddd dddd ddddd dddddd
    Weekday,       // w
    Week,          // ww
    Month,         // width 1..4
    Minute,        // width 1..2
    Quarter,       // q
    DayOfYear,     // y
    Year2,         // yy
    Year4,         // yyyy
    Hour,          // width 1..2
    Second,        // width 1..2
    LongTime,      // ttttt
    General,       // c
    AmPm,          // AM/PM, am/pm, A/P, a/p: the texts as written
    AmPmRegional,  // AMPM: the regional designators
};

struct DateToken {
    DateKind kind = DateKind::Text;
    int width = 1;
    String am, pm;  // Text keeps its text in `am`
};

// Unescaped characters equal, ignoring case, to `letter` from `pos` on.
std::size_t runLength(const Section& s, std::size_t pos, char16_t letter) {
    std::size_t n = 0;
    while (pos + n < s.size() && !s[pos + n].literal && lowerAscii(s[pos + n].c) == letter) ++n;
    return n;
}

std::vector<DateToken> tokenizeDate(const Section& s) {
    std::vector<DateToken> tokens;
    auto text = [&](char16_t c) {
        if (tokens.empty() || tokens.back().kind != DateKind::Text) tokens.push_back({DateKind::Text, 1, {}, {}});
        tokens.back().am.push_back(c);
    };
    auto add = [&](DateKind kind, int width) { tokens.push_back({kind, width, {}, {}}); };

    for (std::size_t i = 0; i < s.size();) {
        if (s[i].literal) {
            text(s[i].c);
            ++i;
            continue;
        }
        char16_t c = lowerAscii(s[i].c);
        std::size_t run = runLength(s, i, c);
        std::size_t used = 1;
        switch (c) {
            case u'd':
                used = std::min<std::size_t>(run, 6);
                add(DateKind::Day, static_cast<int>(used));
                break;
            case u'w':
                used = std::min<std::size_t>(run, 2);
                add(used == 1 ? DateKind::Weekday : DateKind::Week, 1);
                break;
            case u'm':
                used = std::min<std::size_t>(run, 4);
                add(DateKind::Month, static_cast<int>(used));
                break;
            case u'q': add(DateKind::Quarter, 1); break;
            case u'y':
                used = run >= 4 ? 4 : run >= 2 ? 2 : 1;
                add(used == 4 ? DateKind::Year4 : used == 2 ? DateKind::Year2 : DateKind::DayOfYear, 1);
                break;
            case u'h':
            case u'n':
            case u's':
                used = std::min<std::size_t>(run, 2);
                add(c == u'h'   ? DateKind::Hour
                    : c == u'n' ? DateKind::Minute
                                : DateKind::Second,
                    static_cast<int>(used));
                break;
            case u't':
                if (run >= 5) {
                    used = 5;
                    add(DateKind::LongTime, 1);
                } else {
                    text(s[i].c);
                }
                break;
            case u'c': add(DateKind::General, 1); break;
            case u'a':
                if (matchesAt(s, i, "am/pm")) {
                    used = 5;
                    tokens.push_back({DateKind::AmPm, 1, {s[i].c, s[i + 1].c}, {s[i + 3].c, s[i + 4].c}});
                } else if (matchesAt(s, i, "ampm")) {
                    used = 4;
                    add(DateKind::AmPmRegional, 1);
                } else if (matchesAt(s, i, "a/p")) {
                    used = 3;
                    tokens.push_back({DateKind::AmPm, 1, String(1, s[i].c), String(1, s[i + 2].c)});
                } else {
                    text(s[i].c);
                }
                break;
            case u'/': add(DateKind::DateSeparator, 1); break;
            case u':': add(DateKind::TimeSeparator, 1); break;
            default: text(s[i].c); break;
        }
        i += used;
    }

    // "m" and "mm" right after an hour (literal text and separators between
    // them do not count) mean minutes, not the month.
    DateKind last = DateKind::Text;
    for (DateToken& t : tokens) {
        if (t.kind == DateKind::Text || t.kind == DateKind::DateSeparator || t.kind == DateKind::TimeSeparator)
            continue;
        if (t.kind == DateKind::Month && t.width <= 2 && last == DateKind::Hour) t.kind = DateKind::Minute;
        last = t.kind;
    }
    return tokens;
}

String widthDigits(int value, int width) { return width >= 2 ? twoDigits(value) : number(value); }

}  // namespace

// ---------------------------------------------------------------------------

DateParts splitSerial(double serial) {
    // The runtime's dates run from 1 January 100 to 31 December 9999; a
    // negative serial counts days back from day 0 with a positive time.
    if (!(serial > -657435.0 && serial < 2958466.0)) raise(err::Overflow);
    double whole = std::trunc(serial);
    long long seconds = std::llround(std::fabs(serial - whole) * 86400.0);
    auto day = static_cast<std::int64_t>(whole);
    if (seconds >= 86400) {  // rounds up to the next midnight
        if (day < 2958465) {
            ++day;
            seconds = 0;
        } else {
            seconds = 86399;
        }
    }
    DateParts p;
    p.day = day;
    p.date = civilDate(static_cast<double>(day));
    p.hour = static_cast<int>(seconds / 3600);
    p.minute = static_cast<int>(seconds / 60 % 60);
    p.second = static_cast<int>(seconds % 60);
    return p;
}

String formatDateSection(const Section& section, const DateParts& p, const RegionalSettings& settings,
                         const FormatOptions& options) {
    std::vector<DateToken> tokens = tokenizeDate(section);
    bool twelveHour = std::any_of(tokens.begin(), tokens.end(), [](const DateToken& t) {
        return t.kind == DateKind::AmPm || t.kind == DateKind::AmPmRegional;
    });
    int firstDay = options.firstDayOfWeek == 0 ? 1 : options.firstDayOfWeek;
    int firstWeek = options.firstWeekOfYear == 0 ? 1 : options.firstWeekOfYear;

    String out;
    for (const DateToken& t : tokens) {
        switch (t.kind) {
            case DateKind::Text: out += t.am; break;
            case DateKind::DateSeparator: out += settings.dateSeparator(); break;
            case DateKind::TimeSeparator: out += settings.timeSeparator(); break;
            case DateKind::Day:
                switch (t.width) {
                    case 1: out += number(p.date.day); break;
                    case 2: out += twoDigits(p.date.day); break;
                    case 3: out += dayName(settings, p.day, true); break;
                    case 4: out += dayName(settings, p.day, false); break;
                    case 5: out += formatRegionalPattern(settings.shortDate, p, settings); break;
                    default: out += formatRegionalPattern(settings.longDate, p, settings); break;
                }
                break;
            case DateKind::Weekday: out += number((weekdayOf(p.day) - firstDay + 7) % 7 + 1); break;
            case DateKind::Week: out += number(weekOfYear(p, firstDay, firstWeek)); break;
            case DateKind::Month:
                if (t.width >= 3)
                    out += monthName(settings, p.date.month, t.width == 3);
                else
                    out += widthDigits(p.date.month, t.width);
                break;
            case DateKind::Minute: out += widthDigits(p.minute, t.width); break;
            case DateKind::Quarter: out += number((p.date.month - 1) / 3 + 1); break;
            case DateKind::DayOfYear: out += number(dayOfYearOf(p.date)); break;
            case DateKind::Year2: out += twoDigits(p.date.year % 100); break;
            case DateKind::Year4: out += number(p.date.year); break;
            case DateKind::Hour: out += widthDigits(twelveHour ? hour12(p.hour) : p.hour, t.width); break;
            case DateKind::Second: out += widthDigits(p.second, t.width); break;
            case DateKind::LongTime: out += formatRegionalPattern(settings.timeFormat, p, settings); break;
            case DateKind::General: out += generalDate(p, settings); break;
            case DateKind::AmPm: out += p.hour < 12 ? t.am : t.pm; break;
            case DateKind::AmPmRegional: out += designator(settings, p.hour); break;
        }
    }
    return out;
}

String formatRegionalPattern(StringView pattern, const DateParts& p, const RegionalSettings& settings) {
    String out;
    for (std::size_t i = 0; i < pattern.size();) {
        char16_t c = pattern[i];
        if (c == u'\'') {  // quoted text; '' is one apostrophe
            std::size_t j = i + 1;
            if (j < pattern.size() && pattern[j] == u'\'') {
                out.push_back(u'\'');
                i = j + 1;
                continue;
            }
            while (j < pattern.size()) {
                if (pattern[j] == u'\'') {
                    if (j + 1 < pattern.size() && pattern[j + 1] == u'\'') {
                        out.push_back(u'\'');
                        j += 2;
                        continue;
                    }
                    break;
                }
                out.push_back(pattern[j++]);
            }
            i = j + 1;
            continue;
        }
        std::size_t run = 1;
        while (i + run < pattern.size() && pattern[i + run] == c) ++run;
        switch (c) {
            case u'd':
            case u'D':
                out += run == 1   ? number(p.date.day)
                       : run == 2 ? twoDigits(p.date.day)
                                  : dayName(settings, p.day, run == 3);
                break;
            case u'M':
                out += run <= 2 ? widthDigits(p.date.month, static_cast<int>(run))
                                : monthName(settings, p.date.month, run == 3);
                break;
            case u'y':
            case u'Y':
                out += run == 1   ? number(p.date.year % 100)
                       : run == 2 ? twoDigits(p.date.year % 100)
                                  : number(p.date.year);
                break;
            case u'g': break;  // era: not shown for the Gregorian calendar
            case u'h': out += widthDigits(hour12(p.hour), static_cast<int>(run)); break;
            case u'H': out += widthDigits(p.hour, static_cast<int>(run)); break;
            case u'm': out += widthDigits(p.minute, static_cast<int>(run)); break;
            case u's':
            case u'S': out += widthDigits(p.second, static_cast<int>(run)); break;
            case u't': {
                const String& d = designator(settings, p.hour);
                out += run == 1 ? d.substr(0, 1) : d;
                break;
            }
            default: out.append(run, c); break;
        }
        i += run;
    }
    return out;
}

String generalDate(const DateParts& p, const RegionalSettings& settings) {
    String time = formatRegionalPattern(settings.timeFormat, p, settings);
    if (p.day == 0) return time;
    String out = formatRegionalPattern(settings.shortDate, p, settings);
    if (p.hasTime()) {
        out.push_back(u' ');
        out += time;
    }
    return out;
}

}  // namespace telvaro::formatting

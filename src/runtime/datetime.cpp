#include "runtime/datetime.h"

#include <chrono>
#include <cmath>
#include <ctime>
#include <vector>

#include "runtime/convert.h"
#include "runtime/error.h"
#include "runtime/text.h"

namespace telvaro {

namespace {

// Days from 1 January 1970 of a proleptic Gregorian date (H. Hinnant's
// algorithm), and back.
std::int64_t daysFromCivil(std::int64_t y, int m, int d) {
    y -= m <= 2;
    const std::int64_t era = (y >= 0 ? y : y - 399) / 400;
    const std::int64_t yoe = y - era * 400;
    const std::int64_t doy = (153 * (m + (m > 2 ? -3 : 9)) + 2) / 5 + d - 1;
    const std::int64_t doe = yoe * 365 + yoe / 4 - yoe / 100 + doy;
    return era * 146097 + doe - 719468;
}

CivilDate civilFromDays(std::int64_t z) {
    z += 719468;
    const std::int64_t era = (z >= 0 ? z : z - 146096) / 146097;
    const std::int64_t doe = z - era * 146097;
    const std::int64_t yoe = (doe - doe / 1460 + doe / 36524 - doe / 146096) / 365;
    const std::int64_t doy = doe - (365 * yoe + yoe / 4 - yoe / 100);
    const std::int64_t mp = (5 * doy + 2) / 153;
    const int d = static_cast<int>(doy - (153 * mp + 2) / 5 + 1);
    const int m = static_cast<int>(mp < 10 ? mp + 3 : mp - 9);
    return {static_cast<int>(yoe + era * 400 + (m <= 2)), m, d};
}

constexpr std::int64_t kDay0 = -25569;  // 30 December 1899 counted from 1 January 1970

// The whole day and the time fraction of a serial: negative serials keep
// their time as a positive fraction (-1.25 is day -1 at 06:00).
void split(double serial, std::int64_t& days, double& fraction) {
    double whole = std::trunc(serial);
    days = static_cast<std::int64_t>(whole);
    fraction = std::fabs(serial - whole);
}

void checkRange(double serial) {
    if (!(serial >= kMinDateSerial && serial < 2958466.0)) raise(err::InvalidProcedureCall);
}

}  // namespace

bool isLeapYear(int y) { return (y % 4 == 0 && y % 100 != 0) || y % 400 == 0; }

int daysInMonth(int y, int m) {
    static constexpr int days[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    return m == 2 && isLeapYear(y) ? 29 : days[m - 1];
}

double dateSerial(int year, int month, int day) {
    std::int64_t y = year, m = month;
    y += (m - 1 >= 0) ? (m - 1) / 12 : -((12 - m) / 12);
    m = ((m - 1) % 12 + 12) % 12 + 1;
    if (y < 100 || y > 9999) {
        // Still computable: the range check below decides.
        if (y < -100000 || y > 100000) raise(err::InvalidProcedureCall);
    }
    std::int64_t days = daysFromCivil(y, static_cast<int>(m), 1) - kDay0 + (std::int64_t(day) - 1);
    double serial = static_cast<double>(days);
    checkRange(serial);
    return serial;
}

double timeSerial(int hour, int minute, int second) {
    return (static_cast<double>(hour) * 3600.0 + minute * 60.0 + second) / 86400.0;
}

CivilDate civilDate(double serial) {
    std::int64_t days;
    double fraction;
    split(serial, days, fraction);
    // A time that rounds up to midnight belongs to the next day.
    if (std::llround(fraction * 86400.0) >= 86400) days += serial < 0 ? -1 : 1;
    return civilFromDays(days + kDay0);
}

TimeOfDay timeOfDay(double serial) {
    std::int64_t days;
    double fraction;
    split(serial, days, fraction);
    std::int64_t seconds = std::llround(fraction * 86400.0) % 86400;
    return {static_cast<int>(seconds / 3600), static_cast<int>(seconds / 60 % 60), static_cast<int>(seconds % 60)};
}

int weekday(double serial) {
    std::int64_t days = daysFromCivil(civilDate(serial).year, civilDate(serial).month, civilDate(serial).day) - kDay0;
    // Day 0 (30 December 1899) was a Saturday.
    return static_cast<int>(((days % 7) + 7 + 6) % 7) + 1;
}

int dayOfYear(double serial) {
    CivilDate c = civilDate(serial);
    return static_cast<int>(daysFromCivil(c.year, c.month, c.day) - daysFromCivil(c.year, 1, 1)) + 1;
}

int day(const Variant& v) { return civilDate(toDate(v).serial).day; }
int month(const Variant& v) { return civilDate(toDate(v).serial).month; }
int year(const Variant& v) { return civilDate(toDate(v).serial).year; }

Date addDays(Date d, double days) {
    double s = d.serial + days;
    checkRange(s);
    return Date{s};
}

Date addMonths(Date d, int months) {
    CivilDate c = civilDate(d.serial);
    std::int64_t total = std::int64_t(c.year) * 12 + (c.month - 1) + months;
    std::int64_t y = total >= 0 ? total / 12 : -((-total + 11) / 12);
    int m = static_cast<int>(total - y * 12) + 1;
    if (y < 100 || y > 9999) raise(err::InvalidProcedureCall);
    int dd = std::min(c.day, daysInMonth(static_cast<int>(y), m));
    double base = dateSerial(static_cast<int>(y), m, dd);
    std::int64_t days;
    double fraction;
    split(d.serial, days, fraction);
    return Date{base < 0 ? base - fraction : base + fraction};
}

Date addYears(Date d, int years) { return addMonths(d, years * 12); }

namespace {

// The pieces of a date text: numbers and month names, and the time.
struct DateParts {
    std::vector<int> numbers;
    std::vector<int> digitsOf;  // how many digits each number had
    int monthByName = 0;        // 1..12 when a month name was given
    int monthNamePosition = -1;  // index in numbers where the month name stood
    bool hasTime = false;
    int hour = 0, minute = 0, second = 0;
};

int monthFromName(StringView word, const RegionalSettings& s) {
    static const char16_t* english[] = {u"january", u"february", u"march",     u"april",   u"may",      u"june",
                                        u"july",    u"august",   u"september", u"october", u"november", u"december"};
    for (int m = 0; m < 12; ++m) {
        if (textEquals(word, s.monthNames[m]) || textEquals(word, s.monthAbbreviations[m]) ||
            textEquals(word, english[m]) || (word.size() == 3 && textEquals(word, StringView(english[m]).substr(0, 3))))
            return m + 1;
    }
    return 0;
}

bool isDigit(char16_t c) { return c >= u'0' && c <= u'9'; }
bool isLetter(char16_t c) { return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z') || c >= 0xC0; }

// Reads "H:mm[:ss] [AM|PM]" starting at the number already read.
bool readTime(StringView t, std::size_t& i, int firstNumber, DateParts& parts) {
    int values[3] = {firstNumber, 0, 0};
    int count = 1;
    while (i < t.size() && (t[i] == u':' || t[i] == u'.') && count < 3) {
        ++i;
        if (i >= t.size() || !isDigit(t[i])) return false;
        int v = 0, digits = 0;
        while (i < t.size() && isDigit(t[i]) && digits < 3) v = v * 10 + (t[i++] - u'0'), ++digits;
        values[count++] = v;
    }
    if (count < 2) return false;
    while (i < t.size() && t[i] == u' ') ++i;
    int hour = values[0];
    if (i < t.size() && (t[i] == u'a' || t[i] == u'A' || t[i] == u'p' || t[i] == u'P')) {
        bool pm = t[i] == u'p' || t[i] == u'P';
        std::size_t j = i + 1;
        if (j < t.size() && t[j] == u'.') ++j;
        if (j < t.size() && (t[j] == u'm' || t[j] == u'M')) ++j;
        if (j < t.size() && t[j] == u'.') ++j;
        if (hour > 12) return false;
        if (pm && hour < 12) hour += 12;
        if (!pm && hour == 12) hour = 0;
        i = j;
    }
    if (hour > 23 || values[1] > 59 || values[2] > 59) return false;
    parts.hasTime = true;
    parts.hour = hour;
    parts.minute = values[1];
    parts.second = values[2];
    return true;
}

bool tokenize(StringView t, const RegionalSettings& s, DateParts& parts) {
    std::size_t i = 0;
    while (i < t.size()) {
        char16_t c = t[i];
        if (isDigit(c)) {
            int v = 0, digits = 0;
            while (i < t.size() && isDigit(t[i])) {
                if (digits > 5) return false;
                v = v * 10 + (t[i++] - u'0');
                ++digits;
            }
            if (i < t.size() && t[i] == u':') {
                if (parts.hasTime || !readTime(t, i, v, parts)) return false;
                continue;
            }
            parts.numbers.push_back(v);
            parts.digitsOf.push_back(digits);
        } else if (isLetter(c)) {
            std::size_t start = i;
            while (i < t.size() && isLetter(t[i])) ++i;
            StringView word = t.substr(start, i - start);
            if (textEquals(word, u"de") || textEquals(word, u"del")) continue;
            int m = monthFromName(word, s);
            if (m == 0 || parts.monthByName) return false;
            parts.monthByName = m;
            parts.monthNamePosition = static_cast<int>(parts.numbers.size());
            if (i < t.size() && t[i] == u'.') ++i;
        } else if (c == u'/' || c == u'-' || c == u'.' || c == u' ' || c == u',' || c == u'\t') {
            ++i;
        } else {
            return false;
        }
    }
    return true;
}

int expandYear(int y, int digits) {
    if (digits <= 2) return y < 30 ? 2000 + y : 1900 + y;
    return y;
}

bool validDay(int y, int m, int d) { return y >= 100 && y <= 9999 && m >= 1 && m <= 12 && d >= 1 && d <= daysInMonth(y, m); }

}  // namespace

std::optional<double> parseDate(StringView text, const RegionalSettings& settings) {
    DateParts p;
    if (!tokenize(text, settings, p)) return std::nullopt;
    const auto& n = p.numbers;
    double time = p.hasTime ? timeSerial(p.hour, p.minute, p.second) : 0.0;
    int y = 0, m = 0, d = 0;
    using O = RegionalSettings::DateOrder;
    if (p.monthByName) {
        if (n.size() != 2) {
            if (n.size() == 1 && p.monthNamePosition == 1) {  // "dic 1998"? not a full date
                return std::nullopt;
            }
            return std::nullopt;
        }
        m = p.monthByName;
        // The number with four digits (or the second one) is the year.
        if (p.digitsOf[0] >= 3) {
            y = n[0], d = n[1];
        } else {
            d = n[0], y = expandYear(n[1], p.digitsOf[1]);
        }
        if (!validDay(y, m, d)) return std::nullopt;
        return dateSerial(y, m, d) + time;
    }
    if (n.empty()) {
        if (!p.hasTime) return std::nullopt;
        return time;
    }
    if (n.size() == 2) {
        // Day and month of the current year, in the regional order.
        int yearNow = civilDate(today()).year;
        int a = n[0], b = n[1];
        bool monthFirst = settings.dateOrder() == O::MonthDayYear;
        int dd = monthFirst ? b : a, mm = monthFirst ? a : b;
        if (validDay(yearNow, mm, dd)) return dateSerial(yearNow, mm, dd) + time;
        if (validDay(yearNow, dd, mm)) return dateSerial(yearNow, dd, mm) + time;
        return std::nullopt;
    }
    if (n.size() != 3) return std::nullopt;
    if (p.digitsOf[0] >= 3 || settings.dateOrder() == O::YearMonthDay) {
        y = expandYear(n[0], p.digitsOf[0]), m = n[1], d = n[2];
        if (validDay(y, m, d)) return dateSerial(y, m, d) + time;
        if (validDay(y, d, m)) return dateSerial(y, d, m) + time;
        return std::nullopt;
    }
    y = expandYear(n[2], p.digitsOf[2]);
    int first = n[0], second = n[1];
    bool monthFirst = settings.dateOrder() == O::MonthDayYear;
    d = monthFirst ? second : first;
    m = monthFirst ? first : second;
    if (validDay(y, m, d)) return dateSerial(y, m, d) + time;
    if (validDay(y, d, m)) return dateSerial(y, d, m) + time;  // the swapped reading the runtime accepts
    return std::nullopt;
}

namespace {

String twoDigits(int v) {
    String s;
    s += static_cast<char16_t>(u'0' + v / 10 % 10);
    s += static_cast<char16_t>(u'0' + v % 10);
    return s;
}

String number(int v) { return ascii(std::to_string(v)); }

// Expands a Windows-style date or time picture (d dd ddd dddd M MM MMM MMMM
// y yy yyyy, H HH h hh m mm s ss t tt, quoted literals).
String expandPicture(StringView pattern, double serial, const RegionalSettings& s) {
    CivilDate c = civilDate(serial);
    TimeOfDay t = timeOfDay(serial);
    String out;
    for (std::size_t i = 0; i < pattern.size();) {
        char16_t ch = pattern[i];
        std::size_t run = 1;
        while (i + run < pattern.size() && pattern[i + run] == ch) ++run;
        switch (ch) {
            case u'\'': {
                auto close = pattern.find(u'\'', i + 1);
                if (close == StringView::npos) close = pattern.size();
                out.append(pattern.substr(i + 1, close - i - 1));
                i = close + 1;
                continue;
            }
            case u'd':
                if (run == 1) out += number(c.day);
                else if (run == 2) out += twoDigits(c.day);
                else if (run == 3) out += s.dayAbbreviations[static_cast<std::size_t>(weekday(serial) - 1)];
                else out += s.dayNames[static_cast<std::size_t>(weekday(serial) - 1)];
                break;
            case u'M':
                if (run == 1) out += number(c.month);
                else if (run == 2) out += twoDigits(c.month);
                else if (run == 3) out += s.monthAbbreviations[static_cast<std::size_t>(c.month - 1)];
                else out += s.monthNames[static_cast<std::size_t>(c.month - 1)];
                break;
            case u'y':
                if (run <= 2) out += twoDigits(c.year % 100);
                else out += number(c.year);
                break;
            case u'H': out += run == 1 ? number(t.hour) : twoDigits(t.hour); break;
            case u'h': {
                int h12 = t.hour % 12 == 0 ? 12 : t.hour % 12;
                out += run == 1 ? number(h12) : twoDigits(h12);
                break;
            }
            case u'm': out += run == 1 ? number(t.minute) : twoDigits(t.minute); break;
            case u's': out += run == 1 ? number(t.second) : twoDigits(t.second); break;
            case u't': {
                const String& designator = t.hour < 12 ? s.amDesignator : s.pmDesignator;
                out += run == 1 ? designator.substr(0, 1) : designator;
                break;
            }
            default: out.append(run, ch); break;
        }
        i += run;
    }
    return out;
}

}  // namespace

String dateToString(Date d, const RegionalSettings& settings) {
    std::int64_t days;
    double fraction;
    split(d.serial, days, fraction);
    bool hasTime = std::llround(fraction * 86400.0) % 86400 != 0;
    if (days == 0 && d.serial >= 0 && hasTime) return expandPicture(settings.timeFormat, d.serial, settings);
    String text = expandPicture(settings.shortDate, d.serial, settings);
    if (hasTime) text += u" " + expandPicture(settings.timeFormat, d.serial, settings);
    return text;
}

double now() {
    std::time_t t = std::time(nullptr);
    std::tm local{};
    localtime_r(&t, &local);
    return dateSerial(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday) +
           timeSerial(local.tm_hour, local.tm_min, local.tm_sec);
}

double today() { return std::floor(now()); }

}  // namespace telvaro

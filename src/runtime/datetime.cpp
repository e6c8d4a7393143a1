#include "runtime/datetime.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <ctime>
#include <string>
#include <vector>

#include "runtime/convert.h"
#include "runtime/error.h"
#include "runtime/text.h"

namespace telvaro {

namespace {

// Days from 1 January 1970 of a proleptic Gregorian date, and back
// (H. Hinnant's era algorithms, exact for any year).
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

constexpr std::int64_t kDay0 = -25569;         // 30 December 1899, counted from 1 January 1970
constexpr std::int64_t kLastDay = 2958465;     // 31 December 9999
constexpr double kLowestSerial = -657435.0;    // serials must lie above this ...
constexpr double kBeyondSerial = 2958466.0;    // ... and below this

std::int64_t floorDiv(std::int64_t a, std::int64_t b) { return a / b - ((a % b != 0) && ((a < 0) != (b < 0))); }
std::int64_t floorMod(std::int64_t a, std::int64_t b) { return a - floorDiv(a, b) * b; }

bool inRange(double serial) { return serial > kLowestSerial && serial < kBeyondSerial; }

// A serial as its day and its time in whole seconds: the time is rounded to
// the nearest second, and a time that rounds to midnight moves to the next
// day (except on the last valid day, which keeps 23:59:59).
struct Moment {
    std::int64_t day = 0;
    int seconds = 0;
};

Moment momentOf(double serial) {
    if (!inRange(serial)) raise(err::Overflow);
    const double whole = std::trunc(serial);
    Moment m;
    m.day = static_cast<std::int64_t>(whole);
    auto seconds = static_cast<int>(std::llround(std::fabs(serial - whole) * 86400.0));
    if (seconds >= 86400) {
        if (m.day < kLastDay) {
            ++m.day;
            seconds = 0;
        } else {
            seconds = 86399;
        }
    }
    m.seconds = seconds;
    return m;
}

void checkResult(double serial) {
    if (!inRange(serial)) raise(err::InvalidProcedureCall);
}

Date addMonthsTo(Date d, std::int64_t months) {
    if (!inRange(d.serial)) raise(err::Overflow);
    const double whole = std::trunc(d.serial);
    const double time = std::fabs(d.serial - whole);
    const CivilDate c = civilFromDays(static_cast<std::int64_t>(whole) + kDay0);
    if (months > 200000 || months < -200000) raise(err::InvalidProcedureCall);
    const std::int64_t total = std::int64_t(c.year) * 12 + (c.month - 1) + months;
    const std::int64_t y = floorDiv(total, 12);
    const int m = static_cast<int>(floorMod(total, 12)) + 1;
    if (y < 100 || y > 9999) raise(err::InvalidProcedureCall);
    const int day = std::min(c.day, daysInMonth(static_cast<int>(y), m));
    const double base = static_cast<double>(daysFromCivil(y, m, day) - kDay0);
    return Date{dateTimeSerial(base, time)};
}

}  // namespace

bool isLeapYear(int y) { return (y % 4 == 0 && y % 100 != 0) || y % 400 == 0; }

int daysInMonth(int y, int m) {
    static constexpr int days[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    if (m < 1 || m > 12) raise(err::InvalidProcedureCall);
    return m == 2 && isLeapYear(y) ? 29 : days[m - 1];
}

int expandTwoDigitYear(int year) {
    if (year >= 0 && year <= 29) return 2000 + year;
    if (year >= 30 && year <= 99) return 1900 + year;
    return year;
}

double dateSerial(int year, int month, int day) {
    std::int64_t y = expandTwoDigitYear(year);
    const std::int64_t m0 = std::int64_t(month) - 1;
    y += floorDiv(m0, 12);
    const int m = static_cast<int>(floorMod(m0, 12)) + 1;
    const double serial = static_cast<double>(daysFromCivil(y, m, 1) - kDay0 + (std::int64_t(day) - 1));
    checkResult(serial);
    return serial;
}

double timeSerial(int hour, int minute, int second) {
    const std::int64_t total = std::int64_t(hour) * 3600 + std::int64_t(minute) * 60 + second;
    const double serial = serialFromLinearDays(static_cast<double>(total) / 86400.0);
    checkResult(serial);
    return serial;
}

double dateTimeSerial(double daySerial, double timeFraction) {
    return daySerial < 0 ? daySerial - timeFraction : daySerial + timeFraction;
}

double linearDays(double serial) {
    const double whole = std::trunc(serial);
    return whole + std::fabs(serial - whole);
}

double serialFromLinearDays(double days) {
    const double whole = std::floor(days);
    return dateTimeSerial(whole, days - whole);
}

CivilDate civilDate(double serial) { return civilFromDays(momentOf(serial).day + kDay0); }

TimeOfDay timeOfDay(double serial) {
    const int s = momentOf(serial).seconds;
    return {s / 3600, s / 60 % 60, s % 60};
}

int weekday(double serial) {
    // Day 0, 30 December 1899, was a Saturday.
    return static_cast<int>(floorMod(momentOf(serial).day + 6, 7)) + 1;
}

int dayOfYear(double serial) {
    const std::int64_t day = momentOf(serial).day + kDay0;
    const CivilDate c = civilFromDays(day);
    return static_cast<int>(day - daysFromCivil(c.year, 1, 1)) + 1;
}

int day(const Variant& v) { return civilDate(toDate(v).serial).day; }
int month(const Variant& v) { return civilDate(toDate(v).serial).month; }
int year(const Variant& v) { return civilDate(toDate(v).serial).year; }

Date addDays(Date d, double days) {
    const double serial = serialFromLinearDays(linearDays(d.serial) + days);
    checkResult(serial);
    return Date{serial};
}

Date addMonths(Date d, int months) { return addMonthsTo(d, months); }

Date addYears(Date d, int years) { return addMonthsTo(d, std::int64_t(years) * 12); }

// ---------------------------------------------------------------------------
// Reading dates from text.

namespace {

struct Piece {
    bool monthName = false;
    int value = 0;   // the number, or the month 1..12
    int digits = 0;  // how many digits the number was written with
};

struct DateText {
    std::vector<Piece> pieces;  // numbers and at most one month name, in order
    bool hasTime = false;
    int hour = 0, minute = 0, second = 0;
    bool hasDesignator = false;
};

bool isDigit(char16_t c) { return c >= u'0' && c <= u'9'; }
bool isLetter(char16_t c) {
    return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z') || (c >= 0xC0 && c != 0xD7 && c != 0xF7 && c < 0x2000);
}
// The characters that separate the parts of a date and of a time: the
// usual ones and the regional date and time separators.
struct Separators {
    char16_t date = u'/';
    char16_t time = u':';
    explicit Separators(const RegionalSettings& s) {
        const String d = s.dateSeparator(), t = s.timeSeparator();
        if (!d.empty() && !isDigit(d[0]) && !isLetter(d[0])) date = d[0];
        if (!t.empty() && !isDigit(t[0]) && !isLetter(t[0])) time = t[0];
    }
    bool separatesDate(char16_t c) const {
        return c == u' ' || c == u'\t' || c == 0xA0 || c == 0x3000 || c == u'/' || c == u'-' || c == u'.' ||
               c == u',' || (c == date && c != time);
    }
    bool separatesTime(char16_t c) const { return c == u':' || (c == time && !separatesDate(c)); }
};

const char16_t* const kEnglishMonths[] = {u"january", u"february", u"march",     u"april",   u"may",      u"june",
                                          u"july",    u"august",   u"september", u"october", u"november", u"december"};
const char16_t* const kEnglishDays[] = {u"sunday",   u"monday", u"tuesday", u"wednesday",
                                        u"thursday", u"friday", u"saturday"};
const char16_t* const kSpanishMonths[] = {u"enero", u"febrero", u"marzo",      u"abril",   u"mayo",      u"junio",
                                          u"julio", u"agosto",  u"septiembre", u"octubre", u"noviembre", u"diciembre"};
const char16_t* const kSpanishDays[] = {u"domingo", u"lunes",   u"martes", u"miércoles",
                                        u"jueves",  u"viernes", u"sábado"};

// A full name or its first three letters.
bool namesMatch(StringView word, StringView name) {
    if (textEquals(word, name)) return true;
    return word.size() == 3 && name.size() > 3 && textEquals(word, name.substr(0, 3));
}

int monthFromName(StringView word, const RegionalSettings& s) {
    for (int m = 0; m < 12; ++m) {
        const auto i = static_cast<std::size_t>(m);
        if (textEquals(word, s.monthNames[i]) || textEquals(word, s.monthAbbreviations[i]) ||
            namesMatch(word, kSpanishMonths[m]) || namesMatch(word, kEnglishMonths[m]))
            return m + 1;
    }
    // "setiembre", the other Spanish spelling of September.
    if (textEquals(word, u"setiembre") || textEquals(word, u"set")) return 9;
    return 0;
}

bool isDayName(StringView word, const RegionalSettings& s) {
    for (std::size_t d = 0; d < 7; ++d) {
        if (textEquals(word, s.dayNames[d]) || textEquals(word, s.dayAbbreviations[d]) ||
            namesMatch(word, kSpanishDays[d]) || namesMatch(word, kEnglishDays[d]))
            return true;
    }
    return false;
}

// "AM", "PM", "A", "P", "a.m.", "p. m." (any case) at position i, ending at
// a word boundary. Returns 1 for AM, 2 for PM, 0 for none, and moves i past.
int readDesignator(StringView t, std::size_t& i) {
    if (i >= t.size()) return 0;
    const char16_t c = t[i];
    const int kind = (c == u'a' || c == u'A') ? 1 : (c == u'p' || c == u'P') ? 2 : 0;
    if (!kind) return 0;
    std::size_t j = i + 1;
    const bool dotted = j < t.size() && t[j] == u'.';
    if (dotted) {
        ++j;
        while (j < t.size() && t[j] == u' ') ++j;
    }
    if (j < t.size() && (t[j] == u'm' || t[j] == u'M') && (j + 1 >= t.size() || !isLetter(t[j + 1]))) {
        ++j;
        if (j < t.size() && t[j] == u'.') ++j;
    } else {
        j = dotted ? i + 2 : i + 1;  // "a." or "a" alone
    }
    if (j < t.size() && isLetter(t[j])) return 0;
    i = j;
    return kind;
}

bool applyDesignator(DateText& p, int kind, bool numberJustBefore) {
    if (p.hasDesignator) return false;
    if (!p.hasTime) {
        // "6 PM": the number before the designator is the hour.
        if (!numberJustBefore || p.pieces.empty() || p.pieces.back().monthName || p.pieces.back().digits > 2)
            return false;
        p.hour = p.pieces.back().value;
        p.minute = p.second = 0;
        p.hasTime = true;
        p.pieces.pop_back();
    }
    p.hasDesignator = true;
    // An hour above 12 keeps its value whatever the designator says.
    if (p.hour <= 12) {
        if (kind == 2 && p.hour < 12) p.hour += 12;
        if (kind == 1 && p.hour == 12) p.hour = 0;
    }
    return true;
}

bool readNumber(StringView t, std::size_t& i, int& value, int& digits) {
    value = 0;
    digits = 0;
    while (i < t.size() && isDigit(t[i])) {
        if (digits == 9) return false;
        value = value * 10 + (t[i++] - u'0');
        ++digits;
    }
    return digits > 0;
}

// "H:mm" or "H:mm:ss" starting after the hour (i at the first separator).
bool readTime(StringView t, std::size_t& i, int hour, const Separators& marks, DateText& p) {
    int parts[3] = {hour, 0, 0};
    int count = 1;
    while (count < 3 && i < t.size() && marks.separatesTime(t[i])) {
        ++i;
        int v = 0, digits = 0;
        if (!readNumber(t, i, v, digits) || digits > 2) return false;
        parts[count++] = v;
    }
    if (count < 2) return false;
    p.hasTime = true;
    p.hour = parts[0];
    p.minute = parts[1];
    p.second = parts[2];
    return true;
}

bool tokenize(StringView t, const RegionalSettings& s, DateText& p) {
    const Separators marks(s);
    std::size_t i = 0;
    bool numberJustBefore = false;
    while (i < t.size()) {
        const char16_t c = t[i];
        if (isDigit(c)) {
            int v = 0, digits = 0;
            if (!readNumber(t, i, v, digits)) return false;
            if (i < t.size() && marks.separatesTime(t[i])) {
                if (p.hasTime || digits > 2 || !readTime(t, i, v, marks, p)) return false;
                numberJustBefore = false;
                continue;
            }
            p.pieces.push_back({false, v, digits});
            numberJustBefore = true;
            continue;
        }
        if (isLetter(c)) {
            std::size_t end = i;
            while (end < t.size() && isLetter(t[end])) ++end;
            const StringView word = t.substr(i, end - i);
            if (const int m = monthFromName(word, s)) {
                for (const auto& piece : p.pieces)
                    if (piece.monthName) return false;
                p.pieces.push_back({true, m, 0});
                i = end;
                numberJustBefore = false;
                continue;
            }
            std::size_t j = i;
            if (const int kind = readDesignator(t, j)) {
                if (!applyDesignator(p, kind, numberJustBefore)) return false;
                i = j;
                numberJustBefore = false;
                continue;
            }
            const bool isoT = word.size() == 1 && (c == u'T' || c == u't') && end < t.size() && isDigit(t[end]);
            if (isoT || textEquals(word, u"de") || textEquals(word, u"del") || isDayName(word, s)) {
                i = end;
                numberJustBefore = false;
                continue;
            }
            return false;
        }
        if (marks.separatesDate(c)) {
            ++i;
            continue;
        }
        return false;
    }
    return true;
}

bool validDate(int y, int m, int d) {
    return y >= 100 && y <= 9999 && m >= 1 && m <= 12 && d >= 1 && d <= daysInMonth(y, m);
}

int yearOf(const Piece& p) { return p.digits <= 2 ? expandTwoDigitYear(p.value) : p.value; }

int currentYear() { return civilDate(today()).year; }

struct Ymd {
    int y = 0, m = 0, d = 0;
};

// Which of three numbers is the day, the month and the year.
enum class Order { DMY, MDY, YMD, YDM };

std::optional<Ymd> threeNumbers(const Piece& a, const Piece& b, const Piece& c, RegionalSettings::DateOrder regional) {
    if (b.digits > 2) return std::nullopt;
    using R = RegionalSettings::DateOrder;
    // The regional order first; then the readings the runtime falls back to.
    std::vector<Order> orders;
    switch (regional) {
        case R::DayMonthYear: orders = {Order::DMY, Order::MDY, Order::YMD, Order::YDM}; break;
        case R::MonthDayYear: orders = {Order::MDY, Order::YMD, Order::DMY, Order::YDM}; break;
        case R::YearMonthDay: orders = {Order::YMD, Order::YDM, Order::DMY, Order::MDY}; break;
    }
    for (Order o : orders) {
        Ymd r;
        switch (o) {
            case Order::DMY:
                if (a.digits > 2) continue;
                r = {yearOf(c), b.value, a.value};
                break;
            case Order::MDY:
                if (a.digits > 2) continue;
                r = {yearOf(c), a.value, b.value};
                break;
            case Order::YMD:
                if (c.digits > 2) continue;
                r = {yearOf(a), b.value, c.value};
                break;
            case Order::YDM:
                if (c.digits > 2) continue;
                r = {yearOf(a), c.value, b.value};
                break;
        }
        if (validDate(r.y, r.m, r.d)) return r;
    }
    return std::nullopt;
}

std::optional<Ymd> twoNumbers(const Piece& a, const Piece& b, RegionalSettings::DateOrder regional) {
    // A day and a month of the current year, in the regional order or swapped.
    if (a.digits <= 2 && b.digits <= 2) {
        const int y = currentYear();
        const bool dayFirst = regional == RegionalSettings::DateOrder::DayMonthYear;
        const Ymd first = dayFirst ? Ymd{y, b.value, a.value} : Ymd{y, a.value, b.value};
        const Ymd second{y, first.d, first.m};
        if (validDate(first.y, first.m, first.d)) return first;
        if (validDate(second.y, second.m, second.d)) return second;
    }
    // Else a month and a year: the number that can be a month is the month.
    Ymd r{0, 0, 1};
    if (a.digits > 2) {
        r = {a.value, b.value, 1};
    } else if (b.digits > 2) {
        r = {b.value, a.value, 1};
    } else if (a.value >= 1 && a.value <= 12) {
        r = {yearOf(b), a.value, 1};
    } else {
        r = {yearOf(a), b.value, 1};
    }
    if (validDate(r.y, r.m, r.d)) return r;
    return std::nullopt;
}

std::optional<Ymd> withMonthName(const std::vector<Piece>& pieces) {
    int month = 0;
    std::vector<Piece> numbers;
    for (const auto& p : pieces) {
        if (p.monthName) {
            month = p.value;
        } else {
            numbers.push_back(p);
        }
    }
    if (numbers.size() == 1) {
        const Piece& n = numbers[0];
        const int y = currentYear();
        // The number is the day when it can be; else it is the year.
        if (n.digits <= 2 && validDate(y, month, n.value)) return Ymd{y, month, n.value};
        const Ymd r{yearOf(n), month, 1};
        if (validDate(r.y, r.m, r.d)) return r;
        return std::nullopt;
    }
    if (numbers.size() != 2) return std::nullopt;
    const Piece& a = numbers[0];
    const Piece& b = numbers[1];
    // Day then year ("31 dic 1998", "Dec 31, 1998"), or year then day.
    if (a.digits <= 2 && validDate(yearOf(b), month, a.value)) return Ymd{yearOf(b), month, a.value};
    if (b.digits <= 2 && validDate(yearOf(a), month, b.value)) return Ymd{yearOf(a), month, b.value};
    return std::nullopt;
}

}  // namespace

std::optional<double> parseDate(StringView text, const RegionalSettings& settings) {
    DateText p;
    if (!tokenize(text, settings, p)) return std::nullopt;
    if (p.hasTime && (p.hour > 23 || p.minute > 59 || p.second > 59)) return std::nullopt;
    const double time = p.hasTime ? (p.hour * 3600.0 + p.minute * 60.0 + p.second) / 86400.0 : 0.0;

    bool named = false;
    for (const auto& piece : p.pieces) named = named || piece.monthName;
    std::optional<Ymd> date;
    if (p.pieces.empty()) {
        if (!p.hasTime) return std::nullopt;
        return time;
    }
    if (named) {
        date = withMonthName(p.pieces);
    } else if (p.pieces.size() == 2) {
        date = twoNumbers(p.pieces[0], p.pieces[1], settings.dateOrder());
    } else if (p.pieces.size() == 3) {
        date = threeNumbers(p.pieces[0], p.pieces[1], p.pieces[2], settings.dateOrder());
    }
    if (!date) return std::nullopt;
    return dateTimeSerial(dateSerial(date->y, date->m, date->d), time);
}

// ---------------------------------------------------------------------------
// Writing dates as text.

namespace {

String twoDigits(int v) {
    String s;
    s += static_cast<char16_t>(u'0' + v / 10 % 10);
    s += static_cast<char16_t>(u'0' + v % 10);
    return s;
}

String number(std::int64_t v) { return ascii(std::to_string(v)); }

// Expands a short-date or time picture of the regional settings: d dd ddd
// dddd, M MM MMM MMMM, y yy yyyy, H HH h hh, m mm, s ss, t tt, and quoted
// literals; other characters stand for themselves.
String expandPicture(StringView pattern, const Moment& m, const RegionalSettings& s) {
    const CivilDate c = civilFromDays(m.day + kDay0);
    const int hour = m.seconds / 3600, minute = m.seconds / 60 % 60, second = m.seconds % 60;
    const auto weekdayIndex = static_cast<std::size_t>(floorMod(m.day + 6, 7));
    String out;
    for (std::size_t i = 0; i < pattern.size();) {
        const char16_t ch = pattern[i];
        if (ch == u'\'') {
            auto close = pattern.find(u'\'', i + 1);
            if (close == StringView::npos) close = pattern.size();
            out.append(pattern.substr(i + 1, close - i - 1));
            i = close + 1;
            continue;
        }
        std::size_t run = 1;
        while (i + run < pattern.size() && pattern[i + run] == ch) ++run;
        switch (ch) {
            case u'd':
                if (run == 1) out += number(c.day);
                else if (run == 2) out += twoDigits(c.day);
                else if (run == 3) out += s.dayAbbreviations[weekdayIndex];
                else out += s.dayNames[weekdayIndex];
                break;
            case u'M':
                if (run == 1) out += number(c.month);
                else if (run == 2) out += twoDigits(c.month);
                else if (run == 3) out += s.monthAbbreviations[static_cast<std::size_t>(c.month - 1)];
                else out += s.monthNames[static_cast<std::size_t>(c.month - 1)];
                break;
            case u'y':
                if (run == 1) out += number(c.year % 100);
                else if (run == 2) out += twoDigits(c.year % 100);
                else out += number(c.year);
                break;
            case u'H': out += run == 1 ? number(hour) : twoDigits(hour); break;
            case u'h': {
                const int h12 = hour % 12 == 0 ? 12 : hour % 12;
                out += run == 1 ? number(h12) : twoDigits(h12);
                break;
            }
            case u'm': out += run == 1 ? number(minute) : twoDigits(minute); break;
            case u's': out += run == 1 ? number(second) : twoDigits(second); break;
            case u't': {
                const String& designator = hour < 12 ? s.amDesignator : s.pmDesignator;
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
    const Moment m = momentOf(d.serial);
    if (m.day == 0) return expandPicture(settings.timeFormat, m, settings);
    String text = expandPicture(settings.shortDate, m, settings);
    if (m.seconds != 0) text += u" " + expandPicture(settings.timeFormat, m, settings);
    return text;
}

double now() {
    const std::time_t t = std::time(nullptr);
    std::tm local{};
#ifdef _WIN32
    localtime_s(&local, &t);
#else
    localtime_r(&t, &local);
#endif
    const double day = dateSerial(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday);
    const double time = (local.tm_hour * 3600.0 + local.tm_min * 60.0 + std::min(local.tm_sec, 59)) / 86400.0;
    return dateTimeSerial(day, time);
}

double today() { return std::trunc(now()); }

}  // namespace telvaro

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

constexpr std::int64_t kDay0 = -25569;       // 30 December 1899, counted from 1 January 1970
constexpr std::int64_t kLastDay = 2958465;   // 31 December 9999
constexpr double kLowestSerial = -657435.0;  // serials must lie above this ...
constexpr double kBeyondSerial = 2958466.0;  // ... and below this

std::int64_t floorDiv(std::int64_t a, std::int64_t b) { return a / b - ((a % b != 0) && ((a < 0) != (b < 0))); }
std::int64_t floorMod(std::int64_t a, std::int64_t b) { return a - floorDiv(a, b) * b; }

bool inRange(double serial) { return serial > kLowestSerial && serial < kBeyondSerial; }

void checkResult(double serial) {
    if (!inRange(serial)) raise(err::InvalidProcedureCall);
}

}  // namespace

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

CivilDate civilDateOfDay(std::int64_t day) { return civilFromDays(day + kDay0); }

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

// Dates as the runtime keeps them: a Double count of days from 30 December
// 1899 (day 0), the fraction being the time of day. Negative serials count
// back from day 0 with the time as a positive fraction (-1.25 is 29 December
// 1899 at 06:00). Valid from 1 January 100 to 31 December 9999.
#pragma once

#include <optional>

#include "runtime/regional.h"
#include "runtime/variant.h"

namespace telvaro {

inline constexpr double kMinDateSerial = -657434.0;         // 1 January 100
inline constexpr double kMaxDateSerial = 2958465.99999999;  // 31 December 9999, 23:59:59

struct CivilDate {
    int year = 1899, month = 12, day = 30;
    friend bool operator==(const CivilDate&, const CivilDate&) = default;
};
struct TimeOfDay {
    int hour = 0, minute = 0, second = 0;
    friend bool operator==(const TimeOfDay&, const TimeOfDay&) = default;
};

// DateSerial: months and days out of range roll over (month 13 is January
// of the next year, day 0 the last day of the previous month). Error 5 when
// the result lies outside the valid range.
double dateSerial(int year, int month, int day);
// TimeSerial as a fraction of a day (may exceed a day or be negative).
double timeSerial(int hour, int minute, int second);

CivilDate civilDate(double serial);  // the calendar day of a serial
TimeOfDay timeOfDay(double serial);  // rounded to the nearest second
int weekday(double serial);          // 1 = Sunday ... 7 = Saturday
int dayOfYear(double serial);
bool isLeapYear(int year);
int daysInMonth(int year, int month);

// Whole days and time parts of a Variant date (Day, Month, Year, Hour, ...).
int day(const Variant& v);
int month(const Variant& v);
int year(const Variant& v);

// Add to a date (DateAdd with "d", "m", "yyyy"): months keep the day or
// clamp it to the month's last day. Error 5 outside the valid range.
Date addDays(Date d, double days);
Date addMonths(Date d, int months);
Date addYears(Date d, int years);

// Read a date and/or time from text in the regional short-date order
// ("31/12/1998", "31-12-1998 10:30", "1998-12-31" in ISO order, month names
// in Spanish or English); empty when the text is not a date.
std::optional<double> parseDate(StringView text, const RegionalSettings& settings);

// The text of a date as CStr writes it: the short date, then " " and the
// time in the regional time format when the time is not midnight; only the
// time when the date is day 0.
String dateToString(Date d, const RegionalSettings& settings);

// Today's date and the current time (Now), as serials.
double today();
double now();

}  // namespace telvaro

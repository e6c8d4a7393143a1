// Dates as the runtime keeps them: a Double count of days from 30 December
// 1899 (day 0), the fraction being the time of day. Negative serials count
// back from day 0 with the time as a positive fraction (-1.25 is 29 December
// 1899 at 06:00), so a serial is not a point on a straight time line: day
// arithmetic goes through linearDays. Valid from 1 January 100 to
// 31 December 9999 (serials above -657435 and below 2958466); the calendar
// is the Gregorian one for all those years.
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
// of the next year, day 0 the last day of the previous month, month 0 the
// December before); a year from 0 to 99 is a two-digit year (see
// expandTwoDigitYear). Error 5 when the result lies outside the valid range.
double dateSerial(int year, int month, int day);
// TimeSerial: the time as a serial of day 0; a total beyond a day moves to
// the following days, a negative total to the days before day 0 (-1 hour is
// 29 December 1899 at 23:00, serial -1.958333...).
double timeSerial(int hour, int minute, int second);
// The serial of a day (a whole serial) at a time of day (a fraction from 0
// to below 1), as the runtime combines them: days before day 0 subtract
// the time ("29/12/1899 06:00" is -1.25).
double dateTimeSerial(double daySerial, double timeFraction);
// A serial as a count of days on a straight line (-1.25 is -0.75) and back.
// Adding to the line is how days and times are added to a date.
double linearDays(double serial);
double serialFromLinearDays(double days);
// Two-digit years: 0-29 are 2000-2029, 30-99 are 1930-1999; other years
// are returned as given.
int expandTwoDigitYear(int year);

// The parts of a serial. The time is rounded to the nearest second, and a
// time that rounds to midnight belongs to the next day. Error 6 for a
// serial outside the valid range.
CivilDate civilDate(double serial);  // the calendar day of a serial
// A serial as its day and its time in whole seconds: the time is rounded to
// the nearest second, and a time that rounds to midnight moves to the next
// day (except on the last valid day, which keeps 23:59:59). Error 6 outside
// the date range.
struct Moment {
    std::int64_t day = 0;
    int seconds = 0;
};
Moment momentOf(double serial);
CivilDate civilDateOfDay(std::int64_t day);  // the calendar day of a Moment's day
TimeOfDay timeOfDay(double serial);
int weekday(double serial);  // 1 = Sunday ... 7 = Saturday
int dayOfYear(double serial);
bool isLeapYear(int year);
int daysInMonth(int year, int month);  // error 5 for a month outside 1..12

// Whole days and time parts of a Variant date (Day, Month, Year, Hour, ...).
int day(const Variant& v);
int month(const Variant& v);
int year(const Variant& v);

// Read a date and/or time from text ("31/12/1998", "31-12-1998 10:30",
// "1998-12-31", "31-dic-1998", "31 de diciembre de 1998", "6:30 PM"):
// day, month and year numbers separated by "/", "-", ".", "," or blanks in
// the regional short-date order, falling back to the swapped day and month
// and then to year first when that order gives no valid date; a first
// number of three or four digits is the year; month names in Spanish or
// English, full or abbreviated; day names ignored; a time "H:mm[:ss]" with
// an optional AM/PM anywhere. A time alone gives a serial of day 0; a day
// and month alone are in the current year. Empty when the text is not a
// date.
std::optional<double> parseDate(StringView text, const RegionalSettings& settings);

// The text of a date as CStr writes it: the short date, then " " and the
// time in the regional time format when the time is not midnight; only the
// time when the date is day 0 (also at midnight: "00:00:00"). Error 6 for a
// serial outside the valid range.
String dateToString(Date d, const RegionalSettings& settings);

// Today's date and the current time (Now), as serials of the local time.
double today();
double now();

}  // namespace telvaro

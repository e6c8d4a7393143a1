// Dates as the runtime keeps them: serials, the calendar, rollover, text in the regional order.
#include <gtest/gtest.h>

#include <cmath>
#include <ctime>

#include "runtime/convert.h"
#include "runtime/datetime.h"
#include "runtime/regional.h"
#include "support/support.h"

namespace telvaro {
namespace {

std::string civilText(const CivilDate& c) {
    return std::to_string(c.year) + "-" + std::to_string(c.month) + "-" + std::to_string(c.day);
}

TEST(DateSerials, CivilDatesBothWays) {
    struct Case {
        int y, m, d;
        double serial;
        int weekday;
    };
    const Case cases[] = {
        {1899, 12, 30, 0, 7},    {1899, 12, 29, -1, 6},   {1900, 2, 28, 60, 4},
        {1900, 3, 1, 61, 5},     {2000, 2, 29, 36585, 3}, {1600, 2, 29, -109512, 3},
        {1700, 3, 1, -72987, 2}, {100, 1, 1, -657434, 6}, {9999, 12, 31, 2958465, 6},
    };
    for (const auto& c : cases) {
        const std::string what = civilText({c.y, c.m, c.d});
        EXPECT_DOUBLE_EQ(dateSerial(c.y, c.m, c.d), c.serial) << what;
        EXPECT_EQ(civilDate(c.serial), (CivilDate{c.y, c.m, c.d})) << what;
        EXPECT_EQ(weekday(c.serial), c.weekday) << what;
    }
}

TEST(DateSerials, MonthsOutsideTheYearHaveNoLength) {
    EXPECT_EQ(errorNumberOf([] { daysInMonth(2024, 13); }), err::InvalidProcedureCall);
    EXPECT_EQ(errorNumberOf([] { daysInMonth(2024, 0); }), err::InvalidProcedureCall);
}

TEST(DateSerials, RolloverAndTwoDigitYears) {
    struct Case {
        int y, m, d;
        CivilDate expected;
    };
    const Case cases[] = {
        {1998, 13, 1, {1999, 1, 1}},   {1999, 3, 0, {1999, 2, 28}},   {1999, 0, 1, {1998, 12, 1}},
        {1999, -12, 1, {1997, 12, 1}}, {1999, 1, -1, {1998, 12, 30}}, {1999, 2, 366, {2000, 2, 1}},
        {29, 12, 31, {2029, 12, 31}},  {30, 1, 1, {1930, 1, 1}},      {99, 13, 1, {2000, 1, 1}},
    };
    for (const auto& c : cases)
        EXPECT_EQ(civilDate(dateSerial(c.y, c.m, c.d)), c.expected) << c.y << ", " << c.m << ", " << c.d;
    for (auto [y, m, d] : {std::tuple(10000, 1, 1), {100, 1, 0}, {9999, 12, 32}, {2000, 2147483647, 1}})
        EXPECT_EQ(errorNumberOf([&] { dateSerial(y, m, d); }), err::InvalidProcedureCall)
            << y << ", " << m << ", " << d;
}

TEST(DateSerials, TimesOfNegativeAndRoundedSerials) {
    // clang-format off
    const std::tuple<double, CivilDate, TimeOfDay> cases[] = {
        {-1.25, {1899, 12, 29}, {6, 0, 0}}, {-0.25, {1899, 12, 30}, {6, 0, 0}}, {3.34, {1900, 1, 2}, {8, 9, 36}},
        {-49192.24, {1765, 4, 24}, {5, 45, 36}}, {36160 + 0.4 / 86400, {1998, 12, 31}, {0, 0, 0}},
        {36160 + 0.6 / 86400, {1998, 12, 31}, {0, 0, 1}}, {0.9999999999, {1899, 12, 31}, {0, 0, 0}},
        {-1.9999999999, {1899, 12, 30}, {0, 0, 0}}, {2958465.9999999, {9999, 12, 31}, {23, 59, 59}},
    };
    // clang-format on
    for (const auto& [serial, date, time] : cases) {
        EXPECT_EQ(civilDate(serial), date) << serial;
        EXPECT_EQ(timeOfDay(serial), time) << serial;
    }
    for (double bad : {-657435.0, 2958466.0, std::nan("")})
        EXPECT_EQ(errorNumberOf([bad] { civilDate(bad); }), err::Overflow) << bad;
}

TEST(DateSerials, TimeSerialAndCombiningDayAndTime) {
    EXPECT_DOUBLE_EQ(timeSerial(6, 0, 0), 0.25);
    EXPECT_DOUBLE_EQ(timeSerial(25, 0, 0), 1 + 1.0 / 24);
    EXPECT_NEAR(timeSerial(-1, 0, 0), -(1 + 23.0 / 24), 1e-12) << "23:00 the day before day 0";
    EXPECT_NEAR(timeSerial(0, 90, 30), (5430.0) / 86400, 1e-12);
    EXPECT_DOUBLE_EQ(dateTimeSerial(-1, 0.25), -1.25);
    EXPECT_DOUBLE_EQ(linearDays(-1.25), -0.75);
    EXPECT_DOUBLE_EQ(serialFromLinearDays(-0.75), -1.25);
}

TEST(DateText, ShortDateAndTimeInTheRegionalFormats) {
    struct Case {
        const char16_t* shortDate;
        const char16_t* timeFormat;
        double serial;
        const char* text;
    };
    // clang-format off
    const Case cases[] = {
        {u"dd/MM/yyyy", u"HH:mm:ss", 36160, "31/12/1998"},
        {u"dd/MM/yyyy", u"HH:mm:ss", 36160.75, "31/12/1998 18:00:00"}, {u"dd/MM/yyyy", u"HH:mm:ss", 0, "00:00:00"},
        {u"dd/MM/yyyy", u"HH:mm:ss", -0.25, "06:00:00"}, {u"dd/MM/yyyy", u"HH:mm:ss", -1.25, "29/12/1899 06:00:00"},
        {u"dd/MM/yyyy", u"HH:mm:ss", 2958465.99998843, "31/12/9999 23:59:59"},
        {u"dd/MM/yyyy", u"HH:mm:ss", 36160.9999999999, "01/01/1999"}, {u"d/M/yy", u"H:mm", 36526.25, "1/1/00 6:00"},
        {u"dd.MM.yyyy", u"HH:mm:ss", 3339.34, "20.02.1909 08:09:36"}, {u"d-MMM-yy", u"HH:mm", 36160, "31-dic-98"},
        {u"dddd d' de 'MMMM", u"HH:mm", 36160, "jueves 31 de diciembre"},
        // Windows en-US values for the same serials.
        {u"M/d/yyyy", u"h:mm:ss tt", 0, "12:00:00 AM"}, {u"M/d/yyyy", u"h:mm:ss tt", 365.25, "12/30/1900 6:00:00 AM"},
        {u"M/d/yyyy", u"h:mm:ss tt", 1461.5, "12/31/1903 12:00:00 PM"},
    };
    // clang-format on
    for (const auto& c : cases) {
        RegionalSettings s;
        s.shortDate = c.shortDate;
        s.timeFormat = c.timeFormat;
        s.amDesignator = u"AM";
        s.pmDesignator = u"PM";
        EXPECT_EQ(toUtf8(dateToString(Date{c.serial}, s)), c.text) << toUtf8(c.shortDate) << " " << c.serial;
    }
    EXPECT_EQ(errorNumberOf([] { dateToString(Date{3e6}, RegionalSettings{}); }), err::Overflow);
}

struct ParseCase {
    const char16_t* text;
    double serial;  // -1e9: not a date; 1e9 + d: day d of the current year given as month*100+day
};
constexpr double kNotADate = -1e9;
double thisYear(int month, int day, double time = 0) {
    return dateTimeSerial(dateSerial(civilDate(today()).year, month, day), time);
}

void checkParse(const char16_t* shortDate, const ParseCase& c) {
    RegionalSettings s;
    s.shortDate = shortDate;
    auto d = parseDate(c.text, s);
    if (c.serial == kNotADate) {
        EXPECT_FALSE(d.has_value()) << toUtf8(shortDate) << ": " << toUtf8(c.text) << " read as " << d.value_or(0);
    } else {
        ASSERT_TRUE(d.has_value()) << toUtf8(shortDate) << ": " << toUtf8(c.text);
        EXPECT_NEAR(*d, c.serial, 1e-8) << toUtf8(shortDate) << ": " << toUtf8(c.text);
    }
}

TEST(DateReading, DayFirstOrder) {
    // clang-format off
    const ParseCase cases[] = {
        {u"31/12/1998", 36160}, {u"31 12 1998", 36160},
        {u"12/31/1998", 36160},  // the swapped reading when day-first gives no date
        {u"1/2/98", 35827}, {u"1/1/29", 47119}, {u"1/1/30", 10959}, {u"1/1/100", -657434}, {u"31/12/9999", 2958465},
        {u"98/12/31", 36160},  // year first when neither day-month order works
        {u"1998-12-31", 36160}, {u"31-dic-1998", 36160}, {u"31/DIC/1998", 36160}, {u"31 de diciembre de 1998", 36160},
        {u"December 31, 1998", 36160}, {u"30 setiembre 1998", 36068}, {u"31 setiembre 1998", kNotADate},
        {u"martes, 31 de marzo de 1998", 35885}, {u"miércoles, 3 de enero de 2024", 45294}, {u"dic 1998", 36130},
        {u"Jan 35", 12785},  // 1 January 1935: 35 cannot be a day of January
        {u"31/12/1998 18:30", 36160 + 18.5 / 24}, {u"31/12/1998 6:30 PM", 36160 + 18.5 / 24},
        {u"31/12/1998 6:30 p. m.", 36160 + 18.5 / 24},
        {u"31/12/1998 06:30:15", 36160 + (6 * 3600 + 30 * 60 + 15) / 86400.0}, {u"18:30 31/12/1998", 36160 + 18.5 / 24},
        {u"1998-12-31T18:30:00", 36160 + 18.5 / 24}, {u"6 PM", 0.75}, {u"10:30", 0.4375}, {u"12:00 AM", 0},
        {u"00:00 p", 0.5}, {u"13:00 PM", 13.0 / 24}, {u"", kNotADate}, {u"hola", kNotADate}, {u"12", kNotADate},
        {u"1;2;3", kNotADate}, {u"24:00", kNotADate}, {u"0:60", kNotADate}, {u"6 PM PM", kNotADate},
        {u"enero", kNotADate}, {u"30/02/1998", kNotADate}, {u"1/2/3/4", kNotADate}, {u"31/12/10000", kNotADate},
        {u"2013-05-14 02:04:12.017", kNotADate}, {u"31/12/1998 10:30 10:30", kNotADate},
        {u"31 dic enero 1998", kNotADate},
    };
    // clang-format on
    for (const auto& c : cases) checkParse(u"dd/MM/yyyy", c);

    // clang-format off
    const ParseCase currentYear[] = {
        {u"31/12", thisYear(12, 31)}, {u"14 1", thisYear(1, 14)}, {u"31 dic", thisYear(12, 31)},
        {u"3 am 1 2", thisYear(2, 1, 0.125)},
    };
    // clang-format on
    for (const auto& c : currentYear) checkParse(u"dd/MM/yyyy", c);
}

TEST(DateReading, MonthFirstOrder) {
    // The serials the runtime gives for these texts in an en-US session, with
    // two-digit years read in the 1930-2029 window.
    // clang-format off
    const ParseCase cases[] = {
        {u"01/02/1998", 35797}, {u"31/12/1998", 36160}, {u"1 2 3", 37623}, {u"14 2 3", 41673}, {u"2 14 3", 37666},
        {u"32 2 3", 11722}, {u"30 2", 10990}, {u"2 January, 1970", 25570}, {u"13-1-1970", 25581},
        {u"6/30/2011 01:20:34 PM", 40724.55594907407},
    };
    // clang-format on
    for (const auto& c : cases) checkParse(u"MM/dd/yyyy", c);
    checkParse(u"MM/dd/yyyy", {u"1 2", thisYear(1, 2)});
}

TEST(DateReading, YearFirstOrder) {
    const ParseCase cases[] = {
        {u"1998-12-31", 36160}, {u"98-12-31", 36160},   {u"1998/12/31 18:00", 36160.75}, {u"01/02/03", 36925},
        {u"31/12/1998", 36160}, {u"12/31/1998", 36160}, {u"1998-31-12", 36160},          {u"1998-02-30", kNotADate},
    };
    for (const auto& c : cases) checkParse(u"yyyy-MM-dd", c);
    checkParse(u"yyyy-MM-dd", {u"12-31", thisYear(12, 31)});
}

TEST(DateReading, ConversionsUseTheRegionalOrder) {
    EXPECT_DOUBLE_EQ(toDate(Variant(u"01/02/1998")).serial, 35827);
    RegionalSettings us;
    us.shortDate = u"MM/dd/yyyy";
    RegionalScope scope(us);
    EXPECT_DOUBLE_EQ(toDate(Variant(u"01/02/1998")).serial, 35797);
    EXPECT_EQ(errorNumberOf([] { toDate(Variant(u"31/02/1998")); }), err::TypeMismatch);
    EXPECT_EQ(toString(Variant(Date{35797})), u"01/02/1998");
}

// The names of the configuration in force read, and only while it is.
TEST(DateReading, MonthNamesOfTheSettingsInForce) {
    const Variant text(u"3 de janeiro de 2024");
    EXPECT_EQ(errorNumberOf([&] { toDate(text); }), err::TypeMismatch);
    {
        RegionalSettings other = RegionalSettings::standard();
        other.monthNames[0] = u"janeiro";
        RegionalScope scope(other);
        EXPECT_DOUBLE_EQ(toDate(text).serial, 45294);
    }
    EXPECT_EQ(errorNumberOf([&] { toDate(text); }), err::TypeMismatch);
    EXPECT_DOUBLE_EQ(toDate(Variant(u"3 de enero de 2024")).serial, 45294);
}

TEST(DateClock, TodayAndNowAreTheLocalDate) {
    const std::time_t t = std::time(nullptr);
    std::tm local{};
    localtime_r(&t, &local);
    const double n = now(), d = today();
    EXPECT_TRUE(d == std::floor(d) && n >= d && n < d + 1) << d << " " << n;
    // The clock may pass midnight between the two readings; allow that day.
    const CivilDate read{local.tm_year + 1900, local.tm_mon + 1, local.tm_mday};
    EXPECT_TRUE(civilDate(d) == read || civilDate(d - 1) == read) << civilText(civilDate(d));
}

}  // namespace
}  // namespace telvaro

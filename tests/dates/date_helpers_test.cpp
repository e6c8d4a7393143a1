// The date helpers as applications call them: the SQL date text, the age
// phrase with its fixed-length calendar, the days of a month, the first day.
#include <gtest/gtest.h>

#include "context/fun.h"
#include "frame/invoke.h"
#include "host/default_platform.h"
#include "runtime/datetime.h"
#include "support/support.h"

namespace telvaro {
namespace {

Variant call(const char* method, std::vector<Variant> args) {
    Fun fun(defaultPlatform());
    return invoke(fun, method, args);
}

Variant dateOf(int y, int m, int d) { return Variant(Date{dateSerial(y, m, d)}); }

TEST(EdadExacta, PhraseFromTheFixedLengthCalendar) {
    struct Case {
        int days;  // FechaActual - FechaNacimiento
        const char16_t* phrase;
    };
    const Case cases[] = {
        {0, u" 0 años con  0 meses y  0 días"},
        {45, u" 0 años con  1 mes y  14 días"},
        {30, u" 0 años con  1 mes y  29 días"},
        {31, u" 0 años con  1 mes y  0 días"},
        {365, u" 1 año con  0 meses y  0 días"},
        {366, u" 1 año con  0 meses y  1 día"},
        {7305, u" 20 años con  0 meses y  0 días"},
        {-2, u""},
        {-400, u""},
        // One day before birth: the leap-day allowance Int(-1 / 365 / 4) is -1,
        // which brings the day count back to 0.
        {-1, u" 0 años con  0 meses y  0 días"},
        {1, u" 0 años con  0 meses y  1 día"},
        {800, u" 2 años con  2 meses y  9 días"},
    };
    const double birth = dateSerial(2000, 1, 1);
    for (const auto& c : cases) {
        Variant got = call("fecEdadExacta", {Variant(Date{birth + c.days}), Variant(Date{birth})});
        EXPECT_TRUE(identical(got, Variant(String(c.phrase))))
            << c.days << " days: \"" << toUtf8(toString(got)) << "\"";
    }
    EXPECT_TRUE(identical(call("fecEdadExacta", {dateOf(2020, 1, 1), dateOf(2000, 1, 1)}),
                          Variant(u" 20 años con  0 meses y  0 días")));
    EXPECT_TRUE(identical(call("fecEdadExacta", {Variant(Date{birth + 45.9}), Variant(Date{birth + 0.8})}),
                          Variant(u" 0 años con  1 mes y  14 días")))
        << "the time of day does not count";
    EXPECT_TRUE(identical(call("fecEdadExacta", {Variant(u"15/02/2000"), Variant(u"01/01/2000")}),
                          Variant(u" 0 años con  1 mes y  14 días")))
        << "text arguments are read as dates";
}

TEST(UltimoDiaMes, MonthLengthsWithoutTheCenturyRule) {
    struct Case {
        int month, year, days;
    };
    const Case cases[] = {{1, 2023, 31}, {4, 2023, 30},  {2, 2024, 29}, {2, 2023, 28}, {2, 1900, 29},
                          {2, 2100, 29}, {12, 2023, 31}, {13, 2024, 0}, {0, 2024, 0},  {255, 2024, 0}};
    for (const auto& c : cases) {
        Variant got = call("fecUltimoDiaMes", {Variant(std::int32_t(c.month)), Variant(std::int32_t(c.year))});
        EXPECT_TRUE(identical(got, Variant(std::uint8_t(c.days)))) << c.month << "/" << c.year << ": " << describe(got);
    }
    EXPECT_EQ(errorNumberOf([] {
                  call("fecUltimoDiaMes", {Variant(std::int32_t(256)), Variant(std::int32_t(2024))});
              }),
              err::Overflow);
}

TEST(PrimerDia, FirstDayOfTheMonthKeepingTheTime) {
    EXPECT_TRUE(identical(call("FechaPrimerDia", {Variant(u"15/03/2024")}), dateOf(2024, 3, 1)));
    EXPECT_TRUE(identical(call("FechaPrimerDia", {Variant(Date{dateSerial(2024, 3, 15) + 0.5})}),
                          Variant(Date{dateSerial(2024, 3, 1) + 0.5})));
    Variant now = call("FechaPrimerDia", {});
    CivilDate first = civilDate(now.get<Date>().serial);
    CivilDate current = civilDate(today());
    EXPECT_EQ(first, (CivilDate{current.year, current.month, 1}));
    EXPECT_TRUE(identical(call("FechaPrimerDia", {Variant(u"")}), now));
    EXPECT_EQ(errorNumberOf([] { call("FechaPrimerDia", {Variant(u"no es fecha")}); }), err::TypeMismatch);
}

TEST(MyFecha, YearMonthDayForSql) {
    EXPECT_TRUE(identical(call("MyFecha", {Variant(u"15/03/2024")}), Variant(u"2024-03-15")));
    EXPECT_TRUE(identical(call("MyFecha", {Variant(u"1/2/98")}), Variant(u"1998-02-01")));
    EXPECT_TRUE(identical(call("MyFecha", {Variant(u"ayer")}), Variant(u"ayer"))) << "text that is not a date";
    RegionalSettings monthFirst;
    monthFirst.shortDate = u"MM/dd/yyyy";
    RegionalScope scope(monthFirst);
    EXPECT_TRUE(identical(call("MyFecha", {Variant(u"03/15/2024")}), Variant(u"2024-03-15")));
}

}  // namespace
}  // namespace telvaro

// The date helpers: the SQL date text, the age phrase, the days of a month, the first day.
#include <gtest/gtest.h>

#include "context/fun.h"
#include "frame/invoke.h"
#include "host/default_platform.h"
#include "runtime/datetime.h"
#include "support/support.h"

namespace telvaro {
namespace {

Variant dateOf(int y, int m, int d, double time = 0) { return Variant(Date{dateSerial(y, m, d) + time}); }

// The time of day does not count in an age, text arguments are read as dates, the month lengths ignore the
// century rule.
TEST(DateHelpers, AgesMonthLengthsFirstDaysAndSqlDates) {
    const String age = u" 0 años con  1 mes y  14 días";
    // FechaActual - FechaNacimiento in days; before birth, no phrase, except one day before: the leap-day
    // allowance Int(-1 / 365 / 4) is -1, which brings the day count back to 0.
    // clang-format off
    const std::pair<int, const char16_t*> ages[] = {
        {0, u" 0 años con  0 meses y  0 días"}, {45, u" 0 años con  1 mes y  14 días"},
        {1, u" 0 años con  0 meses y  1 día"}, {7305, u" 20 años con  0 meses y  0 días"}, {-2, u""}, {-400, u""},
        {-1, u" 0 años con  0 meses y  0 días"}, {30, u" 0 años con  1 mes y  29 días"},
        {31, u" 0 años con  1 mes y  0 días"}, {365, u" 1 año con  0 meses y  0 días"},
        {366, u" 1 año con  0 meses y  1 día"}, {800, u" 2 años con  2 meses y  9 días"},
    };
    std::vector<MethodCase> calls = {
        {"fecEdadExacta", {dateOf(2020, 1, 1), dateOf(2000, 1, 1)}, u" 20 años con  0 meses y  0 días"},
        {"fecEdadExacta", {dateOf(2000, 1, 1, 45.9), dateOf(2000, 1, 1, 0.8)}, age},
        {"fecEdadExacta", {u"15/02/2000", u"01/01/2000"}, age}, {"fecUltimoDiaMes", {256, 2024}, {}, err::Overflow},
        {"FechaPrimerDia", {u"15/03/2024"}, dateOf(2024, 3, 1)},
        {"FechaPrimerDia", {dateOf(2024, 3, 15, 0.5)}, dateOf(2024, 3, 1, 0.5)},
        {"FechaPrimerDia", {u"no es fecha"}, {}, err::TypeMismatch}, {"MyFecha", {u"15/03/2024"}, u"2024-03-15"},
        {"MyFecha", {u"1/2/98"}, u"1998-02-01"}, {"MyFecha", {u"ayer"}, u"ayer"},
    };
    // clang-format on
    const int months[][3] = {{1, 2023, 31}, {4, 2023, 30},  {2, 2024, 29}, {2, 2023, 28}, {2, 1900, 29},
                             {2, 2100, 29}, {12, 2023, 31}, {13, 2024, 0}, {0, 2024, 0},  {255, 2024, 0}};
    for (auto [month, year, days] : months) calls.push_back({"fecUltimoDiaMes", {month, year}, std::uint8_t(days)});
    for (auto [days, phrase] : ages)
        calls.push_back({"fecEdadExacta", {dateOf(2000, 1, 1, days), dateOf(2000, 1, 1)}, phrase});
    checkCalls(calls);
}

TEST(PrimerDia, WithoutADateTheCurrentMonth) {
    Fun fun(defaultPlatform());
    Variant now = call(fun, "FechaPrimerDia");
    CivilDate current = civilDate(today());
    EXPECT_EQ(civilDate(now.get<Date>().serial), (CivilDate{current.year, current.month, 1}));
    EXPECT_TRUE(identical(call(fun, "FechaPrimerDia", {u""}), now));
}

}  // namespace
}  // namespace telvaro

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

Variant dateOf(int y, int m, int d, double time = 0) { return Variant(Date{dateSerial(y, m, d) + time}); }

TEST(EdadExacta, PhraseFromTheFixedLengthCalendar) {
    struct Case {
        int days;  // FechaActual - FechaNacimiento
        const char16_t* phrase;
    };
    const Case cases[] = {
        {30, u" 0 años con  1 mes y  29 días"},   {31, u" 0 años con  1 mes y  0 días"},
        {365, u" 1 año con  0 meses y  0 días"},  {366, u" 1 año con  0 meses y  1 día"},
        {800, u" 2 años con  2 meses y  9 días"},
    };
    std::vector<MethodCase> calls;
    for (const auto& c : cases)
        calls.push_back({"fecEdadExacta", {dateOf(2000, 1, 1, c.days), dateOf(2000, 1, 1)}, c.phrase});
    checkCalls(calls);
}

// The time of day does not count in an age; a month outside 1 to 12 has no
// days. (The script clients hold the other rows of these helpers.)
TEST(DateHelpers, Calls) {
    std::vector<MethodCase> calls = {
        {"fecEdadExacta", {dateOf(2000, 1, 1, 45.9), dateOf(2000, 1, 1, 0.8)}, u" 0 años con  1 mes y  14 días"},
        {"MyFecha", {u"1/2/98"}, u"1998-02-01"},
        {"fecUltimoDiaMes", {1, 2023}, std::uint8_t(31)},
        {"fecUltimoDiaMes", {0, 2024}, std::uint8_t(0)},
    };
    checkCalls(calls);
}

TEST(PrimerDia, WithoutADateTheCurrentMonth) {
    Fun fun(defaultPlatform());
    Variant now = call(fun, "FechaPrimerDia");
    CivilDate current = civilDate(today());
    EXPECT_EQ(civilDate(now.get<Date>().serial), (CivilDate{current.year, current.month, 1}));
    EXPECT_TRUE(identical(call(fun, "FechaPrimerDia", {u""}), now));
}

TEST(MyFecha, ReadsTheTextInTheRegionalOrder) {
    RegionalSettings monthFirst;
    monthFirst.shortDate = u"MM/dd/yyyy";
    RegionalScope scope(monthFirst);
    checkCalls({{"MyFecha", {u"03/15/2024"}, u"2024-03-15"}});
}

}  // namespace
}  // namespace telvaro

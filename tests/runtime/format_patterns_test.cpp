// Format with the patterns the grid loaders and applications use: every
// column code of the grid loader, numbers, percentages, scientific form and
// named formats, under a "." and a "," configuration.
#include <gtest/gtest.h>

#include "runtime/datetime.h"
#include "runtime/format.h"
#include "support/support.h"

namespace telvaro {
namespace {

struct Case {
    Variant value;
    const char16_t* pattern;
    const char16_t* expected;
};

void checkAll(const std::vector<Case>& cases) {
    for (std::size_t i = 0; i < cases.size(); ++i) {
        const auto& c = cases[i];
        EXPECT_EQ(toUtf8(format(c.value, c.pattern)), toUtf8(c.expected))
            << "case " << i << ": " << describe(c.value) << " with \"" << toUtf8(c.pattern) << "\"";
    }
}

const Variant kFriday(Date{dateSerial(2024, 7, 5) + timeSerial(14, 5, 9)});
const Variant kMorning(Date{dateSerial(2024, 1, 3) + timeSerial(5, 30, 0)});

TEST(FormatDates, GridColumnCodes) {
    checkAll({
        {kFriday, u"Hh:Nn:ss", u"14:05:09"},
        {kFriday, u"Hh:Nn", u"14:05"},
        {kMorning, u"Hh\\h\\ Nn\\m\\", u"05h 30m"},
        {kMorning, u"Hh", u"05"},
        {kFriday, u"dd/MM/yy", u"05/07/24"},
        {kFriday, u"dd/MM/yyyy", u"05/07/2024"},
        {kFriday, u"dd-MMM-yyyy", u"05-jul-2024"},
        {kFriday, u"ddd, dd-MMM-yyyy", u"vie, 05-jul-2024"},
        {kFriday, u"ddd, dd \\de\\ MMMM \\del\\ yyyy", u"vie, 05 de julio del 2024"},
        {kFriday, u"dddd, dd \\de\\ MMMM \\del\\ yyyy", u"viernes, 05 de julio del 2024"},
        {kFriday, u"d \\de\\ MMMM \\del\\ yyyy", u"5 de julio del 2024"},
        {kMorning, u"dddd d/m/yyyy", u"miércoles 3/1/2024"},
        {kFriday, u"h:nn AM/PM", u"2:05 PM"},
        {Variant(u"31/12/1998"), u"yyyy-mm-dd", u"1998-12-31"},
    });
    EXPECT_EQ(errorNumberOf([] { format(Variant(u"no es fecha"), u"dd/mm/yyyy"); }), 0)
        << "text that is not a date is shown as it is, never a crash";
}

TEST(FormatNumbers, PatternsAndSections) {
    checkAll({
        {Variant(12.5), u"##0.00", u"12.50"},
        {Variant(-1234.5), u"##0.00", u"-1234.50"},
        {Variant(1234567.891), u"#,##0.00", u"1,234,567.89"},
        {Variant(0.155), u"0%", u"16%"},
        {Variant(12345.0), u"0.00E+00", u"1.23E+04"},
        {Variant(0.005), u"0.00", u"0.01"},
        {Variant(0.0), u"#,##0.00;(#,##0.00);\\c\\e\\r\\o", u"cero"},
        {Variant(-5.0), u"#,##0.00;(#,##0.00)", u"(5.00)"},
        {Variant(std::int16_t(7)), u"000", u"007"},
        {Variant(u"12.5"), u"##0.00", u"12.50"},
        {Variant(12.5), u"", u"12.5"},
        {Variant(1234.5), u"Standard", u"1,234.50"},
        {Variant(0.25), u"Percent", u"25.00%"},
        {Variant(True), u"Yes/No", u"Yes"},
    });
}

TEST(FormatNumbers, RegionalMarks) {
    RegionalSettings comma;
    comma.decimalSeparator = u",";
    comma.thousandSeparator = u".";
    RegionalScope scope(comma);
    checkAll({
        {Variant(1234567.891), u"#,##0.00", u"1.234.567,89"},
        {Variant(12.5), u"##0.00", u"12,50"},
    });
}

}  // namespace
}  // namespace telvaro

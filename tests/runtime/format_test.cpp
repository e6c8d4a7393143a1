// Format, pattern by pattern, under a "." and a "," configuration; the grid loaders' column codes are among the rows.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "runtime/format.h"
#include "runtime/object.h"
#include "support/support.h"

namespace telvaro {
namespace {

struct Case {
    Variant value;
    const char16_t* pattern;
    const char16_t* expected;
};

void checkAll(const std::vector<Case>& cases, const FormatOptions& options = {}) {
    for (const Case& c : cases) {
        std::string got;
        const int error = errorNumberOf([&] { got = toUtf8(format(c.value, c.pattern, options)); });
        if (error) got = "error " + std::to_string(error);
        EXPECT_EQ(got, toUtf8(c.expected)) << describe(c.value) << " with \"" << toUtf8(c.pattern) << "\"";
    }
}

// Serials written out so that the cases do not lean on the date arithmetic.
constexpr double kJuly5 = 45478;                                           // Friday 5 July 2024
const Variant kFriday(Date{kJuly5 + (14 * 3600 + 5 * 60 + 9) / 86400.0});  // 14:05:09
const Variant kEarly(Date{kJuly5 + (5 * 3600 + 30 * 60) / 86400.0});       // 05:30:00
const Variant kHalfPast(Date{kJuly5 + 30 * 60 / 86400.0});                 // 00:30:00
const Variant kNoon(Date{kJuly5 + 0.5});
const Variant kDayOnly(Date{kJuly5});

Variant dbl(double d) { return Variant(d); }

TEST(FormatNumbers, DigitPlaceholders) {
    // clang-format off
    checkAll({
        {dbl(12.5), u"##0.00", u"12.50"}, {dbl(0.005), u"##0.00", u"0.01"}, {dbl(0), u"#", u""}, {dbl(0), u"#.#", u"."},
        {dbl(0.17), u"#.00", u".17"}, {dbl(-0.1), u".#", u"-.1"}, {dbl(0.0049), u"#.##", u"."},
        {Variant(std::int32_t(1)), u"000###", u"000001"}, {Variant(std::int32_t(1)), u"1#####0000", u"10001"},
        {dbl(1.23456789), u"0#.0#0#0#0#0", u"01.234567890"}, {dbl(9.9999999), u"#0.000000", u"10.000000"},
        {dbl(1.0 / 3), u"0.00000000000000000000", u"0.33333333333333300000"},
        {dbl(5551234567.0), u"(###) ###-####", u"(555) 123-4567"}, {dbl(5), u"0 \\k\\g", u"5 kg"},
        {dbl(-1234.5), u"$#,##0.00", u"-$1,234.50"}, {dbl(7), u"0\\", u"7"},
    });
    // clang-format on
}

TEST(FormatNumbers, RoundingIsHalfAwayFromZeroOnFifteenDigits) {
    // clang-format off
    checkAll({
        {dbl(0.5), u"0", u"1"}, {dbl(-2.5), u"0", u"-3"}, {dbl(1.005), u"0.00", u"1.01"},
        {dbl(1.73245), u"0.0000E+000", u"1.7325E+000"}, {dbl(-0.001), u"0.00", u"-0.00"},
        {dbl(0.3 + 0.6), u"0.000000000000000000", u"0.900000000000000000"},
    });
    // clang-format on
}

TEST(FormatNumbers, ThousandsGroupingAndScaling) {
    // clang-format off
    checkAll({
        {dbl(1234567.891), u"#,##0.00", u"1,234,567.89"}, {dbl(999.999), u"#,##0.00", u"1,000.00"},
        {Variant(std::int32_t(1)), u"0,000,000,000", u"0,000,000,001"},
        {Variant(std::int32_t(123456789)), u"#,#.#", u"123,456,789."},
        {Variant(std::int32_t(123456789)), u"###, ###, ###", u"123, 456, 789"}, {dbl(1234567), u"0,", u"1235"},
        {dbl(1234567), u"0,.0", u"1234.6"}, {dbl(1234567), u"0.0,,", u"1.2"},
    });
    // clang-format on
}

TEST(FormatNumbers, PercentAndScientific) {
    // clang-format off
    checkAll({
        {dbl(0.155), u"0%", u"16%"}, {dbl(-0.5), u"0%", u"-50%"}, {dbl(12345), u"0.00E+00", u"1.23E+04"},
        {dbl(0.005), u"0.00E+00", u"5.00E-03"}, {dbl(9.999), u"0.00E+00", u"1.00E+01"},
        {dbl(0.00012345), u"0.00E-00", u"1.23E-04"}, {dbl(1.7), u"0.0000e-1", u"1.7000e01"},
        {dbl(450.0001e43), u"#000.0000e+0", u"4500.0010e+42"}, {dbl(47.11), u".0000E+0", u".4711E+2"},
        {dbl(3.0401e-13), u"#####.####e-0%", u"30401.e-15%"},
    });
    // clang-format on
}

TEST(FormatNumbers, Sections) {
    // clang-format off
    checkAll({
        {dbl(-1234.5), u"0.00;(0.00)", u"(1234.50)"}, {dbl(0), u"0.00;(0.00);\\Z\\e\\r\\o", u"Zero"},
        {dbl(-1), u"\"pos\";\"neg\";\"zero\"", u"neg"}, {dbl(0), u"0;;\\c\\e\\r\\o", u"cero"},
        {dbl(0), u"0.0;(0.0);;\\N\\A", u"0.0"}, {Variant(Null{}), u"0;(0);\\c\\e\\r\\o;\\N\\A", u"NA"},
        {Variant(Null{}), u"0.00", u""}, {dbl(-0.001), u"0;-0;\\Z", u"-0"}, {dbl(-0.4), u"0;(0)", u"(0)"},
        {dbl(5), u";(0)", u"5"},
    });
    // clang-format on
}

TEST(FormatNumbers, EveryNumericTypeAndTheEmptyPattern) {
    // clang-format off
    checkAll({
        {Variant(), u"0;-0;\\c\\e\\r\\o", u"cero"}, {Variant(True), u"0", u"-1"},
        {Variant(std::uint8_t(255)), u"0000", u"0255"}, {Variant(std::int16_t(-32768)), u"#,##0", u"-32,768"},
        {Variant(Currency{12345678}), u"#,##0.00", u"1,234.57"},
        {Variant(Currency{std::numeric_limits<std::int64_t>::min()}), u"0", u"-922337203685478"},
        {Variant(Decimal::fromParts(0xeb1f0ad7u, 0xab54a98cu, 0, 1, false)), u"#,##0", u"1,234,567,890,123,456,790"},
        {Variant(Decimal::fromParts(15, 0, 0, 1, true)), u"0.00", u"-1.50"},
        {Variant(Date{kJuly5 + 0.5}), u"0.00", u"45478.50"}, {Variant(u"1234.5"), u"#,##0.00", u"1,234.50"},
        {Variant(u"abc"), u"0.00", u"abc"}, {dbl(12.5), u"", u"12.5"}, {Variant(Currency{12345000}), u"", u"1234.5"},
        {Variant(Null{}), u"", u""}, {kFriday, u"", u"05/07/2024 14:05:09"},
    });
    // clang-format on
}

TEST(FormatDates, DayMonthYearLetters) {
    // clang-format off
    checkAll({
        {kFriday, u"dd", u"05"}, {kFriday, u"ddd", u"vie"}, {kFriday, u"dddd", u"viernes"},
        {kFriday, u"ddddd", u"05/07/2024"}, {kFriday, u"dddddd", u"viernes, 5 de julio de 2024"}, {kFriday, u"w", u"6"},
        {kFriday, u"ww", u"27"}, {kFriday, u"m", u"7"}, {kFriday, u"mmm", u"jul"}, {kFriday, u"mmmm", u"julio"},
        {kFriday, u"q", u"3"}, {kFriday, u"y", u"187"}, {kFriday, u"yyy", u"24187"}, {kFriday, u"yyyy", u"2024"},
        {kFriday, u"dd/MM/yy", u"05/07/24"},
        {kFriday, u"dddd, dd \\de\\ MMMM \\del\\ yyyy", u"viernes, 05 de julio del 2024"},
        {kFriday, u"DD/MM/YYYY", u"05/07/2024"}, {kFriday, u"\"dia\" d", u"dia 5"},
        {Variant(Date{45294}), u"dddd d/m/yyyy", u"miércoles 3/1/2024"}, {Variant(Date{45292}), u"ww", u"1"},
        {Variant(Date{45657}), u"ww", u"53"},
    });
    // clang-format on
}

TEST(FormatDates, TimeLettersAndCaseRules) {
    // clang-format off
    checkAll({
        {kFriday, u"Hh:Nn:ss", u"14:05:09"}, {kEarly, u"Hh\\h\\ Nn\\m\\", u"05h 30m"}, {kFriday, u"h:n:s", u"14:5:9"},
        {kFriday, u"h:m:s", u"14:5:9"}, {kFriday, u"hh :mm:mm", u"14 :05:07"}, {kFriday, u"ttttt", u"14:05:09"},
        {kFriday, u"hh:nn AM/PM", u"02:05 PM"}, {kEarly, u"h a/p", u"5 a"}, {kFriday, u"hh:nn AMPM", u"02:05 p.m."},
        {kHalfPast, u"h:nn AM/PM", u"12:30 AM"}, {kNoon, u"h:nn AM/PM", u"12:00 PM"},
        {kFriday, u"c", u"05/07/2024 14:05:09"}, {kDayOnly, u"c", u"05/07/2024"},
        {Variant(Date{0.5}), u"c", u"12:00:00"},
    });
    // clang-format on
}

TEST(FormatDates, ValuesReadAsDates) {
    // clang-format off
    checkAll({
        {dbl(0), u"dd/mm/yyyy", u"30/12/1899"}, {dbl(-1.25), u"dd/mm/yyyy hh:nn", u"29/12/1899 06:00"},
        {dbl(kJuly5 + 0.99999999), u"dd/mm/yyyy hh:nn:ss", u"06/07/2024 00:00:00"},
        {dbl(-657435), u"dd/mm/yyyy", u"error 6"}, {Variant(std::int32_t(45478)), u"dddd", u"viernes"},
        {Variant(u"05/07/2024"), u"yyyy-mm-dd", u"2024-07-05"}, {Variant(u"39697.11"), u"hh:mm", u"02:38"},
        {Variant(u"abc"), u"dd/mm/yyyy", u"abc"},
    });
    // clang-format on
}

TEST(FormatText, Placeholders) {
    // clang-format off
    checkAll({
        {Variant(u"testing"), u"@", u"testing"}, {Variant(u"testing"), u"@@@@@@@@", u" testing"},
        {Variant(u"testing"), u"!@@@@@@@@", u"testing "}, {Variant(u"testing"), u"\\x@\\x@", u"xtxesting"},
        {Variant(u"5551234"), u"@@@-@@@@", u"555-1234"}, {Variant(u"12"), u"&&&-&&", u"-12"},
        {Variant(u"testing"), u">", u"TESTING"}, {Variant(u"testing"), u"<&>&", u"testing"},
        {Variant(u""), u"@;\\v\\a\\c\\i\\o", u"vacio"}, {Variant(Null{}), u"@;\\v\\a\\c\\i\\o", u"vacio"},
        {Variant(True), u">", u"TRUE"},
    });
    // clang-format on
}

TEST(FormatNamed, NumberNames) {
    // clang-format off
    checkAll({
        {dbl(1234567.891), u"General Number", u"1234567.891"}, {dbl(1234.5), u"Currency", u"$1,234.50"},
        {dbl(1234.5), u"Fixed", u"1234.50"}, {dbl(1234567.891), u"Standard", u"1,234,567.89"},
        {dbl(0.155), u"Percent", u"15.50%"}, {dbl(12345), u"Scientific", u"1.23E+04"}, {dbl(0), u"Yes/No", u"No"},
        {Variant(True), u"True/False", u"True"}, {dbl(-1), u"on/off", u"On"}, {Variant(u"abc"), u"Currency", u"abc"},
    });
    // clang-format on
}

TEST(FormatNamed, DateNames) {
    // clang-format off
    checkAll({
        {kFriday, u"General Date", u"05/07/2024 14:05:09"}, {kFriday, u"Long Date", u"viernes, 5 de julio de 2024"},
        {kFriday, u"Medium Date", u"05-jul-24"}, {kFriday, u"Short Date", u"05/07/2024"},
        {kFriday, u"Long Time", u"14:05:09"}, {kFriday, u"Medium Time", u"02:05 p.m."},
        {kEarly, u"Medium Time", u"05:30 a.m."}, {kFriday, u"Short Time", u"14:05"},
    });
    // clang-format on
}

class DefaultValue : public Object {
public:
    explicit DefaultValue(Variant v) : v_(std::move(v)) {}
    Variant invoke(StringView member, InvokeKind, std::span<Variant>) override {
        if (!member.empty()) raiseNoSuchMember();
        return v_;
    }

private:
    Variant v_;
};

TEST(FormatValues, ObjectsArraysAndBadInput) {
    // clang-format off
    checkAll({
        {Variant(ObjectRef(std::make_shared<DefaultValue>(Variant(12.5)))), u"0.00", u"12.50"},
        {Variant(ObjectRef()), u"0.00", u"error 91"}, {Variant(Array::ofValues({Variant(1.0)})), u"0", u"error 13"},
        {Variant::missing(), u"0", u"error 13"}, {dbl(std::numeric_limits<double>::infinity()), u"0", u"error 6"},
    });
    // clang-format on
}

RegionalSettings commaSettings() {
    RegionalSettings s;
    s.decimalSeparator = u",";
    s.thousandSeparator = u".";
    s.monetaryDecimalSeparator = u",";
    s.monetaryThousandSeparator = u".";
    s.shortDate = u"dd-MM-yyyy";
    s.timeFormat = u"HH.mm.ss";
    return s;
}

TEST(FormatRegional, CommaConfiguration) {
    RegionalScope scope(commaSettings());
    // clang-format off
    checkAll({
        {dbl(1234567.891), u"#,##0.00", u"1.234.567,89"}, {dbl(25.5), u"#.#", u"25,5"},
        {dbl(12345), u"0.00E+00", u"1,23E+04"}, {dbl(0.155), u"0.0%", u"15,5%"},
        {dbl(1234.5), u"Currency", u"$1.234,50"}, {dbl(12.5), u"", u"12,5"}, {Variant(u"1234,5"), u"0.00", u"1234,50"},
        {kFriday, u"dd/mm/yyyy", u"05-07-2024"}, {kFriday, u"Hh:Nn", u"14.05"},
        {kFriday, u"ddddd ttttt", u"05-07-2024 14.05.09"}, {kFriday, u"", u"05-07-2024 14.05.09"},
        {kFriday, u"dd\\/mm", u"05/07"},
    });
    // clang-format on
}

// The names and designators come from the settings in force.
TEST(FormatRegional, NamesOfTheSettingsInForce) {
    RegionalSettings english;
    english.monthNames[6] = u"July";
    english.dayAbbreviations[5] = u"Fri";
    english.pmDesignator = u"PM";
    english.timeFormat = u"h:mm:ss tt";
    RegionalScope scope(english);
    checkAll({{kFriday, u"ddd mmmm", u"Fri July"}, {kFriday, u"Long Time", u"2:05:09 PM"}});
}

}  // namespace
}  // namespace telvaro

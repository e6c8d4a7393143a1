// The runtime's conversions, dates, Decimal and text comparison, as tables
// of inputs and the results the automation runtime gives for them.
#include <gtest/gtest.h>

#include "runtime/convert.h"
#include "runtime/datetime.h"
#include "runtime/decimal.h"
#include "runtime/regional.h"
#include "runtime/text.h"
#include "support/support.h"

namespace telvaro {
namespace {

RegionalSettings commaDecimal() {
    RegionalSettings s;
    s.decimalSeparator = u",";
    s.thousandSeparator = u".";
    return s;
}

TEST(DoubleToText, FifteenSignificantDigitsPlainOrExponent) {
    struct Case {
        double value;
        const char* text;
    };
    const Case cases[] = {
        {0, "0"},
        {100, "100"},
        {-2.5, "-2.5"},
        {0.1 + 0.2, "0.3"},
        {1.0 / 3, "0.333333333333333"},
        {3.141592653589793, "3.14159265358979"},
        {0.000056789, "0.000056789"},
        {5.6789e-12, "5.6789E-12"},
        {1e15, "1E+15"},
        {1.2e15, "1.2E+15"},
        {1e20, "1E+20"},
        {123456789012345.0, "123456789012345"},
        {-0.0, "0"},
        {1e-300, "1E-300"},
    };
    for (const auto& c : cases) EXPECT_EQ(toUtf8(doubleToString(c.value)), c.text) << c.value;
    RegionalScope comma(commaDecimal());
    EXPECT_EQ(toUtf8(doubleToString(2.5)), "2,5");
}

TEST(TextToNumber, LocaleAwareReading) {
    struct Case {
        const char16_t* text;
        double value;
        bool ok;
    };
    const Case point[] = {
        {u"12", 12, true},       {u" -3.5 ", -3.5, true},  {u"1,234.5", 1234.5, true}, {u"1E3", 1000, true},
        {u"&H10", 16, true},     {u"&HFFFF", -1, true},    {u"(5)", -5, true},         {u"$ 7", 7, true},
        {u"", 0, false},         {u"   ", 0, false},       {u"abc", 0, false},         {u"1.2.3", 0, false},
        {u"12abc", 0, false},    {u"2,5", 25, true},
    };
    for (const auto& c : point) {
        auto n = parseNumber(c.text);
        EXPECT_EQ(n.has_value(), c.ok) << toUtf8(c.text);
        if (n && c.ok) {
            EXPECT_DOUBLE_EQ(*n, c.value) << toUtf8(c.text);
        }
    }
    RegionalScope comma(commaDecimal());
    EXPECT_DOUBLE_EQ(*parseNumber(u"2,5"), 2.5);
    EXPECT_DOUBLE_EQ(*parseNumber(u"1.234,5"), 1234.5);
    EXPECT_DOUBLE_EQ(*parseNumber(u"2.5"), 25) << "the thousands mark is skipped";
}

TEST(Coercion, RangesRoundingAndErrors) {
    EXPECT_EQ(toInteger(Variant(u"2.5")), 2);
    EXPECT_EQ(toInteger(Variant(3.5)), 4);
    EXPECT_EQ(toLong(Variant(-1.5)), -2);
    EXPECT_EQ(toInteger(Variant(True)), -1);
    EXPECT_EQ(errorNumberOf([] { toInteger(Variant(32767.5)); }), err::Overflow);
    EXPECT_EQ(errorNumberOf([] { toLong(Variant(u"3000000000")); }), err::Overflow);
    EXPECT_EQ(errorNumberOf([] { toByteValue(Variant(-1.0)); }), err::Overflow);
    EXPECT_EQ(errorNumberOf([] { toDouble(Variant(u"")); }), err::TypeMismatch);
    EXPECT_EQ(errorNumberOf([] { toDouble(Variant(Null{})); }), err::InvalidUseOfNull);
    EXPECT_EQ(errorNumberOf([] { toString(Variant(Array::vector(0, 0))); }), err::TypeMismatch);
    EXPECT_EQ(toBoolean(Variant(u"true")), True);
    EXPECT_EQ(toBoolean(Variant(u"0")), False);
    EXPECT_EQ(errorNumberOf([] { toBoolean(Variant(u"si")); }), err::TypeMismatch);
    EXPECT_EQ(toString(Variant(False)), u"False");
    EXPECT_EQ(toString(Variant(Currency{123400})), u"12.34");
    EXPECT_EQ(toCurrency(Variant(1.23456)).scaled, 12346);
    EXPECT_EQ(toCurrency(Variant(0.00005)).scaled, 0) << "half to even";
    EXPECT_TRUE(identical(coerce(Variant(u"7"), VarType::Integer), Variant(std::int16_t(7))));
}

TEST(Val, ReadsTheLeadingNumberWithAPointOnly) {
    struct Case {
        const char16_t* text;
        double value;
    };
    const Case cases[] = {
        {u"12abc", 12},  {u"1 2 3", 123}, {u"1.2.3", 1.2}, {u"  -4.5e1x", -45}, {u"1D2", 100},
        {u"abc", 0},     {u"", 0},        {u"&H1F", 31},   {u"2,5", 2},         {u".5", 0.5},
        {u"1e", 1},      {u"+7", 7},
    };
    for (const auto& c : cases) EXPECT_DOUBLE_EQ(val(c.text), c.value) << toUtf8(c.text);
    RegionalScope comma(commaDecimal());
    EXPECT_DOUBLE_EQ(val(u"2.5"), 2.5) << "regional settings do not matter";
}

TEST(Str, LeadingBlankForNonNegativeNumbers) {
    EXPECT_EQ(str(Variant(5.0)), u" 5");
    EXPECT_EQ(str(Variant(-5.0)), u"-5");
    EXPECT_EQ(str(Variant(std::int16_t(0))), u" 0");
    RegionalScope comma(commaDecimal());
    EXPECT_EQ(str(Variant(2.5)), u" 2.5") << "always a point";
}

TEST(Dates, SerialsAndCalendar) {
    struct Case {
        int y, m, d;
        double serial;
        int weekday;
    };
    const Case cases[] = {
        {1899, 12, 30, 0, 7}, {1900, 1, 1, 2, 2},       {1900, 3, 1, 61, 5},  {1998, 12, 31, 36160, 5},
        {2000, 2, 29, 36585, 3}, {2024, 7, 14, 45487, 1}, {100, 1, 1, -657434, 6}, {9999, 12, 31, 2958465, 6},
    };
    for (const auto& c : cases) {
        EXPECT_DOUBLE_EQ(dateSerial(c.y, c.m, c.d), c.serial) << c.y << "-" << c.m << "-" << c.d;
        EXPECT_EQ(civilDate(c.serial), (CivilDate{c.y, c.m, c.d})) << c.serial;
        EXPECT_EQ(weekday(c.serial), c.weekday) << c.serial;
    }
    EXPECT_DOUBLE_EQ(dateSerial(1998, 13, 1), dateSerial(1999, 1, 1));
    EXPECT_DOUBLE_EQ(dateSerial(1999, 3, 0), dateSerial(1999, 2, 28));
    EXPECT_DOUBLE_EQ(dateSerial(1999, 0, 1), dateSerial(1998, 12, 1));
    EXPECT_EQ(civilDate(-1.25), (CivilDate{1899, 12, 29}));
    EXPECT_EQ(timeOfDay(-1.25), (TimeOfDay{6, 0, 0}));
    EXPECT_EQ(civilDate(addMonths(Date{dateSerial(2024, 1, 31)}, 1).serial), (CivilDate{2024, 2, 29}));
    EXPECT_EQ(errorNumberOf([] { dateSerial(10000, 1, 1); }), err::InvalidProcedureCall);
}

TEST(Dates, ReadingTextInTheRegionalOrder) {
    struct Case {
        const char16_t* shortDate;
        const char16_t* text;
        double serial;  // -1: not a date
    };
    const Case cases[] = {
        {u"dd/MM/yyyy", u"31/12/1998", 36160},
        {u"dd/MM/yyyy", u"12/31/1998", 36160},  // swapped reading when the order fails
        {u"dd/MM/yyyy", u"01/02/1998", 35827},
        {u"MM/dd/yyyy", u"01/02/1998", 35797},
        {u"dd/MM/yyyy", u"1998-12-31", 36160},
        {u"dd/MM/yyyy", u"31-dic-1998", 36160},
        {u"dd/MM/yyyy", u"31 de diciembre de 1998", 36160},
        {u"dd/MM/yyyy", u"31/12/98", 36160},
        {u"dd/MM/yyyy", u"1/1/29", dateSerial(2029, 1, 1)},
        {u"dd/MM/yyyy", u"1/1/30", dateSerial(1930, 1, 1)},
        {u"dd/MM/yyyy", u"31/12/1998 18:30", 36160.0 + 18.5 / 24},
        {u"dd/MM/yyyy", u"6:00 PM", 0.75},
        {u"dd/MM/yyyy", u"30/02/1998", -1},
        {u"dd/MM/yyyy", u"hola", -1},
        {u"dd/MM/yyyy", u"", -1},
        {u"dd/MM/yyyy", u"31/12/1998 25:00", -1},
    };
    for (const auto& c : cases) {
        RegionalSettings s;
        s.shortDate = c.shortDate;
        auto d = parseDate(c.text, s);
        if (c.serial < 0) {
            EXPECT_FALSE(d.has_value()) << toUtf8(c.text);
        } else {
            ASSERT_TRUE(d.has_value()) << toUtf8(c.text);
            EXPECT_NEAR(*d, c.serial, 1e-9) << toUtf8(c.text);
        }
    }
}

TEST(Dates, TextOfADate) {
    EXPECT_EQ(toString(Variant(Date{36160})), u"31/12/1998");
    EXPECT_EQ(toString(Variant(Date{36160.75})), u"31/12/1998 18:00:00");
    EXPECT_EQ(toString(Variant(Date{0.5})), u"12:00:00");
    RegionalSettings iso;
    iso.shortDate = u"yyyy-MM-dd";
    RegionalScope scope(iso);
    EXPECT_EQ(toString(Variant(Date{36160})), u"1998-12-31");
}

TEST(Decimal, ArithmeticAndText) {
    auto d = [](const char16_t* t) { return *Decimal::parse(t); };
    struct Case {
        const char16_t* a;
        char op;
        const char16_t* b;
        const char* result;
    };
    const Case cases[] = {
        {u"1.5", '+', u"1.5", "3.0"},  {u"0.1", '+', u"0.2", "0.3"}, {u"1", '-', u"1.25", "-0.25"},
        {u"1.5", '*', u"1.5", "2.25"}, {u"2.50", '*', u"2", "5.00"}, {u"10", '/', u"4", "2.5"},
        {u"6", '/', u"2", "3"},        {u"1", '/', u"3", "0.3333333333333333333333333333"},
        {u"2", '/', u"3", "0.6666666666666666666666666667"},
        {u"79228162514264337593543950335", '-', u"1", "79228162514264337593543950334"},
    };
    for (const auto& c : cases) {
        Decimal a = d(c.a), b = d(c.b);
        Decimal r = c.op == '+' ? a + b : c.op == '-' ? a - b : c.op == '*' ? a * b : a / b;
        EXPECT_EQ(toUtf8(r.toString()), c.result) << toUtf8(c.a) << c.op << toUtf8(c.b);
    }
    EXPECT_EQ(errorNumberOf([&] { d(u"79228162514264337593543950335") + d(u"1"); }), err::Overflow);
    EXPECT_EQ(errorNumberOf([&] { d(u"1") / d(u"0"); }), err::DivisionByZero);
    EXPECT_TRUE(d(u"1.50") == d(u"1.5"));
    EXPECT_TRUE(d(u"-2") < d(u"1"));
    EXPECT_EQ(Decimal::fromDouble(0.1).toString(), u"0.1");
    EXPECT_EQ(Decimal::fromDouble(1.0 / 3).toString(), u"0.333333333333333");
    EXPECT_EQ(d(u"2.5").round(0).toString(), u"2");
    EXPECT_EQ(d(u"3.5").round(0).toString(), u"4");
    EXPECT_FALSE(Decimal::parse(u"abc").has_value());
    EXPECT_FALSE(Decimal::parse(u"").has_value());
}

TEST(TextComparison, CaseInsensitiveAccentSensitive) {
    struct Case {
        const char16_t* a;
        const char16_t* b;
        bool equal;
    };
    const Case cases[] = {
        {u"ABC", u"abc", true},   {u"Ñandú", u"ñANDÚ", true}, {u"á", u"a", false},
        {u"Árbol", u"arbol", false}, {u"", u"", true},       {u"a", u"a ", false},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(textEquals(c.a, c.b), c.equal) << toUtf8(c.a) << " / " << toUtf8(c.b);
        EXPECT_EQ(textCompare(c.a, c.b) == 0, c.equal) << toUtf8(c.a) << " / " << toUtf8(c.b);
    }
    EXPECT_LT(textCompare(u"a", u"B"), 0);
    EXPECT_GT(textCompare(u"Z", u"a"), 0);
}

TEST(TextSearch, InStrInStrRevReplaceLike) {
    EXPECT_EQ(inStr(1, u"Hola Mundo", u"MUNDO"), 6);
    EXPECT_EQ(inStr(7, u"Hola Mundo", u"mundo"), 0);
    EXPECT_EQ(inStr(3, u"abc", u""), 3);
    EXPECT_EQ(inStr(5, u"abc", u""), 0);
    EXPECT_EQ(errorNumberOf([] { inStr(0, u"abc", u"a"); }), err::InvalidProcedureCall);
    EXPECT_EQ(inStrRev(u"a/b/c", u"/"), 4);
    EXPECT_EQ(inStrRev(u"a/b/c", u"/", 3), 2);
    EXPECT_EQ(inStrRev(u"abc", u"x"), 0);
    EXPECT_EQ(errorNumberOf([] { inStrRev(u"abc", u"a", 0); }), err::InvalidProcedureCall);
    EXPECT_EQ(replaceText(u"aAa", u"a", u"aa"), u"aaaaaa") << "one pass";
    EXPECT_EQ(replaceText(u"'%' y '%'", u"'%'", u"'x'"), u"'x' y 'x'");
    EXPECT_EQ(replaceText(u"abc", u"", u"x"), u"abc");
    EXPECT_TRUE(likeText(u"Quito", u"q*"));
    EXPECT_TRUE(likeText(u"A1", u"[a-c]#"));
    EXPECT_FALSE(likeText(u"D1", u"[a-c]#"));
    EXPECT_TRUE(likeText(u"x", u"[!a-c]"));
    EXPECT_TRUE(likeText(u"abcabc", u"*b?a*"));
    EXPECT_EQ(errorNumberOf([] { likeText(u"a", u"[a"); }), 93);
    EXPECT_EQ(mid(u"abcdef", 3, 2), u"cd");
    EXPECT_EQ(mid(u"abc", 9), u"");
    EXPECT_EQ(errorNumberOf([] { mid(u"abc", 0, 1); }), err::InvalidProcedureCall);
    EXPECT_EQ(trim(u"  a b  "), u"a b");
}

}  // namespace
}  // namespace telvaro

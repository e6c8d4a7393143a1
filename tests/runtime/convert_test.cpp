// The runtime's conversions under the "." and "," regional configurations.
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>

#include "runtime/convert.h"
#include "runtime/datetime.h"
#include "runtime/object.h"
#include "runtime/regional.h"
#include "support/support.h"

namespace telvaro {
namespace {

RegionalSettings commaDecimal() {
    RegionalSettings s;
    s.decimalSeparator = u",";
    s.thousandSeparator = u".";
    return s;
}

// An object whose default member holds a value.
class ValueObject : public Object {
public:
    explicit ValueObject(Variant value) : value_(std::move(value)) {}
    Variant invoke(StringView member, InvokeKind kind, std::span<Variant>) override {
        if (member.empty() && kind == InvokeKind::PropertyGet) return value_;
        raiseNoSuchMember();
    }

private:
    Variant value_;
};

// An object without a default member.
class PlainObject : public Object {
public:
    Variant invoke(StringView, InvokeKind, std::span<Variant>) override { raiseNoSuchMember(); }
};

Variant objectWith(Variant v) { return Variant(ObjectRef(std::make_shared<ValueObject>(std::move(v)))); }
Variant nothing() { return Variant(ObjectRef()); }

// The result of a conversion as "value" text, or "error N".
template <typename F>
std::string outcome(F&& f) {
    try {
        return describe(Variant(f()));
    } catch (const RuntimeError& e) {
        return "error " + std::to_string(e.number());
    }
}

// The text `f` gives, or "error N".
template <typename F>
std::string textOutcome(F&& f) {
    try {
        return toUtf8(f());
    } catch (const RuntimeError& e) {
        return "error " + std::to_string(e.number());
    }
}

TEST(ConvertDoubleText, FifteenDigitsPlainWhileTheyFitElseExponent) {
    // clang-format off
    const std::pair<double, const char*> cases[] = {
        {-0.0, "0"}, {-999999999999999.0, "-999999999999999"}, {-0.25, "-0.25"}, {0.1 + 0.2, "0.3"},
        {3.141592653589793, "3.14159265358979"}, {12.345678901234567, "12.3456789012346"},
        {5.6789e-11, "0.000000000056789"}, {5.6789e-12, "5.6789E-12"}, {999999999999999.0, "999999999999999"},
        {999999999999999.5, "1E+15"}, {1e15, "1E+15"}, {1.2e15, "1.2E+15"},
        {1.7976931348623157e308, "1.79769313486232E+308"}, {5e-324, "4.94065645841247E-324"},
    };
    // clang-format on
    for (const auto& [value, text] : cases) EXPECT_EQ(toUtf8(toString(Variant(value))), text) << text;

    RegionalScope comma(commaDecimal());
    for (auto [value, text] : {std::pair(0.5, "0,5"), {1.2e15, "1,2E+15"}})
        EXPECT_EQ(toUtf8(doubleToString(value)), text) << text;
}

TEST(ConvertDoubleText, NonFiniteValuesAreOverflow) {
    for (double d : {std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity(),
                     std::numeric_limits<double>::quiet_NaN()})
        EXPECT_EQ(errorNumberOf([d] { doubleToString(d); }), err::Overflow) << d;
}

TEST(ConvertToText, EveryTypeOfValue) {
    auto dec = [](const char16_t* t) { return Variant(*Decimal::parse(t)); };
    // clang-format off
    const std::pair<Variant, const char*> cases[] = {
        {Variant(std::uint8_t(255)), "255"}, {Variant(std::int16_t(-32768)), "-32768"},
        {Variant(std::int32_t(2147483647)), "2147483647"}, {Variant(Currency{15000}), "1.5"},
        {Variant(Currency{9}), "0.0009"},
        {Variant(Currency{std::numeric_limits<std::int64_t>::min()}), "-922337203685477.5808"}, {dec(u"1.50"), "1.5"},
        {dec(u"79228162514264337593543950335"), "79228162514264337593543950335"}, {Variant(True), "True"},
        {Variant(Boolean::fromBits(1)), "True"}, {Variant(), ""}, {Variant(u"texto"), "texto"},
        {Variant(Date{36160.75}), "31/12/1998 18:00:00"}, {objectWith(Variant(42.5)), "42.5"},
        {objectWith(objectWith(Variant(u"dentro"))), "dentro"}, {Variant(Null{}), "error 94"},
        {Variant(Array::vector(0, 1)), "error 13"}, {nothing(), "error 91"}, {objectWith(Variant(Null{})), "error 94"},
        {Variant(ObjectRef(std::make_shared<PlainObject>())), "error 438"},
    };
    // clang-format on
    for (const auto& [value, text] : cases)
        EXPECT_EQ(textOutcome([&] { return toString(value); }), text) << describe(value);
    RegionalScope comma(commaDecimal());
    EXPECT_EQ(toString(Variant(Currency{15000})), u"1,5");
    EXPECT_EQ(toString(dec(u"2.50")), u"2,5");
}

struct TextCase {
    const char16_t* text;
    const char* result;  // the Double as CStr writes it under "." marks, "none" when not a number, "error N"
};

std::string readNumber(const char16_t* text) {
    try {
        auto n = parseNumber(text);
        if (!n) return "none";
        RegionalScope point(RegionalSettings{});
        return toUtf8(doubleToString(*n));
    } catch (const RuntimeError& e) {
        return "error " + std::to_string(e.number());
    }
}

TEST(ConvertTextToNumber, PointDecimalCommaThousands) {
    // clang-format off
    const TextCase cases[] = {
        {u" -3.5 ", "-3.5"}, {u"1,234.5", "1234.5"}, {u"1,2,3", "123"}, {u".5", "0.5"}, {u"1e-3", "0.001"},
        {u"1d+2", "100"}, {u"&h1f", "31"}, {u"&HFFFF", "-1"}, {u"&H10000", "65536"}, {u"&o177777", "-1"},
        {u"( 5 )", "-5"}, {u"($5)", "-5"}, {u"$-7", "-7"}, {u"7$", "7"}, {u"1e-94938484", "0"}, {u"", "none"},
        {u"1.2.3", "none"}, {u"12abc", "none"}, {u"1e+", "none"}, {u"--5", "none"}, {u"(-5)", "none"}, {u"(5", "none"},
        {u"&HG", "none"}, {u"&", "none"}, {u".", "none"}, {u",5", "none"}, {u"$$5", "none"}, {u"1e400", "error 6"},
        {u"&H100000000", "error 6"},
    };
    // clang-format on
    for (const auto& c : cases) EXPECT_EQ(readNumber(c.text), c.result) << toUtf8(c.text);
}

TEST(ConvertTextToNumber, CommaDecimalPointThousands) {
    RegionalScope comma(commaDecimal());
    const TextCase cases[] = {
        {u"2,5", "2.5"},           {u"1.234,5", "1234.5"}, {u"2.5", "25"},     {u"1,5E2", "150"},
        {u"$ 1.000,50", "1000.5"}, {u"1,2,3", "none"},     {u"2,5.0", "none"}, {u".5", "none"},
    };
    for (const auto& c : cases) EXPECT_EQ(readNumber(c.text), c.result) << toUtf8(c.text);
}

TEST(ConvertRounding, HalfToEvenIntoIntegerLongByteAndCurrency) {
    // integer: CInt and CLng; currency: CCur, in 1/10000
    // clang-format off
    const std::tuple<Variant, std::int64_t, std::int64_t> cases[] = {
        {Variant(0.5), 0, 5000}, {Variant(3.5), 4, 35000}, {Variant(-32768.5), -32768, -327685000},
        {Variant(2.5000001), 3, 25000}, {Variant(1.23456), 1, 12346}, {Variant(0.00016), 0, 2},
        {Variant(u"2.5"), 2, 25000}, {Variant(u"0.00015"), 0, 2}, {Variant(u"1.000250001"), 1, 10003},
        {Variant(Currency{25000}), 2, 25000}, {Variant(Currency{-25001}), -3, -25001},
        {Variant(Date{36160.5}), 36160, 361605000},
    };
    // clang-format on
    for (const auto& [value, integer, currency] : cases) {
        if (integer >= -32768 && integer <= 32767) {
            EXPECT_EQ(toInteger(value), integer) << describe(value);
        }
        EXPECT_EQ(toLong(value), integer) << describe(value);
        EXPECT_EQ(toCurrency(value).scaled, currency) << describe(value);
    }
    EXPECT_EQ(toByteValue(Variant(254.5)), 254);
    EXPECT_EQ(toInteger(Variant(*Decimal::parse(u"3.5"))), 4);
    EXPECT_EQ(toCurrency(Variant(*Decimal::parse(u"1.00005"))).scaled, 10000);
}

// The conversion named by its letter: Integer, Long, Byte, Currency, Double, deciMal, daTe.
void convertTo(char to, const Variant& v) {
    switch (to) {
        case 'I': toInteger(v); break;
        case 'L': toLong(v); break;
        case 'B': toByteValue(v); break;
        case 'C': toCurrency(v); break;
        case 'D': toDouble(v); break;
        case 'M': toDecimal(v); break;
        default: toDate(v);
    }
}

TEST(ConvertRanges, OutOfRangeIsOverflow) {
    // clang-format off
    const std::tuple<char, Variant, int> cases[] = {
        {'I', Variant(32767.5), err::Overflow}, {'I', Variant(32767.4), 0}, {'I', Variant(-32768.6), err::Overflow},
        {'I', Variant(std::int32_t(40000)), err::Overflow}, {'I', Variant(u"40000"), err::Overflow},
        {'I', Variant(Currency{327675000}), err::Overflow}, {'L', Variant(2147483647.5), err::Overflow},
        {'L', Variant(-2147483648.5), 0}, {'L', Variant(u"4294967296"), err::Overflow},
        {'L', Variant(std::nan("")), err::Overflow}, {'B', Variant(-0.51), err::Overflow},
        {'B', Variant(255.5), err::Overflow}, {'B', Variant(255.4), 0},
        {'B', Variant(std::int32_t(256)), err::Overflow}, {'C', Variant(1e15), err::Overflow},
        {'C', Variant(u"922337203685477.5807"), 0}, {'C', Variant(u"922337203685477.5808"), err::Overflow},
        {'C', Variant(u"-922337203685477.5808"), 0}, {'D', Variant(u"1e400"), err::Overflow},
        {'M', Variant(u"1E30"), err::Overflow}, {'T', Variant(2958466.0), err::Overflow}, {'T', Variant(2958465.9), 0},
        {'T', Variant(-657435.0), err::Overflow},
    };
    // clang-format on
    for (const auto& [to, value, error] : cases)
        EXPECT_EQ(errorNumberOf([&] { convertTo(to, value); }), error) << to << " " << describe(value);
    EXPECT_EQ(toCurrency(Variant(u"-922337203685477.5808")).scaled, std::numeric_limits<std::int64_t>::min());
}

TEST(ConvertTextToNumber, TextThatIsNotANumberIsTypeMismatch) {
    for (const char16_t* t : {u"", u"1,2.3.4"})
        for (char to : {'D', 'L', 'C'})
            EXPECT_EQ(errorNumberOf([&] { convertTo(to, Variant(t)); }), err::TypeMismatch) << to << toUtf8(t);
}

TEST(ConvertBoolean, TextNumbersAndBits) {
    // clang-format off
    const std::pair<Variant, const char*> cases[] = {
        {Variant(u"True"), "Boolean True"}, {Variant(u"#TRUE#"), "Boolean True"}, {Variant(u"#True#"), "error 13"},
        {Variant(u"Verdadero"), "Boolean True"}, {Variant(u"falso"), "Boolean False"},
        {Variant(u"0.1"), "Boolean True"}, {Variant(u"0.000"), "Boolean False"}, {Variant(u"&H0"), "Boolean False"},
        {Variant(u"si"), "error 13"}, {Variant(0.0), "Boolean False"}, {Variant(Currency{1}), "Boolean True"},
        {Variant(), "Boolean False"}, {Variant(Null{}), "error 94"},
    };
    // clang-format on
    for (const auto& [value, result] : cases)
        EXPECT_EQ(outcome([&] { return toBoolean(value); }), result) << describe(value);

    // True is -1 in every numeric type but Byte, which keeps the low byte.
    EXPECT_EQ(toInteger(Variant(True)), -1);
    EXPECT_EQ(toCurrency(Variant(True)).scaled, -10000);
    EXPECT_EQ(toByteValue(Variant(True)), 255);
    EXPECT_EQ(toInteger(Variant(Boolean::fromBits(1))), 1);
    EXPECT_EQ(toDecimal(Variant(Boolean::fromBits(1))), Decimal::fromInt64(-1));
    EXPECT_DOUBLE_EQ(toDate(Variant(True)).serial, -1.0);
}

TEST(ConvertSpecialValues, NullEmptyErrorArrayAndObjects) {
    using Fn = std::function<Variant(const Variant&)>;
    const std::pair<const char*, Fn> conversions[] = {
        {"CStr", [](const Variant& v) { return Variant(toString(v)); }},
        {"CDbl", [](const Variant& v) { return Variant(toDouble(v)); }},
        {"CInt", [](const Variant& v) { return Variant(toInteger(v)); }},
        {"CBool", [](const Variant& v) { return Variant(toBoolean(v)); }},
        {"CDate", [](const Variant& v) { return Variant(toDate(v)); }},
    };
    using Results = std::array<const char*, std::size(conversions)>;  // in the order of `conversions`
    auto every = [](const char* result) {
        Results r;
        r.fill(result);
        return r;
    };
    // clang-format off
    const std::pair<Variant, Results> cases[] = {
        {Variant(Null{}), every("error 94")}, {Variant::missing(), every("error 13")},
        {Variant(Array::vector(0, 2)), every("error 13")}, {nothing(), every("error 91")},
        {Variant(), {"String \"\"", "Double 0", "Integer 0", "Boolean False", "Date 00:00:00"}},
        {objectWith(Variant(u"42")), {"String \"42\"", "Double 42", "Integer 42", "Boolean True", "error 13"}},
        {objectWith(Variant(Date{36160})),
         {"String \"31/12/1998\"", "Double 36160", "error 6", "Boolean True", "Date 31/12/1998"}},
    };
    // clang-format on
    for (const auto& [value, results] : cases)
        for (std::size_t i = 0; i < std::size(conversions); ++i)
            EXPECT_EQ(outcome([&] { return conversions[i].second(value); }), results[i])
                << conversions[i].first << "(" << describe(value) << ")";
}

TEST(ConvertVal, LeadingNumberWithAPointOnly) {
    const std::pair<const char16_t*, double> cases[] = {
        {u"1 2 3", 123}, {u"1.2.3", 1.2},     {u"1E3", 1000}, {u"1D2", 100},          {u"&H1F", 31},
        {u"&HFFFF", -1}, {u"&HFFFF&", 65535}, {u"&H", 0},     {u" \t\n-4.5e1x", -45}, {u"1e", 1},
        {u".5", 0.5},    {u"2,5", 2},         {u"0x1F", 0},   {u"1.5e2.3", 150},      {u"\u00a05", 0},
    };
    for (const auto& [text, value] : cases) EXPECT_DOUBLE_EQ(val(text), value) << toUtf8(text);
    EXPECT_EQ(errorNumberOf([] { val(u"1e400"); }), err::Overflow);
    EXPECT_EQ(errorNumberOf([] { val(u"&H100000000"); }), err::Overflow);
    RegionalScope comma(commaDecimal());
    EXPECT_DOUBLE_EQ(val(u"2.5"), 2.5) << "regional settings do not matter";
    EXPECT_DOUBLE_EQ(val(u"2,5"), 2) << "regional settings do not matter";
}

TEST(ConvertStr, SignPositionAndPoint) {
    // clang-format off
    const std::pair<Variant, const char*> cases[] = {
        {Variant(5.0), " 5"}, {Variant(0.5), " 0.5"}, {Variant(-0.0), " 0"}, {Variant(Currency{15000}), " 1.5"},
        {Variant(*Decimal::parse(u"-2.50")), "-2.5"}, {Variant(u" -2.5 "), "-2.5"}, {Variant(True), "-1"},
        {Variant(), " 0"}, {Variant(Date{36160}), "31/12/1998"},
        {Variant(ErrorCode{static_cast<std::int32_t>(0x800A0005u)}), "Error 5"}, {objectWith(Variant(3.0)), " 3"},
        {Variant(u"abc"), "error 13"}, {Variant(Null{}), "error 94"},
    };
    // clang-format on
    for (const auto& [value, text] : cases) EXPECT_EQ(textOutcome([&] { return str(value); }), text) << describe(value);

    RegionalScope comma(commaDecimal());
    EXPECT_EQ(str(Variant(2.5)), u" 2.5") << "always a point";
    EXPECT_EQ(str(Variant(u"2,5")), u" 2.5") << "text is read under the regional marks";
    EXPECT_EQ(str(Variant(Currency{-15000})), u"-1.5");
}

TEST(ConvertPredicates, IsDate) {
    // clang-format off
    const std::pair<Variant, bool> cases[] = {
        {Variant(), false}, {Variant(Null{}), false}, {Variant(3.5), false}, {Variant(Date{36160}), true},
        {Variant(u"abc"), false}, {Variant(u"31/12/1998"), true}, {Variant(u"1.5"), true},
        {Variant(Array::vector(0, 0)), false}, {nothing(), false}, {objectWith(Variant(u"1/1/2000")), true},
    };
    // clang-format on
    for (const auto& [value, date] : cases) EXPECT_EQ(isDate(value), date) << describe(value);
}

// Decimal's own reading and its conversion from Double are decimal_test's
// tables; these rows go through the regional marks and the other types.
TEST(ConvertDecimal, ExactFromTextAndOtherTypes) {
    // clang-format off
    const std::pair<Variant, const char*> cases[] = {
        {Variant(u"0.1"), "0.1"}, {Variant(u"1,234.5678"), "1234.5678"},
        {Variant(u"18446744073709551616"), "18446744073709551616"}, {Variant(u"1E-30"), "0"},
        {Variant(u"0.00000000000000000000000000015"), "0.0000000000000000000000000002"}, {Variant(u"&HFFFF"), "-1"},
        {Variant(Currency{12345}), "1.2345"},
    };
    // clang-format on
    for (const auto& [value, text] : cases)
        EXPECT_EQ(toUtf8(toString(Variant(toDecimal(value)))), text) << describe(value);
}

}  // namespace
}  // namespace telvaro

// Decimal arithmetic, conversions and text of the 96-bit scaled integer ("error N" where it raises).
#include <gtest/gtest.h>

#include <cmath>
#include <compare>
#include <limits>
#include <stdexcept>
#include <string>

#include "runtime/decimal.h"
#include "runtime/error.h"

namespace telvaro {
namespace {

constexpr const char* kMax = "79228162514264337593543950335";  // 2^96 - 1

Decimal dec(const std::string& text) {
    auto d = Decimal::parse(fromUtf8(text));
    if (!d) throw std::invalid_argument("not a number in a test table: " + text);
    return *d;
}

std::string text(const Decimal& d) { return toUtf8(d.toString()); }
std::string text(std::int64_t v) { return std::to_string(v); }
std::string text(const std::string& s) { return s; }

// The result of f as text, or "error N" for the run-time error it raises.
template <typename F>
std::string outcome(F f) {
    try {
        return text(f());
    } catch (const RuntimeError& e) {
        return "error " + std::to_string(e.number());
    }
}

TEST(DecimalArithmetic, ResultsRoundedToScaleAnd96Bits) {
    struct Case {
        std::string a;
        char op;
        std::string b;
        std::string expected;
    };
    const std::string max = kMax;
    // clang-format off
    const Case cases[] = {
        {"1.5", '+', "1.5", "3.0"}, {"1", '-', "1.25", "-0.25"},
        {"0.0000000000000000000000000001", '+', "1", "1.0000000000000000000000000001"}, {max, '+', "0.4", max},
        {"79228162514264337593543950334", '+', "0.5", "79228162514264337593543950334"},  // half to even
        {"7922816251426433759354395033.5", '+', "0.25", "7922816251426433759354395034"},
        {"39614081257132168796771975168", '+', "39614081257132168796771975167", max},
        {max, '+', "0.5", "error 6"},                            // rounds up to 2^96
        {"39614081257132168796771975168", '+', "39614081257132168796771975168", "error 6"},
        {"-" + max, '-', "1", "error 6"}, {"1.5", '*', "1.5", "2.25"}, {"2.50", '*', "2", "5.00"},
        {"0.00000000000005", '*', "0.000000000000001", "0.0000000000000000000000000000"},
        {"0.000000000000015", '*', "0.00000000000001", "0.0000000000000000000000000002"},
        {max, '*', "0.1", "7922816251426433759354395033.5"},
        {"1.0000000000000000000000000001", '*', "1.0000000000000000000000000001", "1.0000000000000000000000000002"},
        {"281474976710656", '*', "281474976710655", "79228162514264056118567239680"},
        {"281474976710656", '*', "281474976710656", "error 6"},  // 2^48 * 2^48
        {"10", '/', "4", "2.5"}, {"5.00", '/', "2", "2.50"}, {"-1", '/', "8", "-0.125"},
        {"1", '/', "3", "0.3333333333333333333333333333"}, {"100", '/', "7", "14.285714285714285714285714286"},
        {"0.0000000000000000000000000001", '/', "2", "0"},  // exact tie, to even
        {"0.0000000000000000000000000003", '/', "2", "0.0000000000000000000000000002"},
        {max, '/', "20", "3961408125713216879677197516.8"},
        {"7.9228162514264337593543950335", '/', "7.9228162514264337593543950334", "1"},
        {"12345678901234567890123456789", '/', "98765432109876543210", "124999998.86093750001548828124"},
        {max, '/', "39614081257132168796771975171", "1.9999999999999999999999999998"},  // 96-bit divisor
        {max, '/', "0.1", "error 6"}, {"1", '/', "0", "error 11"},
    };
    // clang-format on
    for (const auto& c : cases) {
        const Decimal a = dec(c.a), b = dec(c.b);
        const std::string result = outcome([&] {
            switch (c.op) {
                case '+': return a + b;
                case '-': return a - b;
                case '*': return a * b;
                default: return a / b;
            }
        });
        EXPECT_EQ(result, c.expected) << c.a << ' ' << c.op << ' ' << c.b;
    }
}

// Under "." and "," marks unless a row says otherwise ("none": not a number).
// Past the 28th place the digits round half to even, a nonzero digit far
// beyond the tie rounding up, and a carry may pass 96 bits.
TEST(DecimalText, ParseWithMarksExponentsAndRounding) {
    struct Case {
        std::u16string text;
        std::string expected;
        char16_t decimalMark = u'.', thousandsMark = u',';
    };
    // clang-format off
    const Case cases[] = {
        {u"1.5", "1.5"}, {u"  +3 ", "3"}, {u"1E3", "1000"}, {u"1.50E1", "15.0"}, {u"1D2", "100"}, {u"1.50", "1.50"},
        {u"-0", "0"}, {u"0.12345678901234567890123456789", "0.1234567890123456789012345679"},
        {u"0.33333333333333333333333333335", "0.3333333333333333333333333334"},
        {u"0.333333333333333333333333333250001", "0.3333333333333333333333333333"},
        {u"2.00000000000000000000000000005000000000000001", "2.0000000000000000000000000001"},
        {u"2.000000000000000000000000000050000000000000000", "2.0000000000000000000000000000"},
        {u"1e-1000000000000", "0.0000000000000000000000000000"}, {u"0e1000000000000", "0"},
        {u"7.9228162514264337593543950335E28", kMax}, {u"79228162514264337593543950335.4", kMax},
        {u"79228162514264337593543950334.5", "79228162514264337593543950334"},
        {u"7922816251426433759354395033.56", "7922816251426433759354395034"},
        {u"79228162514264337593543950335.5", "error 6"}, {u"79228162514264337593543950336", "error 6"},
        {u"7.9228162514264337593543950336E28", "error 6"}, {u"1e1000000000000", "error 6"}, {u"", "none"},
        {u"1.2.3", "none"}, {u"e5", "none"}, {u",5", "none"}, {u"1.5,0", "none"}, {u"1.234,5", "1234.5", u',', u'.'},
        {u"2.5", "25", u',', u'.'}, {u"1,5", "none", u'.', u'\0'},
    };
    // clang-format on
    for (const auto& c : cases) {
        const std::string result = outcome([&] {
            const auto d = Decimal::parse(c.text, c.decimalMark, c.thousandsMark);
            return d ? toUtf8(d->toString()) : std::string("none");
        });
        EXPECT_EQ(result, c.expected) << '"' << toUtf8(c.text) << '"';
    }
}

// A negative zero prints without its sign.
TEST(DecimalText, FromPartsIsMantissaOverTenToTheScale) {
    constexpr std::uint32_t kAll = 0xFFFFFFFF;
    EXPECT_EQ(outcome([] { return Decimal::fromParts(1, 0, 0, 28, false); }), "0.0000000000000000000000000001");
    EXPECT_EQ(outcome([] { return Decimal::fromParts(kAll, kAll, kAll, 28, false); }),
              "7.9228162514264337593543950335");
    EXPECT_EQ(outcome([] { return Decimal::fromParts(0, 0, 0, 2, true); }), "0.00");
    EXPECT_EQ(outcome([] { return Decimal::fromParts(1, 0, 0, 29, false); }), "error 5");
    EXPECT_EQ(outcome([] { return Decimal::fromParts(1, 0, 0, -1, false); }), "error 5");
}

TEST(DecimalConversions, FromDoubleKeepsFifteenSignificantDigits) {
    const double inf = std::numeric_limits<double>::infinity();
    // clang-format off
    const std::pair<double, std::string> cases[] = {
        {0.1, "0.1"}, {1.0 / 3, "0.333333333333333"}, {0.1 + 0.2, "0.3"}, {123456789.123456789, "123456789.123457"},
        {1.23456789012345e-25, "0.0000000000000000000000001235"},
        {7.92281625142643e28, "79228162514264300000000000000"}, {1e-30, "0"}, {5e-324, "0"},
        {std::ldexp(1.0, 96), "error 6"}, {inf, "error 6"}, {std::nan(""), "error 6"},
    };
    // clang-format on
    for (const auto& [value, expected] : cases)
        EXPECT_EQ(outcome([&] { return Decimal::fromDouble(value); }), expected) << value;
}

TEST(DecimalConversions, ToDoubleIsTheNearestDouble) {
    // clang-format off
    const std::pair<std::string, double> cases[] = {
        {"0.1", 0.1}, {"0.3333333333333333333333333333", 1.0 / 3}, {"0.0000000000000000000000000001", 1e-28},
        {kMax, std::ldexp(1.0, 96)},
        {"9007199254740993", 9007199254740992.0},             // a tie: to the even Double
        {"9007199254740993.0000000001", 9007199254740994.0},  // just past the tie
    };
    // clang-format on
    for (const auto& [text, expected] : cases) EXPECT_EQ(dec(text).toDouble(), expected) << text;
}

TEST(DecimalConversions, IntegersAndCurrencyRoundHalfToEven) {
    // clang-format off
    const std::tuple<std::string, std::string, std::string> cases[] = {  // text, Int64, Currency
        {"2.5", "2", "25000"}, {"-2.5", "-2", "-25000"}, {"1.23455", "1", "12346"}, {"-0.00015", "0", "-2"},
        {"9223372036854775807.4", "9223372036854775807", "error 6"}, {"9223372036854775807.5", "error 6", "error 6"},
        {"-9223372036854775809", "error 6", "error 6"},
        {"922337203685477.58074", "922337203685478", "9223372036854775807"},
        {"922337203685477.58075", "922337203685478", "error 6"},
        {"-922337203685477.5808", "-922337203685478", "-9223372036854775808"}, {kMax, "error 6", "error 6"},
    };
    // clang-format on
    for (const auto& [text, int64, currency] : cases) {
        EXPECT_EQ(outcome([&] { return dec(text).toInt64(); }), int64) << text;
        EXPECT_EQ(outcome([&] { return dec(text).toCurrency(); }), currency) << text;
    }
}

TEST(DecimalConversions, FromIntegersAndCurrency) {
    const std::int64_t min = std::numeric_limits<std::int64_t>::min();
    const std::int64_t max = std::numeric_limits<std::int64_t>::max();
    EXPECT_EQ(toUtf8(Decimal::fromInt64(min).toString()), "-9223372036854775808");
    EXPECT_EQ(toUtf8(Decimal::fromInt64(max).toString()), "9223372036854775807");
    EXPECT_EQ(toUtf8(Decimal::fromCurrency(-1).toString()), "-0.0001");
    EXPECT_EQ(toUtf8(Decimal::fromCurrency(min).toString()), "-922337203685477.5808");
    for (std::int64_t v : {min, max})
        EXPECT_EQ(std::pair(Decimal::fromInt64(v).toInt64(), Decimal::fromCurrency(v).toCurrency()), std::pair(v, v));
}

// Truncation only: no caller rounds a Decimal to a number of places.
TEST(DecimalRounding, TruncateTowardZero) {
    const std::pair<std::string, std::string> cases[] = {
        {"3.5", "3"}, {"-2.7", "-2"}, {"-0.4", "0"}, {kMax, kMax}, {"0.0000000000000000000000000001", "0"}};
    for (const auto& [text, truncated] : cases)
        EXPECT_EQ(outcome([&] { return dec(text).truncate(); }), truncated) << text;
}

TEST(DecimalComparison, NumericWhateverTheScaleOrSignOfZero) {
    // The order: -1 a < b, 0 equal, 1 a > b.
    // clang-format off
    const std::tuple<std::string, std::string, int> cases[] = {
        {"1.50", "1.5", 0}, {"-0", "0", 0}, {"-2", "-1", -1}, {"0.0000000000000000000000000001", "0", 1},
        {"1.0000000000000000000000000001", "1", 1}, {kMax, "7922816251426433759354395033.5", 1},
        {std::string("-") + kMax, "-7.9228162514264337593543950335", -1},
    };
    // clang-format on
    for (const auto& [x, y, order] : cases) {
        const Decimal a = dec(x), b = dec(y);
        EXPECT_EQ(a <=> b, order <=> 0) << x << " vs " << y;
        EXPECT_EQ(b <=> a, 0 <=> order) << y << " vs " << x;
        EXPECT_EQ(a == b, order == 0) << x << " == " << y;
    }
}

}  // namespace
}  // namespace telvaro

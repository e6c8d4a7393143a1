// Fractioned quantities and the number helpers they are built on, called
// late-bound as inventory screens call them.
#include <gtest/gtest.h>

#include "context/fun.h"
#include "support/support.h"
#include "text/fractions.h"

namespace telvaro {
namespace {

void check(const std::vector<MethodCase>& calls) { checkCalls(calls); }

Variant S(const char16_t* s) { return Variant(s); }
Variant D(double d) { return Variant(d); }
Variant I(std::int16_t i) { return Variant(i); }

TEST(NumberParts, IntegerDecimalTruncateMultiple) {
    // clang-format off
    check({
        {"numParteEntera", {D(-3.7)}, D(-3)}, {"numParteEntera", {D(3e9)}, Variant(), err::Overflow},
        {"numParteDecimal", {D(-2.25)}, D(-0.25)}, {"numTruncar", {D(2.5679), I(2)}, D(2.56)},
        {"numTruncar", {D(2.5), I(3)}, D(2.5)},
        {"numTruncar", {D(2.5679), I(-5)}, Variant(), err::InvalidProcedureCall},
        {"numEsMultiplo", {D(12), D(4)}, Variant(True)}, {"numEsMultiplo", {D(10), D(4)}, Variant(False)},
        {"numParteEntera", {D(3.7)}, D(3)}, {"numParteEntera", {D(2.5)}, D(2)},
        {"numParteEntera", {D(2.9999999999999996)}, D(3)}, {"numParteDecimal", {D(1.0000000001)}, D(0)},
        {"numTruncar", {D(-2.5679), I(0)}, D(-2)}, {"numEsMultiplo", {D(7.5), D(2.5)}, Variant(False)},
        {"numEsMultiplo", {D(12), D(0.3)}, Variant(), err::DivisionByZero},
    });
    // clang-format on
}

TEST(Fractions, PacksAndLooseUnits) {
    // clang-format off
    check({
        {"numFraccion_a_Decimal", {S(u"5.06"), I(12)}, D(5.5)}, {"numFraccion_a_Decimal", {S(u"5.3"), I(12)}, D(7.5)},
        {"numFraccion_a_Decimal", {S(u"3"), I(12)}, D(3)},
        {"numFraccion_a_Decimal", {S(u"1.5"), I(0)}, Variant(), err::DivisionByZero},
        {"numDecimal_a_Fraccion", {S(u"3.5"), I(12)}, S(u"3.06")},
        {"numDecimal_a_Fraccion", {S(u"-3.5"), I(12)}, S(u"-3")},
        {"numFraccion_a_Decimal", {S(u"-5.06"), I(12)}, D(-4.5)}, {"numFraccion_a_Decimal", {S(u"abc"), I(12)}, D(0)},
        {"numFraccion_a_Decimal", {S(u"2.005"), I(100)}, D(2.05)},
        {"numDecimal_a_Fraccion", {S(u"0.375"), I(12)}, S(u"0.05")},  // 4.5 rounds up, not to even
        {"numDecimal_a_Fraccion", {S(u"2.999"), I(12)}, S(u"2.12")},  // not carried into the packs
        {"numDecimal_a_Fraccion", {S(u"1.5"), I(6)}, S(u"1.3")},
    });
    // clang-format on
}

TEST(Stock, SubtractAndAddInLooseUnits) {
    check({
        {"StockResta", {D(5.06), S(u"2.08"), I(12)}, D(2.1)},
        {"StockSuma", {D(5.06), S(u"0.08"), I(12)}, D(6.02)},
        {"StockResta", {D(10), S(u"3"), I(12)}, D(7)},
        {"StockResta", {D(1.02), S(u"2.04"), I(12)}, D(-1)},    // below zero: the loose units are lost
        {"StockResta", {D(1.02), S(u"2.01"), I(12)}, D(0.11)},  // a two-digit negative F loses its sign
        {"StockResta", {D(10.5), S(u"0.25"), I(1)}, D(10.3)},   // rounded to one decimal, half to even
        {"StockResta", {D(10.5), S(u"0.25"), I(0)}, D(10.25)},
        {"StockSuma", {D(5), S(u"0.5"), I(12)}, D(9.02)},  // ".5" reads as 50 loose units
    });
}

TEST(Round, HalfToEvenAtTheGivenDecimals) {
    struct Case {
        double x;
        int decimals;
        double expected;
    };
    for (auto c : {Case{2.5, 0, 2}, Case{3.5, 0, 4}, Case{0.125, 2, 0.12}}) {
        EXPECT_DOUBLE_EQ(text::roundDecimals(c.x, c.decimals), c.expected) << c.x << " to " << c.decimals;
    }
    EXPECT_EQ(errorNumberOf([] { text::roundDecimals(1, -1); }), err::InvalidProcedureCall);
}

}  // namespace
}  // namespace telvaro

// The formula evaluator: the rewriting rules and their deliberate quirks.
#include <gtest/gtest.h>

#include "context/fun.h"
#include "frame/invoke.h"
#include "host/default_platform.h"
#include "runtime/regional.h"
#include "support/support.h"
#include "text/formula.h"

namespace telvaro {
namespace {

double calc(const char16_t* formula) {
    Fun fun(defaultPlatform());
    std::vector<Variant> args{Variant(formula)};
    Variant r = invoke(fun, "numCalculaFormula", args);
    EXPECT_EQ(r.type(), VarType::Double);
    return r.get<double>();
}

TEST(Formula, RewritingGivesTheseValues) {
    // clang-format off
    const std::pair<const char16_t*, double> cases[] = {
        {u"2*3+1", 7}, {u"1+2*3", 7}, {u"2^3^2", 512}, {u"8/4/2", 4}, {u"6/2*3", 1}, {u"1+2*3-4/2", 1.5},
        {u"1+2*-3", -9}, {u"-5+3", -2}, {u"150 % 12", 18}, {u"10/0", 0}, {u"7\\2", 3}, {u"7\\0", 0}, {u"(1+2", 3},
        {u"1 000 + 1", 1001}, {u"abc", 0}, {u"12abc", 12}, {u"", 0}, {u"(2+3)*(4+5)", 45}, {u",5+1", 1.5},
        {u"1,234,5+0", 1234.5}, {u"1,234,5", 1}, {u"2x3+1", 6}, {u"$12.50", 12.5}, {u"2 x 3", 23},
        {u"2^0.5", 1.4142135623731},
    };
    // clang-format on
    for (auto [formula, value] : cases) EXPECT_DOUBLE_EQ(calc(formula), value) << toUtf8(formula);
}

// The errors of the arithmetic reach the caller.
TEST(Formula, OperandsAreConvertedBeforeTheyAreTested) {
    // Both operands of an integer division become Longs, the left one first, before the divisor is tested;
    // zero to a negative power is an invalid call of "^".
    // clang-format off
    const std::pair<const char16_t*, int> cases[] = {
        {u"99999999999\\0.4", err::Overflow}, {u"7\\99999999999", err::Overflow}, {u"7\\0.4", err::DivisionByZero},
        {u"0^-1", err::InvalidProcedureCall}, {u"(-8)^0.5", err::InvalidProcedureCall}, {u"0^0", 0},
        {u"10^400", err::Overflow}, {u"99999999999999*99999999999999*99999999999999", err::Overflow},
    };
    // clang-format on
    for (auto [formula, error] : cases) EXPECT_EQ(errorNumberOf([&] { calc(formula); }), error) << toUtf8(formula);
}

TEST(Formula, HugeExponentsOverflowAsTheirDigitsWould) {
    // Reading 10^n from its digits overflows for every n past 308; the
    // failed statement is skipped and the number keeps its value, however
    // many digits there would be.
    for (const char16_t* huge : {u"2e+1000000000", u"2e-1000000000", u"2e+1000", u"2e+401"})
        EXPECT_DOUBLE_EQ(calc(huge), calc(u"2e+400")) << toUtf8(huge);
    EXPECT_DOUBLE_EQ(calc(u"2e+3"), 2000);
    EXPECT_DOUBLE_EQ(calc(u"2e-3"), 0.002);
}

TEST(Formula, RunawayRewritingIsOutOfStackSpace) {
    for (const char16_t* f : {u"2*-1+3*4-5", u"2*-3+4*5-6"})
        EXPECT_EQ(errorNumberOf([&] { calc(f); }), err::OutOfStackSpace) << toUtf8(f);
    // Each step goes over the whole text, so the work of one evaluation is bounded; within the bound, long
    // formulas are evaluated as always. (The sweep's rows hold long runs of other operators.)
    String sum = u"1", shortSum = u"1";
    for (int i = 0; i < 5000; ++i) sum += u"+1";
    for (int i = 0; i < 200; ++i) shortSum += u"+1";
    EXPECT_EQ(errorNumberOf([&] { calc(sum.c_str()); }), err::OutOfStackSpace);
    EXPECT_DOUBLE_EQ(calc(shortSum.c_str()), 201);
    String deep(300, u'(');
    deep += u"1+1";
    EXPECT_DOUBLE_EQ(calc(deep.c_str()), 2) << "groups are replaced one after another, not nested";
}

TEST(Formula, CommaDecimalConfiguration) {
    RegionalSettings comma;
    comma.decimalSeparator = u",";
    comma.thousandSeparator = u".";
    RegionalScope scope(comma);
    EXPECT_DOUBLE_EQ(calc(u"2,5*2"), 5);
    EXPECT_DOUBLE_EQ(calc(u"5/2"), 2) << "the final reading accepts only a point";
    EXPECT_DOUBLE_EQ(calc(u"1.000+1"), 2) << "a single foreign mark is taken as the decimal mark";
}

}  // namespace
}  // namespace telvaro

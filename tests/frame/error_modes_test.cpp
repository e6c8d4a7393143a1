// The statement-skipping and handler error modes.
#include <gtest/gtest.h>

#include "context/error_modes.h"

namespace telvaro {
namespace {

TEST(SkipErrors, AFailingStatementIsAbandonedAndTheNextOneRuns) {
    std::vector<int> ran;
    SkipErrors onError;
    onError([&] { ran.push_back(1); });
    onError([&] {
        raise(err::TypeMismatch);
        ran.push_back(99);  // never reached: the rest of the statement is abandoned
    });
    EXPECT_EQ(onError.errorNumber(), err::TypeMismatch);
    onError([&] { ran.push_back(3); });
    EXPECT_EQ(ran, (std::vector<int>{1, 3}));
    EXPECT_EQ(onError.errorNumber(), err::TypeMismatch) << "the error stays pending until cleared";
    onError([] { raise(err::ObjectDoesNotSupport); });
    EXPECT_EQ(onError.errorNumber(), err::ObjectDoesNotSupport) << "the latest error is the pending one";
    onError.clear();
    EXPECT_EQ(onError.errorNumber(), 0);
}

TEST(SkipErrors, ValueStatementsYieldNothingOnFailure) {
    SkipErrors onError;
    auto good = onError.value([] { return 5; });
    auto bad = onError.value([]() -> int { raise(err::DivisionByZero); });
    ASSERT_TRUE(good.has_value());
    EXPECT_EQ(*good, 5);
    EXPECT_FALSE(bad.has_value());
    EXPECT_EQ(onError.errorNumber(), err::DivisionByZero);
}

TEST(WithHandler, TheHandlerDecidesTheOutcome) {
    int ok = withHandler([] { return 1; }, [](const RuntimeError&) { return -1; });
    int handled =
        withHandler([]() -> int { raise(err::PathNotFound); }, [](const RuntimeError& e) { return e.number(); });
    EXPECT_EQ(ok, 1);
    EXPECT_EQ(handled, err::PathNotFound);
    EXPECT_THROW(withHandler([]() -> int { raise(err::PathNotFound); },
                             [](const RuntimeError&) -> int { raise(err::InvalidProcedureCall); }),
                 RuntimeError);
}

}  // namespace
}  // namespace telvaro

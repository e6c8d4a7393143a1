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
    onError([&] { ran.push_back(3); });
    EXPECT_EQ(ran, (std::vector<int>{1, 3}));
    EXPECT_EQ(onError.errorNumber(), err::TypeMismatch) << "the error stays pending until cleared";
    onError([] { raise(err::ObjectDoesNotSupport); });
    EXPECT_EQ(onError.errorNumber(), err::ObjectDoesNotSupport) << "the latest error is the pending one";
    onError.clear();
    EXPECT_EQ(onError.errorNumber(), 0);
    // A value statement yields nothing on failure.
    EXPECT_EQ(onError.value([] { return 5; }), std::optional<int>(5));
    EXPECT_EQ(onError.value([]() -> int { raise(err::DivisionByZero); }), std::nullopt);
    EXPECT_EQ(onError.errorNumber(), err::DivisionByZero);
}

TEST(WithHandler, TheHandlerDecidesTheOutcome) {
    EXPECT_EQ(withHandler([] { return 1; }, [](const RuntimeError&) { return -1; }), 1);
    EXPECT_EQ(withHandler([]() -> int { raise(err::PathNotFound); }, [](const RuntimeError& e) { return e.number(); }),
              err::PathNotFound);
    EXPECT_THROW(withHandler([]() -> int { raise(err::PathNotFound); },
                             [](const RuntimeError&) -> int { raise(err::InvalidProcedureCall); }),
                 RuntimeError);
}

}  // namespace
}  // namespace telvaro

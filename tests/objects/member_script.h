// A script of late-bound calls on one object, each with what it must give:
// a value of exactly that type, or a run-time error number.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "runtime/object.h"
#include "support/support.h"

namespace telvaro::objects {

enum class Access { Get, Put, Call };

struct Step {
    Access access;
    const char16_t* member;
    std::vector<Variant> args = {};  // for Put: the indices, then the value
    Variant expected = {};           // the result of a Get or Call
    int error = 0;
};

inline void runScript(Object& object, const std::vector<Step>& steps) {
    constexpr InvokeKind kinds[] = {InvokeKind::PropertyGet, InvokeKind::PropertyPut, InvokeKind::Method};
    for (std::size_t i = 0; i < steps.size(); ++i) {
        const Step& step = steps[i];
        SCOPED_TRACE("step " + std::to_string(i) + ": " + toUtf8(step.member));
        Variant result;
        std::vector<Variant> args = step.args;
        const int error =
            errorNumberOf([&] { result = object.invoke(step.member, kinds[static_cast<int>(step.access)], args); });
        EXPECT_EQ(error, step.error);
        if (step.error == 0 && step.access != Access::Put) {
            EXPECT_TRUE(identical(result, step.expected)) << describe(result) << " != " << describe(step.expected);
        }
    }
}

inline Variant L(std::int32_t v) { return Variant(v); }
inline Variant I(std::int16_t v) { return Variant(v); }
inline Variant S(const char16_t* v) { return Variant(v); }
inline Variant B(bool v) { return Variant(Boolean(v)); }

}  // namespace telvaro::objects

// Every built method, called with junk arguments (empty, huge, negative,
// wrong types, Null, missing, arrays, Nothing), either returns a value or
// raises a run-time error: never a crash, a hang or another exception.
// Run under the sanitizers too. Message boxes answer their default button.
#include <gtest/gtest.h>

#include "frame/invoke.h"
#include "frame/bind.h"
#include "context/fun.h"
#include "runtime/error.h"
#include "support/test_platform.h"

namespace telvaro {
namespace {

std::vector<Variant> junkValues() {
    Array twoD = Array::matrix(0, 1, 0, 1);
    Array fromOne = Array::vector(1, 3);
    return {
        Variant(),
        Variant(Null{}),
        Variant::missing(),
        Variant(u""),
        Variant(String(40000, u'a')),
        Variant(u"abc"),
        Variant(u"1,2,,3"),
        Variant(u"31/12/1998"),
        Variant(u"-1"),
        Variant(std::int16_t(-32768)),
        Variant(std::int16_t(32767)),
        Variant(std::int32_t(-2147483647 - 1)),
        Variant(std::int32_t(2147483647)),
        Variant(1e308),
        Variant(-1e-300),
        Variant(True),
        Variant(Date{2958465.5}),
        Variant(Array::ofValues({Variant(u"Uno"), Variant(Null{})})),
        Variant(fromOne),
        Variant(twoD),
        Variant(ObjectRef()),
    };
}

TEST(Robustness, BuiltMethodsOnlyReturnValuesOrRuntimeErrors) {
    // Real files, under the test's home folder; nothing launched, played or
    // probed.
    fakes::TestPlatform platform;
    Fun fun(platform);
    const auto junk = junkValues();
    std::size_t calls = 0;
    for (const auto& method : catalogue()) {
        if (!findBinding(method.name)) continue;
        const std::size_t n = method.params.size();
        // Every junk value in every position, the other arguments taking
        // ordinary values; and all arguments omitted.
        for (std::size_t position = 0; position < n; ++position) {
            for (const auto& value : junk) {
                std::vector<Variant> args(n, Variant(u","));
                args[position] = value;
                try {
                    invoke(fun, method, args);
                } catch (const RuntimeError&) {
                } catch (const std::exception& e) {
                    ADD_FAILURE() << method.name << " raised a non-runtime error: " << e.what();
                }
                ++calls;
            }
        }
        if (method.requiredCount() > 0) {
            std::vector<Variant> none;
            try {
                invoke(fun, method, none);
                ADD_FAILURE() << method.name << " ran without its required arguments";
            } catch (const RuntimeError& e) {
                EXPECT_EQ(e.number(), err::ArgumentNotOptional) << method.name;
            }
        }
    }
    EXPECT_GT(calls, 0u);
}

}  // namespace
}  // namespace telvaro

#include "support/support.h"

#include <gtest/gtest.h>

#include "frame/fun.h"

namespace telvaro {

void checkCalls(const std::vector<MethodCase>& cases) {
    for (const auto& c : cases) {
        Fun fun;
        std::vector<Variant> args = c.args;
        std::string label = std::string(c.method) + "(";
        for (std::size_t i = 0; i < c.args.size(); ++i) label += (i ? ", " : "") + describe(c.args[i]);
        label += ")";
        try {
            Variant got = fun.invoke(c.method, args);
            EXPECT_EQ(c.error, 0) << label << " returned " << describe(got);
            if (!c.error) {
                EXPECT_TRUE(identical(got, c.expected)) << label << " gave " << describe(got) << ", not "
                                                        << describe(c.expected);
            }
        } catch (const RuntimeError& e) {
            EXPECT_EQ(e.number(), c.error) << label << " raised " << e.what();
        }
    }
}

}  // namespace telvaro

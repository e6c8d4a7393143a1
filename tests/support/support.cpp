#include "support/support.h"

#include <gtest/gtest.h>
#include <stdlib.h>

#include <filesystem>

#include "context/fun.h"
#include "frame/invoke.h"
#include "host/default_platform.h"

namespace telvaro {

void checkCalls(const std::vector<MethodCase>& cases) {
    for (const auto& c : cases) {
        Fun fun(defaultPlatform());
        std::vector<Variant> args = c.args;
        std::string label = std::string(c.method) + "(";
        for (std::size_t i = 0; i < c.args.size(); ++i) label += (i ? ", " : "") + describe(c.args[i]);
        label += ")";
        try {
            Variant got = invoke(fun, c.method, args);
            EXPECT_EQ(c.error, 0) << label << " returned " << describe(got);
            if (!c.error) {
                EXPECT_TRUE(identical(got, c.expected))
                    << label << " gave " << describe(got) << ", not " << describe(c.expected);
            }
        } catch (const RuntimeError& e) {
            EXPECT_EQ(e.number(), c.error) << label << " raised " << e.what();
        }
    }
}

namespace {

// Every test program starts in an empty home and working folder:
// $TELVARO_TEST_HOME (emptied first), else a new temporary one.
class FreshHome : public ::testing::Environment {
public:
    void SetUp() override {
        namespace fs = std::filesystem;
        std::error_code ec;
        fs::path home;
        if (const char* given = std::getenv("TELVARO_TEST_HOME"); given && *given) {
            home = given;
            fs::remove_all(home, ec);
            fs::create_directories(home, ec);
        } else if (std::string pattern = (fs::temp_directory_path() / "telvaro-test-XXXXXX").string();
                   ::mkdtemp(pattern.data())) {
            home = pattern;
        }
        ::setenv("TELVARO_HOME", home.c_str(), 1);
        fs::current_path(home, ec);
    }
};

[[maybe_unused]] const auto* const kFreshHome = ::testing::AddGlobalTestEnvironment(new FreshHome);

}  // namespace
}  // namespace telvaro

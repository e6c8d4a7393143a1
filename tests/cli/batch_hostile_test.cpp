// The batch command against what a pipe can bring: deep nesting, ids of every
// kind, lines that are not requests, and answers that cannot be written.
#include <gtest/gtest.h>

#include <cstdio>
#include <nlohmann/json.hpp>

#include "cli/batch.h"
#include "cli/program_run.h"
#include "support/support.h"

namespace telvaro::cli {
namespace {

using json = nlohmann::ordered_json;

const std::string kGood = R"({"id":"fin","method":"strCuentaCaracteres","args":["aaaa","aa"]})";

TEST(BatchAnswers, EveryLineGetsOneAnswerOfOneShape) {
    struct Case {
        std::string line;
        int number;  // 0: a result
        json id;
    };
    const Case cases[] = {
        {"{\"id\":" + std::string(1001, '[') + std::string(1001, ']') + ",\"method\":\"x\"}", -1, nullptr},
        {R"({"id":"[[[[","method":"strCuentaCaracteres","args":["[[[[","["]})", 0, "[[[["},
        {"not json", -1, nullptr},
        {R"({"id":{"a":[1,{"b":null}]},"method":"NoExiste"})", 438, json::parse(R"({"a":[1,{"b":null}]})")},
        {R"({"id":7})", -1, 7},
        {R"({"id":7,"method":"strCuentaCaracteres","args":{"a":1}})", -1, 7},
        {R"({"id":8,"method":"strCuentaCaracteres","args":[{"date":5},"a"]})", 5, 8},
        {R"({"id":9,"method":"strCuentaCaracteres","args":["abc","b","uno"]})", 13, 9},
        {R"({"id":9,"method":"strCuentaCaracteres","args":[{"object":"gauge"},"a"]})", 445, 9},
    };
    for (const auto& c : cases) {
        const std::string label = c.line.substr(0, 80);
        json a;
        ASSERT_NO_THROW(a = json::parse(answerRequest(c.line))) << label;
        EXPECT_EQ(a["id"], c.id) << label;
        ASSERT_TRUE(a["byref"].is_array() && a["messages"].is_array()) << label << " -> " << a.dump();
        if (c.number == 0) {
            EXPECT_TRUE(a.contains("result")) << label << " -> " << a.dump();
            continue;
        }
        ASSERT_TRUE(a.contains("error")) << label << " -> " << a.dump();
        EXPECT_EQ(a["error"]["number"], c.number) << label;
        const std::string description = a["error"]["description"].get<std::string>();
        EXPECT_FALSE(description.empty()) << label;
        EXPECT_TRUE(description.find("json") == std::string::npos &&
                    description.find("parse_error") == std::string::npos)
            << label << ": " << description;
    }
}

TEST(BatchProgram, OutputThatCannotBeWrittenStopsItLoudly) {
    std::string many;
    for (int i = 0; i < 20000; ++i) many += kGood + "\n";
    const std::string requests = scratchFile("many.jsonl", many);
    struct Case {
        const char* what;
        std::string script;
    } cases[] = {
        {"a full disk", "$T batch < " + requests + " > /dev/full"},
        {"a reader that has gone, SIGPIPE ignored",
         "trap '' PIPE; $T batch < " + requests + " | true; exit ${PIPESTATUS[0]}"},
    };
    for (const auto& c : cases) {
        const Outcome run = shell(c.script);
        EXPECT_NE(run.status, 0) << c.what;
        EXPECT_NE(run.err.find("cannot be"), std::string::npos) << c.what << ": " << run.err;
        EXPECT_LT(run.err.size(), 1000u) << c.what << ": one message, not one per request";
    }
}

}  // namespace
}  // namespace telvaro::cli

// The form helpers through `telvaro batch`: control states and calls, and the windows told.
#include <nlohmann/json.hpp>

#include "cli/program_run.h"
#include "forms/forms_fixture.h"

namespace telvaro {
namespace {

using nlohmann::json;

TEST(FormsBatch, AnswersCarryControlStatesCallsAndWindows) {
    struct Case {
        const char* request;
        std::vector<std::pair<const char*, json>> expected;  // at pointers into the answer
    };
    const std::vector<Case> cases = {
        {R"({"id":1,"method":"VerificaNumero","args":[{"object":"textbox","text":"12.3"},53]})",
         {{"/byref/0/value/text", "12.35"}, {"/byref/0/value/calls", {"Text", "Text", "Text=", "Text", "SelStart="}}}},
        {R"({"id":4,"method":"fn_ScrollHListBox","args":[{"object":"list","items":["abc","abcdef"],"fontSize":8}]})",
         {{"/windows/0/horizontalExtent", 36}}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.request);
        const json answer = json::parse(cli::runProgram("batch", std::string(c.request) + "\n").out);
        ASSERT_FALSE(answer.contains("error")) << answer.dump();
        for (const auto& [pointer, expected] : c.expected)
            EXPECT_EQ(answer.at(json::json_pointer(pointer)), expected) << pointer;
    }
}

}  // namespace
}  // namespace telvaro

// The form helpers through `telvaro batch`: each control's state and calls,
// and the windows the window calls told.
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <cstdio>
#include <fstream>
#include <string>

namespace {

using nlohmann::json;

json batchAnswer(const std::string& request) {
    const std::string input = ::testing::TempDir() + "forms_batch.jsonl";
    std::ofstream(input) << request << "\n";
    const std::string command = std::string(TELVARO_BINARY) + " batch < " + input;
    std::string out;
    if (FILE* pipe = ::popen(command.c_str(), "r")) {
        char buffer[4096];
        while (std::size_t n = std::fread(buffer, 1, sizeof buffer, pipe)) out.append(buffer, n);
        ::pclose(pipe);
    }
    return json::parse(out);
}

TEST(FormsBatch, AnswersCarryControlStatesCallsAndWindows) {
    struct Case {
        const char* request;
        const char* pointer;  // into the answer
        json expected;
    };
    const std::vector<Case> cases = {
        {R"({"id":1,"method":"VerificaNumero","args":[{"object":"textbox","text":"12.3"},53]})", "/byref/0/value/text",
         "12.35"},
        {R"({"id":2,"method":"VerificaNumero","args":[{"object":"textbox","text":"12.3"},53]})", "/byref/0/value/calls",
         json{"Text", "Text", "Text=", "Text", "SelStart="}},
        {R"({"id":3,"method":"fn_Backspace","args":[{"object":"combobox","text":"abc"}]})", "/byref/0/value/calls",
         json{"Text", "Text=", "SelStart="}},
        {R"({"id":4,"method":"fn_ScrollHListBox","args":[{"object":"list","items":["abc","abcdef"],"fontSize":8}]})",
         "/windows/0/horizontalExtent", 36},
        {R"({"id":5,"method":"fn_LimpiaTextObjetos","args":[{"object":"form","controls":[{"object":"textbox","name":"t","text":"x"},{"object":"grid","name":"g"}]}]})",
         "/byref/0/value/controls/0/text", ""},
        {R"({"id":6,"method":"fn_LimpiaTextObjetos","args":[{"object":"form","controls":[{"object":"grid","name":"g"}]}]})",
         "/byref/0/value/controls/0/calls", json{"TextMatrix"}},
        {R"({"id":7,"method":"HabilitaControles","args":[{"object":"frame","name":"fra","controls":[{"object":"textbox","name":"t"}]},true]})",
         "/byref/0/value/enabled", true},
        {R"({"id":8,"method":"esChanged","args":[{"object":"checkbox","tag":"x"},32,false]})", "/result/value", -1},
    };
    for (const auto& c : cases) {
        const json answer = batchAnswer(c.request);
        SCOPED_TRACE(c.request);
        ASSERT_FALSE(answer.contains("error")) << answer.dump();
        EXPECT_EQ(answer.at(json::json_pointer(c.pointer)), c.expected) << answer.dump();
    }
}

}  // namespace

// Grid methods through `telvaro batch`: each answer gives the grid's state
// after the call with the ordered member calls the method made on it, or
// the grid's error.
#include "cli/program_run.h"

namespace telvaro::cli {
namespace {

using json = nlohmann::ordered_json;

json grid(json cells) {
    return {{"object", "grid"}, {"rows", cells.size()}, {"cols", cells.at(0).size()}, {"cells", std::move(cells)}};
}
json typed(const char* type, json value) { return {{"type", type}, {"value", std::move(value)}}; }

TEST(GridBatch, AnswersCarryTheGridsStateAndCallsOrItsError) {
    struct Case {
        const char* method;
        json args;
        std::vector<std::pair<const char*, json>> expected;  // at pointers into the answer
    };
    const json plain = grid(json::array({{"h", "k"}, {"1", "a"}}));
    const std::string state = "/byref/0/value/";
    const std::vector<Case> cases = {
        {"fn_QuitaFilaGrid2",
         {plain, typed("Integer", 1)},
         {{"cells", json::array({{"h", "k"}})}, {"calls", {"Rows", "FixedRows", "Rows="}}}},
        // The check-box column shows the hidden form's pictures.
        {"fn_PoneCheckColumnaGrid",
         {grid(json::array({{"h", "v"}, {"1", "1"}, {"2", "10"}})), typed("Integer", 1)},
         {{"formats/0/picture", "imSI"}, {"formats/1/picture", "imNOd"}, {"formats/2", nullptr}}},
    };
    std::string requests;
    for (const auto& c : cases) requests += json{{"id", 1}, {"method", c.method}, {"args", c.args}}.dump() + "\n";
    requests +=
        json{{"id", 2}, {"method", "fn_BuscaColGrid"}, {"args", {plain, typed("Integer", 7), typed("String", "x")}}}
            .dump();
    const Outcome run = runProgram("batch", requests + "\n");
    const auto answers = jsonLines(run.out);
    ASSERT_EQ(answers.size(), cases.size() + 1) << run.out << run.err;
    for (std::size_t i = 0; i < cases.size(); ++i) {
        SCOPED_TRACE(cases[i].method);
        ASSERT_FALSE(answers[i].contains("error")) << answers[i].dump();
        for (const auto& [pointer, expected] : cases[i].expected)
            EXPECT_EQ(answers[i].value(json::json_pointer(state + pointer), json()), expected) << pointer;
    }
    EXPECT_EQ(answers.back().at("error").at("number"), 381);
}

}  // namespace
}  // namespace telvaro::cli

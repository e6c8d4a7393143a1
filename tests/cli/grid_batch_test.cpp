// Grid methods through `telvaro batch`: each answer gives the grid's state
// after the call with the ordered member calls the method made on it.
#include <gtest/gtest.h>

#include <cstdio>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

namespace telvaro {
namespace {

using json = nlohmann::ordered_json;

// Runs one request through the program and gives its answer.
json answerTo(const json& request) {
    const std::string file = ::testing::TempDir() + "grid_batch_request.jsonl";
    {
        std::FILE* out = std::fopen(file.c_str(), "w");
        EXPECT_NE(out, nullptr);
        const std::string line = request.dump() + "\n";
        std::fwrite(line.data(), 1, line.size(), out);
        std::fclose(out);
    }
    std::FILE* pipe = ::popen((std::string(TELVARO_BINARY) + " batch < " + file).c_str(), "r");
    std::string text;
    char buffer[4096];
    while (std::size_t n = std::fread(buffer, 1, sizeof buffer, pipe)) text.append(buffer, n);
    EXPECT_EQ(::pclose(pipe), 0);
    return json::parse(text);
}

json grid(json cells) {
    return {{"object", "grid"}, {"rows", cells.size()}, {"cols", cells.at(0).size()}, {"cells", std::move(cells)}};
}

TEST(GridBatch, AnswersCarryTheGridsStateAndCalls) {
    struct Case {
        const char* method;
        json args;  // after the grid
        json cells;
        std::vector<std::string> calls;
    };
    const std::vector<Case> cases = {
        {"fn_QuitaFilaGrid2",
         json::array({{{"type", "Integer"}, {"value", 1}}}),
         json::array({json::array({"h", "k"})}),
         {"Rows", "FixedRows", "Rows="}},
        {"fn_ReemplazaValorColumnaGrid",
         json::array({{{"type", "Integer"}, {"value", 1}},
                      {{"type", "String"}, {"value", "A"}},
                      {{"type", "String"}, {"value", "b"}}}),
         json::array({json::array({"h", "k"}), json::array({"1", "b"})}),
         {"Rows", "TextMatrix", "TextMatrix="}},
        {"EscribeGrid",
         json::array({{{"type", "Integer"}, {"value", 8}}}),
         json::array({json::array({"h", "k"}), json::array({"1", ""})}),
         {"Text", "Text="}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.method);
        json args = json::array({grid(json::array({json::array({"h", "k"}), json::array({"1", "a"})}))});
        for (const auto& a : c.args) args.push_back(a);
        const json answer = answerTo({{"id", 1}, {"method", c.method}, {"args", args}});
        ASSERT_FALSE(answer.contains("error")) << answer.dump();
        const json& state = answer.at("byref").at(0).at("value");
        EXPECT_EQ(state.at("cells"), c.cells);
        EXPECT_EQ(state.at("calls").get<std::vector<std::string>>(), c.calls);
    }
}

TEST(GridBatch, ACheckBoxColumnShowsTheHiddenFormsPictures) {
    json args =
        json::array({grid(json::array({json::array({"h", "v"}), json::array({"1", "1"}), json::array({"2", "10"})})),
                     {{"type", "Integer"}, {"value", 1}}});
    const json answer = answerTo({{"id", 2}, {"method", "fn_PoneCheckColumnaGrid"}, {"args", args}});
    ASSERT_FALSE(answer.contains("error")) << answer.dump();
    std::vector<std::string> pictures;
    for (const auto& f : answer.at("byref").at(0).at("value").at("formats")) pictures.push_back(f.value("picture", ""));
    EXPECT_EQ(pictures, (std::vector<std::string>{"imSI", "imNOd"}));
}

TEST(GridBatch, AGridErrorIsTheAnswersError) {
    json args = json::array({grid(json::array({json::array({"h", "v"}), json::array({"1", "1"})})),
                             {{"type", "Integer"}, {"value", 7}},
                             {{"type", "String"}, {"value", "x"}}});
    const json answer = answerTo({{"id", 3}, {"method", "fn_BuscaColGrid"}, {"args", args}});
    EXPECT_EQ(answer.at("error").at("number"), 381);
}

}  // namespace
}  // namespace telvaro

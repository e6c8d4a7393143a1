// ImprimeForm through `telvaro batch`: the answer says where the document went.
#include <nlohmann/json.hpp>

#include <filesystem>
#include <fstream>

#include "printing/printing_fixture.h"

namespace telvaro {
namespace {

using nlohmann::json;

class PrintBatch : public PrintingTest {};

TEST_F(PrintBatch, TheAnswerNamesTheKeptFile) {
    const std::string input = ::testing::TempDir() + "print_batch.jsonl";
    std::ofstream(input) << R"({"id":1,"method":"ImprimeForm","args":[{"object":"form","name":"frmNota","controls":[)"
                         << R"({"object":"textbox","name":"txtNota","text":"Entregado"}]},""]})"
                         << "\n"
                         << R"({"id":2,"method":"LimitaTamTexto","args":["abc",100,"no es una fuente"]})"
                         << "\n";
    const std::string out = commandOutput(std::string(TELVARO_BINARY) + " batch < " + input);
    std::vector<json> answers;
    std::istringstream lines(out);
    for (std::string line; std::getline(lines, line);) answers.push_back(json::parse(line));
    ASSERT_EQ(answers.size(), 2u) << out;
    ASSERT_TRUE(answers[0].contains("printed")) << out;
    const json& printed = answers[0]["printed"];
    ASSERT_EQ(printed.size(), 1u);
    const std::string file = printed[0]["file"];
    EXPECT_EQ(printed[0]["pages"], 1);
    EXPECT_TRUE(std::filesystem::exists(file)) << file;
    EXPECT_NE(commandOutput("pdftotext '" + file + "' -").find("Entregado"), std::string::npos);
    EXPECT_FALSE(answers[1].contains("printed")) << "nothing printed, no field";
}

}  // namespace
}  // namespace telvaro

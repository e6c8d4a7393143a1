// ImprimeForm through `telvaro batch`: the answer says where the document went.
#include <nlohmann/json.hpp>

#include "cli/program_run.h"
#include "printing/printing_fixture.h"

namespace telvaro {
namespace {

TEST_F(PrintingTest, ABatchAnswerNamesTheKeptFile) {
    const std::string request = R"({"id":1,"method":"ImprimeForm","args":[{"object":"form","name":"frmNota",)"
                                R"("controls":[{"object":"textbox","name":"txtNota","text":"Entregado"}]},""]})";
    const cli::Outcome run = cli::runProgram("batch", request + "\n");
    const auto answer = nlohmann::json::parse(run.out);
    ASSERT_TRUE(answer.contains("printed")) << run.out;
    const auto& printed = answer["printed"];
    ASSERT_EQ(printed.size(), 1u);
    const std::string file = printed[0]["file"];
    EXPECT_EQ(printed[0]["pages"], 1);
    EXPECT_NE(commandOutput("pdftotext '" + file + "' -").find("Entregado"), std::string::npos) << file;
}

}  // namespace
}  // namespace telvaro

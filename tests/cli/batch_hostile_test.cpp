// The batch command against what a pipe can bring: deep nesting, ids of
// every kind, lines that are not requests, a huge line, and answers that
// cannot be written or requests that cannot be read.
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>
#include <sstream>

#include "cli/batch.h"
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
        {std::string(50000, '['), -1, nullptr},
        {std::string(50000, '{'), -1, nullptr},
        {"{\"id\":" + std::string(1001, '[') + std::string(1001, ']') + ",\"method\":\"x\"}", -1, nullptr},
        {"{\"id\":1,\"method\":\"strCuentaCaracteres\",\"args\":[" + std::string(2000, '[') + "]}", -1, nullptr},
        {R"({"id":"[[[[","method":"strCuentaCaracteres","args":["[[[[","["]})", 0, "[[[["},
        {"not json", -1, nullptr},
        {"{\"id\":1,", -1, nullptr},
        {"5", -1, nullptr},
        {"\"texto\"", -1, nullptr},
        {"null", -1, nullptr},
        {"[]", -1, nullptr},
        {R"({"id":{"a":[1,{"b":null}]},"method":"NoExiste"})", 438, json::parse(R"({"a":[1,{"b":null}]})")},
        {R"({"id":[1,2],"method":"NoExiste"})", 438, json::parse("[1,2]")},
        {R"({"id":true,"method":"NoExiste"})", 438, true},
        {R"({"id":null,"method":"NoExiste"})", 438, nullptr},
        {R"({"id":-1.5e300,"method":"NoExiste"})", 438, -1.5e300},
        {R"({"id":7})", -1, 7},
        {R"({"id":7,"method":5})", -1, 7},
        {R"({"id":7,"method":"strCuentaCaracteres","args":{"a":1}})", -1, 7},
        {R"({"id":7,"method":"strCuentaCaracteres","args":["a","a"],"answers":[1e40]})", -1, 7},
        {R"({"id":8,"method":"strCuentaCaracteres","args":[{"date":5},"a"]})", 5, 8},
        {R"({"id":8,"method":"strCuentaCaracteres","args":[{"type":5},"a"]})", 5, 8},
        {R"({"id":9,"method":"strCuentaCaracteres","args":[{"object":"gauge"},"a"]})", 445, 9},
    };
    for (const auto& c : cases) {
        const std::string label = c.line.substr(0, 80);
        json a;
        ASSERT_NO_THROW(a = json::parse(answerRequest(c.line))) << label;
        EXPECT_EQ(a["id"], c.id) << label;
        ASSERT_TRUE(a["byref"].is_array()) << label << " -> " << a.dump();
        ASSERT_TRUE(a["messages"].is_array()) << label;
        if (c.number == 0) {
            EXPECT_TRUE(a.contains("result")) << label << " -> " << a.dump();
            continue;
        }
        ASSERT_TRUE(a.contains("error")) << label << " -> " << a.dump();
        EXPECT_EQ(a["error"]["number"], c.number) << label;
        const std::string description = a["error"]["description"].get<std::string>();
        EXPECT_FALSE(description.empty()) << label;
        EXPECT_EQ(description.find("json"), std::string::npos) << label << ": " << description;
        EXPECT_EQ(description.find("parse_error"), std::string::npos) << label << ": " << description;
    }
}

// A script run by bash, with the program's path in $T.
struct ShellRun {
    int status = -1;
    std::string out, err;
};
std::string slurp(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    std::ostringstream s;
    s << in.rdbuf();
    return s.str();
}
ShellRun shell(const std::string& script) {
    const std::string dir = testing::TempDir();
    const std::string scriptFile = dir + "telvaro_script.sh", out = dir + "telvaro_out.txt",
                      err = dir + "telvaro_err.txt";
    std::ofstream(scriptFile) << "T=" << TELVARO_BINARY << "\n" << script << "\n";
    ShellRun run;
    const int rc = std::system(("bash " + scriptFile + " > " + out + " 2> " + err).c_str());
    run.status = WIFEXITED(rc) ? WEXITSTATUS(rc) : 128 + WTERMSIG(rc);
    run.out = slurp(out);
    run.err = slurp(err);
    return run;
}
std::string requestsFile(const std::string& name, const std::string& content) {
    const std::string path = testing::TempDir() + name;
    std::ofstream(path, std::ios::binary) << content;
    return path;
}

TEST(BatchProgram, GoesOnAfterEveryHostileLine) {
    std::string input = std::string(50000, '[') + "\n" + std::string(100000, '{') + "\n\"x\"\n" + kGood + "\n";
    ShellRun run = shell("$T batch < " + requestsFile("hostile.jsonl", input));
    EXPECT_EQ(run.status, 0) << run.err;
    std::istringstream lines(run.out);
    std::vector<json> answers;
    for (std::string line; std::getline(lines, line);) answers.push_back(json::parse(line));
    ASSERT_EQ(answers.size(), 4u) << run.out.substr(0, 500);
    for (int i = 0; i < 3; ++i) EXPECT_EQ(answers[i]["error"]["number"], -1);
    EXPECT_EQ(answers[3]["result"]["value"], 3);
}

TEST(BatchProgram, AHundredMegabyteLineIsAnsweredAndTheBatchGoesOn) {
    std::string huge = R"({"id":1,"method":"strCuentaCaracteres","args":[")";
    huge.append(std::size_t(100) << 20, 'a');
    huge += R"(","a"]})";
    ShellRun run = shell("$T batch < " + requestsFile("huge.jsonl", huge + "\n" + kGood + "\n"));
    EXPECT_EQ(run.status, 0) << run.err;
    std::istringstream lines(run.out);
    std::vector<json> answers;
    for (std::string line; std::getline(lines, line);) answers.push_back(json::parse(line));
    ASSERT_EQ(answers.size(), 2u);
    EXPECT_EQ(answers[0]["error"]["number"], -1);
    EXPECT_EQ(answers[1]["result"]["value"], 3);
    std::remove((testing::TempDir() + "huge.jsonl").c_str());
}

TEST(BatchProgram, OutputThatCannotBeWrittenStopsItLoudly) {
    std::string many;
    for (int i = 0; i < 20000; ++i) many += kGood + "\n";
    const std::string requests = requestsFile("many.jsonl", many);
    struct Case {
        const char* what;
        std::string script;
    } cases[] = {
        {"a full disk", "$T batch < " + requests + " > /dev/full"},
        {"a closed stdout", "$T batch < " + requests + " >&-"},
        {"a reader that has gone, SIGPIPE ignored",
         "trap '' PIPE; $T batch < " + requests + " | true; exit ${PIPESTATUS[0]}"},
        {"a folder for stdin", "$T batch < /"},
        {"one call to a full disk", "$T call strCuentaCaracteres aaaa aa > /dev/full"},
        {"one call to a closed stdout", "$T call strCuentaCaracteres aaaa aa >&-"},
    };
    for (const auto& c : cases) {
        ShellRun run = shell(c.script);
        EXPECT_NE(run.status, 0) << c.what;
        EXPECT_NE(run.err.find("cannot be"), std::string::npos) << c.what << ": " << run.err;
        EXPECT_LT(run.err.size(), 1000u) << c.what << ": one message, not one per request";
    }
}

// The inputs that once took seconds and gigabytes, through `call` under a
// 1 GB address-space limit: each answers the runtime's error (or its
// value) instead of being killed.
TEST(BatchProgram, OneArgumentCannotTakeTheMachine) {
#if defined(__SANITIZE_ADDRESS__)
    GTEST_SKIP() << "AddressSanitizer cannot run under an address-space limit; tests/sweep budgets it instead";
#else
    {
        // A record whose array bounds promise 65,535 by 65,535 elements.
        std::string record("\x0C\x20\x02\x00\xFF\xFF\x00\x00\x00\x00\x00\x00\xFF\xFF\x00\x00\x00\x00\x00\x00", 20);
        record.resize(128, '\0');
        std::filesystem::create_directories("drives/c");
        std::ofstream("drives/c/cotas.dat", std::ios::binary) << record;
    }
    struct Case {
        std::string args;
        std::string expected;
    };
    const Case cases[] = {
        {"Numero2Letra 1 2147483647", "Error 14: "},
        {"Numero2Letra 1 1000000000", "Error 14: "},
        {"numCalculaFormula '\"1e+1000000000\"'", "1\n"},  // the formula's text
        {"numCalculaFormula 1e+1000000000", "Error 6: "},  // a number literal out of range
        {"numCalculaFormula '" + std::string(40000, '\\') + "'", "Error 28: "},
        {"fsoLeeArchivo 'C:\\cotas.dat' 1", "Error 458: "},
    };
    for (const auto& c : cases) {
        ShellRun run = shell("ulimit -v 1048576; $T call " + c.args);
        EXPECT_EQ((run.out + run.err).substr(0, c.expected.size()), c.expected)
            << c.args.substr(0, 60) << ": " << run.err;
    }
    // Within the caps, an allocation the memory limit refuses is the
    // runtime's error 7, never a terminated process.
    // Two limits: one refuses the method's own text, the other only the
    // copy made to print it.
    for (const char* limit : {"100000", "150000"}) {
        ShellRun starved = shell(std::string("ulimit -v ") + limit + "; $T call Numero2Letra 1 15000000");
        EXPECT_EQ(starved.err.substr(0, 9), "Error 7: ") << limit << ": " << starved.err;
    }
#endif
}

}  // namespace
}  // namespace telvaro::cli

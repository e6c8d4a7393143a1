// The command line as a person and another program first use it: one
// locale rule for `call` and `batch`, the method reference made from the
// catalogue, and the program's answers to mistakes.
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <nlohmann/json.hpp>
#include <sstream>

#include "cli/call_arguments.h"
#include "cli/commands.h"
#include "cli/program_run.h"
#include "frame/bind.h"
#include "frame/invoke.h"
#include "frame/method_notes.h"
#include "support/support.h"
#include "support/test_platform.h"

namespace telvaro::cli {
namespace {

using json = nlohmann::json;

const char* const kLocales[] = {"LC_ALL=C.UTF-8", "LC_ALL=es_EC.UTF-8"};

// The same request through `call` and through `batch` gives the same value
// under either locale: number literals are numbers whatever the decimal
// mark, and the call prints its result with the locale's decimal mark.
TEST(LocaleRule, CallAndBatchAgreeUnderEitherDecimalMark) {
    for (const char* locale : kLocales) {
        SCOPED_TRACE(locale);
        std::string printed = runProgram("call StockResta 5.06 2.08 12", "", locale).out;
        const Outcome batch =
            runProgram("batch", R"({"method":"StockResta","args":[5.06,2.08,12]})" + std::string("\n"), locale);
        const json answer = json::parse(batch.out);
        ASSERT_TRUE(answer.contains("result")) << batch.out;
        std::replace(printed.begin(), printed.end(), ',', '.');
        EXPECT_DOUBLE_EQ(std::stod(printed), answer["result"]["value"].get<double>());
        EXPECT_EQ(runProgram("call Numero2Letra 1234.56", "", locale).out,
                  "mil doscientas treinta y cuatro con cincuenta y seis\n");
        EXPECT_EQ(runProgram("call strCuentaCaracteres 1.5.1.5 .", "", locale).out, "3\n");
    }
    // Text is the method's to read: under a decimal comma it is another amount.
    EXPECT_NE(runProgram("call Numero2Letra '\"1234.56\"'", "", kLocales[0]).out,
              runProgram("call Numero2Letra '\"1234.56\"'", "", kLocales[1]).out);
}

TEST(Program, MistakesGetOneLineWithTheClosestNames) {
    struct Case {
        const char* args;
        int status;
        const char* said;  // in the one line on stderr
    };
    const Case cases[] = {
        {"metods", 2, "did you mean: methods?"},
        {"StockResta 1 2 3", 2, "did you mean: call StockResta?"},
        {"call StokResta 1", 2, "did you mean: StockResta?"},
        {"call", 2, "name a method"},
        {"call Numero2Letra 1 --Moneda=x", 1, "Error 448"},
        {"call strCuentaCaracteres aaaa aa 0", 1, "Error 5: Invalid procedure call or argument\n"},
    };
    for (const auto& c : cases) {
        const Outcome r = runProgram(c.args);
        EXPECT_EQ(r.status, c.status) << c.args;
        EXPECT_NE(r.err.find(c.said), std::string::npos) << c.args << ": " << r.err;
        EXPECT_EQ(std::count(r.err.begin(), r.err.end(), '\n'), 1) << c.args << ": " << r.err;
        EXPECT_EQ(r.out, "") << c.args;
    }
}

TEST(Program, VersionHelpAndNamedArguments) {
    const Outcome version = runProgram("--version");
    EXPECT_TRUE(version.status == 0 && version.out.rfind("telvaro ", 0) == 0 &&
                version.out.find('.') != std::string::npos)
        << version.out;

    const Outcome help = runProgram("help strcuentacaracteres");
    EXPECT_EQ(help.status, 0);
    EXPECT_NE(help.out.find("[PosInicio As Integer = 1]"), std::string::npos) << help.out;
    EXPECT_NE(help.out.find("telvaro call strCuentaCaracteres aaaa aa\n  -> 3"), std::string::npos) << help.out;

    EXPECT_EQ(runProgram("call Numero2Letra 1234.56 --SexoMoneda=Masculino").out,
              "mil doscientos treinta y cuatro con cincuenta y seis\n");
    EXPECT_EQ(runProgram("call fn_LlenaVector 1,2 Numero_").out, "1\n2\n");
}

TEST(Program, AMessageBoxWithoutATerminalIsToldOnStderr) {
    const Outcome r = runProgram("call MsgDatosGuardados", "");
    EXPECT_EQ(r.status, 0);
    EXPECT_NE(r.err.find("LISTO"), std::string::npos) << r.err;
    EXPECT_NE(r.err.find("Los datos del registro fueron guardados con éxito!"), std::string::npos) << r.err;
    EXPECT_NE(r.err.find("answered Aceptar"), std::string::npos) << r.err;
}

TEST(MethodReference, EveryMethodHasOneNote) {
    for (const auto& m : catalogue()) EXPECT_TRUE(methodNote(m.name) && !methodNote(m.name)->text.empty()) << m.name;
    EXPECT_EQ(methodNotes().size(), catalogue().size());
}

// Every example of a built method runs as `telvaro call` would run it and
// answers what the reference says.
TEST(MethodReference, TheExamplesRunAndAnswerWhatTheySay) {
    std::size_t examples = 0;
    for (const auto& note : methodNotes()) {
        const MethodInfo* m = findMethod(note.name);
        ASSERT_TRUE(m);
        if (!findBinding(m->name)) continue;
        for (const auto& e : note.examples) {
            fakes::TestPlatform platform;
            Fun fun(platform);
            std::vector<Variant> args =
                callArguments(*m, std::vector<std::string>(e.args.begin(), e.args.end()), false);
            Variant result;
            ASSERT_NO_THROW(result = invoke(fun, *m, args)) << note.name;
            ++examples;
            if (!e.result) continue;
            std::string printed;
            for (const auto& item : result.isArray() ? result.array().elements() : std::vector<Variant>{result})
                printed += toUtf8(toString(item)) + "\n";
            EXPECT_EQ(printed, e.result + std::string("\n")) << note.name;
        }
    }
    EXPECT_GE(examples, 40u);
}

TEST(MethodReference, TheDocumentIsTheCataloguesOwn) {
    std::ostringstream made;
    writeMethodReference(made);
    std::ifstream file(std::string(TELVARO_SOURCE_DIR) + "/docs/methods.md");
    ASSERT_TRUE(file) << "docs/methods.md is missing: telvaro methods --markdown > docs/methods.md";
    const std::string kept((std::istreambuf_iterator<char>(file)), {});
    EXPECT_EQ(kept, made.str()) << "docs/methods.md is stale: telvaro methods --markdown > docs/methods.md";
}

TEST(MethodReference, TheJsonListsEveryMethodWithItsDeclaration) {
    std::ostringstream out;
    listMethodsJson(out);
    const json methods = json::parse(out.str());
    ASSERT_EQ(methods.size(), catalogue().size());
    const json& strCuenta = methods[0];
    EXPECT_EQ(strCuenta["name"], "strCuentaCaracteres");
    EXPECT_EQ(strCuenta["dispid"], catalogue()[0].dispid);
    EXPECT_EQ(strCuenta["built"], true);
    EXPECT_EQ(strCuenta["params"][2], json::parse(R"({"name": "PosInicio", "type": "Integer", "byRef": true,
        "optional": true, "default": 1})"));
    EXPECT_EQ(strCuenta["examples"][0]["result"], "3");
}

}  // namespace
}  // namespace telvaro::cli

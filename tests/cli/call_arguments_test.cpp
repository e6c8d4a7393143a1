// How `telvaro call` reads its arguments: script literals whatever the
// regional settings, enumeration names, forced text, named and omitted
// arguments.
#include <gtest/gtest.h>

#include "cli/call_arguments.h"
#include "runtime/regional.h"
#include "support/support.h"

namespace telvaro::cli {
namespace {

RegionalSettings decimalComma() {
    RegionalSettings s = RegionalSettings::standard();
    s.decimalSeparator = u",";
    s.thousandSeparator = u".";
    return s;
}

TEST(CallArguments, LiteralsReadAsAScriptReadsThemUnderEitherDecimalMark) {
    const ParamInfo tipo{"TipDat", ArgType::Long, "TipoDato", true, false, {}};
    struct Case {
        const char* token;
        const ParamInfo* param;
        VarType type;
        double number;     // for numbers
        const char* text;  // for texts
    };
    // clang-format off
    const Case cases[] = {
        {"1234.56", nullptr, VarType::Double, 1234.56, ""}, {"-5", nullptr, VarType::Integer, -5, ""},
        {"40000", nullptr, VarType::Long, 40000, ""}, {"3000000000", nullptr, VarType::Double, 3e9, ""},
        {"1e3", nullptr, VarType::Double, 1000, ""}, {"&HFFFF", nullptr, VarType::Integer, -1, ""},
        {"&H10000", nullptr, VarType::Long, 65536, ""}, {"&O17", nullptr, VarType::Integer, 15, ""},
        {"1,5", nullptr, VarType::String, 0, "1,5"}, {"&HZZ", nullptr, VarType::String, 0, "&HZZ"},
        {"\"1234.56\"", nullptr, VarType::String, 0, "1234.56"},
        {"\"di \"\"hola\"\"\"", nullptr, VarType::String, 0, "di \"hola\""},
        {"\"a\"b\"", nullptr, VarType::String, 0, "\"a\"b\""}, {"Numero_", &tipo, VarType::Long, 1, ""},
        {"Numero_", nullptr, VarType::String, 0, "Numero_"}, {"Masculino", &tipo, VarType::String, 0, "Masculino"}
    };
    // clang-format on
    for (const RegionalSettings& settings : {RegionalSettings::standard(), decimalComma()}) {
        RegionalScope scope(settings);
        for (const auto& c : cases) {
            const Variant v = literalValue(c.token, c.param);
            EXPECT_EQ(v.type(), c.type) << c.token;
            if (v.isString())
                EXPECT_EQ(toUtf8(v.get<String>()), c.text) << c.token;
            else
                EXPECT_EQ(toDouble(v), c.number) << c.token;
        }
    }
    EXPECT_EQ(literalValue("1234.56", nullptr, true).type(), VarType::String) << "forced text";
    EXPECT_EQ(errorNumberOf([] { literalValue("1e999", nullptr); }), 6);
}

TEST(CallArguments, NamedArgumentsOmitTheOnesBetween) {
    const MethodInfo* m = findMethod(std::string_view("Numero2Letra"));
    ASSERT_TRUE(m);
    struct Case {
        std::vector<std::string> tokens;
        std::vector<const char*> expected;  // display text per place, "-" for omitted
    };
    const Case cases[] = {
        {{"12", "--sMoneda=dolares"}, {"12", "-", "-", "dolares"}},
        {{"12", "--SMONEDA=dolares", "centavos"}, {"12", "-", "-", "dolares", "centavos"}},
        {{"--NumDecimales=3", "--strNum=7"}, {"7", "-", "3"}},
        {{"12", "--SexoMoneda=Masculino"}, {"12", "-", "-", "-", "-", "1"}},
        {{"--text", "12", "1"}, {"12", "1"}},
    };
    for (const auto& c : cases) {
        const std::vector<Variant> args = callArguments(*m, c.tokens, false);
        ASSERT_EQ(args.size(), c.expected.size()) << c.tokens.back();
        for (std::size_t i = 0; i < args.size(); ++i)
            EXPECT_EQ(args[i].isMissing() ? "-" : toUtf8(toString(args[i])), c.expected[i])
                << c.tokens.back() << " " << i;
    }
    EXPECT_EQ(callArguments(*m, {"12", "1"}, false)[1].type(), VarType::Integer);
    EXPECT_EQ(callArguments(*m, {"12", "--text", "1"}, false)[1].type(), VarType::String);
    EXPECT_EQ(callArguments(*m, {"12"}, true)[0].type(), VarType::String);
}

TEST(CallArguments, ArgumentsThatFitNoParameterAreRunTimeErrors) {
    const MethodInfo* m = findMethod(std::string_view("strCuentaCaracteres"));
    ASSERT_TRUE(m);
    struct Case {
        std::vector<std::string> tokens;
        int number;
    };
    // clang-format off
    const Case cases[] = {
        {{"a", "b", "1", "2"}, 450}, {{"--Nada=1"}, 448}, {{"--=1"}, 448}, {{"a", "--Cadena=b"}, 5},
        {{"--PosInicio=2", "x"}, 450}
    };
    // clang-format on
    for (const auto& c : cases)
        EXPECT_EQ(errorNumberOf([&] { callArguments(*m, c.tokens, false); }), c.number) << c.tokens.front();
}

}  // namespace
}  // namespace telvaro::cli

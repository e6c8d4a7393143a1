// The command line as outside callers drive it: the typed-value codec of the
// batch protocol, scripted message boxes, and the program run end to end.
#include <gtest/gtest.h>

#include "cli/batch.h"
#include "cli/json_values.h"
#include "cli/program_run.h"
#include "platform/scripted_message_box.h"
#include "support/support.h"

namespace telvaro::cli {
namespace {

using json = nlohmann::ordered_json;

TEST(JsonValues, RequestValuesDecodeToTheirVariantTypes) {
    struct Case {
        const char* json;
        VarType type;
        const char* text;  // the value's text, "" to skip
    };
    // clang-format off
    const Case cases[] = {
        {R"("abc")", VarType::String, "abc"}, {R"(5)", VarType::Long, "5"},
        {R"(3000000000)", VarType::Double, "3000000000"}, {R"(true)", VarType::Boolean, "True"},
        {R"(null)", VarType::Null, ""}, {R"({"empty": true})", VarType::Empty, ""},
        {R"({"missing": true})", VarType::Error, ""},
        {R"({"date": "1998-12-31T10:30:00"})", VarType::Date, "31/12/1998 10:30:00"},
        {R"({"type": "Integer", "value": 5})", VarType::Integer, "5"},
        {R"({"type": "Currency", "value": "12.3456"})", VarType::Currency, "12.3456"},
        {R"({"type": "Decimal", "value": "0.10"})", VarType::Decimal, "0.1"}, {R"(["a", 1])", VarType::Array, ""}
    };
    // clang-format on
    for (const auto& c : cases) {
        Variant v = decodeValue(json::parse(c.json));
        EXPECT_EQ(v.type(), c.type) << c.json;
        if (*c.text) {
            EXPECT_EQ(toUtf8(toString(v)), c.text) << c.json;
        }
    }
}

TEST(JsonValues, AnswersCarryTypeAndValue) {
    Array m = Array::matrix(0, 1, 0, 0);
    m.at(1, 0) = Variant(u"x");
    const std::pair<Variant, const char*> cases[] = {
        {Variant(std::int16_t(2)), R"({"type":"Integer","value":2})"},
        {Variant(2.0), R"({"type":"Double","value":2.0})"},
        {Variant(True), R"({"type":"Boolean","value":-1})"},
        {Variant(Null{}), R"({"type":"Null"})"},
        {Variant(), R"({"type":"Empty"})"},
        {Variant(Currency{25000}), R"({"type":"Currency","value":"2.5000"})"},
        {Variant(Date{36160.4375}), R"({"type":"Date","value":"1998-12-31T10:30:00"})"},
        {Variant(Array::ofValues({Variant(u"a"), Variant(1.5)})),
         R"({"type":"Array","value":[{"type":"String","value":"a"},{"type":"Double","value":1.5}]})"},
        {Variant(m), R"({"type":"Array","value":[[{"type":"Empty"}],[{"type":"String","value":"x"}]]})"},
    };
    for (const auto& [value, expected] : cases) EXPECT_EQ(encodeValue(value).dump(), expected);
}

TEST(ScriptedMessageBox, AnswersInOrderThenTheDefaultButton) {
    ScriptedMessageBox boxes({7});
    EXPECT_EQ(boxes.show(u"¿Guardar?", 36, u"Confirme"), 7);
    EXPECT_EQ(boxes.show(u"¿Seguro?", 52 + 256, u"Confirme"), 7) << "the second button is the default";
    EXPECT_EQ(boxes.show(u"Listo", 64, u"LISTO"), 1);
    ASSERT_EQ(boxes.shown().size(), 3u);
    EXPECT_EQ(boxes.shown()[1].style, 52 + 256);
}

json answerOf(const std::string& request) { return json::parse(answerRequest(request)); }

TEST(Batch, AnswersCallsWithTypedResultsAndByRefValues) {
    json a = answerOf(R"({"id":1,"method":"strPosicion_XAvo_Caracter","args":["a,b",",",3]})");
    EXPECT_EQ(a.dump().substr(0, 46), R"({"id":1,"result":{"type":"Integer","value":2},)");
    EXPECT_EQ(a["byref"][2], json::parse(R"({"type":"Integer","value":3})")) << "coerced to the declared type";
    EXPECT_EQ(a["messages"], json::array());

    json rounded = answerOf(R"({"id":2,"method":"strCadenaEntrePosicion","args":["abcdef",2.5,4]})");
    EXPECT_EQ(rounded["result"]["value"], "bc") << "2.5 becomes the Integer 2";
    EXPECT_EQ(rounded["byref"][1], json::parse(R"({"type":"Integer","value":2})"));
}

TEST(Program, MethodsListsTheCatalogue) {
    const std::string all = runProgram("methods").out;
    EXPECT_EQ(std::count(all.begin(), all.end(), '\n'), 119);
    EXPECT_NE(all.find("116  0x60030087  fn_ValidaCedula2("), std::string::npos);
    const std::string missing = runProgram("methods --missing").out;
    EXPECT_EQ(missing.find("strCuentaCaracteres"), std::string::npos);
    EXPECT_EQ(missing.find("\nfn_FijaImpresora\n"), std::string::npos);
    EXPECT_EQ(missing.find(' '), std::string::npos) << "names only";
}

}  // namespace
}  // namespace telvaro::cli

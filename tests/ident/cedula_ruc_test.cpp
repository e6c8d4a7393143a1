// Cédula and RUC checks as applications call them, with the warning
// prompt answered by a script.
#include <gtest/gtest.h>

#include "context/fun.h"
#include "frame/invoke.h"
#include "host/default_platform.h"
#include "platform/scripted_message_box.h"
#include "support/support.h"

namespace telvaro {
namespace {

struct Outcome {
    Variant result;
    std::vector<ShownMessage> shown;
    int error = 0;
};

Outcome call(const char* method, std::vector<Variant> args, std::vector<int> answers = {}) {
    ScriptedPlatform platform(defaultPlatform(), std::move(answers));
    Fun fun(platform);
    Outcome out;
    try {
        out.result = invoke(fun, method, args);
    } catch (const RuntimeError& e) {
        out.error = e.number();
    }
    out.shown = platform.boxes().shown();
    return out;
}

Variant S(const char16_t* s) { return Variant(s); }

TEST(FormatChecks, LengthDashAndEstablishment) {
    struct Case {
        const char* method;
        const char16_t* number;
        bool valid;
    };
    // clang-format off
    const Case cases[] = {
        {"fn_ValidaCedula", u"1710034065", true}, {"fn_ValidaCedula", u"ABCDEFGHIJ", true},  // letters: not tested here
        {"fn_ValidaCedula", u"9999999999", false}, {"fn_ValidaCedula", u"171003406-", false},
        {"fn_ValidaCedula", u"171003406", false}, {"fn_ValidaCedula", u"17100340655", false},
        {"fn_ValidaCedula", u"", false}, {"fn_ValidaRUC", u"1710034065001", true}, {"fn_ValidaRUC", u"1710034065003", true},
        {"fn_ValidaRUC", u"1710034065004", false}, {"fn_ValidaRUC", u"171003406500", false},
        {"fn_ValidaRUC", u"17100-4065001", false},
    };
    // clang-format on
    for (const auto& c : cases) {
        Outcome o = call(c.method, {S(c.number)});
        EXPECT_TRUE(identical(o.result, Variant(Boolean(c.valid)))) << c.method << " " << toUtf8(c.number);
    }
}

TEST(Cedula, CheckDigitClassLettersAndWarning) {
    struct Case {
        const char16_t* number;
        bool advertir;
        std::vector<int> answers;
        std::int16_t code;  // fn_ValidaCedula3
        std::size_t prompts;
        int error = 0;
    };
    const Case cases[] = {
        {u"1710034065", true, {}, 1, 0},                     // weighted sum 25: check digit 5
        {u"1710034064", false, {}, 0, 0},                    // wrong check digit, no warning asked
        {u"1710034064", true, {6}, 2, 1},                    // the user accepts it
        {u"1710034064", true, {7}, 0, 1},                    // the user refuses it
        {u"1770034062", true, {7}, 0, 1},                    // class digit 7 fails with a right check digit
        {u"1760034064", false, {}, 1, 0},                    // class digit 6 is the last that passes
        {u"171003406", true, {6}, 0, 0},                     // format fails: never a prompt
        {u"0200000990", false, {}, 1, 0},                    // 2*1 + 9*1 + 9*2(=9) = 20: check digit 0
        {u"0500000997", false, {}, 1, 0},                    // 5*1 + 9*1 + 9*2(=9) = 23: check digit 7
        {u"17A0034065", true, {}, 0, 0, err::TypeMismatch},  // letters among the first nine digits
        {u"1 10034065", false, {}, 0, 0, err::TypeMismatch},
    };
    for (const auto& c : cases) {
        Outcome three = call("fn_ValidaCedula3", {S(c.number), Variant(Boolean(c.advertir))}, c.answers);
        Outcome two = call("fn_ValidaCedula2", {S(c.number), Variant(Boolean(c.advertir))}, c.answers);
        EXPECT_EQ(three.error, c.error) << toUtf8(c.number);
        EXPECT_EQ(two.error, c.error) << toUtf8(c.number);
        if (c.error) continue;
        EXPECT_TRUE(identical(three.result, Variant(c.code))) << toUtf8(c.number) << " " << describe(three.result);
        EXPECT_EQ(three.shown.size(), c.prompts) << toUtf8(c.number);
        EXPECT_TRUE(identical(two.result, Variant(Boolean(c.code != 0)))) << toUtf8(c.number);
    }
    Outcome warned = call("fn_ValidaCedula2", {S(u"1710034064"), Variant(True)}, {6});
    ASSERT_EQ(warned.shown.size(), 1u);
    EXPECT_EQ(warned.shown[0].style, 52);
    EXPECT_EQ(warned.shown[0].title, u"Confirme");
    EXPECT_EQ(warned.shown[0].prompt,
              u"El número de cédula parece que está incorrecto, desea ignorar esto y continuar de todas formas?");
}

TEST(Ruc, ClassesCheckDigitsAndEstablishments) {
    struct Case {
        const char16_t* number;
        bool valid;
        const char* method = "fn_ValidaRUC2";
        std::vector<int> answers = {};  // with answers, Advertir is True
        std::size_t prompts = 0;
    };
    const Case cases[] = {
        {u"1710034065001", true},                           // natural person: the cédula format and "001"
        {u"1710034064001", true},                           // natural person: the cédula check digit is not applied
        {u"1790011674003", true},                           // private company, establishment 003
        {u"1760001550001", true},                           // public entity: 3,2,7,6,5,4,3,2 modulo 11, check at 9
        {u"17AB011674001", true},                           // letters count as 0 in the RUC checks
        {u"1790011674001", true},                           // private company: 4,3,2,7,6,5,4,3,2 modulo 11
        {u"1790011675001", false},                          // private company, wrong check digit
        {u"1760001551001", false},                          // public entity: establishment is the last four, "1001"
        {u"1790000010001", false},                          // private company whose remainder is 1 never passes
        {u"1790011675001", true, "fn_ValidaRUC3", {6}, 1},  // an accepted number reads as valid
        {u"1790011675001", false, "fn_ValidaRUC3", {7}, 1},
        {u"1790011675004", false, "fn_ValidaRUC2", {6}, 0},  // format fails: never a prompt
    };
    for (const auto& c : cases) {
        Outcome o = call(c.method, {S(c.number), Variant(Boolean(!c.answers.empty()))}, c.answers);
        EXPECT_EQ(o.error, 0) << toUtf8(c.number);
        EXPECT_TRUE(identical(o.result, Variant(Boolean(c.valid)))) << c.method << " " << toUtf8(c.number);
        EXPECT_EQ(o.shown.size(), c.prompts) << c.method << " " << toUtf8(c.number);
    }
    Outcome accepted = call("fn_ValidaRUC3", {S(u"1790011675001"), Variant(True)}, {6});
    ASSERT_EQ(accepted.shown.size(), 1u);
    EXPECT_EQ(accepted.shown[0].prompt,
              u"El número de RUC parece que está incorrecto, desea ignorar esto y continuar de todas formas?");
}

}  // namespace
}  // namespace telvaro

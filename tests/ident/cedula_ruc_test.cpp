// Cédula and RUC checks as applications call them, the warning answered by a script.
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
    out.error = errorNumberOf([&] { out.result = invoke(fun, method, args); });
    out.shown = platform.boxes().shown();
    return out;
}

TEST(FormatChecks, LengthDashAndEstablishment) {
    // clang-format off
    const std::tuple<const char*, const char16_t*, bool> cases[] = {
        {"fn_ValidaCedula", u"1710034065", true}, {"fn_ValidaCedula", u"ABCDEFGHIJ", true},  // letters: not tested here
        {"fn_ValidaCedula", u"9999999999", false}, {"fn_ValidaCedula", u"171003406-", false},
        {"fn_ValidaCedula", u"171003406", false}, {"fn_ValidaCedula", u"17100340655", false},
        {"fn_ValidaCedula", u"", false}, {"fn_ValidaRUC", u"1710034065001", true},
        {"fn_ValidaRUC", u"1710034065003", true}, {"fn_ValidaRUC", u"1710034065004", false},
        {"fn_ValidaRUC", u"171003406500", false}, {"fn_ValidaRUC", u"17100-4065001", false},
    };
    // clang-format on
    for (auto [method, number, valid] : cases)
        EXPECT_TRUE(identical(call(method, {Variant(number)}).result, Variant(Boolean(valid)))) << toUtf8(number);
}

TEST(Cedula, CheckDigitClassLettersAndWarning) {
    struct Case {
        const char16_t* number;
        bool advertir;
        std::vector<int> answers;
        std::int16_t code;  // fn_ValidaCedula3: 0 invalid, 1 valid, 2 accepted; fn_ValidaCedula2: True for 1 and 2
        std::size_t prompts;
        int error = 0;
    };
    // A right check digit (weighted sum 25: 5), a wrong one without and with the warning, accepted and refused;
    // class digit 7 fails with a right check digit, 6 passes; a bad format never prompts; doubled digits over 9
    // (2*1 + 9*1 + 9*2(=9) = 20: 0; 23: 7); letters among the first nine digits.
    // clang-format off
    const Case cases[] = {
        {u"1710034065", true, {}, 1, 0}, {u"1710034064", false, {}, 0, 0}, {u"1710034064", true, {6}, 2, 1},
        {u"1710034064", true, {7}, 0, 1}, {u"1770034062", true, {7}, 0, 1}, {u"1760034064", false, {}, 1, 0},
        {u"171003406", true, {6}, 0, 0}, {u"0200000990", false, {}, 1, 0}, {u"0500000997", false, {}, 1, 0},
        {u"17A0034065", true, {}, 0, 0, err::TypeMismatch}, {u"1 10034065", false, {}, 0, 0, err::TypeMismatch},
    };
    // clang-format on
    for (const auto& c : cases) {
        Outcome three = call("fn_ValidaCedula3", {Variant(c.number), Variant(Boolean(c.advertir))}, c.answers);
        Outcome two = call("fn_ValidaCedula2", {Variant(c.number), Variant(Boolean(c.advertir))}, c.answers);
        EXPECT_EQ(std::pair(three.error, two.error), std::pair(c.error, c.error)) << toUtf8(c.number);
        if (c.error) continue;
        EXPECT_TRUE(identical(three.result, Variant(c.code))) << toUtf8(c.number) << " " << describe(three.result);
        EXPECT_EQ(three.shown.size(), c.prompts) << toUtf8(c.number);
        EXPECT_TRUE(identical(two.result, Variant(Boolean(c.code != 0)))) << toUtf8(c.number);
    }
    Outcome warned = call("fn_ValidaCedula2", {Variant(u"1710034064"), Variant(True)}, {6});
    EXPECT_EQ(warned.shown.at(0).style, 52);
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
    // Natural persons: cédula format, "001", no check digit; private companies: 4,3,2,7,6,5,4,3,2 modulo 11,
    // remainder 1 never passes; public entities: 3,2,7,6,5,4,3,2 modulo 11, check at 9, establishment the last
    // four; letters count as 0; an accepted number reads as valid; no prompt when the format fails.
    // clang-format off
    const Case cases[] = {
        {u"1710034065001", true}, {u"1710034064001", true}, {u"1790011674003", true}, {u"1760001550001", true},
        {u"17AB011674001", true}, {u"1790011674001", true}, {u"1790011675001", false}, {u"1760001551001", false},
        {u"1790000010001", false}, {u"1790011675001", true, "fn_ValidaRUC3", {6}, 1},
        {u"1790011675001", false, "fn_ValidaRUC3", {7}, 1}, {u"1790011675004", false, "fn_ValidaRUC2", {6}, 0},
    };
    // clang-format on
    for (const auto& c : cases) {
        Outcome o = call(c.method, {Variant(c.number), Variant(Boolean(!c.answers.empty()))}, c.answers);
        EXPECT_TRUE(identical(o.result, Variant(Boolean(c.valid)))) << c.method << " " << toUtf8(c.number);
        EXPECT_EQ(o.shown.size(), c.prompts) << c.method << " " << toUtf8(c.number);
    }
    EXPECT_EQ(call("fn_ValidaRUC3", {Variant(u"1790011675001"), Variant(True)}, {6}).shown.at(0).prompt,
              u"El número de RUC parece que está incorrecto, desea ignorar esto y continuar de todas formas?");
}

}  // namespace
}  // namespace telvaro

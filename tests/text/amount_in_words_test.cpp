// Amounts in words as invoices and cheques print them.
#include <gtest/gtest.h>

#include "context/fun.h"
#include "frame/invoke.h"
#include "host/default_platform.h"
#include "support/support.h"
#include "text/amount_in_words.h"

namespace telvaro {
namespace {

using enum eSexo;

TEST(NumberInWords, SpanishNumeralsWithGenderAndApocope) {
    struct Case {
        std::int64_t n;
        eSexo gender;
        bool beforeNoun;
        const char16_t* words;
    };
    // clang-format off
    const Case cases[] = {
        {0, Masculino, true, u"cero"}, {1, Masculino, false, u"uno"}, {1, Masculino, true, u"un"},
        {1, Femenino, true, u"una"}, {16, Masculino, true, u"dieciséis"}, {21, Masculino, true, u"veintiún"},
        {21, Masculino, false, u"veintiuno"}, {21, Femenino, true, u"veintiuna"}, {22, Masculino, true, u"veintidós"},
        {31, Masculino, true, u"treinta y un"}, {100, Masculino, true, u"cien"}, {101, Masculino, true, u"ciento un"},
        {200, Femenino, true, u"doscientas"}, {500, Masculino, true, u"quinientos"}, {1000, Masculino, true, u"mil"},
        {21000, Masculino, true, u"veintiún mil"}, {200000, Femenino, true, u"doscientas mil"},
        {1000000, Femenino, true, u"un millón"}, {2000000, Masculino, true, u"dos millones"},
        {200000000, Femenino, true, u"doscientos millones"}, {1000000000, Masculino, true, u"mil millones"},
        {1000000000000, Masculino, true, u"un billón"},
    };
    // clang-format on
    for (const auto& c : cases)
        EXPECT_EQ(toUtf8(text::numberInWords(c.n, c.gender, c.beforeNoun)), toUtf8(c.words)) << c.n;
}

Variant amount(std::vector<Variant> args) {
    Fun fun(defaultPlatform());
    return invoke(fun, "Numero2Letra", args);
}

TEST(Numero2Letra, InvoicesAndCheques) {
    const Variant M(std::int32_t(1)), none = Variant::missing();
    // In dollars and cents, both masculine, with the default decimals.
    auto dollars = [&](const char16_t* n) {
        return std::vector<Variant>{Variant(n), none, none, Variant(u"dólares"), Variant(u"centavos"), M, M};
    };
    struct Case {
        std::vector<Variant> args;
        const char16_t* text;  // nullptr: the error
        int error = 0;
    };
    const Variant none0 = Variant(std::int32_t(0));
    // clang-format off
    const std::vector<Case> cases = {
        {dollars(u"1234.56"), u"mil doscientos treinta y cuatro dólares con cincuenta y seis centavos"},
        {{Variant(u"21.01"), none, none, Variant(u"pesetas"), Variant(u"céntimos")},
         u"veintiuna pesetas con un céntimos"},
        {{Variant(u"12.345"), none, none0, Variant(u"dólares"), none, M}, u"doce dólares"},
        {{Variant(u"5"), Variant(std::int32_t(30)), none0, Variant(u"dólares"), none, M},
         u"cinco dólares*****************"},
        {{Variant(u"doce")}, nullptr, err::TypeMismatch}, {{Variant(u"1e16")}, nullptr, err::Overflow},
        {{Variant(u"1"), none, none, Variant(u"dólar"), Variant(u"centavos"), M, M}, u"un dólar con cero centavos"},
        {dollars(u"1000000"), u"un millón de dólares con cero centavos"}, {{Variant(u"12.5"), none, none0}, u"trece"},
        {dollars(u"0.999"), u"un dólares con cero centavos"},
        {dollars(u"-5.25"), u"menos cinco dólares con veinticinco centavos"},
        {{Variant(u"7.005"), none, Variant(std::int32_t(3))}, u"siete con cinco"},
        {{Variant(u"5"), Variant(std::int32_t(0)), Variant(std::int32_t(-1))}, nullptr, err::InvalidProcedureCall},
    };
    // clang-format on
    for (const auto& c : cases) {
        Variant got;
        EXPECT_EQ(errorNumberOf([&] { got = amount(c.args); }), c.error) << toUtf8(toString(c.args[0]));
        if (c.text) {
            EXPECT_TRUE(identical(got, Variant(String(c.text)))) << toUtf8(toString(c.args[0]));
        }
    }
}

// The sweep's own rows hold the paddings of a billion characters and more.
TEST(Numero2Letra, PaddingStopsAtTheLongestTextBuilt) {
    EXPECT_EQ(errorNumberOf([] { amount({Variant(u"1"), Variant((1 << 24) + 100)}); }), err::OutOfStringSpace);
    const String padded = amount({Variant(u"1"), Variant(1 << 20)}).get<String>();
    EXPECT_EQ(padded.size(), std::size_t(1) << 20);
    EXPECT_EQ(padded.back(), u'*');
}

}  // namespace
}  // namespace telvaro

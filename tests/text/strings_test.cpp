// The string and vector helpers, called as an application calls them:
// late-bound through Fun, with the declared types coming back.
#include <gtest/gtest.h>

#include "frame/fun.h"
#include "runtime/text.h"
#include "support/support.h"
#include "text/strings.h"

namespace telvaro {
namespace {

Variant I(std::int16_t v) { return Variant(v); }
Variant L(std::int32_t v) { return Variant(v); }
Variant S(const char16_t* v) { return Variant(v); }

using Call = MethodCase;

TEST(StrCuentaCaracteres, CountsOverlappingOccurrencesCaseInsensitively) {
    const Call cases[] = {
        {"strCuentaCaracteres", {S(u"aaaa"), S(u"aa")}, I(3)},
        {"strCuentaCaracteres", {S(u"aaa"), S(u"aa")}, I(2)},
        {"strCuentaCaracteres", {S(u"Abcabc"), S(u"B")}, I(2)},
        {"strCuentaCaracteres", {S(u"ÁRBOL árbol arbol"), S(u"á")}, I(2)},
        {"strCuentaCaracteres", {S(u"abc"), S(u"")}, I(3)},
        {"strCuentaCaracteres", {S(u"abc"), S(u""), I(2)}, I(2)},
        {"strCuentaCaracteres", {S(u"abc"), S(u""), I(5)}, I(0)},
        {"strCuentaCaracteres", {S(u"abcabc"), S(u"c"), I(4)}, I(1)},
        {"strCuentaCaracteres", {S(u""), S(u"a")}, I(0)},
        {"strCuentaCaracteres", {S(u"abc"), S(u"abcd")}, I(0)},
        {"strCuentaCaracteres", {S(u"abc"), S(u"a"), I(0)}, Variant(), err::InvalidProcedureCall},
        {"strCuentaCaracteres", {S(u"abc"), S(u"a"), I(-3)}, Variant(), err::InvalidProcedureCall},
        {"strCuentaCaracteres", {S(u"abc"), S(u"a"), S(u"uno")}, Variant(), err::TypeMismatch},
        {"strCuentaCaracteres", {S(u"abc"), S(u"a"), L(40000)}, I(0), err::Overflow},
    };
    checkCalls({std::begin(cases), std::end(cases)});
}

TEST(StrCuentaCaracteres, SixteenBitCounterOverflowsOnLongTexts) {
    checkCalls({
        {"strCuentaCaracteres", {Variant(String(40000, u'a')), S(u"")}, Variant(), err::Overflow},
        {"strCuentaCaracteres", {Variant(String(40000, u'a')), S(u"b")}, Variant(), err::Overflow},
        {"strCuentaCaracteres", {Variant(String(32767, u'a')), S(u"b")}, Variant(), err::Overflow},
        {"strCuentaCaracteres", {Variant(String(32766, u'a')), S(u"a")}, I(32766)},
    });
}

TEST(StrCadenaEntrePosicion, CutsFromStartUpToButNotIncludingEnd) {
    const Call cases[] = {
        {"strCadenaEntrePosicion", {S(u"abcdef"), I(2), I(4)}, S(u"bc")},
        {"strCadenaEntrePosicion", {S(u"abcdef"), I(1), I(7)}, S(u"abcdef")},
        {"strCadenaEntrePosicion", {S(u"abcdef"), I(5), I(100)}, S(u"ef")},
        {"strCadenaEntrePosicion", {S(u"abcdef"), I(9), I(12)}, S(u"")},
        {"strCadenaEntrePosicion", {S(u"abcdef"), I(3), I(3)}, S(u"")},
        {"strCadenaEntrePosicion", {S(u"abcdef"), I(4), I(2)}, S(u"")},
        {"strCadenaEntrePosicion", {S(u"abcdef"), I(0), I(3)}, S(u"")},
        {"strCadenaEntrePosicion", {S(u"abcdef"), I(-1), I(3)}, S(u"")},
        {"strCadenaEntrePosicion", {S(u"abcdef"), S(u"2"), 4.4}, S(u"bc")},
        {"strCadenaEntrePosicion", {S(u"abcdef"), I(-32768), I(32767)}, S(u"")},
        {"strCadenaEntrePosicion", {S(u"abcdef"), I(1), L(32768)}, Variant(), err::Overflow},
    };
    checkCalls({std::begin(cases), std::end(cases)});
}

TEST(StrPosicionXAvoCaracter, FindsTheNthOccurrenceAndWrapsAround) {
    const Call cases[] = {
        {"strPosicion_XAvo_Caracter", {S(u"a,b,c"), S(u","), I(1)}, I(2)},
        {"strPosicion_XAvo_Caracter", {S(u"a,b,c"), S(u","), I(2)}, I(4)},
        {"strPosicion_XAvo_Caracter", {S(u"a,b"), S(u","), I(2)}, I(0)},
        {"strPosicion_XAvo_Caracter", {S(u"a,b"), S(u","), I(3)}, I(2)},
        {"strPosicion_XAvo_Caracter", {S(u"aaa"), S(u"aa"), I(2)}, I(2)},
        {"strPosicion_XAvo_Caracter", {S(u"XaXa"), S(u"x"), I(2)}, I(3)},
        {"strPosicion_XAvo_Caracter", {S(u"abc"), S(u""), I(1)}, I(0)},
        {"strPosicion_XAvo_Caracter", {S(u""), S(u""), I(1)}, I(1)},
        {"strPosicion_XAvo_Caracter", {S(u""), S(u","), I(1)}, I(0)},
        {"strPosicion_XAvo_Caracter", {S(u"a,b"), S(u","), I(0)}, I(0)},
        {"strPosicion_XAvo_Caracter", {S(u"a,b"), S(u","), I(-5)}, I(0)},
        {"strPosicion_XAvo_Caracter", {S(u"a,b"), S(u","), L(70000)}, Variant(), err::Overflow},
    };
    checkCalls({std::begin(cases), std::end(cases)});
}

Variant vectorOf(std::vector<Variant> items, std::int32_t lower = 0) {
    return Variant(Array::ofValues(std::move(items), lower));
}

TEST(FnLlenaVector, SplitsAndConvertsAllButTheLastPiece) {
    const Call cases[] = {
        {"fn_LlenaVector", {S(u"1,2,3"), L(1)}, vectorOf({Variant(1.0), Variant(2.0), S(u"3")})},
        {"fn_LlenaVector", {S(u"abc"), L(0)}, vectorOf({S(u"abc")})},
        {"fn_LlenaVector", {S(u""), L(1)}, vectorOf({S(u"")})},
        {"fn_LlenaVector", {S(u"a,,b"), L(0)}, vectorOf({S(u"a"), S(u""), S(u"b")})},
        {"fn_LlenaVector", {S(u"a;b"), L(0), S(u";")}, vectorOf({S(u"a"), S(u"b")})},
        {"fn_LlenaVector", {S(u"1.5|x"), L(1), S(u"|")}, vectorOf({Variant(1.5), S(u"x")})},
        {"fn_LlenaVector", {S(u"aXXbXXc"), L(0), S(u"XX")}, vectorOf({S(u"a"), S(u"Xb"), S(u"Xc")})},
        {"fn_LlenaVector", {S(u"1,,3"), L(1)}, Variant(), err::TypeMismatch},
        {"fn_LlenaVector", {S(u"uno,2"), L(1)}, Variant(), err::TypeMismatch},
        {"fn_LlenaVector", {S(u"31/12/1998,x"), L(2)}, vectorOf({Variant(Date{36160.0}), S(u"x")})},
        {"fn_LlenaVector", {S(u"1,2,3"), L(7)}, vectorOf({S(u"1"), S(u"2"), S(u"3")})},
    };
    checkCalls({std::begin(cases), std::end(cases)});
}

TEST(FnBuscaEnVector, ComparesAsTextFromIndexZero) {
    Variant list = vectorOf({S(u"Uno"), S(u"Dos"), Variant(2.5)});
    const Call cases[] = {
        {"fn_BuscaEnVector", {list, S(u"dos")}, L(1)},
        {"fn_BuscaEnVector", {list, S(u"UNO")}, L(0)},
        {"fn_BuscaEnVector", {list, S(u"tres")}, L(-1)},
        {"fn_BuscaEnVector", {list, S(u"2.5")}, L(2)},
        {"fn_BuscaEnVector", {list, Variant(2.5)}, L(2)},
        {"fn_BuscaEnVector", {vectorOf({}), S(u"x")}, L(-1)},
        {"fn_BuscaEnVector", {vectorOf({S(u"a")}, 1), S(u"a")}, Variant(), err::SubscriptOutOfRange},
        {"fn_BuscaEnVector", {vectorOf({Variant(Null{})}), S(u"a")}, Variant(), err::InvalidUseOfNull},
        {"fn_BuscaEnVector", {S(u"no es vector"), S(u"a")}, Variant(), err::TypeMismatch},
    };
    checkCalls({std::begin(cases), std::end(cases)});
}

TEST(PrivateRoutines, DesdePosicionDespuesDeUltimoRellena) {
    EXPECT_EQ(text::strDesdePosicion(u"abcdef", 3), u"cdef");
    EXPECT_EQ(text::strDesdePosicion(u"abcdef", 6), u"f");
    EXPECT_EQ(text::strDesdePosicion(u"abcdef", 7), u"abcdef");
    EXPECT_EQ(text::strDesdePosicion(u"abcdef", 0), u"abcdef");
    EXPECT_EQ(text::strDesdePosicion(u"abcdef", -2), u"abcdef");

    EXPECT_EQ(text::strDespuesDeUltimo(u"31/12/1998", u"/"), u"1998");
    EXPECT_EQ(text::strDespuesDeUltimo(u"1998-12-31", u"/"), u"1998-12-31");
    EXPECT_EQ(text::strDespuesDeUltimo(u"aXbXc", u"x"), u"c");
    EXPECT_EQ(text::strDespuesDeUltimo(u"a::b", u"::"), u":b") << "only the separator's first position counts";

    struct Pad {
        const char16_t* text;
        const char16_t* fill;
        std::int16_t length;
        LadoCadena side;
        const char16_t* expected;
    };
    using enum LadoCadena;
    const Pad pads[] = {
        {u"7", u"0", 3, Izquierdo, u"007"},       {u"7", u"0", 3, Derecho, u"700"},
        {u"7", u"ab", 3, Izquierdo, u"abab7"},    {u"12345", u"0", 3, Izquierdo, u"123"},
        {u"12345", u"0", 3, Derecho, u"345"},     {u"abc", u"0", 3, Izquierdo, u"abc"},
        {u"abc", u"0", 0, Derecho, u""},          {u"", u"-", 2, Derecho, u"--"},
    };
    for (const auto& p : pads)
        EXPECT_EQ(text::strRellena(p.text, p.fill, p.length, p.side), p.expected) << toUtf8(p.text);
    EXPECT_EQ(errorNumberOf([] { text::strRellena(u"abc", u"0", -1, LadoCadena::Izquierdo); }),
              err::InvalidProcedureCall);
}

}  // namespace
}  // namespace telvaro

// The string and vector helpers, called as an application calls them:
// late-bound through Fun, with the declared types coming back (Integer is
// 16 bits, Long 32) and the runtime's error numbers for bad arguments.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "context/fun.h"
#include "frame/invoke.h"
#include "host/default_platform.h"
#include "runtime/text.h"
#include "support/support.h"
#include "text/strings.h"

namespace telvaro {
namespace {

Variant I(std::int16_t v) { return Variant(v); }
Variant L(std::int32_t v) { return Variant(v); }
Variant S(const char16_t* v) { return Variant(v); }
Variant S(String v) { return Variant(std::move(v)); }

using Call = MethodCase;

TEST(StrCuentaCaracteres, CountsOverlappingOccurrencesCaseInsensitively) {
    // clang-format off
    const Call cases[] = {
        {"strCuentaCaracteres", {S(u"aaaa"), S(u"aa")}, I(3)}, {"strCuentaCaracteres", {S(u"Abcabc"), S(u"B")}, I(2)},
        {"strCuentaCaracteres", {S(u"abcabc"), S(u"c"), I(4)}, I(1)},
        {"strCuentaCaracteres", {S(u"abc"), S(u"abc")}, I(1)},
        // An empty Caracter matches at every position from PosInicio.
        {"strCuentaCaracteres", {S(u"abc"), S(u"")}, I(3)}, {"strCuentaCaracteres", {S(u"abc"), S(u""), I(5)}, I(0)},
        {"strCuentaCaracteres", {S(u""), S(u"")}, I(0)},
        // A start below 1 reaches the substring operation, which refuses it;
        // a Caracter too long for every position never gets there.
        {"strCuentaCaracteres", {S(u"abc"), S(u"a"), I(0)}, Variant(), err::InvalidProcedureCall},
        {"strCuentaCaracteres", {S(u""), S(u"a"), I(0)}, Variant(), err::InvalidProcedureCall},
        {"strCuentaCaracteres", {S(u"abc"), S(u"a"), L(40000)}, Variant(), err::Overflow},
        {"strCuentaCaracteres", {S(u"ab"), S(u"abcd"), I(0)}, I(0)},
        {"strCuentaCaracteres", {S(u"abc"), S(u"a"), S(u"uno")}, Variant(), err::TypeMismatch},
    };
    // clang-format on
    checkCalls({std::begin(cases), std::end(cases)});
}

TEST(StrCuentaCaracteres, SixteenBitCounterOverflowsOnLongTexts) {
    checkCalls({
        {"strCuentaCaracteres", {S(String(40000, u'a')), S(u"")}, Variant(), err::Overflow},
        {"strCuentaCaracteres", {S(String(40000, u'a')), S(u"b")}, Variant(), err::Overflow},
        // The position counter steps past 32767 after its last round.
        {"strCuentaCaracteres", {S(String(32767, u'a')), S(u"b")}, Variant(), err::Overflow},
        {"strCuentaCaracteres", {S(String(32766, u'a')), S(u"a")}, I(32766)},
        {"strCuentaCaracteres", {S(String(32766, u'a')), S(String(16000, u'A'))}, I(16767)},
    });
}

TEST(StrCadenaEntrePosicion, CutsFromStartUpToButNotIncludingEnd) {
    const Call cases[] = {
        {"strCadenaEntrePosicion", {S(u"abcdef"), I(2), I(4)}, S(u"bc")},
        {"strCadenaEntrePosicion", {S(u"abcdef"), I(5), I(100)}, S(u"ef")},
        {"strCadenaEntrePosicion", {S(u"abcdef"), I(7), I(9)}, S(u"")},
        {"strCadenaEntrePosicion", {S(u"abcdef"), I(3), I(3)}, S(u"")},
        {"strCadenaEntrePosicion", {S(u"abcdef"), I(0), I(3)}, S(u"")},
        {"strCadenaEntrePosicion", {S(u"abcdef"), I(1), I(32767)}, S(u"abcdef")},
        {"strCadenaEntrePosicion", {S(u"abcdef"), I(1), L(32768)}, Variant(), err::Overflow},
    };
    checkCalls({std::begin(cases), std::end(cases)});
}

TEST(StrPosicionXAvoCaracter, FindsTheNthOccurrenceAndWrapsAround) {
    const Call cases[] = {
        {"strPosicion_XAvo_Caracter", {S(u"a,b,c"), S(u","), I(1)}, I(2)},
        {"strPosicion_XAvo_Caracter", {S(u"a,b,c"), S(u","), I(2)}, I(4)},
        {"strPosicion_XAvo_Caracter", {S(u"aaa"), S(u"aa"), I(2)}, I(2)},  // overlapping
        // Fewer occurrences than asked for: a failed search starts over.
        {"strPosicion_XAvo_Caracter", {S(u"a,b"), S(u","), I(2)}, I(0)},
        {"strPosicion_XAvo_Caracter", {S(u"a,b"), S(u","), I(3)}, I(2)},
        {"strPosicion_XAvo_Caracter", {S(u"a,b,c"), S(u","), I(5)}, I(4)},
        // An empty Caracter gives 0, in an empty Cadena too.
        {"strPosicion_XAvo_Caracter", {S(u"abc"), S(u""), I(1)}, I(0)},
        {"strPosicion_XAvo_Caracter", {S(u""), S(u""), I(1)}, I(0)},
        {"strPosicion_XAvo_Caracter", {S(u"a,b"), S(u","), I(0)}, I(0)},
        {"strPosicion_XAvo_Caracter", {S(u"a,b"), S(u","), I(32767)}, Variant(), err::Overflow},
    };
    checkCalls({std::begin(cases), std::end(cases)});
}

TEST(StrPosicionXAvoCaracter, PositionsPast32767Overflow) {
    String text(40000, u'a');
    text[34999] = u',';
    String early = text;
    early[9] = u',';
    checkCalls({
        {"strPosicion_XAvo_Caracter", {S(text), S(u","), I(1)}, Variant(), err::Overflow},
        {"strPosicion_XAvo_Caracter", {S(early), S(u","), I(1)}, I(10)},
        {"strPosicion_XAvo_Caracter", {S(early), S(u","), I(2)}, Variant(), err::Overflow},
    });
}

Variant vectorOf(std::vector<Variant> items, std::int32_t lower = 0) {
    return Variant(Array::ofValues(std::move(items), lower));
}

TEST(FnLlenaVector, SplitsAndConvertsAllButTheLastPiece) {
    const Call cases[] = {
        {"fn_LlenaVector", {S(u"1,2,3"), L(1)}, vectorOf({Variant(1.0), Variant(2.0), S(u"3")})},
        {"fn_LlenaVector", {S(u"abc"), L(1)}, vectorOf({S(u"abc")})},
        {"fn_LlenaVector", {S(u""), L(1)}, vectorOf({S(u"")})},
        {"fn_LlenaVector", {S(u"a,,b"), L(0)}, vectorOf({S(u"a"), S(u""), S(u"b")})},
        {"fn_LlenaVector", {S(u"a;b"), L(0), S(u";")}, vectorOf({S(u"a"), S(u"b")})},
        {"fn_LlenaVector",
         {S(u"1.5|-2e3| 7 |x"), L(1), S(u"|")},
         vectorOf({Variant(1.5), Variant(-2000.0), Variant(7.0), S(u"x")})},
        {"fn_LlenaVector", {S(u"1,2,3"), L(7)}, vectorOf({S(u"1"), S(u"2"), S(u"3")})},
        // A separator of two characters: each later piece keeps its second one.
        {"fn_LlenaVector", {S(u"aXXbXXc"), L(0), S(u"XX")}, vectorOf({S(u"a"), S(u"Xb"), S(u"Xc")})},
        // A trailing separator: the last piece starts past the end, so the
        // tail routine hands back the whole text.
        {"fn_LlenaVector", {S(u"a,b,"), L(0)}, vectorOf({S(u"a"), S(u"b"), S(u"a,b,")})},
        // Pieces that are not numbers or dates; an empty piece neither.
        {"fn_LlenaVector", {S(u"1,,3"), L(1)}, Variant(), err::TypeMismatch},
        {"fn_LlenaVector", {S(u"1,uno"), L(1)}, vectorOf({Variant(1.0), S(u"uno")})},
        {"fn_LlenaVector", {S(u"31/02/2024,x"), L(2)}, Variant(), err::TypeMismatch},
        // An empty separator: the first piece would have length -1.
        {"fn_LlenaVector", {S(u"abc"), L(0), S(u"")}, Variant(), err::InvalidProcedureCall},
        {"fn_LlenaVector", {S(u""), L(0), S(u"")}, vectorOf({S(u"")})},
        {"fn_LlenaVector", {S(String(40000, u',')), L(0)}, Variant(), err::Overflow},
    };
    checkCalls({std::begin(cases), std::end(cases)});
}

TEST(FnLlenaVector, DatesInTheRegionalOrder) {
    checkCalls({
        {"fn_LlenaVector", {S(u"31/12/1998,x"), L(2)}, vectorOf({Variant(Date{36160.0}), S(u"x")})},
        {"fn_LlenaVector",
         {S(u"1/2/2024|15/03/2024|31/12/1998"), L(2), S(u"|")},
         vectorOf({Variant(Date{45323.0}), Variant(Date{45366.0}), S(u"31/12/1998")})},
    });
}

TEST(FnBuscaEnVector, ComparesAsTextFromIndexZero) {
    const Variant list = vectorOf({S(u"Uno"), S(u"Dos"), Variant(2.5), Variant(True), Variant(), S(u"Ñandú")});
    // clang-format off
    const Call cases[] = {
        {"fn_BuscaEnVector", {list, S(u"dos")}, L(1)}, {"fn_BuscaEnVector", {list, S(u"tres")}, L(-1)},
        {"fn_BuscaEnVector", {list, S(u"2.5")}, L(2)}, {"fn_BuscaEnVector", {list, S(u"true")}, L(3)},
        {"fn_BuscaEnVector", {list, S(u"nandu")}, L(-1)},
        {"fn_BuscaEnVector", {vectorOf({S(u"a"), S(u"A")}), S(u"a")}, L(0)},
        {"fn_BuscaEnVector", {vectorOf({}), Variant(Null{})}, L(-1)},
        // The search always starts at 0.
        {"fn_BuscaEnVector", {vectorOf({S(u"a"), S(u"b")}, 1), S(u"a")}, Variant(), err::SubscriptOutOfRange},
        {"fn_BuscaEnVector", {vectorOf({S(u"a"), S(u"b"), S(u"c")}, -1), S(u"c")}, L(1)},
        {"fn_BuscaEnVector", {Variant(Array::matrix(0, 1, 0, 1)), S(u"a")}, Variant(), err::SubscriptOutOfRange},
        // Values that cannot become text.
        {"fn_BuscaEnVector", {vectorOf({Variant(Null{})}), S(u"a")}, Variant(), err::InvalidUseOfNull},
        {"fn_BuscaEnVector", {vectorOf({S(u"a")}), Variant(Null{})}, Variant(), err::InvalidUseOfNull},
        {"fn_BuscaEnVector", {vectorOf({S(u"a"), Variant(Null{})}), S(u"A")}, L(0)},
        {"fn_BuscaEnVector", {vectorOf({vectorOf({S(u"a")})}), S(u"a")}, Variant(), err::TypeMismatch},
        {"fn_BuscaEnVector", {S(u"no es vector"), S(u"a")}, Variant(), err::TypeMismatch},
    };
    // clang-format on
    checkCalls({std::begin(cases), std::end(cases)});
}

TEST(FnBuscaEnVector, FindsWhatFnLlenaVectorBuilt) {
    Fun fun(defaultPlatform());
    const Variant filled = call(fun, "fn_LlenaVector", {S(u"10,20,30"), L(1)});
    checkCalls({
        {"fn_BuscaEnVector", {filled, S(u"20")}, L(1)},
        {"fn_BuscaEnVector", {filled, L(30)}, L(2)},
        {"fn_BuscaEnVector", {filled, Variant(10.0)}, L(0)},
    });
}

TEST(StrDespuesDeUltimo, TextAfterTheLastSeparator) {
    struct Case {
        const char16_t* text;
        const char16_t* separator;
        const char16_t* expected;
    };
    const Case cases[] = {
        {u"31/12/1998", u"/", u"1998"},
        // Only the separator's first position is taken off.
        {u"a::b", u"::", u":b"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(text::strDespuesDeUltimo(c.text, c.separator), c.expected)
            << toUtf8(c.text) << " after " << toUtf8(c.separator);
}

TEST(StrRellena, FillsShortTextsAndCutsLongOnes) {
    struct Case {
        const char16_t* text;
        const char16_t* fill;
        std::int16_t length;
        LadoCadena side;
        const char16_t* expected;
        int error = 0;
    };
    using enum LadoCadena;
    // clang-format off
    const Case cases[] = {
        {u"7", u"0", 3, Izquierdo, u"007"}, {u"7", u"0", 3, Derecho, u"700"},
        {u"7", u"ab", 3, Izquierdo, u"abab7"},  // two copies of a two-character fill
        {u"7", u"", 3, Izquierdo, u"7"}, {u"abc", u"0", 3, Izquierdo, u"abc"},
        // Too long: the left side keeps the start, the right side the end.
        {u"12345", u"0", 3, Izquierdo, u"123"}, {u"12345", u"0", 3, Derecho, u"345"}, {u"abc", u"0", 0, Izquierdo, u""},
        {u"abc", u"0", -1, Izquierdo, u"", err::InvalidProcedureCall},
    };
    // clang-format on
    for (const auto& c : cases) {
        const std::string label = toUtf8(c.text) + " / " + toUtf8(c.fill) + " / " + std::to_string(c.length) + " / " +
                                  std::to_string(static_cast<int>(c.side));
        String got;
        const int error = errorNumberOf([&] { got = text::strRellena(c.text, c.fill, c.length, c.side); });
        EXPECT_EQ(error, c.error) << label;
        if (!c.error) {
            EXPECT_EQ(got, c.expected) << label;
        }
    }
}

TEST(StrRellena, DifferenceIsA16BitInteger) {
    const String longText(40000, u'x');
    EXPECT_EQ(errorNumberOf([&] { text::strRellena(longText, u"0", 5, LadoCadena::Izquierdo); }), err::Overflow);
    EXPECT_EQ(errorNumberOf([] { text::strRellena(u"ab", u"0", -32767, LadoCadena::Izquierdo); }), err::Overflow);
    // 33000 - 1000 = 32000 fits in 16 bits: the long text is cut, no overflow.
    EXPECT_EQ(text::strRellena(String(33000, u'x'), u"0", 1000, LadoCadena::Derecho), String(1000, u'x'));
    EXPECT_EQ(text::strRellena(u"1", u"0", 32767, LadoCadena::Izquierdo), String(32766, u'0') + u"1");
}

}  // namespace
}  // namespace telvaro

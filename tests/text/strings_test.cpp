// The string and vector helpers, late-bound through Fun: the declared types come back (Integer 16 bits, Long 32).
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

// An empty Caracter matches at every position from PosInicio; a start below 1 reaches the substring
// operation, which refuses it; a Caracter too long for every position never gets there. The 16-bit position
// counter steps past 32767 after its last round.
TEST(StrCuentaCaracteres, CountsOverlappingOccurrencesCaseInsensitively) {
    const char* m = "strCuentaCaracteres";
    const Variant abc = S(u"abc"), a = S(u"a");
    // clang-format off
    checkCalls({
        {m, {S(u"aaaa"), S(u"aa")}, I(3)}, {m, {S(u"Abcabc"), S(u"B")}, I(2)}, {m, {S(u"abcabc"), S(u"c"), I(4)}, I(1)},
        {m, {abc, abc}, I(1)}, {m, {abc, S(u"")}, I(3)}, {m, {abc, S(u""), I(5)}, I(0)}, {m, {S(u""), S(u"")}, I(0)},
        {m, {abc, a, I(0)}, Variant(), err::InvalidProcedureCall}, {m, {abc, a, L(40000)}, Variant(), err::Overflow},
        {m, {S(u""), a, I(0)}, Variant(), err::InvalidProcedureCall}, {m, {S(u"ab"), S(u"abcd"), I(0)}, I(0)},
        {m, {abc, a, S(u"uno")}, Variant(), err::TypeMismatch},
        {m, {S(String(40000, u'a')), S(u"")}, Variant(), err::Overflow},
        {m, {S(String(40000, u'a')), S(u"b")}, Variant(), err::Overflow},
        {m, {S(String(32767, u'a')), S(u"b")}, Variant(), err::Overflow},
        {m, {S(String(32766, u'a')), a}, I(32766)}, {m, {S(String(32766, u'a')), S(String(16000, u'A'))}, I(16767)},
    });
    // clang-format on
}

TEST(StrCadenaEntrePosicion, CutsFromStartUpToButNotIncludingEnd) {
    const Variant t = S(u"abcdef");
    // clang-format off
    checkCalls({
        {"strCadenaEntrePosicion", {t, I(2), I(4)}, S(u"bc")}, {"strCadenaEntrePosicion", {t, I(5), I(100)}, S(u"ef")},
        {"strCadenaEntrePosicion", {t, I(7), I(9)}, S(u"")}, {"strCadenaEntrePosicion", {t, I(3), I(3)}, S(u"")},
        {"strCadenaEntrePosicion", {t, I(0), I(3)}, S(u"")}, {"strCadenaEntrePosicion", {t, I(1), I(32767)}, t},
        {"strCadenaEntrePosicion", {t, I(1), L(32768)}, Variant(), err::Overflow},
    });
    // clang-format on
}

TEST(StrPosicionXAvoCaracter, FindsTheNthOccurrenceAndWrapsAround) {
    const char* m = "strPosicion_XAvo_Caracter";
    // Overlapping occurrences count; with fewer than asked for, a failed search starts over; an empty Caracter
    // gives 0, in an empty Cadena too.
    // clang-format off
    checkCalls({
        {m, {S(u"a,b,c"), S(u","), I(1)}, I(2)}, {m, {S(u"a,b,c"), S(u","), I(2)}, I(4)},
        {m, {S(u"aaa"), S(u"aa"), I(2)}, I(2)}, {m, {S(u"a,b"), S(u","), I(2)}, I(0)},
        {m, {S(u"a,b"), S(u","), I(3)}, I(2)}, {m, {S(u"a,b,c"), S(u","), I(5)}, I(4)},
        {m, {S(u"abc"), S(u""), I(1)}, I(0)}, {m, {S(u""), S(u""), I(1)}, I(0)}, {m, {S(u"a,b"), S(u","), I(0)}, I(0)},
        {m, {S(u"a,b"), S(u","), I(32767)}, Variant(), err::Overflow},
    });
    // clang-format on
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

// Pieces become numbers or dates but the last; a separator of two characters: each later piece keeps its
// second one; a trailing separator: the last piece starts past the end, so the tail routine hands back the whole
// text; an empty piece is no number; an empty separator: the first piece would have length -1.
TEST(FnLlenaVector, SplitsAndConvertsAllButTheLastPiece) {
    const char* m = "fn_LlenaVector";
    // clang-format off
    checkCalls({
        {m, {S(u"1,2,3"), L(1)}, vectorOf({Variant(1.0), Variant(2.0), S(u"3")})},
        {m, {S(u"abc"), L(1)}, vectorOf({S(u"abc")})},
        {m, {S(u""), L(1)}, vectorOf({S(u"")})}, {m, {S(u"a,,b"), L(0)}, vectorOf({S(u"a"), S(u""), S(u"b")})},
        {m, {S(u"a;b"), L(0), S(u";")}, vectorOf({S(u"a"), S(u"b")})},
        {m, {S(u"1.5|-2e3| 7 |x"), L(1), S(u"|")}, vectorOf({Variant(1.5), Variant(-2000.0), Variant(7.0), S(u"x")})},
        {m, {S(u"1,2,3"), L(7)}, vectorOf({S(u"1"), S(u"2"), S(u"3")})},
        {m, {S(u"aXXbXXc"), L(0), S(u"XX")}, vectorOf({S(u"a"), S(u"Xb"), S(u"Xc")})},
        {m, {S(u"a,b,"), L(0)}, vectorOf({S(u"a"), S(u"b"), S(u"a,b,")})},
        {m, {S(u"1,,3"), L(1)}, Variant(), err::TypeMismatch},
        {m, {S(u"1,uno"), L(1)}, vectorOf({Variant(1.0), S(u"uno")})},
        {m, {S(u"31/02/2024,x"), L(2)}, Variant(), err::TypeMismatch},
        {m, {S(u"abc"), L(0), S(u"")}, Variant(), err::InvalidProcedureCall},
        {m, {S(u""), L(0), S(u"")}, vectorOf({S(u"")})},
        {m, {S(String(40000, u',')), L(0)}, Variant(), err::Overflow},
        {m, {S(u"31/12/1998,x"), L(2)}, vectorOf({Variant(Date{36160.0}), S(u"x")})},
        {m, {S(u"1/2/2024|15/03/2024|31/12/1998"), L(2), S(u"|")},
         vectorOf({Variant(Date{45323.0}), Variant(Date{45366.0}), S(u"31/12/1998")})},
    });
    // clang-format on
}

TEST(FnBuscaEnVector, ComparesAsTextFromIndexZero) {
    const char* m = "fn_BuscaEnVector";
    const Variant list = vectorOf({S(u"Uno"), S(u"Dos"), Variant(2.5), Variant(True), Variant(), S(u"Ñandú")});
    const Variant a = S(u"a"), nul = Variant(Null{});
    // The search always starts at 0; values that cannot become text.
    // clang-format off
    checkCalls({
        {m, {list, S(u"dos")}, L(1)}, {m, {list, S(u"tres")}, L(-1)}, {m, {list, S(u"2.5")}, L(2)},
        {m, {list, S(u"true")}, L(3)}, {m, {list, S(u"nandu")}, L(-1)}, {m, {vectorOf({a, S(u"A")}), a}, L(0)},
        {m, {vectorOf({}), nul}, L(-1)}, {m, {vectorOf({a, S(u"b")}, 1), a}, Variant(), err::SubscriptOutOfRange},
        {m, {vectorOf({a, S(u"b"), S(u"c")}, -1), S(u"c")}, L(1)},
        {m, {Variant(Array::matrix(0, 1, 0, 1)), a}, Variant(), err::SubscriptOutOfRange},
        {m, {vectorOf({nul}), a}, Variant(), err::InvalidUseOfNull},
        {m, {vectorOf({a}), nul}, Variant(), err::InvalidUseOfNull},
        {m, {vectorOf({a, nul}), S(u"A")}, L(0)}, {m, {vectorOf({vectorOf({a})}), a}, Variant(), err::TypeMismatch},
        {m, {S(u"no es vector"), a}, Variant(), err::TypeMismatch},
    });
    // clang-format on
}

TEST(FnBuscaEnVector, FindsWhatFnLlenaVectorBuilt) {
    Fun fun(defaultPlatform());
    const Variant filled = call(fun, "fn_LlenaVector", {S(u"10,20,30"), L(1)});
    // clang-format off
    checkCalls({{"fn_BuscaEnVector", {filled, S(u"20")}, L(1)}, {"fn_BuscaEnVector", {filled, L(30)}, L(2)},
                {"fn_BuscaEnVector", {filled, Variant(10.0)}, L(0)}});
    // clang-format on
}

TEST(StrDespuesDeUltimo, TextAfterTheLastSeparator) {
    EXPECT_EQ(text::strDespuesDeUltimo(u"31/12/1998", u"/"), u"1998");
    EXPECT_EQ(text::strDespuesDeUltimo(u"a::b", u"::"), u":b");  // only the separator's first position is taken off
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
        const std::string label = toUtf8(c.text) + " / " + toUtf8(c.fill) + " / " + std::to_string(c.length);
        String got;
        EXPECT_EQ(errorNumberOf([&] { got = text::strRellena(c.text, c.fill, c.length, c.side); }), c.error) << label;
        EXPECT_EQ(got, c.expected) << label << " / " << static_cast<int>(c.side);
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

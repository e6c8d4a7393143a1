// The runtime's text comparison and string functions: case ignored, accents kept, positions from 1.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <limits>
#include <string>
#include <vector>

#include "runtime/error.h"
#include "runtime/text.h"
#include "support/support.h"

namespace telvaro {
namespace {

std::string show(StringView s) { return "\"" + toUtf8(s) + "\""; }

TEST(TextEquality, CaseIgnoredAccentsKept) {
    // A combining accent is other units, so other text; a soft hyphen is a character too.
    // clang-format off
    const std::tuple<const char16_t*, const char16_t*, bool> cases[] = {
        {u"A", u"a", true}, {u"Ñ", u"ñ", true}, {u"á", u"a", false}, {u"", u"", true}, {u"a", u"", false},
        {u"a ", u"a", false}, {u"a\u0301", u"á", false}, {u"ab", u"a\u00ADb", false},
    };
    // clang-format on
    for (auto [a, b, equal] : cases) {
        EXPECT_EQ(textEquals(a, b), equal) << show(a) << " = " << show(b);
        EXPECT_EQ(textEquals(b, a), equal) << show(b) << " = " << show(a);
    }
}

TEST(TextCase, FoldingAndCaseMapping) {
    EXPECT_EQ(foldCase(u'A'), u'a');
    EXPECT_EQ(foldCase(u'Ñ'), u'ñ');
    EXPECT_EQ(foldCase(u'á'), u'á');
    EXPECT_EQ(foldCase(u'\xD83D'), u'\xD83D') << "a lone surrogate stays";
    EXPECT_EQ(upperCase(u"árbol ñandú 1a"), u"ÁRBOL ÑANDÚ 1A");
    EXPECT_EQ(upperCase(u"straße"), u"STRAßE") << "one unit stays one unit";
}

constexpr int kNone = 0;

TEST(InStr, FindsFromStartIgnoringCase) {
    struct Case {
        std::int32_t start;
        const char16_t* s;
        const char16_t* find;
        std::int32_t expected;
        int error = kNone;
    };
    // clang-format off
    const Case cases[] = {
        {1, u"Hola Mundo", u"MUNDO", 6}, {7, u"Hola Mundo", u"mundo", 0}, {3, u"abc", u"c", 3}, {4, u"abc", u"c", 0},
        // An empty find is found at `start` while start <= Len + 1.
        {4, u"abc", u"", 4}, {5, u"abc", u"", 0},
        // An empty text is tested first: nothing is found in it.
        {1, u"", u"", 0}, {std::numeric_limits<std::int32_t>::max(), u"abc", u"a", 0},
        {0, u"abc", u"a", 0, err::InvalidProcedureCall}, {0, u"", u"", 0, err::InvalidProcedureCall},
    };
    // clang-format on
    for (const auto& c : cases) {
        const std::string label = "InStr(" + std::to_string(c.start) + ", " + show(c.s) + ", " + show(c.find) + ")";
        std::int32_t got = 0;
        EXPECT_EQ(errorNumberOf([&] { got = inStr(c.start, c.s, c.find); }), c.error) << label;
        EXPECT_EQ(got, c.expected) << label;
    }
}

TEST(InStrRev, LastOccurrenceWithinTheFirstStartUnits) {
    struct Case {
        const char16_t* s;
        const char16_t* find;
        std::int32_t start;
        std::int32_t expected;
        int error = kNone;
    };
    // clang-format off
    const Case cases[] = {
        {u"a/b/c", u"/", -1, 4}, {u"a/b/c", u"/", 3, 2}, {u"a/b/c", u"/", 4, 4},
        {u"abcabc", u"bc", 5, 2},  // the one at 5 would end past the 5th unit
        // start beyond the length
        {u"abc", u"", -1, 3}, {u"abc", u"", 4, 0}, {u"", u"", -1, 0}, {u"abc", u"a", 0, 0, err::InvalidProcedureCall},
        {u"abc", u"a", -2, 0, err::InvalidProcedureCall},
    };
    // clang-format on
    for (const auto& c : cases) {
        const std::string label = "InStrRev(" + show(c.s) + ", " + show(c.find) + ", " + std::to_string(c.start) + ")";
        std::int32_t got = 0;
        EXPECT_EQ(errorNumberOf([&] { got = inStrRev(c.s, c.find, c.start); }), c.error) << label;
        EXPECT_EQ(got, c.expected) << label;
    }
}

TEST(Replace, OneLeftToRightPassIgnoringCase) {
    struct Case {
        const char16_t* s;
        const char16_t* find;
        const char16_t* with;
        const char16_t* expected;
    };
    // Replaced text is not searched again.
    // clang-format off
    const Case cases[] = {
        {u"aAa", u"a", u"aa", u"aaaaaa"}, {u"aaa", u"aa", u"b", u"ba"}, {u"abc", u"B", u"", u"ac"},
        {u"'%' y '%'", u"'%'", u"'x.x00x'", u"'x.x00x' y 'x.x00x'"}, {u"abc", u"", u"x", u"abc"},
        {u"abc", u"abcd", u"x", u"abc"},
    };
    // clang-format on
    for (const auto& c : cases)
        EXPECT_EQ(replaceText(c.s, c.find, c.with), c.expected)
            << "Replace(" << show(c.s) << ", " << show(c.find) << ", " << show(c.with) << ")";
}

TEST(MidLeftRight, CutWithTheRuntimeChecks) {
    constexpr std::int32_t kToTheEnd = -99;
    struct Case {
        char function;  // Mid, Left, Right
        std::int32_t a, b;
        const char16_t* expected;
        int error = kNone;
    };
    // clang-format off
    const Case cases[] = {
        {'M', 3, kToTheEnd, u"c"}, {'M', 4, kToTheEnd, u""}, {'M', 0, kToTheEnd, u"", err::InvalidProcedureCall},
        {'M', 2, 1, u"b"}, {'M', 2, 100, u"bc"}, {'M', 4, 1, u""}, {'M', 0, 1, u"", err::InvalidProcedureCall},
        {'M', 1, -1, u"", err::InvalidProcedureCall}, {'M', 9, -1, u"", err::InvalidProcedureCall},
        {'L', 2, 0, u"ab"}, {'L', 5, 0, u"abc"}, {'L', -1, 0, u"", err::InvalidProcedureCall},
        {'R', 2, 0, u"bc"}, {'R', 5, 0, u"abc"}, {'R', -1, 0, u"", err::InvalidProcedureCall},
    };
    // clang-format on
    for (const auto& c : cases) {
        String got;
        const int error = errorNumberOf([&] {
            if (c.function == 'L') got = left(u"abc", c.a);
            if (c.function == 'R') got = right(u"abc", c.a);
            if (c.function == 'M') got = c.b == kToTheEnd ? mid(u"abc", c.a) : mid(u"abc", c.a, c.b);
        });
        EXPECT_EQ(error, c.error) << c.function << "(abc, " << c.a << ", " << c.b << ")";
        EXPECT_EQ(got, c.expected) << c.function << "(abc, " << c.a << ", " << c.b << ")";
    }
}

TEST(TrimAndRepeat, BlanksOnlyAndCheckedCounts) {
    EXPECT_EQ(trim(u"  a b  "), u"a b");
    EXPECT_EQ(ltrim(u"  a b  "), u"a b  ");
    EXPECT_EQ(trim(u"   "), u"");
    EXPECT_EQ(trim(u"\ta\t"), u"\ta\t") << "tabs are not blanks";
    EXPECT_EQ(trim(u"\u00A0a"), u"\u00A0a") << "nor is the no-break space";

    EXPECT_EQ(space(3), u"   ");
    EXPECT_EQ(repeatChar(3, u'ñ'), u"ñññ");
    EXPECT_EQ(errorNumberOf([] { space(-1); }), err::InvalidProcedureCall);
    EXPECT_EQ(errorNumberOf([] { repeatChar(-5, u'x'); }), err::InvalidProcedureCall);
    EXPECT_EQ(errorNumberOf([] { repeatChar(std::numeric_limits<std::int32_t>::max(), u'x'); }), err::OutOfStringSpace);
}

}  // namespace
}  // namespace telvaro

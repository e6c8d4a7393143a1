// The runtime's text comparison and string functions, as tables: case is
// ignored, accents are not, positions count from 1, and bad arguments raise
// the runtime's error numbers.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <functional>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include "runtime/error.h"
#include "runtime/text.h"
#include "support/support.h"

namespace telvaro {
namespace {

std::string show(StringView s) { return "\"" + toUtf8(s) + "\""; }

TEST(TextEquality, CaseIgnoredAccentsKept) {
    struct Case {
        const char16_t* a;
        const char16_t* b;
        bool equal;
    };
    const Case cases[] = {
        {u"A", u"a", true},
        {u"Ñ", u"ñ", true},
        {u"á", u"a", false},
        {u"", u"", true},
        {u"a", u"", false},
        {u"a ", u"a", false},
        {u"a\u0301", u"á", false},    // combining accent: other units,
                                      // other text
        {u"ab", u"a\u00ADb", false},  // a soft hyphen is a character too
    };
    for (const auto& c : cases) {
        EXPECT_EQ(textEquals(c.a, c.b), c.equal) << show(c.a) << " = " << show(c.b);
        EXPECT_EQ(textEquals(c.b, c.a), c.equal) << show(c.b) << " = " << show(c.a);
    }
}

TEST(TextCase, FoldingAndCaseMapping) {
    EXPECT_EQ(foldCase(u'A'), u'a');
    EXPECT_EQ(foldCase(u'Ñ'), u'ñ');
    EXPECT_EQ(foldCase(u'á'), u'á');
    EXPECT_EQ(foldCase(u'\xD83D'), u'\xD83D') << "a lone surrogate stays";
    EXPECT_EQ(upperCase(u"árbol ñandú 1a"), u"ÁRBOL ÑANDÚ 1A");
    EXPECT_EQ(upperCase(u"straße"), u"STRAßE") << "one unit stays one unit";
    EXPECT_EQ(upperCase(u"a\U0001F600b"), u"A\U0001F600B");
}

constexpr int kNone = 0;

// Matches themselves (case, accents, overlaps, restarts) are compared with a
// search of the folded texts in TextSearch below; the tables hold the
// positions, empty texts and errors.
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
        std::int32_t got = -99;
        EXPECT_EQ(errorNumberOf([&] { got = inStr(c.start, c.s, c.find); }), c.error) << label;
        if (!c.error) {
            EXPECT_EQ(got, c.expected) << label;
        }
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
        std::int32_t got = -99;
        EXPECT_EQ(errorNumberOf([&] { got = inStrRev(c.s, c.find, c.start); }), c.error) << label;
        if (!c.error) {
            EXPECT_EQ(got, c.expected) << label;
        }
    }
}

TEST(Replace, OneLeftToRightPassIgnoringCase) {
    struct Case {
        const char16_t* s;
        const char16_t* find;
        const char16_t* with;
        const char16_t* expected;
    };
    const Case cases[] = {
        {u"aAa", u"a", u"aa", u"aaaaaa"},  // replaced text is not searched again
        {u"aaa", u"aa", u"b", u"ba"},     {u"'%' y '%'", u"'%'", u"'x.x00x'", u"'x.x00x' y 'x.x00x'"},
        {u"abc", u"B", u"", u"ac"},       {u"abc", u"", u"x", u"abc"},
        {u"abc", u"abcd", u"x", u"abc"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(replaceText(c.s, c.find, c.with), c.expected)
            << "Replace(" << show(c.s) << ", " << show(c.find) << ", " << show(c.with) << ")";
}

// A text and a pattern drawn from a few letters in both cases, with and
// without accents, so that partial matches, overlaps and restarts are frequent.
String randomText(std::mt19937& rng, std::size_t maxLength) {
    static const char16_t letters[] = u"aAbáÁñÑ";
    std::uniform_int_distribution<std::size_t> length(0, maxLength), letter(0, 6);
    String s(length(rng), u' ');
    for (auto& c : s) c = letters[letter(rng)];
    return s;
}

String foldedCopy(StringView s) {
    String f(s);
    for (auto& c : f) c = foldCase(c);
    return f;
}

TEST(TextSearch, AgreesWithASearchOfTheFoldedTexts) {
    std::mt19937 rng(20240611);
    for (int round = 0; round < 3000; ++round) {
        const String s = randomText(rng, 14), find = randomText(rng, 4);
        const String fs = foldedCopy(s), ff = foldedCopy(find);
        const std::string label = show(s) + " / " + show(find);
        if (find.empty()) {
            ASSERT_TRUE(textOccurrences(s, find).empty()) << label;
            continue;
        }

        std::vector<std::int32_t> all;
        for (auto p = fs.find(ff); p != String::npos; p = fs.find(ff, p + 1)) all.push_back(std::int32_t(p + 1));
        ASSERT_EQ(textOccurrences(s, find), all) << label;

        for (std::int32_t start = 1; start <= std::int32_t(s.size()) + 1; ++start) {
            auto p = fs.find(ff, std::size_t(start - 1));
            ASSERT_EQ(inStr(start, s, find), p == String::npos ? 0 : std::int32_t(p + 1)) << label << " from " << start;
        }
        for (std::int32_t start = 1; start <= std::int32_t(s.size()); ++start) {
            auto p = start < std::int32_t(ff.size()) ? String::npos : fs.rfind(ff, std::size_t(start) - ff.size());
            ASSERT_EQ(inStrRev(s, find, start), p == String::npos ? 0 : std::int32_t(p + 1))
                << label << " back from " << start;
        }

        String replaced;
        std::size_t from = 0;
        for (auto p = fs.find(ff); p != String::npos; p = fs.find(ff, from)) {
            replaced += s.substr(from, p - from) + u"<>";
            from = p + ff.size();
        }
        replaced += s.substr(from);
        ASSERT_EQ(replaceText(s, find, u"<>"), replaced) << label;
    }
}

TEST(TextSearch, LongTextsThatDefeatANaiveSearch) {
    // A pattern that almost matches everywhere: a search that restarts at
    // every position does 16000 comparisons per position here.
    const String s(32767, u'a');
    const String find = String(16000, u'A') + u"b";
    EXPECT_EQ(inStr(1, s, find), 0);
    EXPECT_EQ(inStrRev(s, find), 0);
    EXPECT_EQ(replaceText(s, find, u"x"), s);
    EXPECT_TRUE(textOccurrences(s, find).empty());

    const String hit = s + u"B";
    EXPECT_EQ(inStr(1, hit, find), 32767 - 16000 + 1);
    EXPECT_EQ(inStrRev(hit, find), 32767 - 16000 + 1);
    EXPECT_EQ(textOccurrences(s, String(16000, u'A')).size(), 32767u - 16000u + 1u);
}

TEST(MidLeftRight, CutWithTheRuntimeChecks) {
    struct Case {
        const char* call;
        std::function<String()> run;
        const char16_t* expected;
        int error = kNone;
    };
    // clang-format off
    const Case cases[] = {
        {"Mid(abc, 3)", [] { return mid(u"abc", 3); }, u"c"}, {"Mid(abc, 4)", [] { return mid(u"abc", 4); }, u""},
        {"Mid(abc, 0)", [] { return mid(u"abc", 0); }, u"", err::InvalidProcedureCall},
        {"Mid(abcdef, 2, 3)", [] { return mid(u"abcdef", 2, 3); }, u"bcd"},
        {"Mid(abc, 2, 100)", [] { return mid(u"abc", 2, 100); }, u"bc"},
        {"Mid(abc, 4, 1)", [] { return mid(u"abc", 4, 1); }, u""},
        {"Mid(abc, 0, 1)", [] { return mid(u"abc", 0, 1); }, u"", err::InvalidProcedureCall},
        {"Mid(abc, 1, -1)", [] { return mid(u"abc", 1, -1); }, u"", err::InvalidProcedureCall},
        {"Mid(abc, 9, -1)", [] { return mid(u"abc", 9, -1); }, u"", err::InvalidProcedureCall},
        {"Left(abc, 2)", [] { return left(u"abc", 2); }, u"ab"},
        {"Left(abc, 5)", [] { return left(u"abc", 5); }, u"abc"},
        {"Left(abc, -1)", [] { return left(u"abc", -1); }, u"", err::InvalidProcedureCall},
        {"Right(abc, 2)", [] { return right(u"abc", 2); }, u"bc"},
        {"Right(abc, 5)", [] { return right(u"abc", 5); }, u"abc"},
        {"Right(abc, -1)", [] { return right(u"abc", -1); }, u"", err::InvalidProcedureCall},
    };
    // clang-format on
    for (const auto& c : cases) {
        String got;
        EXPECT_EQ(errorNumberOf([&] { got = c.run(); }), c.error) << c.call;
        if (!c.error) {
            EXPECT_EQ(got, c.expected) << c.call;
        }
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

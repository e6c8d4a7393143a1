#include "sheet/cell_reference.h"

#include <gtest/gtest.h>

#include <optional>

#include "sheet/border_meanings.h"

namespace telvaro::sheet {
namespace {

TEST(ColumnLetters, NameTheColumnsOfTheSheetOnly) {
    struct Case {
        const char16_t* letters;
        std::optional<std::int32_t> column;
    } cases[] = {
        {u"A", 1},
        {u"b", 2},
        {u"Z", 26},
        {u"AA", 27},
        {u"AZ", 52},
        {u"BA", 53},
        {u"IV", 256},
        {u"XFD", 16384},
        {u"xfd", 16384},
        {u"XFE", std::nullopt},
        {u"AAAA", std::nullopt},
        {u"", std::nullopt},
        {u"[", std::nullopt},
        {u"\\", std::nullopt},
        {u"A1", std::nullopt},
        {u"$A", std::nullopt},
        {u"Ñ", std::nullopt},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(columnNumber(c.letters), c.column) << toUtf8(c.letters);
        if (c.column) {
            EXPECT_EQ(columnNumber(columnLetters(*c.column)), c.column) << toUtf8(c.letters);
        }
    }
}

TEST(References, ReadCellsBlocksWholeColumnsAndRows) {
    struct Case {
        const char16_t* text;
        std::optional<CellBlock> block;
    } cases[] = {
        {u"B5", CellBlock{5, 2, 5, 2}},
        {u"$B$5", CellBlock{5, 2, 5, 2}},
        {u"b5:c9", CellBlock{5, 2, 9, 3}},
        {u"C9:B5", CellBlock{5, 2, 9, 3}},
        {u"C5:B9", CellBlock{5, 2, 9, 3}},
        {u"B:D", CellBlock{1, 2, kMaxRows, 4}},
        {u"$D:B", CellBlock{1, 2, kMaxRows, 4}},
        {u"4:6", CellBlock{4, 1, 6, kMaxColumns}},
        {u"XFD1048576", CellBlock{kMaxRows, kMaxColumns, kMaxRows, kMaxColumns}},
        {u"B0", std::nullopt},
        {u"B1048577", std::nullopt},
        {u"B99999999999999999999", std::nullopt},
        {u"XFE1", std::nullopt},
        {u"B", std::nullopt},
        {u"5", std::nullopt},
        {u"B5:", std::nullopt},
        {u":B5", std::nullopt},
        {u"B5:D", std::nullopt},
        {u"B5 ", std::nullopt},
        {u"B$", std::nullopt},
        {u"$", std::nullopt},
        {u"B5,C6", std::nullopt},
        {u"", std::nullopt},
        {u"Hoja1!B5", std::nullopt},
    };
    for (const auto& c : cases) EXPECT_EQ(parseReference(c.text), c.block) << toUtf8(c.text);
}

TEST(References, AreWrittenBack) {
    EXPECT_EQ(referenceText(CellBlock::cell(5, 2)), u"B5");
    EXPECT_EQ(referenceText(CellBlock{5, 2, 9, 28}), u"B5:AB9");
}

TEST(BorderMeanings, FollowTheSpreadsheetsConstants) {
    using namespace line_style;
    using namespace border_weight;
    struct Case {
        std::int32_t lineStyle, weight;
        std::optional<std::uint8_t> fileStyle;
    } cases[] = {
        {Continuous, Hairline, 7},
        {Continuous, Thin, 1},
        {Continuous, Medium, 2},
        {Continuous, Thick, 5},
        {Dash, Thin, 3},
        {Dash, Medium, 8},
        {DashDot, Thin, 9},
        {DashDot, Thick, 10},
        {DashDotDot, Thin, 11},
        {DashDotDot, Medium, 12},
        {Dot, Thin, 4},
        {line_style::Double, Thick, 6},
        {SlantDashDot, Medium, 13},
        {line_style::None, Thin, 0},
        {0, Thin, std::nullopt},
        {2, Thin, std::nullopt},
        {Continuous, 3, std::nullopt},
        {Continuous, 0, std::nullopt},
    };
    for (const auto& c : cases)
        EXPECT_EQ(borderStyle(c.lineStyle, c.weight), c.fileStyle) << c.lineStyle << " " << c.weight;
}

TEST(BorderMeanings, ColourIndexesAreThePalettes) {
    struct Case {
        std::int32_t index;
        std::optional<std::uint32_t> color;
    } cases[] = {
        {1, 0x000000u},
        {2, 0xFFFFFFu},
        {3, 0xFF0000u},
        {5, 0x0000FFu},
        {15, 0xC0C0C0u},
        {56, 0x333333u},
        {color_index::Automatic, kAutomaticColor},
        {color_index::None, kAutomaticColor},
        {0, std::nullopt},
        {57, std::nullopt},
        {-1, std::nullopt},
    };
    for (const auto& c : cases) EXPECT_EQ(paletteColor(c.index), c.color) << c.index;
    // RGB() keeps red in the low byte.
    EXPECT_EQ(rgbColor(0x0000FF), 0xFF0000u);
    EXPECT_EQ(rgbColor(0xFF0000), 0x0000FFu);
    EXPECT_EQ(rgbColor(0x1000000), std::nullopt);
    EXPECT_EQ(rgbColor(-1), std::nullopt);
}

}  // namespace
}  // namespace telvaro::sheet

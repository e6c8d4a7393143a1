#include "sheet/cell_reference.h"

#include <gtest/gtest.h>

#include <optional>

#include "sheet/border_meanings.h"

namespace telvaro::sheet {
namespace {

TEST(ColumnLetters, NameTheColumnsOfTheSheetOnly) {
    // clang-format off
    const std::pair<const char16_t*, std::optional<std::int32_t>> cases[] = {
        {u"A", 1}, {u"b", 2}, {u"Z", 26}, {u"AA", 27}, {u"XFD", 16384}, {u"XFE", std::nullopt}, {u"", std::nullopt},
        {u"[", std::nullopt}, {u"@", std::nullopt}, {u"A1", std::nullopt},
    };
    // clang-format on
    for (const auto& [letters, column] : cases) {
        EXPECT_EQ(columnNumber(letters), column) << toUtf8(letters);
        EXPECT_EQ(column ? columnNumber(columnLetters(*column)) : column, column) << toUtf8(letters);
    }
}

TEST(References, ReadCellsBlocksWholeColumnsAndRows) {
    const auto none = std::nullopt;
    // clang-format off
    const std::pair<const char16_t*, std::optional<CellBlock>> cases[] = {
        {u"$B$5", CellBlock{5, 2, 5, 2}}, {u"C5:b9", CellBlock{5, 2, 9, 3}}, {u"$D:B", CellBlock{1, 2, kMaxRows, 4}},
        {u"4:6", CellBlock{4, 1, 6, kMaxColumns}},
        {u"XFD1048576", CellBlock{kMaxRows, kMaxColumns, kMaxRows, kMaxColumns}},
        {u"B0", none}, {u"B1048577", none}, {u"B99999999999999999999", none}, {u"XFE1", none}, {u"B", none},
        {u"B5:", none}, {u"B5:D", none}, {u"B5 ", none}, {u"B5,C6", none}, {u"Hoja1!B5", none},
    };
    // clang-format on
    for (const auto& [text, block] : cases) EXPECT_EQ(parseReference(text), block) << toUtf8(text);
    EXPECT_EQ(referenceText(CellBlock::cell(5, 2)), u"B5");
    EXPECT_EQ(referenceText(CellBlock{5, 2, 9, 28}), u"B5:AB9");
}

TEST(BorderMeanings, LineStyleAndWeightGiveTheFilesStyle) {
    using namespace line_style;
    using namespace border_weight;
    struct Case {
        std::int32_t lineStyle, weight;
        std::optional<std::uint8_t> fileStyle;
    };
    // clang-format off
    const Case cases[] = {
        {Continuous, Hairline, 7}, {Continuous, Thick, 5}, {Dash, Thin, 3}, {Dash, Medium, 8}, {DashDot, Thin, 9},
        {DashDot, Thick, 10}, {DashDotDot, Thin, 11}, {DashDotDot, Medium, 12}, {Dot, Thin, 4},
        {line_style::Double, Thick, 6}, {SlantDashDot, Medium, 13}, {line_style::None, Thin, 0},
        {2, Thin, std::nullopt}, {Continuous, 3, std::nullopt},
    };
    // clang-format on
    for (const auto& c : cases)
        EXPECT_EQ(borderStyle(c.lineStyle, c.weight), c.fileStyle) << c.lineStyle << " " << c.weight;
}

TEST(BorderMeanings, ColourIndexesAreThePalettes) {
    // clang-format off
    const std::pair<std::int32_t, std::optional<std::uint32_t>> cases[] = {
        {1, 0x000000u}, {3, 0xFF0000u}, {56, 0x333333u}, {color_index::Automatic, kAutomaticColor},
        {color_index::None, kAutomaticColor}, {0, std::nullopt}, {57, std::nullopt},
    };
    // clang-format on
    for (const auto& [index, color] : cases) EXPECT_EQ(paletteColor(index), color) << index;
    // RGB() keeps red in the low byte.
    EXPECT_EQ(rgbColor(0x0000FF), 0xFF0000u);
    EXPECT_EQ(rgbColor(0xFF0000), 0x0000FFu);
    EXPECT_EQ(rgbColor(0x1000000), std::nullopt);
    EXPECT_EQ(rgbColor(-1), std::nullopt);
}

}  // namespace
}  // namespace telvaro::sheet

// The flexible grid through its members: sizes, the current cell, texts,
// widths and heights, rows added and removed, the formatting of single
// cells kept only where it was set, and the record of the calls.
#include "objects/flex_grid.h"

#include "member_script.h"

namespace telvaro::objects {
namespace {

using enum Access;

TEST(FlexGrid, MembersAnswerAsTheGridControlDoes) {
    auto grid = std::make_shared<FlexGrid>(u"grdDatos", 3, 3);
    // clang-format off
    runScript(*grid, {
        {Get, u"FixedRows", {}, L(1)}, {Put, u"TextMatrix", {L(1), L(2), S(u"abc")}},
        {Get, u"TEXTMATRIX", {L(1), L(2)}, S(u"abc")}, {Get, u"TextMatrix", {L(3), L(0)}, {}, 381},
        {Put, u"Row", {L(2)}}, {Put, u"Col", {L(2)}}, {Put, u"Text", {S(u"x")}},
        {Get, u"TextMatrix", {L(2), L(2)}, S(u"x")}, {Get, u"", {}, S(u"x")}, {Put, u"Row", {L(3)}, {}, 30009},
        {Put, u"Col", {L(-1)}, {}, 30010}, {Get, u"Row", {}, L(2)}, {Put, u"Rows", {L(-1)}, {}, 380},
        {Put, u"Rows", {Variant(1e12)}, {}, 6}, {Put, u"Cols", {L(4)}}, {Put, u"Rows", {L(2'500'001)}, {}, 7},
        {Put, u"Cols", {L(3)}}, {Put, u"FixedRows", {L(4)}, {}, 30009}, {Put, u"ColWidth", {L(1), L(1500)}},
        {Get, u"ColWidth", {L(1)}, L(1500)}, {Put, u"ColWidth", {L(1), L(-1)}}, {Get, u"ColWidth", {L(1)}, L(960)},
        {Put, u"ColWidth", {L(1), L(-2)}, {}, 380}, {Put, u"ColWidth", {L(3), L(100)}, {}, 381},
        {Put, u"RowHeight", {L(2), L(600)}}, {Get, u"RowHeight", {L(2)}, L(600)}, {Put, u"ColAlignment", {L(0), I(7)}},
        {Get, u"ColAlignment", {L(0)}, I(7)}, {Get, u"NoExiste", {}, {}, 438}});
    // clang-format on
}

TEST(FlexGrid, CurrentCellMembersFormatOnlyTheCurrentCell) {
    auto grid = std::make_shared<FlexGrid>(u"grdDatos", 4, 3);
    // clang-format off
    runScript(*grid, {
        {Get, u"CellBackColor", {}, L(0)}, {Get, u"CellAlignment", {}, I(9)}, {Put, u"Row", {L(2)}},
        {Put, u"CellBackColor", {L(255)}}, {Put, u"CellAlignment", {I(6)}}, {Put, u"CellAlignment", {I(10)}, {}, 380},
        {Put, u"CellFontBold", {B(true)}}, {Put, u"CellFontName", {S(u"Small Fonts")}}, {Put, u"CellFontSize", {L(1)}},
        {Put, u"CellPicture", {S(u"x")}, {}, 424}, {Get, u"CellBackColor", {}, L(255)},
        {Get, u"CellAlignment", {}, I(6)}, {Get, u"CellFontBold", {}, B(true)},
        {Get, u"CellFontName", {}, S(u"Small Fonts")}, {Get, u"CellFontSize", {}, Variant(1.0)}, {Put, u"Row", {L(1)}},
        {Get, u"CellBackColor", {}, L(0)}, {Get, u"CellFontBold", {}, B(false)}});
    // clang-format on
    std::vector<std::pair<std::int32_t, std::int32_t>> formatted;
    grid->forEachFormattedCell(
        [&](std::int32_t r, std::int32_t c, const CellFormat&) { formatted.emplace_back(r, c); });
    EXPECT_EQ(formatted, (std::vector<std::pair<std::int32_t, std::int32_t>>{{2, 1}}));
}

// The first column's text and the back colour of column 1, row by row.
std::vector<std::pair<String, std::int32_t>> rowsOf(const FlexGrid& grid) {
    std::vector<std::pair<String, std::int32_t>> rows;
    for (std::int32_t r = 0; r < grid.rows(); ++r) {
        const CellFormat* f = grid.cellFormat(r, 1);
        rows.emplace_back(grid.textMatrix(r, 0), f && f->backColor ? *f->backColor : 0);
    }
    return rows;
}

TEST(FlexGrid, FormattingFollowsItsRowAndGoesWithIt) {
    FlexGrid grid(u"g", 5, 3);
    for (std::int32_t r = 1; r < 5; ++r) {
        grid.setRow(r);
        grid.setTextMatrix(r, 0, String(1, static_cast<char16_t>(u'a' + r)));
        grid.setCellBackColor(r * 10);
    }
    grid.removeItem(2);  // "c" and its colour 20 go
    grid.addItem(u"n\tm", 1);
    EXPECT_EQ(rowsOf(grid),
              (std::vector<std::pair<String, std::int32_t>>{{u"", 0}, {u"n", 0}, {u"b", 10}, {u"d", 30}, {u"e", 40}}));
    EXPECT_EQ(grid.textMatrix(1, 1), u"m");
    grid.setRow(3);
    grid.setCellBackColor(0);  // back to the grid's colour: no formatting left
    EXPECT_EQ(grid.cellFormat(3, 1), nullptr);
    grid.setCols(1);
    grid.setCols(3);
    EXPECT_EQ(grid.cellFormat(4, 1), nullptr);
    grid.clear();
    EXPECT_EQ(grid.textMatrix(4, 0), u"");
    EXPECT_EQ(grid.rows(), 5);
}

TEST(FlexGrid, RemovingRowsStopsAtTheLastNonFixedRow) {
    struct Case {
        std::int32_t rows, fixedRows, remove;
        int error;
        std::int32_t rowsAfter;
    };
    const Case cases[] = {
        {3, 1, 2, 0, 2}, {2, 1, 1, 30015, 2}, {1, 0, 0, 30015, 1},
        {2, 0, 0, 0, 1}, {3, 1, 0, 381, 3},   {3, 1, 3, 381, 3},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::to_string(c.rows) + " rows, removing " + std::to_string(c.remove));
        FlexGrid grid(u"g", c.rows, 2);
        grid.setFixedRows(c.fixedRows);
        EXPECT_EQ(errorNumberOf([&] { grid.call(u"RemoveItem", {L(c.remove)}); }), c.error);
        EXPECT_EQ(grid.rows(), c.rowsAfter);
    }
}

TEST(FlexGrid, RecordsEachCallInOrderUnderItsOwnNameAndSharesItsFont) {
    auto grid = std::make_shared<FlexGrid>(u"g", 3, 3);
    grid->get(u"rows");
    grid->put(u"ROWS", L(2));
    grid->put(u"cellbackcolor", L(5));
    grid->call(u"Clear");
    EXPECT_EQ(errorNumberOf([&] { grid->get(u"TextMatrix", {L(9), L(9)}); }), 381);
    EXPECT_EQ(errorNumberOf([&] { grid->get(u"Nada"); }), 438);
    EXPECT_EQ(grid->calls(), (std::vector<String>{u"Rows", u"Rows=", u"CellBackColor=", u"Clear", u"TextMatrix"}));
    ObjectRef font = grid->get(u"Font").get<ObjectRef>();
    font->put(u"Size", Variant(12.0));
    EXPECT_TRUE(identical(grid->get(u"CellFontSize"), Variant(12.0)));
    EXPECT_EQ(errorNumberOf([&] { font->put(u"Size", L(0)); }), 380);
    EXPECT_EQ(errorNumberOf([&] { grid->put(u"Font", S(u"Arial")); }), 424);
}

}  // namespace
}  // namespace telvaro::objects

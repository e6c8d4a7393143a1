// Colours, alignment, fonts and widths: the cells formatted, the member
// calls in order, the current cell put back.
#include "grid/grid_fixture.h"

namespace telvaro::gridtest {
namespace {

class Formatting : public GridMethods {
protected:
    // A 4 x 4 grid whose current cell is (2, 3).
    std::shared_ptr<objects::FlexGrid> grid() {
        auto g = makeGrid(Rows(4, std::vector<std::string>(4)));
        g->setRow(2);
        g->setCol(3);
        g->clearCalls();
        return g;
    }
};

// The cells that have formatting, as "row,col".
std::vector<std::string> formattedCells(const objects::FlexGrid& grid) {
    std::vector<std::string> cells;
    grid.forEachFormattedCell([&](std::int32_t r, std::int32_t c, const objects::CellFormat&) {
        cells.push_back(std::to_string(r) + "," + std::to_string(c));
    });
    return cells;
}

TEST_F(Formatting, FormatsInTheMethodsOrderAndPutsTheCurrentCellBack) {
    // clang-format off
    const std::vector<std::tuple<const char*, std::vector<Variant>, std::vector<std::string>, std::string>> cases = {
        {"fn_PintaFilaGrid", {1}, {"1,1", "1,2", "1,3"}, "Cols Col Row Row= Col= CellBackColor= CellForeColor= Col= "
         "CellBackColor= CellForeColor= Col= CellBackColor= CellForeColor= Col= Row="},
        {"fn_PintaColumnaGrid", {I16{0}, 255, 0, 2, -7}, {"2,0", "3,0"}, "Rows Col Row Col= Row= CellBackColor= "
         "CellForeColor= Row= CellBackColor= CellForeColor= Col= Row="},
        {"fn_CentraColumGrid", {I16{1}, I16{4}, 1, 1}, {"1,1"},
         "Col Row Redraw= Col= Row= CellAlignment= Col= Row= Redraw="},
        {"fn_CambiaLetraFilaGrid", {1, 12.0, True, False, False, u"Arial", I16{1}, I16{1}}, {"1,1"},
         "Col Row Row= Redraw= Col= CellFontBold= CellFontItalic= CellFontUnderline= CellFontSize= CellFontName= "
         "Row= Col= Redraw="},
    };
    // clang-format on
    for (const auto& [method, args, cells, calls] : cases) {
        SCOPED_TRACE(method);
        auto g = grid();
        run(method, g, args);
        EXPECT_EQ(formattedCells(*g), cells);
        EXPECT_EQ(callsOf(*g), calls);
        EXPECT_EQ(g->row(), 2);
        EXPECT_EQ(g->col(), 3);
        EXPECT_TRUE(g->redraw());
    }
    auto g = grid();
    run("fn_PintaFilaGrid", g, {1});
    EXPECT_EQ(g->cellFormat(1, 2)->backColor, static_cast<std::int32_t>(0x80000005u));
    EXPECT_EQ(g->cellFormat(1, 2)->foreColor, static_cast<std::int32_t>(0x80000008u));
    run("fn_CentraFilaGrid", g);
    EXPECT_EQ(formattedCells(*g), (std::vector<std::string>{"0,0", "0,1", "0,2", "0,3", "1,1", "1,2", "1,3"}));
    EXPECT_EQ(g->cellFormat(0, 3)->alignment, I16{4});
    run("fn_CambiaLetraFilaGrid", g, {3});
    const objects::CellFormat* cell = g->cellFormat(3, 3);
    ASSERT_NE(cell, nullptr);
    EXPECT_EQ(cell->fontBold, true);
    EXPECT_EQ(cell->fontItalic, false);
    EXPECT_EQ(cell->fontSize, 10.0);
    EXPECT_EQ(cell->fontName, String(u"MS Sans Serif"));
    EXPECT_EQ(g->cellFormat(3, 0), nullptr) << "the fixed column is left";
}

TEST_F(Formatting, ChangesColumnWidths) {
    // clang-format off
    const std::vector<std::tuple<const char*, const char*, std::vector<std::int32_t>, int>> cases = {
        {"1,2", "1200,800", {960, 1200, 800, 960}, 0},
        {"1,2", "1200", {960, 1200, 960, 960}, 9},      // a width missing
        {"1,x", "1,2", {960, 1, 960, 960}, 13},         // the last column is text: the grid refuses "x"
        {"9", "100", {960, 960, 960, 960}, 381},        // outside the grid
    };
    // clang-format on
    for (const auto& [columns, widths, expected, error] : cases) {
        SCOPED_TRACE(std::string(columns) + " / " + widths);
        auto g = grid();
        EXPECT_EQ(errorOf("fn_CambiaAnchoColumnaGrid", g, {fromUtf8(columns), fromUtf8(widths)}), error);
        for (int col = 0; col < 4; ++col) EXPECT_EQ(g->colWidth(col), expected[static_cast<std::size_t>(col)]) << col;
        EXPECT_EQ(g->redraw(), error == 0);
    }
}

}  // namespace
}  // namespace telvaro::gridtest

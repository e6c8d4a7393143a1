// Colours, alignment, fonts and widths: the cells formatted, the current
// cell put back, painting, the member-call order and the limits of the
// Byte-held values.
#include "grid/grid_fixture.h"

namespace telvaro::gridtest {
namespace {

constexpr std::int32_t kBackground = static_cast<std::int32_t>(0x80000005u);
constexpr std::int32_t kText = static_cast<std::int32_t>(0x80000008u);

class Formatting : public GridMethods {
protected:
    // A 4 x 4 grid whose current cell is (2, 3).
    std::shared_ptr<objects::FlexGrid> grid() {
        auto g = makeGrid({{"", "", "", ""}, {"", "", "", ""}, {"", "", "", ""}, {"", "", "", ""}});
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

TEST_F(Formatting, PaintsARowOrAColumnAndPutsTheCurrentCellBack) {
    struct Case {
        const char* method;
        std::vector<Variant> args;
        std::vector<std::string> cells;
    };
    const std::vector<Case> cases = {
        {"fn_PintaFilaGrid", {1}, {"1,1", "1,2", "1,3"}},
        {"fn_PintaFilaGrid", {0, 255, 0, I16{0}, I16{1}}, {"0,0", "0,1"}},
        {"fn_PintaColumnaGrid", {I16{2}}, {"1,2", "2,2", "3,2"}},
        {"fn_PintaColumnaGrid", {I16{0}, 255, 0, 2, -7}, {"2,0", "3,0"}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.method);
        auto g = grid();
        run(c.method, g, c.args);
        EXPECT_EQ(formattedCells(*g), c.cells);
        EXPECT_EQ(g->row(), 2);
        EXPECT_EQ(g->col(), 3);
        EXPECT_TRUE(g->redraw());
    }
    auto g = grid();
    run("fn_PintaFilaGrid", g, {1});
    const objects::CellFormat* cell = g->cellFormat(1, 2);
    ASSERT_NE(cell, nullptr);
    EXPECT_EQ(cell->backColor, kBackground);
    EXPECT_EQ(cell->foreColor, kText);
}

TEST_F(Formatting, MemberCallsFollowTheMethodsOrder) {
    struct Case {
        const char* method;
        std::vector<Variant> args;
        std::string calls;
    };
    const std::vector<Case> cases = {
        {"fn_PintaFilaGrid", {1, 1, 2, I16{1}, I16{1}}, "Col Row Row= Col= CellBackColor= CellForeColor= Col= Row="},
        {"fn_PintaColumnaGrid", {I16{1}, 1, 2, 1, 1}, "Col Row Col= Row= CellBackColor= CellForeColor= Col= Row="},
        {"fn_CentraFilaGrid",
         {1, I16{4}, I16{1}, I16{1}},
         "Redraw= Col Row Row= Col= CellAlignment= Col= Row= Redraw="},
        {"fn_CentraColumGrid", {I16{1}, I16{4}, 1, 1}, "Col Row Redraw= Col= Row= CellAlignment= Col= Row= Redraw="},
        {"fn_CambiaLetraFilaGrid",
         {1, 12.0, True, False, False, u"Arial", I16{1}, I16{1}},
         "Col Row Row= Redraw= Col= CellFontBold= CellFontItalic= CellFontUnderline= CellFontSize= CellFontName= Row= "
         "Col= Redraw="},
        {"fn_CentraFilaGrid",
         {},
         "Redraw= Cols Col Row Row= Col= CellAlignment= Col= CellAlignment= Col= CellAlignment= Col= CellAlignment= "
         "Col= Row= Redraw="},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.method);
        auto g = grid();
        run(c.method, g, c.args);
        EXPECT_EQ(callsOf(*g), c.calls);
    }
}

TEST_F(Formatting, CentresAndRefonts) {
    auto g = grid();
    run("fn_CentraFilaGrid", g);
    for (int col = 0; col < 4; ++col) EXPECT_EQ(g->cellFormat(0, col)->alignment, I16{4}) << col;
    run("fn_CambiaLetraFilaGrid", g, {3});
    const objects::CellFormat* cell = g->cellFormat(3, 3);
    ASSERT_NE(cell, nullptr);
    EXPECT_EQ(cell->fontBold, true);
    EXPECT_EQ(cell->fontItalic, false);
    EXPECT_EQ(cell->fontSize, 10.0);
    EXPECT_EQ(cell->fontName, String(u"MS Sans Serif"));
    EXPECT_EQ(g->cellFormat(3, 0), nullptr) << "the fixed column is left";
}

TEST_F(Formatting, ACurrentColumnAbove255OverflowsInTheCentringMethods) {
    auto wide = std::make_shared<objects::FlexGrid>(u"Grid", 3, 400);
    wide->setCol(300);
    wide->clearCalls();
    EXPECT_EQ(errorOf("fn_CentraColumGrid", wide, {I16{1}}), 6);
    EXPECT_EQ(formattedCells(*wide), std::vector<std::string>{});
    EXPECT_TRUE(wide->redraw()) << "untouched";
    EXPECT_EQ(errorOf("fn_CentraFilaGrid", wide), 6);
    EXPECT_FALSE(wide->redraw()) << "painting was already off";
    wide->setRedraw(true);
    EXPECT_EQ(errorOf("fn_PintaFilaGrid", wide, {1, 0, 0, I16{1}, I16{1}}), 0);
}

TEST_F(Formatting, ChangesColumnWidths) {
    struct Case {
        const char* columns;
        const char* widths;
        std::vector<std::int32_t> expected;  // ColWidth of columns 0..3
        int error;
        bool redraw;
    };
    const std::vector<Case> cases = {
        {"1,2", "1200,800", {960, 1200, 800, 960}, 0, true},
        {"3", "500,600,700", {960, 960, 960, 500}, 0, true},  // extra widths ignored
        {"1,2", "1200", {960, 1200, 960, 960}, 9, false},     // a width missing
        {"1,x", "1,2", {960, 1, 960, 960}, 13, false},        // the last column is text: the grid refuses "x"
        {"9", "100", {960, 960, 960, 960}, 381, false},       // outside the grid
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.columns) + " / " + c.widths);
        auto g = grid();
        EXPECT_EQ(errorOf("fn_CambiaAnchoColumnaGrid", g, {fromUtf8(c.columns), fromUtf8(c.widths)}), c.error);
        for (int col = 0; col < 4; ++col) EXPECT_EQ(g->colWidth(col), c.expected[static_cast<std::size_t>(col)]) << col;
        EXPECT_EQ(g->redraw(), c.redraw);
    }
}

TEST_F(Formatting, A256ColumnListOverflowsTheByteCounter) {
    auto wide = std::make_shared<objects::FlexGrid>(u"Grid", 2, 300);
    String columns, widths;
    for (int i = 0; i < 256; ++i) {
        columns += (i ? u"," : u"") + fromUtf8(std::to_string(i));
        widths += (i ? u"," : u"") + String(u"100");
    }
    EXPECT_EQ(errorOf("fn_CambiaAnchoColumnaGrid", wide, {columns, widths}), 6);
    EXPECT_EQ(wide->colWidth(255), 100) << "every column was set before the counter overflowed";
    columns.resize(columns.rfind(u','));
    EXPECT_EQ(errorOf("fn_CambiaAnchoColumnaGrid", wide, {columns, widths}), 0);
}

}  // namespace
}  // namespace telvaro::gridtest

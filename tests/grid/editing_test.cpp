// Removing, filling, numbering and typing: what the grid holds afterwards,
// the member calls that got it there, and the Integer limits.
#include "grid/grid_fixture.h"

#include "objects/text_box.h"

namespace telvaro::gridtest {
namespace {

class Editing : public GridMethods {};

// What the grid holds after each editing method and, where given, the
// member calls that got it there.
TEST_F(Editing, EditsTheCells) {
    const Rows one = {{"h"}, {"a"}}, keys = {{"h", "k"}, {"1", ""}, {"2", ""}, {"3", "x"}},
               nulls = {{"h", "k"}, {"1", "NULO"}, {"2", "y"}, {"3", "nulo"}},
               cells = {{"h", "a", "b"}, {"1", "x", "y"}, {"2", "X", ""}, {"3", "z", ""}},
               numbered = {{"#", "n"}, {"a", ""}, {"b", ""}, {"c", ""}}, header = {{"", "k"}, {"1", "a"}, {"2", "b"}};
    struct Case {
        const char* method;
        Rows rows;
        std::int32_t fixedRows;
        std::vector<Variant> args;
        const char* texts;
        const char* calls;  // nullptr: not checked
    };
    // clang-format off
    const std::vector<Case> cases = {
        {"fn_QuitaFilaGrid2", {{"h"}, {"a"}, {"b"}}, 1, {I16{1}}, "h/b", "Rows RemoveItem"},
        {"fn_QuitaFilaGrid2", one, 1, {I16{0}}, "h", "Rows FixedRows Rows="},  // the only data row, whatever asked
        {"fn_QuitaFilaGrid2", one, 1, {I16{1}, True}, "h/", "Rows FixedRows Rows= Rows="},
        {"fn_QuitaFilaGrid2", {{"a"}, {"b"}}, 0, {I16{0}}, "b", "Rows FixedRows Rows RemoveItem"},
        {"fn_QuitaFilaGrid2", {{"a"}}, 0, {I16{0}}, "", "Rows FixedRows Rows Clear"},
        {"fn_QuitaFilasInvalidas", keys, 1, {I16{1}}, "h,k/3,x", nullptr},
        {"fn_QuitaFilasInvalidas", nulls, 1, {I16{1}, u"nulo"}, "h,k/2,y", nullptr},  // any case
        {"fn_QuitaFilasInvalidas", keys, 1, {I16{1}, u"", std::uint8_t{2}}, "h,k/1,/3,x", nullptr},  // FilasFixed
        {"fn_QuitaFilasInvalidas", keys, 1, {I16{9}}, "h,k/1,/2,/3,x", nullptr},  // a column outside the grid
        {"fn_QuitaFilasInvalidas", header, 1, {I16{0}, u"", std::uint8_t{0}}, ",k/1,a/2,b", nullptr},
        {"fn_ReemplazaValorColumnaGrid", cells, 1, {I16{1}, u"x", u"w"}, "h,a,b/1,w,y/2,w,/3,z,", nullptr},
        {"fn_ReemplazaValorColumnaGrid", cells, 1, {I16{2}, u"", 7, 2, 2}, "h,a,b/1,x,y/2,X,7/3,z,", nullptr},
        {"fn_LimpiaFilaGrid", cells, 1, {1, u"-", I16{0}, I16{1}}, "h,a,b/-,-,y/2,X,/3,z,", nullptr},
        {"fn_LimpiaAreaGrid", cells, 1, {}, "h,a,b/1,,/2,,/3,,", nullptr},
        {"fn_LimpiaAreaGrid", cells, 1, {I16{0}, I16{2}, I16{1}, I16{-1}, u"o"}, "h,a,o/1,x,o/2,X,/3,z,", nullptr},
        {"fn_NumeraColumnaGrid", numbered, 1, {}, "#,n/1,/2,/3,", nullptr},
        {"fn_NumeraColumnaGrid", numbered, 1, {I16{0}, I16{2}, I16{-1}, 10.0, -2.5, u")"}, "#,n/a,/10),/7.5),", {}},
    };
    // clang-format on
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.method) + " -> " + c.texts);
        auto grid = makeGrid(c.rows, c.fixedRows);
        EXPECT_EQ(errorOf(c.method, grid, c.args), 0);
        EXPECT_EQ(joinedTexts(*grid), c.texts);
        if (c.calls) {
            EXPECT_EQ(callsOf(*grid), c.calls);
        }
    }
    auto grid = makeGrid({{"h", "a"}, {"1", "x"}, {"2", "y"}});
    EXPECT_EQ(errorOf("fn_LimpiaFilaGrid", grid, {1, u"-", I16{0}, I16{3}}), 381);
    EXPECT_EQ(joinedTexts(*grid), "h,a/-,-/2,y") << "cells written before the failure stay written";
}

TEST_F(Editing, NumberingKeepsTheCallersStart) {
    run("fn_NumeraColumnaGrid", makeGrid({{"#"}, {""}}), {I16{0}, I16{1}, I16{-1}, 10.0, 1e308});
    EXPECT_EQ(describe(lastArgs()[4]), describe(Variant(10.0)));
    EXPECT_EQ(errorOf("fn_NumeraColumnaGrid", makeGrid({{"#"}, {""}, {""}}), {I16{0}, I16{1}, I16{-1}, 1e308, 1e308}),
              6);
}

// Integer and Byte counters: 6 past their largest value.
TEST_F(Editing, CountersOverflowTheirTypes) {
    auto big = std::make_shared<objects::FlexGrid>(u"Grid", 40000, 2);
    auto wide = std::make_shared<objects::FlexGrid>(u"Grid", 3, 400);
    wide->setCol(300);
    String columns, widths;  // 256 columns
    for (int i = 0; i < 256; ++i) {
        columns += (i ? u"," : u"") + fromUtf8(std::to_string(i));
        widths += (i ? u"," : u"") + String(u"100");
    }
    struct Case {
        const char* method;
        std::shared_ptr<objects::FlexGrid> grid;
        std::vector<Variant> args;
        int error;
    };
    // clang-format off
    const std::vector<Case> cases = {
        {"fn_LimpiaAreaGrid", big, {}, 6},
        {"fn_CuentaElementosColGrid", big, {I16{1}, u""}, 6},
        {"fn_NumeraColumnaGrid", big, {I16{0}, I16{32760}, I16{32767}}, 6},
        {"fn_CentraColumGrid", wide, {I16{1}}, 6},
        {"fn_CentraFilaGrid", wide, {}, 6},
        {"fn_CambiaAnchoColumnaGrid", wide, {columns, widths}, 6},
        {"fn_CambiaAnchoColumnaGrid", wide, {columns.substr(0, columns.rfind(u',')), widths}, 0},
    };
    // clang-format on
    for (const auto& c : cases) EXPECT_EQ(errorOf(c.method, c.grid, c.args), c.error) << c.method;
    EXPECT_EQ(toUtf8(big->textMatrix(32767, 0)), "8") << "numbered up to the last row the counter reached";
    EXPECT_EQ(wide->colWidth(255), 100) << "every column was set before the counter overflowed";
    EXPECT_EQ(shown(run("fn_BuscaColGrid", big, {I16{1}, u"x"})), shown(Variant(std::int32_t{-1})));
}

TEST_F(Editing, TypesIntoTheCurrentCell) {
    struct Case {
        std::int16_t key;
        const char* before;
        const char* after;
        std::int16_t keyAfter;
    };
    const std::vector<Case> cases = {
        {65, "ab", "abA", 65}, {241, "a", "añ", 241},  // the ANSI code page
        {13, "ab", "ab", 13},  {27, "ab", "ab", 27},  {8, "abc", "ab", 0},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.key);
        auto grid = makeGrid({{"h", "a"}, {"1", ""}});
        grid->setTextMatrix(1, 1, fromUtf8(c.before));
        run("EscribeGrid", grid, {c.key});
        EXPECT_EQ(toUtf8(grid->textMatrix(1, 1)), c.after);
        EXPECT_EQ(describe(lastArgs()[1]), describe(Variant(c.keyAfter)));
    }
    auto grid = makeGrid({{"h", "a"}, {"1", ""}});
    EXPECT_EQ(errorOf("EscribeGrid", grid, {I16{256}}), 5);
    EXPECT_EQ(errorOf("EscribeGrid", grid, {I16{-1}}), 5);
}

TEST_F(Editing, WrongObjectsGiveTheRuntimeErrors) {
    struct Case {
        const char* method;
        Variant grid;
        std::vector<Variant> args;
        int error;
    };
    // clang-format off
    const std::vector<Case> cases = {
        {"fn_BuscaColGrid", Variant(ObjectRef()), {I16{1}, u"x"}, 91},
        {"fn_LimpiaAreaGrid", Variant(ObjectRef(std::make_shared<objects::TextBox>(u"txt"))), {}, 438},
        {"fn_QuitaFilaGrid2", Variant(u"Grid"), {I16{1}}, 13},
        {"fn_LimpiaFilaGrid", Variant(ObjectRef(makeGrid({{"a"}}))), {1, u"", I16{0}, 40000}, 6},
    };
    // clang-format on
    for (const auto& c : cases) {
        SCOPED_TRACE(c.method);
        EXPECT_EQ(errorOf(c.method, c.grid, c.args), c.error);
    }
}

}  // namespace
}  // namespace telvaro::gridtest

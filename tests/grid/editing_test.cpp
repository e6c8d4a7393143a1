// Removing, filling, numbering and typing: what the grid holds afterwards,
// the member calls that got it there, and the Integer limits.
#include "grid/grid_fixture.h"

#include "objects/text_box.h"

namespace telvaro::gridtest {
namespace {

class Editing : public GridMethods {};

TEST_F(Editing, RemovesARowOrShrinksTheGrid) {
    struct Case {
        const char* what;
        Rows rows;
        std::int32_t fixedRows;
        std::vector<Variant> args;  // Fila, Dejar1Fila
        Rows expected;
        std::string calls;
    };
    const std::vector<Case> cases = {
        {"more than two rows: RemoveItem", {{"h"}, {"a"}, {"b"}}, 1, {I16{1}}, {{"h"}, {"b"}}, "Rows RemoveItem"},
        {"the only data row: back to the header", {{"h"}, {"a"}}, 1, {I16{1}}, {{"h"}}, "Rows FixedRows Rows="},
        {"the only data row, one left empty",
         {{"h"}, {"a"}},
         1,
         {I16{1}, True},
         {{"h"}, {""}},
         "Rows FixedRows Rows= Rows="},
        {"whatever the row asked", {{"h"}, {"a"}}, 1, {I16{0}}, {{"h"}}, "Rows FixedRows Rows="},
        {"no fixed rows, two rows", {{"a"}, {"b"}}, 0, {I16{0}}, {{"b"}}, "Rows FixedRows Rows RemoveItem"},
        {"no fixed rows, one row: Clear", {{"a"}}, 0, {I16{0}}, {{""}}, "Rows FixedRows Rows Clear"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        auto grid = makeGrid(c.rows, c.fixedRows);
        run("fn_QuitaFilaGrid2", grid, c.args);
        EXPECT_EQ(textsOf(*grid), c.expected);
        EXPECT_EQ(callsOf(*grid), c.calls);
    }
}

TEST_F(Editing, RemovesTheInvalidRows) {
    struct Case {
        const char* what;
        Rows rows;
        std::vector<Variant> args;  // ColumnaBuscar, ValorNulo, FilasFixed
        Rows expected;
    };
    const std::vector<Case> cases = {
        {"empty keys go, x stays", {{"h", "k"}, {"1", ""}, {"2", ""}, {"3", "x"}}, {I16{1}}, {{"h", "k"}, {"3", "x"}}},
        {"all empty: only the header", {{"h", "k"}, {"1", ""}, {"2", ""}}, {I16{1}}, {{"h", "k"}}},
        {"a chosen value, any case",
         {{"h", "k"}, {"1", "NULO"}, {"2", "y"}, {"3", "nulo"}},
         {I16{1}, u"nulo"},
         {{"h", "k"}, {"2", "y"}}},
        {"rows above FilasFixed are kept",
         {{"h", "k"}, {"1", ""}, {"2", ""}, {"3", "x"}},
         {I16{1}, u"", std::uint8_t{2}},
         {{"h", "k"}, {"1", ""}, {"3", "x"}}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        auto grid = makeGrid(c.rows);
        run("fn_QuitaFilasInvalidas", grid, c.args);
        EXPECT_EQ(textsOf(*grid), c.expected);
    }
}

TEST_F(Editing, InvalidRowsNeverFailNorHang) {
    // A column outside the grid, a header row that matches but cannot be
    // removed, Nothing, an object that is no grid: the method returns.
    EXPECT_EQ(errorOf("fn_QuitaFilasInvalidas", makeGrid({{"h", "k"}, {"1", ""}}), {I16{9}}), 0);
    auto header = makeGrid({{"", "k"}, {"1", "a"}, {"2", "b"}});
    EXPECT_EQ(errorOf("fn_QuitaFilasInvalidas", header, {I16{0}, u"", std::uint8_t{0}}), 0);
    EXPECT_EQ(textsOf(*header), (Rows{{"", "k"}, {"1", "a"}, {"2", "b"}}));
    EXPECT_EQ(errorOf("fn_QuitaFilasInvalidas", Variant(ObjectRef()), {I16{1}}), 0);
    auto box = std::make_shared<objects::TextBox>(u"txt");
    EXPECT_EQ(errorOf("fn_QuitaFilasInvalidas", Variant(ObjectRef(box)), {I16{1}}), 0);
}

TEST_F(Editing, ReplacesAndFills) {
    const Rows start = {{"h", "a", "b"}, {"1", "x", "y"}, {"2", "X", ""}, {"3", "z", ""}};
    struct Case {
        const char* method;
        std::vector<Variant> args;
        Rows expected;
    };
    const std::vector<Case> cases = {
        {"fn_ReemplazaValorColumnaGrid",
         {I16{1}, u"x", u"w"},
         {{"h", "a", "b"}, {"1", "w", "y"}, {"2", "w", ""}, {"3", "z", ""}}},
        {"fn_ReemplazaValorColumnaGrid", {I16{2}}, start},  // "" by "": nothing changes
        {"fn_ReemplazaValorColumnaGrid",
         {I16{2}, u"", 7, 2, 2},
         {{"h", "a", "b"}, {"1", "x", "y"}, {"2", "X", "7"}, {"3", "z", ""}}},
        {"fn_LimpiaFilaGrid", {2}, {{"h", "a", "b"}, {"1", "x", "y"}, {"2", "", ""}, {"3", "z", ""}}},
        {"fn_LimpiaFilaGrid",
         {1, u"-", I16{0}, I16{1}},
         {{"h", "a", "b"}, {"-", "-", "y"}, {"2", "X", ""}, {"3", "z", ""}}},
        {"fn_LimpiaAreaGrid", {}, {{"h", "a", "b"}, {"1", "", ""}, {"2", "", ""}, {"3", "", ""}}},
        {"fn_LimpiaAreaGrid",
         {I16{0}, I16{2}, I16{1}, I16{-1}, u"o"},
         {{"h", "a", "o"}, {"1", "x", "o"}, {"2", "X", ""}, {"3", "z", ""}}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.method) + " " + std::to_string(c.args.size()));
        auto grid = makeGrid(start);
        run(c.method, grid, c.args);
        EXPECT_EQ(textsOf(*grid), c.expected);
    }
}

TEST_F(Editing, CellsWrittenBeforeAFailureStayWritten) {
    auto grid = makeGrid({{"h", "a"}, {"1", "x"}, {"2", "y"}});
    EXPECT_EQ(errorOf("fn_LimpiaFilaGrid", grid, {1, u"-", I16{0}, I16{3}}), 381);
    EXPECT_EQ(textsOf(*grid), (Rows{{"h", "a"}, {"-", "-"}, {"2", "y"}}));
}

TEST_F(Editing, NumbersAColumn) {
    struct Case {
        const char* what;
        std::vector<Variant> args;  // Columna, FilaInicial, FilaFin, NumeroInicial, Incremento, SignoNumero
        std::vector<std::string> expected;
    };
    const std::vector<Case> cases = {
        {"defaults", {}, {"1", "2", "3"}},
        {"down by 2.5 with a suffix", {I16{0}, I16{1}, I16{-1}, 10.0, -2.5, u")"}, {"10)", "7.5)", "5)"}},
        {"a dot after each", {I16{0}, I16{2}, I16{-1}, 1.0, 1.0, u"."}, {"a", "1.", "2."}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        auto grid = makeGrid({{"#", "n"}, {"a", ""}, {"b", ""}, {"c", ""}});
        run("fn_NumeraColumnaGrid", grid, c.args);
        EXPECT_EQ(columnOf(*grid, 0), c.expected);
    }
    Variant start(10.0);
    auto grid = makeGrid({{"#"}, {""}});
    run("fn_NumeraColumnaGrid", grid, {I16{0}, I16{1}, I16{-1}, start, 1e308});
    EXPECT_EQ(describe(lastArgs()[4]), describe(Variant(10.0))) << "the caller's NumeroInicial is kept";
    EXPECT_EQ(errorOf("fn_NumeraColumnaGrid", makeGrid({{"#"}, {""}, {""}}), {I16{0}, I16{1}, I16{-1}, 1e308, 1e308}),
              6);
}

TEST_F(Editing, IntegerCountersOverflowPast32767) {
    auto big = std::make_shared<objects::FlexGrid>(u"Grid", 40000, 2);
    struct Case {
        const char* method;
        std::vector<Variant> args;
    };
    const std::vector<Case> cases = {
        {"fn_NumeraColumnaGrid", {}},
        {"fn_LimpiaAreaGrid", {}},
        {"fn_CuentaElementosColGrid", {I16{1}, u""}},
        {"fn_NumeraColumnaGrid", {I16{0}, I16{32760}, I16{32767}}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.method);
        EXPECT_EQ(errorOf(c.method, big, c.args), 6);
    }
    EXPECT_EQ(toUtf8(big->textMatrix(32767, 0)), "8") << "numbered up to the last row the counter reached";
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
        {13, "ab", "ab", 13},  {27, "ab", "ab", 27},  {8, "abc", "ab", 0}, {8, "", "", 0},
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
    EXPECT_EQ(errorOf("EscribeGrid", grid, {I16{300}}), 5);
    EXPECT_EQ(errorOf("EscribeGrid", grid, {I16{-3}}), 5);
}

TEST_F(Editing, WrongObjectsGiveTheRuntimeErrors) {
    auto box = std::make_shared<objects::TextBox>(u"txt");
    struct Case {
        const char* method;
        Variant grid;
        std::vector<Variant> args;
        int error;
    };
    const std::vector<Case> cases = {
        {"fn_BuscaColGrid", Variant(ObjectRef()), {I16{1}, u"x"}, 91},
        {"fn_LimpiaAreaGrid", Variant(ObjectRef(box)), {}, 438},
        {"fn_QuitaFilaGrid2", Variant(u"Grid"), {I16{1}}, 13},
        {"fn_NumeraColumnaGrid", Variant(ObjectRef(makeGrid({{"a"}}))), {u"x"}, 13},
        {"fn_LimpiaFilaGrid", Variant(ObjectRef(makeGrid({{"a"}}))), {1, u"", I16{0}, 40000}, 6},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.method);
        EXPECT_EQ(errorOf(c.method, c.grid, c.args), c.error);
    }
}

}  // namespace
}  // namespace telvaro::gridtest

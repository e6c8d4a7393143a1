// Searching and counting cells: first match wins, case does not matter,
// numbers compare through their text, negative ends mean the last row or
// column, and the grid's errors reach the caller.
#include "grid/grid_fixture.h"

namespace telvaro::gridtest {
namespace {

const Rows kCodes = {
    {"#", "Código", "Nombre"}, {"1", "abc", "Pan"}, {"2", "5", "Leche"}, {"3", "ABC", "5.0"}, {"4", "", "05"},
};

class Search : public GridMethods {};

TEST_F(Search, FindsTheFirstRowOfAColumn) {
    const Variant m = Variant::missing();
    struct Case {
        const char* what;
        std::vector<Variant> args;  // Columna, Valor, FilaInic, FilaFin
        std::int32_t expected;
    };
    const std::vector<Case> cases = {
        {"upper of two matches, any case", {I16{1}, u"Abc"}, 1},
        {"from row 2 on", {I16{1}, u"abc", 2}, 3},
        {"a number by its text", {I16{1}, I16{5}}, 2},
        {"the number 5.0 reads 5, not \"5.0\"", {I16{2}, 5.0}, -1},
        {"the text 5.0", {I16{2}, u"5.0"}, 3},
        {"5 is not 05", {I16{2}, std::int32_t{5}}, -1},
        {"the empty cell", {I16{1}, u""}, 4},
        {"any negative end is the last row", {I16{1}, u"", 1, -5}, 4},
        {"end 0 scans nothing", {I16{1}, u"abc", 1, 0}, -1},
        {"start past end", {I16{1}, u"abc", 3, 2}, -1},
        {"the header row when asked", {I16{1}, u"código", 0}, 0},
        {"Null matches nothing", {I16{1}, Variant(Null{}), m, m}, -1},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(shown(run("fn_BuscaColGrid", makeGrid(kCodes), c.args)), shown(Variant(c.expected)));
    }
}

TEST_F(Search, FindsTheFirstColumnOfARow) {
    struct Case {
        const char* what;
        std::vector<Variant> args;  // Fila, Valor, ColInic, ColFin
        std::int32_t expected;
    };
    const std::vector<Case> cases = {
        {"from column 1", {3, u"abc"}, 1},
        {"the fixed column only when asked", {3, u"3", I16{0}}, 0},
        {"not in the fixed column by default", {3, u"3"}, -1},
        {"65535 as an Integer is the last column", {3, u"5.0", I16{1}, I16{-1}}, 2},
        {"up to column 1", {3, u"5.0", I16{1}, I16{1}}, -1},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(shown(run("fn_BuscaFilGrid", makeGrid(kCodes), c.args)), shown(Variant(c.expected)));
    }
}

TEST_F(Search, AGridOfOnlyItsHeaderIsNotRead) {
    auto grid = makeGrid({{"#", "Código"}});
    EXPECT_EQ(shown(run("fn_BuscaColGrid", grid, {I16{1}, u"x"})), shown(Variant(std::int32_t{-1})));
    EXPECT_EQ(callsOf(*grid), "Rows");
}

TEST_F(Search, CountsTheCellsThatPassTheComparison) {
    const Rows numbers = {{"#", "n"}, {"1", "5"}, {"2", ""}, {"3", "-1"}, {"4", "abc"}, {"5", "12 cajas"}};
    struct Case {
        const char* operation;
        Variant value;
        std::int16_t expected;
    };
    const std::vector<Case> cases = {
        {">", I16{0}, 2},                  // 5 and "12 cajas"; the empty cell is skipped, "abc" is 0
        {">=", I16{0}, 3},                 // and "abc"
        {"<", I16{0}, 1},                  // -1
        {"<=", u"5", 3},                   // 5, -1, abc
        {"=", u"ABC", 1},  {"=", u"", 1},  // the empty cell counts only for "="
        {"<>", u"5", 0},                   // no such operation
        {">", u"4.5", 2},                  // "." is the decimal mark
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.operation) + " " + describe(c.value));
        EXPECT_EQ(shown(run("fn_CuentaElementosColGrid", makeGrid(numbers), {I16{1}, c.value, fromUtf8(c.operation)})),
                  shown(Variant(c.expected)));
    }
}

TEST_F(Search, ErrorsOfTheGridReachTheCaller) {
    struct Case {
        const char* method;
        std::vector<Variant> args;
        int error;
    };
    const std::vector<Case> cases = {
        {"fn_BuscaColGrid", {I16{7}, u"x"}, 381},        // column outside the grid
        {"fn_BuscaColGrid", {I16{1}, u"x", 1, 9}, 381},  // rows past the end
        {"fn_BuscaFilGrid", {9, u"x"}, 381},
        {"fn_CuentaElementosColGrid", {I16{1}, Variant(Null{}), u">"}, 94},
        {"fn_BuscaColGrid", {I16{1}, u"x", 2147483647, 2147483647}, 381},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.method);
        EXPECT_EQ(errorOf(c.method, makeGrid(kCodes), c.args), c.error);
    }
}

TEST_F(Search, AnIntegerEndOverflowsOnAGridOfMoreThan32768Rows) {
    auto grid = std::make_shared<objects::FlexGrid>(u"Grid", 40000, 2);
    EXPECT_EQ(errorOf("fn_CuentaElementosColGrid", grid, {I16{1}, u""}), 6);
    EXPECT_EQ(shown(run("fn_BuscaColGrid", grid, {I16{1}, u"x"})), shown(Variant(std::int32_t{-1})));
}

}  // namespace
}  // namespace telvaro::gridtest

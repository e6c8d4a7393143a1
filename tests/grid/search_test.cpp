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

TEST_F(Search, FindsTheFirstRowOfAColumnOrColumnOfARow) {
    const Variant m = Variant::missing();
    struct Case {
        const char* method;
        std::vector<Variant> args;  // Columna, Valor, FilaInic, FilaFin or Fila, Valor, ColInic, ColFin
        std::int32_t expected;
    };
    // clang-format off
    const std::vector<Case> cases = {
        {"fn_BuscaColGrid", {I16{1}, u"Abc"}, 1},                // the upper of two matches, any case
        {"fn_BuscaColGrid", {I16{1}, u"abc", 2}, 3},
        {"fn_BuscaColGrid", {I16{1}, I16{5}}, 2},                // a number by its text
        {"fn_BuscaColGrid", {I16{2}, 5.0}, -1},                  // the number 5.0 reads 5, not "5.0"
        {"fn_BuscaColGrid", {I16{1}, u"", 1, -5}, 4},            // any negative end is the last row
        {"fn_BuscaColGrid", {I16{1}, u"abc", 1, 0}, -1},
        {"fn_BuscaColGrid", {I16{1}, u"código", 0}, 0},          // the header row when asked
        {"fn_BuscaColGrid", {I16{1}, Variant(Null{}), m, m}, -1},
        {"fn_BuscaFilGrid", {3, u"abc"}, 1},
        {"fn_BuscaFilGrid", {3, u"3"}, -1},                      // not in the fixed column by default
        {"fn_BuscaFilGrid", {3, u"5.0", I16{1}, I16{-1}}, 2},    // 65535 as an Integer is the last column
    };
    // clang-format on
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.method) + " " + describe(c.args[1]));
        EXPECT_EQ(shown(run(c.method, makeGrid(kCodes), c.args)), shown(Variant(c.expected)));
    }
}

TEST_F(Search, CountsTheCellsThatPassTheComparison) {
    const Rows numbers = {{"#", "n"}, {"1", "5"}, {"2", ""}, {"3", "-1"}, {"4", "abc"}, {"5", "12 cajas"}};
    struct Case {
        const char* operation;
        Variant value;
        std::int16_t expected;
    };
    const std::vector<Case> cases = {
        {">", u"4.5", 2},                  // 5 and "12 cajas"; the empty cell is skipped; "." is the decimal mark
        {">=", I16{0}, 3},                 // and "abc", which is 0
        {"<", I16{0}, 1},                  // -1
        {"<=", u"5", 3},                   // 5, -1, abc
        {"=", u"ABC", 1},  {"=", u"", 1},  // the empty cell counts only for "="
        {"<>", u"5", 0},                   // no such operation
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
        {"fn_CuentaElementosColGrid", {I16{1}, Variant(Null{}), u">"}, 94},
        {"fn_BuscaColGrid", {I16{1}, u"x", 2147483647, 2147483647}, 381},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.method);
        EXPECT_EQ(errorOf(c.method, makeGrid(kCodes), c.args), c.error);
    }
}

}  // namespace
}  // namespace telvaro::gridtest

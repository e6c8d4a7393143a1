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
    // Columna, Valor, FilaInic, FilaFin or Fila, Valor, ColInic, ColFin
    // clang-format off
    const std::vector<std::tuple<const char*, std::vector<Variant>, std::int32_t>> cases = {
        {"fn_BuscaColGrid", {I16{1}, u"Abc"}, 1},                // the upper of two matches, any case
        {"fn_BuscaColGrid", {I16{1}, u"abc", 2}, 3},
        {"fn_BuscaColGrid", {I16{1}, I16{5}}, 2},                // a number by its text
        {"fn_BuscaColGrid", {I16{2}, 5.0}, -1},                  // the number 5.0 reads 5, not "5.0"
        {"fn_BuscaColGrid", {I16{1}, u"", 1, -5}, 4},            // any negative end is the last row
        {"fn_BuscaColGrid", {I16{1}, u"código", 0}, 0},          // the header row when asked
        {"fn_BuscaFilGrid", {3, u"abc"}, 1},
        {"fn_BuscaFilGrid", {3, u"3"}, -1},                      // not in the fixed column by default
        {"fn_BuscaFilGrid", {3, u"5.0", I16{1}, I16{-1}}, 2},    // 65535 as an Integer is the last column
    };
    // clang-format on
    for (const auto& [method, args, expected] : cases)
        EXPECT_EQ(describe(run(method, makeGrid(kCodes), args)), describe(Variant(expected))) << describe(args[1]);
}

TEST_F(Search, CountsTheCellsThatPassTheComparison) {
    const Rows numbers = {{"#", "n"}, {"1", "5"}, {"2", ""}, {"3", "-1"}, {"4", "abc"}, {"5", "12 cajas"}};
    const std::vector<std::tuple<const char*, Variant, std::int16_t>> cases = {
        {">", u"4.5", 2},                 // 5 and "12 cajas"; the empty cell is skipped; "." is the decimal mark
        {"<=", u"5", 3},                  // 5, -1, abc
        {"=", u"ABC", 1}, {"=", u"", 1},  // the empty cell counts only for "="
        {"<>", u"5", 0},                  // no such operation
    };
    for (const auto& [operation, value, expected] : cases)
        EXPECT_EQ(describe(run("fn_CuentaElementosColGrid", makeGrid(numbers), {I16{1}, value, fromUtf8(operation)})),
                  describe(Variant(expected)))
            << operation << " " << describe(value);
}

TEST_F(Search, ErrorsOfTheGridReachTheCaller) {
    EXPECT_EQ(errorOf("fn_BuscaColGrid", makeGrid(kCodes), {I16{7}, u"x"}), 381);        // column outside the grid
    EXPECT_EQ(errorOf("fn_BuscaColGrid", makeGrid(kCodes), {I16{1}, u"x", 1, 9}), 381);  // rows past the end
    EXPECT_EQ(errorOf("fn_CuentaElementosColGrid", makeGrid(kCodes), {I16{1}, Variant(Null{}), u">"}), 94);
}

}  // namespace
}  // namespace telvaro::gridtest

// Removing, filling, numbering and typing: what the grid holds afterwards,
// the member calls that got it there, and the Integer limits.
#include "grid/grid_fixture.h"

#include "objects/text_box.h"

namespace telvaro::gridtest {
namespace {

class Editing : public GridMethods {};

TEST_F(Editing, EditsTheCells) {
    const Rows one = {{"h"}, {"a"}}, keys = {{"h", "k"}, {"1", ""}, {"2", ""}, {"3", "x"}},
               cells = {{"h", "a", "b"}, {"1", "x", "y"}, {"2", "X", ""}, {"3", "z", ""}},
               numbered = {{"#", "n"}, {"a", ""}, {"b", ""}, {"c", ""}};
    // method, rows, fixed rows, arguments, the texts after, the member calls (nullptr: not checked)
    using Case = std::tuple<const char*, Rows, std::int32_t, std::vector<Variant>, const char*, const char*>;
    // clang-format off
    const std::vector<Case> cases = {
        {"fn_QuitaFilaGrid2", {{"h"}, {"a"}, {"b"}}, 1, {I16{1}}, "h/b", "Rows RemoveItem"},
        {"fn_QuitaFilaGrid2", one, 1, {I16{0}}, "h", "Rows FixedRows Rows="},  // the only data row, whatever asked
        {"fn_QuitaFilaGrid2", one, 1, {I16{1}, True}, "h/", "Rows FixedRows Rows= Rows="},
        {"fn_QuitaFilasInvalidas", keys, 1, {I16{1}}, "h,k/3,x", nullptr},
        {"fn_QuitaFilasInvalidas", keys, 1, {I16{1}, u"", std::uint8_t{2}}, "h,k/1,/3,x", nullptr},  // FilasFixed
        {"fn_ReemplazaValorColumnaGrid", cells, 1, {I16{1}, u"x", u"w"}, "h,a,b/1,w,y/2,w,/3,z,", nullptr},
        {"fn_ReemplazaValorColumnaGrid", cells, 1, {I16{2}, u"", 7, 2, 2}, "h,a,b/1,x,y/2,X,7/3,z,", nullptr},
        {"fn_LimpiaFilaGrid", cells, 1, {1, u"-", I16{0}, I16{1}}, "h,a,b/-,-,y/2,X,/3,z,", nullptr},
        {"fn_LimpiaAreaGrid", cells, 1, {}, "h,a,b/1,,/2,,/3,,", nullptr},
        {"fn_LimpiaAreaGrid", cells, 1, {I16{0}, I16{2}, I16{1}, I16{-1}, u"o"}, "h,a,o/1,x,o/2,X,/3,z,", nullptr},
        {"fn_NumeraColumnaGrid", numbered, 1, {}, "#,n/1,/2,/3,", nullptr},
        {"fn_NumeraColumnaGrid", numbered, 1, {I16{0}, I16{2}, I16{-1}, 10.0, -2.5, u")"}, "#,n/a,/10),/7.5),", {}},
    };
    // clang-format on
    for (const auto& [method, rows, fixedRows, args, texts, calls] : cases) {
        SCOPED_TRACE(std::string(method) + " -> " + texts);
        auto grid = makeGrid(rows, fixedRows);
        EXPECT_EQ(errorOf(method, grid, args), 0);
        EXPECT_EQ(joinedTexts(*grid), texts);
        EXPECT_TRUE(!calls || callsOf(*grid) == calls) << callsOf(*grid);
    }
    auto grid = makeGrid({{"h", "a"}, {"1", "x"}, {"2", "y"}});
    EXPECT_EQ(errorOf("fn_LimpiaFilaGrid", grid, {1, u"-", I16{0}, I16{3}}), 381);
    EXPECT_EQ(joinedTexts(*grid), "h,a/-,-/2,y") << "cells written before the failure stay written";
}

// The Integer row counter: 6 past its largest value.
TEST_F(Editing, CountersOverflowTheirTypes) {
    auto big = std::make_shared<objects::FlexGrid>(u"Grid", 40000, 2);
    EXPECT_EQ(errorOf("fn_NumeraColumnaGrid", big, {I16{0}, I16{32760}, I16{32767}}), 6);
    EXPECT_EQ(toUtf8(big->textMatrix(32767, 0)), "8") << "numbered up to the last row the counter reached";
}

TEST_F(Editing, TypesIntoTheCurrentCell) {
    const std::vector<std::tuple<std::int16_t, const char*, const char*, std::int16_t>> cases = {
        {241, "a", "añ", 241}, {13, "ab", "ab", 13}, {8, "abc", "ab", 0}};  // key, before, after, key after
    for (const auto& [key, before, after, keyAfter] : cases) {
        auto grid = makeGrid({{"h", "a"}, {"1", before}});
        run("EscribeGrid", grid, {key});
        EXPECT_EQ(toUtf8(grid->textMatrix(1, 1)), after) << key;
        EXPECT_EQ(describe(lastArgs()[1]), describe(Variant(keyAfter))) << key;
    }
    EXPECT_EQ(errorOf("EscribeGrid", makeGrid({{"h", "a"}, {"1", ""}}), {I16{256}}), 5);
}

TEST_F(Editing, WrongObjectsGiveTheRuntimeErrors) {
    EXPECT_EQ(errorOf("fn_BuscaColGrid", Variant(ObjectRef()), {I16{1}, u"x"}), 91);
    EXPECT_EQ(errorOf("fn_LimpiaAreaGrid", Variant(ObjectRef(std::make_shared<objects::TextBox>(u"txt")))), 438);
    EXPECT_EQ(errorOf("fn_QuitaFilaGrid2", Variant(u"Grid"), {I16{1}}), 13);
}

}  // namespace
}  // namespace telvaro::gridtest

// Check-box and picture cells: the value kept as hidden text, the toggle,
// the frmDll picture each value shows, and the picture files.
#include "grid/grid_fixture.h"

#include <filesystem>

#include "objects/check_box_pictures.h"
#include "objects/picture.h"
#include "objects/picture_files.h"
#include "platform/posix/home.h"

namespace telvaro::gridtest {
namespace {

// The source of the picture a cell shows ("imSI", a file name), "" for none.
std::string pictureOf(const objects::FlexGrid& grid, std::int32_t row, std::int32_t col) {
    const objects::CellFormat* cell = grid.cellFormat(row, col);
    if (!cell || !cell->picture) return "";
    return toUtf8(std::static_pointer_cast<objects::Picture>(cell->picture)->source());
}

class CheckBoxes : public GridMethods {};

TEST_F(CheckBoxes, OneCellShowsItsValueOrState) {
    const Variant m = Variant::missing();
    // method, the cell's text, the arguments after Fila and Columna, the text and picture after
    using Case = std::tuple<const char*, const char*, std::vector<Variant>, const char*, const char*>;
    const char* check = "fn_PoneCheckGrid";
    const char* byState = "fn_PoneCheck";  // Checked, Deshabilitado, PonerElValor
    // clang-format off
    const std::vector<Case> cases = {
        {check, "1", {}, "1", "imSI"}, {check, "0", {}, "0", "imNO"}, {check, "11", {}, "11", "imSid"},
        {check, "10", {}, "10", "imNOd"}, {check, "x", {}, "x", ""}, {check, "1", {m, m, m, m, True}, "0", "imNO"},
        {check, "10", {m, m, m, m, True}, "11", "imSid"}, {check, "SÍ", {u"sí", u"no"}, "SÍ", "imSI"},
        {check, "1", {I16{1}, I16{1}}, "1", "imNO"},  // equal values: the later test wins (ValorSI before ValorNO)
        {byState, "v", {}, "v", "imSI"}, {byState, "v", {True, True}, "v", "imSid"},
        {byState, "v", {False, True, I16{10}}, "10", "imNOd"},
    };
    // clang-format on
    for (const auto& [method, before, more, text, picture] : cases) {
        SCOPED_TRACE(std::string(method) + " " + before + " " + std::to_string(more.size()));
        auto grid = makeGrid({{"h", "v"}, {"1", before}});
        std::vector<Variant> args = {1, I16{1}};
        args.insert(args.end(), more.begin(), more.end());
        run(method, grid, args);
        EXPECT_EQ(toUtf8(grid->textMatrix(1, 1)), text);
        EXPECT_EQ(pictureOf(*grid, 1, 1), picture);
        EXPECT_TRUE(grid->redraw());
        EXPECT_EQ(grid->row(), 1);
        EXPECT_EQ(grid->col(), 1);
    }
    // The value is kept as hidden text under the picture.
    auto grid = makeGrid({{"h", "v"}, {"1", "1"}});
    run("fn_PoneCheckGrid", grid, {1, I16{1}});
    const objects::CellFormat* cell = grid->cellFormat(1, 1);
    EXPECT_EQ(cell->foreColor, static_cast<std::int32_t>(0x80000005u));
    EXPECT_EQ(cell->fontName, String(u"Small Fonts"));
    EXPECT_EQ(cell->fontSize, 1.0);
    EXPECT_EQ(cell->alignment, I16{6});
}

TEST_F(CheckBoxes, AColumnTestsTheDisabledValuesFirst) {
    auto grid = makeGrid({{"h", "v"}, {"1", "1"}, {"2", "0"}, {"3", "11"}, {"4", "10"}, {"5", "?"}});
    grid->setRow(0);
    grid->setCol(0);
    const Variant m = Variant::missing();
    run("fn_PoneCheckColumnaGrid", grid, {I16{1}, m, m, m, m, False, m, m, I16{300}, I16{200}});
    const std::vector<std::string> expected = {"imSI", "imNO", "imSid", "imNOd", ""};
    for (std::int32_t row = 1; row <= 5; ++row) EXPECT_EQ(pictureOf(*grid, row, 1), expected[row - 1]) << row;
    EXPECT_EQ(grid->row() + grid->col(), 0);
    EXPECT_EQ(grid->colWidth(1), 300);
    EXPECT_EQ(grid->rowHeight(1), 200);
}

TEST_F(CheckBoxes, Failures) {
    auto grid = makeGrid({{"h", "v"}, {"1", "1"}});
    EXPECT_EQ(errorOf("fn_PoneCheckGrid", grid, {5, I16{1}}), 30009);
    EXPECT_EQ(grid->col(), 1) << "Col was already moved";
}

// A picture from the application's folder (without the text) or from a full
// path (keeping it); a missing file is the loader's error, painting left off.
TEST_F(CheckBoxes, PictureCellsLoadFromTheApplicationsFolderOrAFullPath) {
    const auto app = posix::mapPath(platform_.fileSystem().applicationPath());
    std::filesystem::create_directories(app);
    std::filesystem::create_directories(posix::mapPath(u"C:\\img"));
    const auto picture = objects::makeCheckBoxPicture(objects::CheckBoxPicture::Checked);
    objects::savePicture(*picture, app / "logo.bmp", objects::PictureFileFormat::Bmp);
    objects::savePicture(*picture, posix::mapPath(u"C:\\img\\logo.png"), objects::PictureFileFormat::Png);
    auto grid = makeGrid({{"h", "v"}, {"1", "x"}});
    EXPECT_EQ(errorOf("fn_PoneImagenGrid", grid, {1, I16{1}, u"logo.bmp", False}), 0);
    EXPECT_NE(pictureOf(*grid, 1, 1).find("logo.bmp"), std::string::npos);
    EXPECT_TRUE(grid->cellFormat(1, 1)->fontName.has_value());
    EXPECT_EQ(grid->cellFormat(1, 1)->pictureAlignment, I16{4});
    grid = makeGrid({{"h", "v"}, {"1", "x"}});
    EXPECT_EQ(errorOf("fn_PoneImagenGrid", grid, {1, I16{1}, u"C:\\img\\logo.png", True}), 0);
    EXPECT_EQ(pictureOf(*grid, 1, 1), "C:\\img\\logo.png");
    EXPECT_FALSE(grid->cellFormat(1, 1)->fontName.has_value());
    EXPECT_EQ(errorOf("fn_PoneImagenGrid", grid, {1, I16{1}, u"C:\\img\\no.png", False}), 53);
    EXPECT_FALSE(grid->redraw());
}

}  // namespace
}  // namespace telvaro::gridtest

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

// One cell: the picture of its value (or of the state asked), the value
// toggled when asked, the current cell put back.
TEST_F(CheckBoxes, OneCellShowsItsValueOrState) {
    const Variant m = Variant::missing();
    struct Case {
        const char* method;
        const char* cell;
        std::vector<Variant> more;  // after Fila, Columna
        const char* text;
        const char* picture;
    };
    const char* check = "fn_PoneCheckGrid";
    const char* byState = "fn_PoneCheck";  // Checked, Deshabilitado, PonerElValor
    // clang-format off
    const std::vector<Case> cases = {
        {check, "1", {}, "1", "imSI"}, {check, "0", {}, "0", "imNO"}, {check, "11", {}, "11", "imSid"},
        {check, "10", {}, "10", "imNOd"}, {check, "x", {}, "x", ""}, {check, "1", {m, m, m, m, True}, "0", "imNO"},
        {check, "0", {m, m, m, m, True}, "1", "imSI"}, {check, "10", {m, m, m, m, True}, "11", "imSid"},
        {check, "11", {m, m, m, m, True}, "10", "imNOd"}, {check, "x", {m, m, m, m, True}, "x", ""},
        {check, "SÍ", {u"sí", u"no"}, "SÍ", "imSI"},
        {check, "1", {I16{1}, I16{1}}, "1", "imNO"},  // equal values: the later test wins (ValorSI before ValorNO)
        {byState, "v", {}, "v", "imSI"}, {byState, "v", {False, False, u""}, "v", "imNO"},
        {byState, "v", {True, True}, "v", "imSid"}, {byState, "v", {False, True, I16{10}}, "10", "imNOd"},
        {byState, "v", {True, False, Variant(Null{})}, "v", "imSI"},
    };
    // clang-format on
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.method) + " " + c.cell + " " + std::to_string(c.more.size()));
        auto grid = makeGrid({{"h", "v"}, {"1", c.cell}});
        std::vector<Variant> args = {1, I16{1}};
        args.insert(args.end(), c.more.begin(), c.more.end());
        run(c.method, grid, args);
        EXPECT_EQ(toUtf8(grid->textMatrix(1, 1)), c.text);
        EXPECT_EQ(pictureOf(*grid, 1, 1), c.picture);
        EXPECT_TRUE(grid->redraw());
        EXPECT_EQ(grid->row(), 1);
        EXPECT_EQ(grid->col(), 1);
    }
    // The value is kept as hidden text under the picture.
    auto grid = makeGrid({{"h", "v"}, {"1", "1"}});
    run("fn_PoneCheckGrid", grid, {1, I16{1}});
    const objects::CellFormat* cell = grid->cellFormat(1, 1);
    EXPECT_EQ(cell->foreColor, static_cast<std::int32_t>(0x80000005u));
    EXPECT_EQ(cell->fontBold, false);
    EXPECT_EQ(cell->fontName, String(u"Small Fonts"));
    EXPECT_EQ(cell->fontSize, 1.0);
    EXPECT_EQ(cell->alignment, I16{6});
    EXPECT_EQ(cell->pictureAlignment, I16{4});
}

TEST_F(CheckBoxes, AColumnTestsTheDisabledValuesFirst) {
    auto grid = makeGrid({{"h", "v"}, {"1", "1"}, {"2", "0"}, {"3", "11"}, {"4", "10"}, {"5", "?"}});
    grid->setRow(0);
    grid->setCol(0);
    run("fn_PoneCheckColumnaGrid", grid, {I16{1}});
    const std::vector<std::string> expected = {"imSI", "imNO", "imSid", "imNOd", ""};
    for (std::int32_t row = 1; row <= 5; ++row) EXPECT_EQ(pictureOf(*grid, row, 1), expected[row - 1]) << row;
    EXPECT_EQ(grid->row(), 0);
    EXPECT_EQ(grid->col(), 0);
    // Equal values: the later test wins, and here ValorNO comes last.
    auto disabledSame = makeGrid({{"h", "v"}, {"1", "s"}});
    run("fn_PoneCheckColumnaGrid", disabledSame, {I16{1}, Variant::missing(), Variant::missing(), u"s", u"s"});
    EXPECT_EQ(pictureOf(*disabledSame, 1, 1), "imNOd");
}

TEST_F(CheckBoxes, AColumnsCallOrderAndSizes) {
    auto grid = makeGrid({{"h", "v"}, {"1", "1"}});
    const Variant m = Variant::missing();
    run("fn_PoneCheckColumnaGrid", grid, {I16{1}, m, m, m, m, True, m, m, I16{300}, I16{200}});
    EXPECT_EQ(callsOf(*grid),
              "Col Row Redraw= ColWidth= Rows Col= Row= RowHeight= CellForeColor= CellFontBold= CellFontName= "
              "CellFontSize= CellAlignment= TextMatrix TextMatrix TextMatrix TextMatrix= TextMatrix TextMatrix "
              "TextMatrix TextMatrix CellPicture= CellPictureAlignment= Col= Row= Redraw=");
    EXPECT_EQ(grid->colWidth(1), 300);
    EXPECT_EQ(grid->rowHeight(1), 200);
    EXPECT_EQ(toUtf8(grid->textMatrix(1, 1)), "0");
}

TEST_F(CheckBoxes, FailuresLeaveTheGridWhereTheyFoundIt) {
    auto grid = makeGrid({{"h", "v"}, {"1", "1"}});
    EXPECT_EQ(errorOf("fn_PoneCheckGrid", grid, {5, I16{1}}), 30009);
    EXPECT_EQ(grid->col(), 1) << "Col was already moved";
    EXPECT_EQ(errorOf("fn_PoneCheckGrid", grid,
                      {1, I16{1}, Variant::missing(), Variant::missing(), Variant::missing(), Variant::missing(), False,
                       I16{-5}, I16{-1}}),
              0);
    EXPECT_EQ(errorOf("fn_PoneCheck", Variant(ObjectRef()), {1, I16{1}}), 91);
    EXPECT_EQ(errorOf("fn_PoneCheckColumnaGrid", grid, {I16{1}, Variant(Null{})}), 0);
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
    struct Case {
        const char16_t* path;
        Boolean keepText;
        std::string source;  // "": a file named logo.bmp
        int error;
    };
    const std::vector<Case> cases = {{u"logo.bmp", False, "", 0},
                                     {u"C:\\img\\logo.png", True, "C:\\img\\logo.png", 0},
                                     {u"C:\\img\\no.png", False, "", 53}};
    for (const auto& c : cases) {
        SCOPED_TRACE(toUtf8(c.path));
        auto grid = makeGrid({{"h", "v"}, {"1", "x"}});
        EXPECT_EQ(errorOf("fn_PoneImagenGrid", grid, {1, I16{1}, String(c.path), c.keepText}), c.error);
        EXPECT_EQ(grid->redraw(), c.error == 0);
        if (c.error) continue;
        EXPECT_EQ(grid->cellFormat(1, 1)->pictureAlignment, I16{4});
        EXPECT_EQ(grid->cellFormat(1, 1)->fontName.has_value(), !c.keepText.isTrue());
        const std::string source = pictureOf(*grid, 1, 1);
        EXPECT_TRUE(c.source.empty() ? source.find("logo.bmp") != std::string::npos : source == c.source) << source;
    }
}

}  // namespace
}  // namespace telvaro::gridtest

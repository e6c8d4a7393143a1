// Check-box and picture cells: the value kept as hidden text, the toggle,
// the frmDll picture each value shows, and the picture files.
#include "grid/grid_fixture.h"

#include <filesystem>
#include <fstream>

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

void expectHiddenText(const objects::FlexGrid& grid, std::int32_t row, std::int32_t col) {
    const objects::CellFormat* cell = grid.cellFormat(row, col);
    ASSERT_NE(cell, nullptr);
    EXPECT_EQ(cell->foreColor, static_cast<std::int32_t>(0x80000005u));
    EXPECT_EQ(cell->fontBold, false);
    EXPECT_EQ(cell->fontName, String(u"Small Fonts"));
    EXPECT_EQ(cell->fontSize, 1.0);
    EXPECT_EQ(cell->alignment, I16{6});
    EXPECT_EQ(cell->pictureAlignment, I16{4});
}

class CheckBoxes : public GridMethods {};

TEST_F(CheckBoxes, OneCheckBoxShowsItsValue) {
    const Variant m = Variant::missing();
    struct Case {
        const char* cell;
        std::vector<Variant> more;  // after Fila, Columna
        const char* text;
        const char* picture;
    };
    const std::vector<Case> cases = {
        {"1", {}, "1", "imSI"},
        {"0", {}, "0", "imNO"},
        {"11", {}, "11", "imSid"},
        {"10", {}, "10", "imNOd"},
        {"x", {}, "x", ""},
        {"1", {m, m, m, m, True}, "0", "imNO"},
        {"0", {m, m, m, m, True}, "1", "imSI"},
        {"11", {m, m, m, m, True}, "10", "imNOd"},
        {"10", {m, m, m, m, True}, "11", "imSid"},
        {"x", {m, m, m, m, True}, "x", ""},
        {"SÍ", {u"sí", u"no"}, "SÍ", "imSI"},
        // Equal values: the later test wins (ValorSI before ValorNO).
        {"1", {I16{1}, I16{1}}, "1", "imNO"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.cell) + " " + std::to_string(c.more.size()));
        auto grid = makeGrid({{"h", "v"}, {"1", c.cell}});
        std::vector<Variant> args = {1, I16{1}};
        args.insert(args.end(), c.more.begin(), c.more.end());
        run("fn_PoneCheckGrid", grid, args);
        EXPECT_EQ(toUtf8(grid->textMatrix(1, 1)), c.text);
        EXPECT_EQ(pictureOf(*grid, 1, 1), c.picture);
        expectHiddenText(*grid, 1, 1);
        EXPECT_TRUE(grid->redraw());
    }
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
    auto same = makeGrid({{"h", "v"}, {"1", "s"}});
    run("fn_PoneCheckColumnaGrid", same, {I16{1}, u"s", u"s"});
    EXPECT_EQ(pictureOf(*same, 1, 1), "imNO");
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

TEST_F(CheckBoxes, CellsShareTheHiddenFormsPictures) {
    auto grid = makeGrid({{"h", "v"}, {"1", "1"}, {"2", "1"}});
    run("fn_PoneCheckColumnaGrid", grid, {I16{1}});
    const auto first = grid->cellFormat(1, 1)->picture;
    EXPECT_EQ(first, grid->cellFormat(2, 1)->picture);
    auto picture = std::static_pointer_cast<objects::Picture>(first);
    const auto drawn = objects::checkBoxPixels(objects::CheckBoxPicture::Checked);
    EXPECT_EQ(picture->width(), 13);
    EXPECT_EQ(std::vector<std::uint32_t>(drawn.begin(), drawn.end()), picture->pixels());
}

TEST_F(CheckBoxes, ByStateNotByText) {
    struct Case {
        std::vector<Variant> args;  // Checked, Deshabilitado, PonerElValor
        const char* text;
        const char* picture;
    };
    const std::vector<Case> cases = {
        {{}, "v", "imSI"},
        {{False}, "v", "imNO"},
        {{False, False, u""}, "v", "imNO"},
        {{True, True}, "v", "imSid"},
        {{False, True, I16{10}}, "10", "imNOd"},
        {{True, False, Variant(Null{})}, "v", "imSI"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.picture);
        auto grid = makeGrid({{"h", "v"}, {"1", "v"}});
        std::vector<Variant> args = {1, I16{1}};
        args.insert(args.end(), c.args.begin(), c.args.end());
        run("fn_PoneCheck", grid, args);
        EXPECT_EQ(toUtf8(grid->textMatrix(1, 1)), c.text);
        EXPECT_EQ(pictureOf(*grid, 1, 1), c.picture);
        EXPECT_EQ(grid->row(), 1);
        EXPECT_EQ(grid->col(), 1);
    }
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

class PictureCells : public GridMethods {
protected:
    void SetUp() override {
        app_ = posix::mapPath(platform_.fileSystem().applicationPath());
        std::filesystem::create_directories(app_);
        objects::savePicture(*objects::makeCheckBoxPicture(objects::CheckBoxPicture::Checked), app_ / "logo.bmp",
                             objects::PictureFileFormat::Bmp);
        std::filesystem::create_directories(posix::mapPath(u"C:\\img"));
        objects::savePicture(*objects::makeCheckBoxPicture(objects::CheckBoxPicture::Unchecked),
                             posix::mapPath(u"C:\\img\\logo.png"), objects::PictureFileFormat::Png);
        std::ofstream(posix::mapPath(u"C:\\img\\roto.bmp")) << "no picture";
    }
    std::filesystem::path app_;
};

TEST_F(PictureCells, LoadsFromTheApplicationsFolderOrAFullPath) {
    struct Case {
        const char16_t* path;
        Boolean keepText;
        const char* source;
        int error;
    };
    const std::vector<Case> cases = {
        {u"logo.bmp", False, "", 0},
        {u"C:\\img\\logo.png", True, "C:\\img\\logo.png", 0},
        {u"C:\\img\\no.png", False, "", 53},
        {u"C:\\img\\roto.bmp", False, "", 481},
        {u"..\\..\\..\\etc\\passwd", False, "", 53},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(toUtf8(c.path));
        auto grid = makeGrid({{"h", "v"}, {"1", "x"}});
        EXPECT_EQ(errorOf("fn_PoneImagenGrid", grid, {1, I16{1}, String(c.path), c.keepText}), c.error);
        if (c.error) {
            EXPECT_FALSE(grid->redraw());
            continue;
        }
        EXPECT_TRUE(grid->redraw());
        EXPECT_EQ(grid->cellFormat(1, 1)->pictureAlignment, I16{4});
        EXPECT_EQ(grid->cellFormat(1, 1)->fontName.has_value(), !c.keepText.isTrue());
        const std::string source = pictureOf(*grid, 1, 1);
        if (*c.source)
            EXPECT_EQ(source, c.source);
        else
            EXPECT_NE(source.find("logo.bmp"), std::string::npos) << source;
    }
}

}  // namespace
}  // namespace telvaro::gridtest

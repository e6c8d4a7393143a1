// Pictures: the four check-box pictures pixel by pixel, the automation
// members, files written and read back (the decoding of other formats is
// the image library's), and the errors of files that are missing or are no
// pictures.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "objects/check_box_pictures.h"
#include "objects/picture_files.h"
#include "support/support.h"

namespace telvaro::objects {
namespace {

namespace fs = std::filesystem;

// The pictures drawn by hand, one character a pixel: O outer frame (128),
// I inner frame (64), E bottom and right edge (212,208,200), . interior,
// X tick.
const char* const kUnchecked[13] = {
    "OOOOOOOOOOOOE", "OIIIIIIIIIIIE", "OI..........E", "OI..........E", "OI..........E",
    "OI..........E", "OI..........E", "OI..........E", "OI..........E", "OI..........E",
    "OI..........E", "OI..........E", "EEEEEEEEEEEEE",
};
const char* const kChecked[13] = {
    "OOOOOOOOOOOOE", "OIIIIIIIIIIIE", "OI..........E", "OI........X.E", "OI.......XX.E",
    "OI.X....XXX.E", "OI.X....XXX.E", "OI.XX..XXX..E", "OI.XXXXXX...E", "OI..XXXX....E",
    "OI...XX.....E", "OI..........E", "EEEEEEEEEEEEE",
};

std::uint32_t rgb(int r, int g, int b) {
    return 0xFF000000u | (static_cast<std::uint32_t>(r) << 16) | (static_cast<std::uint32_t>(g) << 8) |
           static_cast<std::uint32_t>(b);
}

TEST(Pictures, CheckBoxPicturesPixelByPixel) {
    struct Case {
        CheckBoxPicture kind;
        const char* name;
        const char* const* drawing;
        std::uint32_t face, tick;
    };
    const Case cases[] = {
        {CheckBoxPicture::Checked, "imSI", kChecked, rgb(255, 255, 255), rgb(0, 0, 0)},
        {CheckBoxPicture::Unchecked, "imNO", kUnchecked, rgb(255, 255, 255), 0},
        {CheckBoxPicture::CheckedDisabled, "imSid", kChecked, rgb(214, 214, 214), rgb(120, 120, 120)},
        {CheckBoxPicture::UncheckedDisabled, "imNOd", kUnchecked, rgb(214, 214, 214), 0},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        auto picture = makeCheckBoxPicture(c.kind);
        ASSERT_EQ(picture->width(), 13);
        ASSERT_EQ(picture->height(), 13);
        EXPECT_EQ(toUtf8(picture->source()), c.name);
        EXPECT_EQ(checkBoxPictureNamed(fromUtf8(c.name)), c.kind);
        for (int y = 0; y < 13; ++y)
            for (int x = 0; x < 13; ++x) {
                std::uint32_t expected = 0;
                switch (c.drawing[y][x]) {
                    case 'O': expected = rgb(128, 128, 128); break;
                    case 'I': expected = rgb(64, 64, 64); break;
                    case 'E': expected = rgb(212, 208, 200); break;
                    case '.': expected = c.face; break;
                    case 'X': expected = c.tick; break;
                }
                EXPECT_EQ(picture->pixel(x, y), expected) << "pixel x=" << x << " y=" << y;
            }
    }
    EXPECT_EQ(checkBoxPictureNamed(u"imsi"), CheckBoxPicture::Checked);
    EXPECT_EQ(checkBoxPictureNamed(u"imX"), std::nullopt);
}

TEST(Pictures, AutomationMembers) {
    auto picture = makeCheckBoxPicture(CheckBoxPicture::Unchecked);
    struct Case {
        const char16_t* member;
        Variant expected;
    };
    const Case cases[] = {
        {u"Width", Variant(std::int32_t(344))}, {u"Height", Variant(std::int32_t(344))},
        {u"Type", Variant(std::int16_t(1))},    {u"hPal", Variant(std::int32_t(0))},
        {u"", Variant(picture->handle())},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(toUtf8(c.member));
        EXPECT_TRUE(identical(picture->get(c.member), c.expected)) << describe(picture->get(c.member));
    }
    EXPECT_NE(picture->handle(), 0);
    EXPECT_EQ(errorNumberOf([&] { picture->put(u"Width", Variant(std::int32_t(1))); }), 383);
    Picture empty;
    EXPECT_TRUE(identical(empty.get(u"Type"), Variant(std::int16_t(0))));
    EXPECT_TRUE(identical(empty.get(u"Handle"), Variant(std::int32_t(0))));
    struct Size {
        std::int32_t w, h;
        int error;
    };
    for (const Size s : {Size{-1, 1, 5}, Size{1, -1, 5}, Size{16385, 1, 7}, Size{0, 0, 0}})
        EXPECT_EQ(errorNumberOf([&] { Picture p(s.w, s.h); }), s.error) << s.w << "x" << s.h;
}

class PictureFiles : public ::testing::Test {
protected:
    fs::path folder =
        fs::path(std::getenv("TELVARO_TEST_HOME") ? std::getenv("TELVARO_TEST_HOME") : "/tmp") / "picture-files";
    void SetUp() override {
        fs::remove_all(folder);
        fs::create_directories(folder);
    }
    void write(const fs::path& file, const std::string& bytes) { std::ofstream(file, std::ios::binary) << bytes; }
};

TEST_F(PictureFiles, SavedFilesReadBackPixelForPixel) {
    auto picture = makeCheckBoxPicture(CheckBoxPicture::CheckedDisabled);
    picture->setPixel(0, 0, 0x80123456);  // half transparent: PNG keeps it, BMP drops the alpha
    struct Case {
        PictureFileFormat format;
        const char* file;
        std::uint32_t firstPixel;
    };
    const Case cases[] = {{PictureFileFormat::Png, "a.png", 0x80123456}, {PictureFileFormat::Bmp, "a.bmp", 0xFF123456}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.file);
        savePicture(*picture, folder / c.file, c.format);
        auto back = loadPicture(folder / c.file);
        ASSERT_EQ(back->width(), 13);
        ASSERT_EQ(back->height(), 13);
        EXPECT_EQ(back->pixel(0, 0), c.firstPixel);
        for (int y = 0; y < 13; ++y)
            for (int x = 0; x < 13; ++x)
                if (x || y) {
                    EXPECT_EQ(back->pixel(x, y), picture->pixel(x, y)) << x << "," << y;
                }
        EXPECT_EQ(toUtf8(back->source()), c.file);
    }
}

TEST_F(PictureFiles, FilesThatAreNoPicturesAreErrors) {
    write(folder / "texto.bmp", "esto no es una imagen");
    const std::string png = encodePicture(*makeCheckBoxPicture(CheckBoxPicture::Checked), PictureFileFormat::Png);
    write(folder / "cortado.png", png.substr(0, png.size() / 2));
    struct Case {
        fs::path file;
        int error;
    };
    const Case cases[] = {
        {folder / "noexiste.bmp", 53},
        {folder / "texto.bmp", 481},
        {folder / "cortado.png", 481},
        {folder, 481},
    };
    for (const auto& c : cases) EXPECT_EQ(errorNumberOf([&] { loadPicture(c.file); }), c.error) << c.file;
    EXPECT_TRUE(loadPicture({})->isEmpty());
    EXPECT_EQ(errorNumberOf([&] { savePicture(Picture(), folder / "x.png", PictureFileFormat::Png); }), 5);
    EXPECT_EQ(errorNumberOf([&] {
                  savePicture(*makeCheckBoxPicture(CheckBoxPicture::Checked), folder / "no" / "x.bmp",
                              PictureFileFormat::Bmp);
              }),
              75);
}

}  // namespace
}  // namespace telvaro::objects

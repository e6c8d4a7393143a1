// Pictures: the four check-box pictures pixel by pixel, the automation
// members, files written and read back, and the errors of files that are
// missing or are no pictures.
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

// A 2 x 2 red JPEG, as a document renderer writes it, in hexadecimal.
const char* const kRedJpeg =
    "ffd8ffe000104a46494600010101000200020000ffdb004300080606070605080707070909080a0c140d0c0b0b0c1912130f"
    "141d1a1f1e1d1a1c1c20242e2720222c231c1c2837292c30313434341f27393d38323c2e333432ffdb0043010909090c0b0c"
    "180d0d1832211c21323232323232323232323232323232323232323232323232323232323232323232323232323232323232"
    "3232323232323232ffc00011080002000203012200021101031101ffc4001f00000105010101010101000000000000000001"
    "02030405060708090a0bffc400b5100002010303020403050504040000017d01020300041105122131410613516107227114"
    "328191a1082342b1c11552d1f02433627282090a161718191a25262728292a3435363738393a434445464748494a53545556"
    "5758595a636465666768696a737475767778797a838485868788898a92939495969798999aa2a3a4a5a6a7a8a9aab2b3b4b5"
    "b6b7b8b9bac2c3c4c5c6c7c8c9cad2d3d4d5d6d7d8d9dae1e2e3e4e5e6e7e8e9eaf1f2f3f4f5f6f7f8f9faffc4001f010003"
    "0101010101010101010000000000000102030405060708090a0bffc400b51100020102040403040705040400010277000102"
    "031104052131061241510761711322328108144291a1b1c109233352f0156272d10a162434e125f11718191a262728292a35"
    "363738393a434445464748494a535455565758595a636465666768696a737475767778797a82838485868788898a92939495"
    "969798999aa2a3a4a5a6a7a8a9aab2b3b4b5b6b7b8b9bac2c3c4c5c6c7c8c9cad2d3d4d5d6d7d8d9dae2e3e4e5e6e7e8e9ea"
    "f2f3f4f5f6f7f8f9faffda000c03010002110311003f00e2e8a28af993f713ffd9";

std::string fromHex(const std::string& hex) {
    std::string bytes;
    for (std::size_t i = 0; i + 1 < hex.size(); i += 2)
        bytes.push_back(static_cast<char>(std::stoi(hex.substr(i, 2), nullptr, 16)));
    return bytes;
}

TEST_F(PictureFiles, GifAndJpegDecodeToo) {
    write(folder / "rojo.jpg", fromHex(kRedJpeg));
    auto jpeg = loadPicture(folder / "rojo.jpg");
    ASSERT_EQ(jpeg->width(), 2);
    ASSERT_EQ(jpeg->height(), 2);
    const std::uint32_t p = jpeg->pixel(1, 1);
    EXPECT_GE((p >> 16) & 0xFF, 240u) << std::hex << p;  // lossy: nearly pure red
    EXPECT_LE((p >> 8) & 0xFF, 16u) << std::hex << p;
    EXPECT_LE(p & 0xFF, 16u) << std::hex << p;
    // A 1 x 1 GIF of one red pixel.
    const unsigned char gif[] = {0x47, 0x49, 0x46, 0x38, 0x39, 0x61, 0x01, 0x00, 0x01, 0x00, 0x80, 0x00,
                                 0x00, 0xFF, 0x00, 0x00, 0x00, 0x00, 0x00, 0x2C, 0x00, 0x00, 0x00, 0x00,
                                 0x01, 0x00, 0x01, 0x00, 0x00, 0x02, 0x02, 0x44, 0x01, 0x00, 0x3B};
    write(folder / "rojo.gif", std::string(reinterpret_cast<const char*>(gif), sizeof gif));
    auto red = loadPicture(folder / "rojo.gif");
    EXPECT_EQ(red->width(), 1);
    EXPECT_EQ(red->pixel(0, 0), rgb(255, 0, 0));
}

TEST_F(PictureFiles, FilesThatAreNoPicturesAreErrors) {
    write(folder / "texto.bmp", "esto no es una imagen");
    write(folder / "vacio.png", "");
    const std::string png = encodePicture(*makeCheckBoxPicture(CheckBoxPicture::Checked), PictureFileFormat::Png);
    write(folder / "cortado.png", png.substr(0, png.size() / 2));
    struct Case {
        fs::path file;
        int error;
    };
    const Case cases[] = {
        {folder / "noexiste.bmp", 53},
        {folder / "texto.bmp", 481},
        {folder / "vacio.png", 481},
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

// Pictures: the four check-box pictures pixel by pixel, the automation
// members, files written and read back (the decoding of other formats is
// the image library's), and the errors of files that are missing or are no
// pictures.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <tuple>

#include "objects/check_box_pictures.h"
#include "objects/picture_files.h"
#include "support/support.h"

namespace telvaro::objects {
namespace {

namespace fs = std::filesystem;

std::uint32_t rgb(int r, int g, int b) {
    return 0xFF000000u | (static_cast<std::uint32_t>(r) << 16) | (static_cast<std::uint32_t>(g) << 8) |
           static_cast<std::uint32_t>(b);
}

// 13 x 13: an outer frame (128) on the top and left, an inner frame (64)
// inside it, an edge (212,208,200) on the bottom and right, the face, and
// the tick of the checked ones.
TEST(Pictures, CheckBoxPicturesFrameFaceAndTick) {
    struct Case {
        CheckBoxPicture kind;
        const char* name;
        std::uint32_t face, tick;  // the tick at (3, 5); the face there when unchecked
    };
    const Case cases[] = {
        {CheckBoxPicture::Checked, "imSI", rgb(255, 255, 255), rgb(0, 0, 0)},
        {CheckBoxPicture::Unchecked, "imNO", rgb(255, 255, 255), rgb(255, 255, 255)},
        {CheckBoxPicture::CheckedDisabled, "imSid", rgb(214, 214, 214), rgb(120, 120, 120)},
        {CheckBoxPicture::UncheckedDisabled, "imNOd", rgb(214, 214, 214), rgb(214, 214, 214)},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        auto picture = makeCheckBoxPicture(c.kind);
        ASSERT_EQ(std::make_pair(picture->width(), picture->height()), std::make_pair(13, 13));
        EXPECT_EQ(toUtf8(picture->source()), c.name);
        EXPECT_EQ(checkBoxPictureNamed(fromUtf8(c.name)), c.kind);
        const std::uint32_t outer = rgb(128, 128, 128), edge = rgb(212, 208, 200);
        for (const auto& [x, y, argb] :
             std::initializer_list<std::tuple<int, int, std::uint32_t>>{{0, 0, outer},
                                                                        {11, 0, outer},
                                                                        {1, 1, rgb(64, 64, 64)},
                                                                        {12, 0, edge},
                                                                        {0, 12, edge},
                                                                        {2, 2, c.face},
                                                                        {11, 11, c.face},
                                                                        {3, 5, c.tick},
                                                                        {10, 3, c.tick},
                                                                        {3, 4, c.face}})
            EXPECT_EQ(picture->pixel(x, y), argb) << x << "," << y;
    }
    EXPECT_EQ(checkBoxPictureNamed(u"imsi"), CheckBoxPicture::Checked);
    EXPECT_EQ(checkBoxPictureNamed(u"imX"), std::nullopt);
}

TEST(Pictures, AutomationMembers) {
    auto picture = makeCheckBoxPicture(CheckBoxPicture::Unchecked);
    const std::pair<const char16_t*, Variant> cases[] = {{u"Width", Variant(std::int32_t(344))},
                                                         {u"Type", Variant(std::int16_t(1))},
                                                         {u"hPal", Variant(std::int32_t(0))},
                                                         {u"", Variant(picture->handle())}};
    for (const auto& [member, expected] : cases)
        EXPECT_TRUE(identical(picture->get(member), expected))
            << toUtf8(member) << ": " << describe(picture->get(member));
    EXPECT_NE(picture->handle(), 0);
    EXPECT_EQ(errorNumberOf([&] { picture->put(u"Width", Variant(std::int32_t(1))); }), 383);
    Picture empty;
    EXPECT_TRUE(identical(empty.get(u"Type"), Variant(std::int16_t(0))));
    EXPECT_TRUE(identical(empty.get(u"Handle"), Variant(std::int32_t(0))));
    for (const auto& [w, h, error] : {std::tuple{-1, 1, 5}, std::tuple{16385, 1, 7}, std::tuple{0, 0, 0}})
        EXPECT_EQ(errorNumberOf([&] { Picture p(w, h); }), error) << w << "x" << h;
}

class PictureFiles : public ::testing::Test {
protected:
    fs::path folder = fs::path(::testing::TempDir()) / "picture-files";
    void SetUp() override {
        fs::remove_all(folder);
        fs::create_directories(folder);
    }
    void write(const fs::path& file, const std::string& bytes) { std::ofstream(file, std::ios::binary) << bytes; }
};

TEST_F(PictureFiles, SavedFilesReadBackPixelForPixel) {
    auto picture = makeCheckBoxPicture(CheckBoxPicture::CheckedDisabled);
    picture->setPixel(0, 0, 0x80123456);  // half transparent: PNG keeps it, BMP drops the alpha
    for (const auto& [format, file, first] : {std::tuple{PictureFileFormat::Png, "a.png", 0x80123456u},
                                              std::tuple{PictureFileFormat::Bmp, "a.bmp", 0xFF123456u}}) {
        SCOPED_TRACE(file);
        savePicture(*picture, folder / file, format);
        auto back = loadPicture(folder / file);
        ASSERT_EQ(std::make_pair(back->width(), back->height()), std::make_pair(13, 13));
        EXPECT_EQ(back->pixel(0, 0), first);
        for (int i = 1; i < 13 * 13; ++i) EXPECT_EQ(back->pixel(i % 13, i / 13), picture->pixel(i % 13, i / 13)) << i;
        EXPECT_EQ(toUtf8(back->source()), file);
    }
}

TEST_F(PictureFiles, FilesThatAreNoPicturesAreErrors) {
    const auto checked = makeCheckBoxPicture(CheckBoxPicture::Checked);
    write(folder / "texto.bmp", "esto no es una imagen");
    const std::string png = encodePicture(*checked, PictureFileFormat::Png);
    write(folder / "cortado.png", png.substr(0, png.size() / 2));
    for (const auto& [file, error] : std::vector<std::pair<fs::path, int>>{
             {folder / "noexiste.bmp", 53}, {folder / "texto.bmp", 481}, {folder / "cortado.png", 481}})
        EXPECT_EQ(errorNumberOf([&] { loadPicture(file); }), error) << file;
    EXPECT_TRUE(loadPicture({})->isEmpty());
    EXPECT_EQ(errorNumberOf([&] { savePicture(Picture(), folder / "x.png", PictureFileFormat::Png); }), 5);
    EXPECT_EQ(errorNumberOf([&] { savePicture(*checked, folder / "no" / "x.bmp", PictureFileFormat::Bmp); }), 75);
}

}  // namespace
}  // namespace telvaro::objects

// Binary field values through the scratch file: read from files, written
// back byte for byte from the fields of both engines, shown as pictures,
// and the failures of folders, paths and values.
#include <gtest/gtest.h>

#include <fstream>
#include <random>

#include <unistd.h>

#include "data/byte_array.h"
#include "db_support.h"
#include "objects/picture.h"
#include "objects/picture_files.h"
#include "support/support.h"

namespace telvaro::dbtest {
namespace {

namespace fs = std::filesystem;
using data::testing::driveFile;

constexpr int kOpeningFile = 3002;
constexpr int kWritingFile = 3004;
constexpr int kInvalidArgument = 3001;
constexpr const char16_t* kScratch = u"C:\\windows\\temp\\ResAdoStream.qzx";

using Bytes = std::string;

Bytes fileBytes(const fs::path& file) {
    std::ifstream in(file, std::ios::binary);
    return Bytes(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

void writeFile(const fs::path& file, const Bytes& bytes) {
    fs::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary | std::ios::trunc)
        .write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

Variant byteValue(const Bytes& bytes) {
    return data::byteArray(std::span(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()));
}

Bytes bytesOfValue(const Variant& value) {
    const auto bytes = data::bytesOf(value);
    return Bytes(bytes.begin(), bytes.end());
}

String hex(const Bytes& bytes) {
    static const char digits[] = "0123456789ABCDEF";
    std::string out;
    out.reserve(bytes.size() * 2);
    for (unsigned char b : bytes) {
        out += digits[b >> 4];
        out += digits[b & 15];
    }
    return ascii(out);
}

// The scratch folder of drive C, present and empty.
void freshScratchFolder() {
    std::error_code ec;
    fs::remove_all(driveFile(u"C:\\windows\\temp"), ec);
    fs::create_directories(driveFile(u"C:\\windows\\temp"));
}

// A 10 MB picture: a PNG of noise, which does not compress.
const Bytes& bigPicture() {
    static const Bytes png = [] {
        objects::Picture picture(1620, 1620);
        std::mt19937 noise(7);
        for (std::int32_t y = 0; y < picture.height(); ++y)
            for (std::int32_t x = 0; x < picture.width(); ++x) picture.setPixel(x, y, noise() | 0xFF000000u);
        return objects::encodePicture(picture, objects::PictureFileFormat::Png);
    }();
    return png;
}

// Every byte value, 0 included; the large value on the embedded engine only.
std::vector<std::pair<const char*, Bytes>> values(bool large) {
    Bytes all;
    for (int b = 0; b < 256; ++b) all += static_cast<char>(b);
    std::vector<std::pair<const char*, Bytes>> out = {{"no bytes", Bytes()}, {"every byte value", all}};
    if (large) out.push_back({"a 10 MB picture", bigPicture()});
    return out;
}

// Each value: a file read into a value with regLeeStream, stored in a
// binary column by the engine, and the field handed to regGuardaStream,
// whose scratch file must hold the same bytes.
void roundTrip(const ObjectRef& connection, const char16_t* blobLiteralStart, const char16_t* blobLiteralEnd,
               bool large) {
    freshScratchFolder();
    int id = 0;
    for (const auto& [what, bytes] : values(large)) {
        SCOPED_TRACE(what);
        ++id;
        writeFile(driveFile(u"C:\\fotos\\origen.bin"), bytes);
        const Outcome read = run("regLeeStream", {v(u"C:\\fotos\\origen.bin")});
        ASSERT_EQ(read.error, 0) << toUtf8(read.description);
        EXPECT_EQ(typeName(read.result), u"Byte()");
        ASSERT_EQ(bytesOfValue(read.result), bytes);

        const String key = ascii(std::to_string(id));
        connection->call(u"Execute", {Variant(u"INSERT INTO fotos VALUES (" + key + u", " + blobLiteralStart +
                                              hex(bytesOfValue(read.result)) + blobLiteralEnd + u")")});
        const ObjectRef rs = data::testing::openRecordset(connection, u"SELECT foto FROM fotos WHERE id = " + key);
        const Variant field = objectOf(rs->get(u"Fields")).call(u"Item", {v(u"foto")});

        // The field itself, as rs("foto") passes it, to the scratch file.
        const Outcome scratch = run("regGuardaStream", {field});
        ASSERT_EQ(scratch.error, 0) << toUtf8(scratch.description);
        EXPECT_EQ(scratch.result.get<String>(), kScratch);
        EXPECT_TRUE(fileBytes(driveFile(kScratch)) == bytes);
        // Its value to a file of the caller's.
        const Outcome copy = run("regGuardaStream", {field.object()->get(u"Value"), v(u"C:\\fotos\\copia.bin")});
        ASSERT_EQ(copy.error, 0) << toUtf8(copy.description);
        EXPECT_EQ(copy.result.get<String>(), u"C:\\fotos\\copia.bin");
        EXPECT_TRUE(fileBytes(driveFile(u"C:\\fotos\\copia.bin")) == bytes);
        rs->call(u"Close");
    }
}

TEST(BinaryFields, ValuesRoundTripByteForByteOnTheEmbeddedEngine) {
    const ObjectRef connection = data::testing::memoryConnection({u"CREATE TABLE fotos (id INTEGER, foto BLOB)"}, 3);
    roundTrip(connection, u"X'", u"'", true);
}

TEST(BinaryFields, ValuesRoundTripByteForByteOnTheServer) {
    const ObjectRef connection = serverConnection(3);
    connection->call(u"Execute", {v(u"DROP TABLE IF EXISTS fotos")});
    connection->call(u"Execute", {v(u"CREATE TABLE fotos (id INTEGER, foto BYTEA)")});
    roundTrip(connection, u"'\\x", u"'::bytea", false);
}

TEST(BinaryFields, TheScratchFileIsOnTheApplicationsDrive) {
    std::error_code ec;
    fs::remove_all(driveFile(u"D:\\windows"), ec);
    fs::create_directories(driveFile(u"D:\\windows\\temp"));
    ScopedVariable app("TELVARO_APP_PATH", "D:\\Sistema\\Ventas");
    const Outcome out = run("regGuardaStream", {byteValue(Bytes("\0\1\2", 3))});
    ASSERT_EQ(out.error, 0) << toUtf8(out.description);
    EXPECT_EQ(out.result.get<String>(), u"D:\\windows\\temp\\ResAdoStream.qzx");
    // Each call overwrites it, a shorter value included.
    ASSERT_EQ(run("regGuardaStream", {byteValue("x")}).error, 0);
    EXPECT_EQ(fileBytes(driveFile(u"D:\\windows\\temp\\ResAdoStream.qzx")), "x");
}

// Paths a caller gives never leave the home folder: ".." stops at the
// drive's root, and a POSIX path stays under the home folder.
TEST(BinaryFields, HostilePathsStayUnderTheHomeFolder) {
    const fs::path outside = fs::temp_directory_path() / ("telvaro-fuera-" + std::to_string(::getpid()) + ".bin");
    const struct {
        const char* what;
        String path;
        const char16_t* landsAt;  // under the home folder, or nullptr when refused
    } cases[] = {{"climbing out of the drive", u"C:\\..\\..\\..\\..\\x.bin", u"C:\\x.bin"},
                 {"climbing inside a folder", u"C:\\fotos\\..\\..\\fotos\\y.bin", u"C:\\fotos\\y.bin"},
                 {"a POSIX absolute path", fromUtf8(outside.string()), nullptr}};
    fs::create_directories(driveFile(u"C:\\fotos"));
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        const Outcome out = run("regGuardaStream", {byteValue("z"), Variant(c.path)});
        EXPECT_FALSE(fs::exists(outside));
        if (!c.landsAt) continue;
        ASSERT_EQ(out.error, 0) << toUtf8(out.description);
        EXPECT_EQ(fileBytes(driveFile(c.landsAt)), "z");
        EXPECT_EQ(bytesOfValue(run("regLeeStream", {Variant(c.path)}).result), "z");
    }
}

TEST(BinaryFields, FailuresOfFoldersPathsAndValues) {
    using Case = std::tuple<const char*, std::function<void()>, const char*, std::vector<Variant>, int>;
    const Variant some = byteValue("foto"), picture = byteValue(bigPicture());
    const std::function<void()> nothing = [] {};
    const std::function<void()> noScratchFolder = [] { fs::remove_all(driveFile(u"C:\\windows\\temp")); };
    const char* const save = "regGuardaStream";
    const char* const read = "regLeeStream";
    const char* const show = "regImgStream";
    const std::vector<Case> cases = {
        {"no scratch folder", noScratchFolder, save, {some}, kWritingFile},
        {"a text is no binary value", nothing, save, {v(u"foto")}, kInvalidArgument},
        {"a missing file", nothing, read, {v(u"C:\\fotos\\no.bin")}, kOpeningFile},
        {"a value that is no picture", nothing, show, {some}, 481},
        {"a picture into a missing folder", nothing, show, {picture, v(u"C:\\no\\f.png")}, kWritingFile},
    };
    for (const auto& [what, arrange, method, args, error] : cases) {
        freshScratchFolder();
        std::error_code ec;
        fs::remove_all(driveFile(u"C:\\fotos"), ec);
        arrange();
        EXPECT_EQ(run(method, args).error, error) << what;
    }
}

// A PNG picture through the scratch file.
TEST(BinaryFields, AFieldsPictureIsShown) {
    freshScratchFolder();
    const objects::Picture small(3, 2, objects::rgbPixel(200, 10, 10));
    const Bytes bytes = objects::encodePicture(small, objects::PictureFileFormat::Png);
    const Outcome out = run("regImgStream", {byteValue(bytes)});
    ASSERT_EQ(out.error, 0) << toUtf8(out.description);
    auto picture = std::dynamic_pointer_cast<objects::Picture>(out.result.object());
    ASSERT_TRUE(picture);
    EXPECT_EQ(std::pair(picture->width(), picture->height()), std::pair(3, 2));
    EXPECT_EQ(picture->pixel(0, 0), objects::rgbPixel(200, 10, 10));
    EXPECT_TRUE(fileBytes(driveFile(kScratch)) == bytes);
}

}  // namespace
}  // namespace telvaro::dbtest

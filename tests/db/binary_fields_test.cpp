// Binary field values through the scratch file: read from files, written
// back byte for byte from the fields of both engines, shown as pictures,
// and the failures of folders, paths and values.
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>

#include <csignal>
#include <fstream>
#include <random>

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
    fs::permissions(driveFile(u"C:\\windows"), fs::perms::owner_all, fs::perm_options::add, ec);
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

struct Value {
    const char* what;
    Bytes bytes;
};

std::vector<Value> values() {
    Bytes all;
    for (int b = 0; b < 256; ++b) all += static_cast<char>(b);
    return {
        {"no bytes", Bytes()},
        {"0 bytes around text", Bytes("\0foto\0\r\n\x1a\xff", 10)},
        {"every byte value", all},
        {"a 10 MB picture", bigPicture()},
    };
}

// Each value: a file read into a value with regLeeStream, stored in a
// binary column by the engine, and the field handed to regGuardaStream,
// whose scratch file must hold the same bytes.
void roundTrip(const ObjectRef& connection, const char16_t* blobLiteralStart, const char16_t* blobLiteralEnd) {
    freshScratchFolder();
    int id = 0;
    for (const auto& value : values()) {
        SCOPED_TRACE(value.what);
        ++id;
        writeFile(driveFile(u"C:\\fotos\\origen.bin"), value.bytes);
        const Outcome read = run("regLeeStream", {v(u"C:\\fotos\\origen.bin")});
        ASSERT_EQ(read.error, 0) << toUtf8(read.description);
        EXPECT_EQ(typeName(read.result), u"Byte()");
        ASSERT_EQ(bytesOfValue(read.result), value.bytes);

        const String key = ascii(std::to_string(id));
        connection->call(u"Execute", {Variant(u"INSERT INTO fotos VALUES (" + key + u", " + blobLiteralStart +
                                              hex(bytesOfValue(read.result)) + blobLiteralEnd + u")")});
        const ObjectRef rs = data::testing::openRecordset(connection, u"SELECT foto FROM fotos WHERE id = " + key);
        const Variant field = objectOf(rs->get(u"Fields")).call(u"Item", {v(u"foto")});

        // The field itself, as rs("foto") passes it, to the scratch file.
        const Outcome scratch = run("regGuardaStream", {field});
        ASSERT_EQ(scratch.error, 0) << toUtf8(scratch.description);
        EXPECT_EQ(scratch.result.get<String>(), kScratch);
        EXPECT_TRUE(fileBytes(driveFile(kScratch)) == value.bytes);
        // Its value to a file of the caller's.
        const Outcome copy = run("regGuardaStream", {field.object()->get(u"Value"), v(u"C:\\fotos\\copia.bin")});
        ASSERT_EQ(copy.error, 0) << toUtf8(copy.description);
        EXPECT_EQ(copy.result.get<String>(), u"C:\\fotos\\copia.bin");
        EXPECT_TRUE(fileBytes(driveFile(u"C:\\fotos\\copia.bin")) == value.bytes);
        rs->call(u"Close");
    }
}

TEST(BinaryFields, ValuesRoundTripByteForByteOnTheEmbeddedEngine) {
    const ObjectRef connection = data::testing::memoryConnection({u"CREATE TABLE fotos (id INTEGER, foto BLOB)"}, 3);
    roundTrip(connection, u"X'", u"'");
}

TEST(BinaryFields, ValuesRoundTripByteForByteOnTheServer) {
    const ObjectRef connection = serverConnection(3);
    connection->call(u"Execute", {v(u"DROP TABLE IF EXISTS fotos")});
    connection->call(u"Execute", {v(u"CREATE TABLE fotos (id INTEGER, foto BYTEA)")});
    roundTrip(connection, u"'\\x", u"'::bytea");
}

TEST(BinaryFields, TheScratchFileIsOnTheApplicationsDrive) {
    const Bytes value("\0\1\2", 3);
    std::error_code ec;
    fs::remove_all(driveFile(u"D:\\windows"), ec);
    ScopedVariable app("TELVARO_APP_PATH", "D:\\Sistema\\Ventas");
    // The folder is never created: without it the save fails.
    EXPECT_EQ(run("regGuardaStream", {byteValue(value)}).error, kWritingFile);
    EXPECT_FALSE(fs::exists(driveFile(u"D:\\windows")));
    fs::create_directories(driveFile(u"D:\\windows\\temp"));
    const Outcome out = run("regGuardaStream", {byteValue(value)});
    ASSERT_EQ(out.error, 0) << toUtf8(out.description);
    EXPECT_EQ(out.result.get<String>(), u"D:\\windows\\temp\\ResAdoStream.qzx");
    EXPECT_EQ(fileBytes(driveFile(u"D:\\windows\\temp\\ResAdoStream.qzx")), value);
    // Each call overwrites it, a shorter value included.
    ASSERT_EQ(run("regGuardaStream", {byteValue("x")}).error, 0);
    EXPECT_EQ(fileBytes(driveFile(u"D:\\windows\\temp\\ResAdoStream.qzx")), "x");
}

TEST(BinaryFields, FailuresOfFoldersPathsAndValues) {
    struct Case {
        const char* what;
        std::function<void()> arrange;
        const char* method;
        std::vector<Variant> args;
        int error;
    };
    const Variant some = byteValue("foto"), picture = byteValue(bigPicture());
    const std::function<void()> nothing = [] {};
    const std::function<void()> noScratchFolder = [] { fs::remove_all(driveFile(u"C:\\windows\\temp")); };
    const std::function<void()> scratchFileIsAFolder = [] { fs::create_directories(driveFile(kScratch)); };
    const std::function<void()> fotosFolder = [] { fs::create_directories(driveFile(u"C:\\fotos")); };
    const char* const save = "regGuardaStream";
    const char* const read = "regLeeStream";
    const char* const show = "regImgStream";
    const std::vector<Case> cases = {
        {"no scratch folder", noScratchFolder, save, {some}, kWritingFile},
        {"the scratch file is a folder", scratchFileIsAFolder, save, {some}, kWritingFile},
        {"a folder given for the file", fotosFolder, save, {some, v(u"C:\\fotos")}, kWritingFile},
        {"a text is no binary value", nothing, save, {v(u"foto")}, kInvalidArgument},
        {"numbers are no binary value", nothing, save, {Variant(Array::ofValues({v(1), v(2)}))}, kInvalidArgument},
        {"a missing file", nothing, read, {v(u"C:\\fotos\\no.bin")}, kOpeningFile},
        {"a folder to read", fotosFolder, read, {v(u"C:\\fotos")}, kOpeningFile},
        {"a value that is no picture", nothing, show, {some}, 481},
        {"a picture into a missing folder", nothing, show, {picture, v(u"C:\\no\\f.png")}, kWritingFile},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        freshScratchFolder();
        std::error_code ec;
        fs::remove_all(driveFile(u"C:\\fotos"), ec);
        c.arrange();
        const Outcome out = run(c.method, c.args);
        EXPECT_EQ(out.error, c.error) << toUtf8(out.description);
    }
}

// A value larger than the file system takes (here a file-size limit of
// 1 MB on the process): the write fails with the Stream's error and the
// scratch file keeps the value it held.
TEST(BinaryFields, AValueTooLargeForTheDiskLeavesTheOldFile) {
    freshScratchFolder();
    ASSERT_EQ(run("regGuardaStream", {byteValue("antes")}).error, 0);
    const Variant tooLarge = byteValue(Bytes(2 << 20, 'x'));
    rlimit old{};
    ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &old), 0);
    const auto oldSignal = std::signal(SIGXFSZ, SIG_IGN);
    rlimit small = old;
    small.rlim_cur = 1 << 20;
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &small), 0);
    const Outcome out = run("regGuardaStream", {tooLarge});
    const Outcome picture = run("regImgStream", {tooLarge, v(u"C:\\windows\\temp\\foto.png")});
    ::setrlimit(RLIMIT_FSIZE, &old);
    std::signal(SIGXFSZ, oldSignal);
    EXPECT_EQ(out.error, kWritingFile) << toUtf8(out.description);
    EXPECT_EQ(picture.error, kWritingFile) << toUtf8(picture.description);
    EXPECT_EQ(fileBytes(driveFile(kScratch)), "antes");
    // Nothing is left of the attempt beside it.
    EXPECT_EQ(std::distance(fs::directory_iterator(driveFile(u"C:\\windows\\temp")), fs::directory_iterator()), 1);
}

// Paths a caller gives never leave the home folder: ".." stops at the
// drive's root, and a POSIX or share path stays under the home folder.
TEST(BinaryFields, HostilePathsStayUnderTheHomeFolder) {
    const fs::path outside = fs::temp_directory_path() / ("telvaro-fuera-" + std::to_string(::getpid()) + ".bin");
    struct Case {
        const char* what;
        String path;
        const char16_t* landsAt;  // under the home folder, or nullptr when refused
    };
    const std::vector<Case> cases = {
        {"climbing out of the drive", u"C:\\..\\..\\..\\..\\x.bin", u"C:\\x.bin"},
        {"climbing inside a folder", u"C:\\fotos\\..\\..\\fotos\\y.bin", u"C:\\fotos\\y.bin"},
        {"a POSIX absolute path", fromUtf8(outside.string()), nullptr},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        fs::create_directories(driveFile(u"C:\\fotos"));
        const Outcome out = run("regGuardaStream", {byteValue("z"), Variant(c.path)});
        if (c.landsAt) {
            ASSERT_EQ(out.error, 0) << toUtf8(out.description);
            EXPECT_EQ(fileBytes(driveFile(c.landsAt)), "z");
        }
        EXPECT_FALSE(fs::exists(outside));
        const Outcome read = run("regLeeStream", {Variant(c.path)});
        if (c.landsAt) {
            EXPECT_EQ(bytesOfValue(read.result), "z");
        }
    }
    std::error_code ec;
    fs::remove(outside, ec);
}

// A PNG through the scratch file, a BMP to a file of the caller's.
TEST(BinaryFields, AFieldsPictureIsShown) {
    freshScratchFolder();
    const objects::Picture small(3, 2, objects::rgbPixel(200, 10, 10));
    for (const auto format : {objects::PictureFileFormat::Png, objects::PictureFileFormat::Bmp}) {
        const Bytes bytes = objects::encodePicture(small, format);
        const bool png = format == objects::PictureFileFormat::Png;
        const char16_t* file = png ? kScratch : u"C:\\windows\\temp\\f.bmp";
        const Outcome out =
            run("regImgStream", png ? std::vector{byteValue(bytes)} : std::vector{byteValue(bytes), v(file)});
        ASSERT_EQ(out.error, 0) << toUtf8(out.description);
        auto picture = std::dynamic_pointer_cast<objects::Picture>(out.result.object());
        ASSERT_TRUE(picture);
        EXPECT_EQ(picture->width(), 3);
        EXPECT_EQ(picture->height(), 2);
        EXPECT_EQ(picture->pixel(0, 0), objects::rgbPixel(200, 10, 10));
        EXPECT_TRUE(fileBytes(driveFile(file)) == bytes);
    }
}

}  // namespace
}  // namespace telvaro::dbtest

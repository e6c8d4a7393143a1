// Files and folders through the methods, on the real file system under the
// test's home folder (drive C is <home>/drives/c).
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <fstream>

#include "context/fun.h"
#include "frame/invoke.h"
#include "platform/posix/home.h"
#include "support/support.h"
#include "support/test_platform.h"

namespace telvaro {
namespace {

namespace fs = std::filesystem;

class Files : public ::testing::Test {
protected:
    void SetUp() override {
        root_ = u"C:\\t" + fromUtf8(::testing::UnitTest::GetInstance()->current_test_info()->name());
        call("fsoCrearCarpeta", {root_});
    }
    String path(StringView rest) const { return root_ + u"\\" + String(rest); }
    static fs::path local(StringView windowsPath) { return posix::mapPath(windowsPath); }
    void touch(StringView rest) const { std::ofstream(local(path(rest))) << "x"; }
    Variant call(const char* method, std::vector<Variant> args) { return invoke(fun_, method, args); }

    fakes::TestPlatform platform_;
    Fun fun_{platform_};
    String root_;
};

TEST_F(Files, CreateFolderMakesEveryMissingLevelOrFailsWithTheRuntimeError) {
    call("fsoCrearCarpeta", {path(u"a\\b\\c")});
    for (const char16_t* level : {u"a", u"a\\b", u"a\\b\\c"})
        EXPECT_TRUE(fs::is_directory(local(path(level)))) << toUtf8(level);
    call("fsoCrearCarpeta", {path(u"a\\b\\c")});  // all levels there: nothing to do, no error
    call("fsoCrearCarpeta", {path(u"d\\")});      // a trailing "\" names the same folder
    EXPECT_TRUE(fs::is_directory(local(path(u"d"))));
    touch(u"archivo");  // a file where a folder should be
    EXPECT_EQ(errorNumberOf([&] { call("fsoCrearCarpeta", {path(u"archivo\\sub")}); }), err::FileAlreadyExists);
    // A drive with no folder behind it does not exist.
    EXPECT_EQ(errorNumberOf([&] { call("fsoCrearCarpeta", {Variant(u"Q:\\datos")}); }), err::PathNotFound);
    EXPECT_FALSE(fs::exists(local(u"Q:\\datos")));
}

TEST_F(Files, ExistenceTests) {
    touch(u"f.txt");
    call("fsoCrearCarpeta", {path(u"carpeta")});
    struct Case {
        const char* method;
        String path;
        bool expected;
    } cases[] = {
        {"fsoExisteArchivo", path(u"f.txt"), true},  {"fsoExisteArchivo", path(u"carpeta"), false},
        {"fsoExisteArchivo", path(u"*.txt"), false}, {"fsoExisteCarpeta", path(u"carpeta"), true},
        {"fsoExisteCarpeta", path(u"f.txt"), false}, {"fsoExisteCarpeta", u"C:\\", true},
        {"fsoExisteCarpeta", u"Q:\\", false},        {"fsoExisteCarpeta", u"", false},
    };
    for (const auto& c : cases)
        EXPECT_TRUE(identical(call(c.method, {c.path}), Variant(Boolean(c.expected))))
            << c.method << " " << toUtf8(c.path);
}

TEST_F(Files, SpecialFolders) {
    EXPECT_TRUE(identical(call("fsoCarpetaSistema", {0}), Variant(u"C:\\Windows")));
    EXPECT_TRUE(identical(call("fsoCarpetaSistema", {1}), Variant(u"C:\\Windows\\System32")));
    for (int folder : {1, 2}) EXPECT_TRUE(fs::is_directory(local(call("fsoCarpetaSistema", {folder}).get<String>())));
    for (int other : {3, -1}) EXPECT_TRUE(identical(call("fsoCarpetaSistema", {other}), Variant(u""))) << other;
}

TEST_F(Files, DeleteTakesWildcardsAndReadOnlyFiles) {
    for (const char16_t* name : {u"a.tmp", u"B.TMP", u"c.txt", u"solo.tmp"}) touch(name);
    ::chmod(local(path(u"solo.tmp")).c_str(), 0444);
    call("fsoBorraArchivo", {path(u"*.tmp")});
    for (const char16_t* name : {u"a.tmp", u"B.TMP", u"solo.tmp", u"c.txt"})
        EXPECT_EQ(fs::exists(local(path(name))), name == std::u16string_view(u"c.txt")) << toUtf8(name);
    call("fsoBorraArchivo", {path(u"c.txt"), True});
    EXPECT_FALSE(fs::exists(local(path(u"c.txt"))));
    EXPECT_TRUE(platform_.boxes().shown().empty());
}

TEST_F(Files, DeleteFailuresShowTheMessageOnlyWhenAsked) {
    call("fsoBorraArchivo", {path(u"*.nada"), False});
    EXPECT_TRUE(platform_.boxes().shown().empty());
    call("fsoBorraArchivo", {path(u"nada.txt"), True});
    call("fsoBorraArchivo", {path(u"no\\existe\\x.txt"), True});
    const auto& shown = platform_.boxes().shown();
    ASSERT_EQ(shown.size(), 2u);
    EXPECT_EQ(shown[0].prompt, u"No se pudo eliminar el archivo: Error=File not found.");
    EXPECT_EQ(std::make_pair(shown[0].style, shown[0].title), std::make_pair(16, String(u"Error")));
    EXPECT_EQ(shown[1].prompt, u"No se pudo eliminar el archivo: Error=Path not found.");
}

TEST_F(Files, RecordsKeepEveryKindOfValue) {
    Array matrix = Array::matrix(1, 2, 0, 1);
    matrix.at(1, 0) = Variant(u"a");
    matrix.at(2, 1) = Variant(std::int16_t(7));
    // clang-format off
    const std::vector<Variant> values = {
        Variant(), Variant(Null{}), Variant(std::int16_t(-32768)), Variant(std::int32_t(2147483647)),
        Variant(-1.5e-300), Variant(Currency{-9223372036854775807LL}), Variant(Date{45487.75}),
        Variant(u"Fábrica Ñandú, S.A."), Variant(u""),
        Variant(True), Variant(Boolean::fromBits(1)), Variant(*Decimal::parse(u"-79228162514264.337593543950335")),
        Variant(std::uint8_t(255)), Variant(Array::ofValues({Variant(1), Variant(u"dos"), Variant(Null{})}, 1)),
        Variant(matrix), Variant(ErrorCode{5})};
    // clang-format on
    const String file = path(u"valores.dat");
    std::int16_t record = 1;
    for (const auto& v : values) call("fsoGrabaArchivo", {file, record++, v});
    record = 1;
    for (const auto& v : values) {
        Variant got = call("fsoLeeArchivo", {file, record++});
        EXPECT_TRUE(identical(got, v)) << describe(v) << " came back as " << describe(got);
    }
    EXPECT_EQ(fs::file_size(local(file)), values.size() * 128);
}

TEST_F(Files, RecordsAreAddressedFromOneAndReadEmptyBeyondTheEnd) {
    const String file = path(u"r.dat");
    call("fsoGrabaArchivo", {file, 3, Variant(u"tercero")});
    call("fsoGrabaArchivo", {file, 1, Variant(u"primero")});
    EXPECT_TRUE(identical(call("fsoLeeArchivo", {file, 3}), Variant(u"tercero")));
    EXPECT_TRUE(identical(call("fsoLeeArchivo", {file, 1}), Variant(u"primero")));
    EXPECT_TRUE(call("fsoLeeArchivo", {file, 2}).isEmpty());
    EXPECT_TRUE(call("fsoLeeArchivo", {path(u"nuevo.dat"), 5}).isEmpty());
    EXPECT_TRUE(fs::exists(local(path(u"nuevo.dat"))));  // opening creates it
}

TEST_F(Files, RecordErrors) {
    const String file = path(u"e.dat");
    call("fsoGrabaArchivo", {file, 1, Variant(u"antes")});
    struct Case {
        const char* method;
        std::vector<Variant> args;
        int error;
    };
    // clang-format off
    const Case cases[] = {
        {"fsoGrabaArchivo", {file, 0, Variant(1)}, err::BadRecordNumber},
        {"fsoLeeArchivo", {file, -1}, err::BadRecordNumber}, {"fsoLeeArchivo", {file, 40000}, err::Overflow},
        {"fsoGrabaArchivo", {file, 1, Variant(String(125, u'x'))}, err::BadRecordLength},
        {"fsoGrabaArchivo", {file, 1, Variant(ObjectRef())}, err::TypeMismatch},
        {"fsoLeeArchivo", {path(u"no\\e.dat"), 1}, err::PathNotFound},
        {"fsoGrabaArchivo", {root_, 1, Variant(1)}, err::PathFileAccessError}};
    // clang-format on
    for (const auto& c : cases) {
        const std::string label = std::string(c.method) + "(" + describe(c.args[0]) + ", " + describe(c.args[1]) + ")";
        EXPECT_EQ(errorNumberOf([&] { call(c.method, c.args); }), c.error) << label;
    }
    // What did not fit changed nothing; 124 characters fit.
    EXPECT_TRUE(identical(call("fsoLeeArchivo", {file, 1}), Variant(u"antes")));
    call("fsoGrabaArchivo", {file, 1, Variant(String(124, u'x'))});
    EXPECT_TRUE(identical(call("fsoLeeArchivo", {file, 1}), Variant(String(124, u'x'))));
    // A record that is not in the layout.
    std::ofstream(local(path(u"basura.dat")), std::ios::binary) << std::string("\x63\x00\x01\x02", 4);
    EXPECT_EQ(errorNumberOf([&] { call("fsoLeeArchivo", {path(u"basura.dat"), 1}); }), err::UnsupportedAutomationType);
}

}  // namespace
}  // namespace telvaro

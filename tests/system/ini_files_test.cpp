// INI files with the Windows profile semantics, on files under the suite's
// home folder.
#include <gtest/gtest.h>

#include <unistd.h>

#include <fstream>

#include "context/fun.h"
#include "frame/invoke.h"
#include "host/default_platform.h"
#include "platform/ansi.h"
#include "platform/ini_document.h"
#include "platform/posix/atomic_file.h"
#include "platform/posix/home.h"
#include "platform/posix/posix_profile_files.h"
#include "support/support.h"

namespace telvaro {
namespace {

namespace fs = std::filesystem;

// Each test on a file of its own under the suite's home folder.
class IniFiles : public testing::Test {
protected:
    void SetUp() override { fs::create_directories(posix::mapPath(u"C:\\App")); }
    String file_ = u"C:\\App\\" + fromUtf8(testing::UnitTest::GetInstance()->current_test_info()->name()) + u".ini";
    void writeFile(const char* bytes) const { std::ofstream(posix::mapPath(file_), std::ios::binary) << bytes; }
    std::string readFile() const { return posix::readBytes(posix::mapPath(file_)).value_or(""); }
    String read(const char16_t* section, const char16_t* key, Variant def = Variant::missing(),
                const String& file = {}) const {
        Fun fun(defaultPlatform());
        std::vector<Variant> args{Variant(file.empty() ? file_ : file), Variant(section), Variant(key), def};
        return invoke(fun, "INI_LeerIni", args).get<String>();
    }
    void write(const char16_t* section, const char16_t* key, const String& value, const String& file = {}) const {
        Fun fun(defaultPlatform());
        std::vector<Variant> args{Variant(file.empty() ? file_ : file), Variant(section), Variant(key), Variant(value)};
        invoke(fun, "INI_GuardarIni", args);
    }
};

TEST_F(IniFiles, ReadingFollowsTheProfileRules) {
    writeFile(
        "; configuracion\r\n[Conexion]\r\n  Servidor  =  srv01  \r\nBase=\"contable\"\r\nVacia=\r\n"
        "Servidor=segundo\r\n;Puerto=99\r\n[Otra]\r\nServidor=otro\r\n[conexion]\r\nPuerto=1433\r\n");
    struct Case {
        const char16_t* section;
        const char16_t* key;
        Variant def;
        const char16_t* expected;
    };
    const Case cases[] = {
        {u"Conexion", u"Servidor", Variant::missing(), u"srv01"},      // blanks around key and value
        {u" CONEXION ", u" servidor ", Variant::missing(), u"srv01"},  // case and blanks around the names
        {u"Conexion", u"Base", Variant::missing(), u"contable"},       // quotes removed
        {u"Conexion", u"Vacia", Variant(u"def"), u"def"},              // an empty value gives the default
        {u"Conexion", u"Puerto", Variant(u"0"), u"0"},                 // a comment is not a key; first section only
        {u"Otra", u"Servidor", Variant::missing(), u"otro"},
        {u"Conexion", u"NoExiste", Variant(u"ab  "), u"ab"},  // trailing blanks of the default go
        {u"Conexion", u"NoExiste", Variant(u"   "), u"   "},  // but an all-blank default comes back
    };
    for (const auto& c : cases)
        EXPECT_EQ(toUtf8(read(c.section, c.key, c.def)), toUtf8(c.expected))
            << toUtf8(c.section) << "." << toUtf8(c.key);
}

TEST_F(IniFiles, MissingFileGivesTheDefaultAndLongValuesAreCut) {
    EXPECT_EQ(read(u"S", u"K", Variant(u"def")), u"def");
    write(u"S", u"K", String(300, u'v'));
    EXPECT_EQ(read(u"S", u"K").size(), 254u);
}

TEST_F(IniFiles, WritingCreatesAndKeepsEveryOtherLine) {
    writeFile("; comentario \xf1\r\n[A]\r\nx=1\r\n\r\n[B]\ny=2\n");
    write(u"a", u"X", u"10");
    write(u"A", u"nueva", u"año");
    write(u"C", u"z", u"3");
    EXPECT_EQ(readFile(), "; comentario \xf1\r\n[A]\r\nx=10\r\nnueva=a\xf1o\r\n\r\n[B]\ny=2\n[C]\r\nz=3\r\n");
    EXPECT_EQ(read(u"A", u"nueva"), u"año");
}

TEST_F(IniFiles, AFileNamedWithoutAFolderLivesInTheWindowsFolder) {
    write(u"S", u"K", u"v", u"suelto.ini");
    EXPECT_TRUE(fs::exists(posix::mapPath(u"C:\\Windows\\suelto.ini")));
    EXPECT_EQ(read(u"S", u"K", Variant::missing(), u"suelto.ini"), u"v");
}

TEST_F(IniFiles, AMissingFolderIsNotCreatedAndNothingIsRaised) {
    write(u"S", u"K", u"v", u"C:\\NoExiste\\x.ini");
    EXPECT_FALSE(fs::exists(posix::mapPath(u"C:\\NoExiste")));
}

TEST(ProfileWrites, CreateDriveCOnAFreshHome) {
    const fs::path home = fs::temp_directory_path() / ("telvaro-fresh-" + std::to_string(::getpid()));
    fs::remove_all(home);
    ScopedVariable variable("TELVARO_HOME", home.c_str());
    Fun fun(defaultPlatform());
    std::vector<Variant> args{Variant(u"C:\\x.ini"), Variant(u"S"), Variant(u"K"), Variant(u"v")};
    invoke(fun, "INI_GuardarIni", args);
    EXPECT_TRUE(fs::is_regular_file(home / "drives" / "c" / "x.ini"));
    fs::remove_all(home);
}

TEST(Ansi, EveryByteRoundTrips) {
    std::string all;
    for (int b = 1; b < 256; ++b) all.push_back(static_cast<char>(b));
    EXPECT_EQ(toAnsi(fromAnsi(all)), all);
    EXPECT_EQ(fromAnsi("\x80\xf1"), u"€ñ");
    EXPECT_EQ(toAnsi(u"ñ€あ"), "\xf1\x80?");
}

}  // namespace
}  // namespace telvaro

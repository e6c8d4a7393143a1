// INI files with the Windows profile semantics, on files under a temporary
// home folder.
#include <gtest/gtest.h>

#include <unistd.h>

#include <fstream>
#include <sstream>

#include "context/fun.h"
#include "frame/invoke.h"
#include "host/default_platform.h"
#include "platform/ansi.h"
#include "platform/ini_document.h"
#include "platform/posix/home.h"
#include "platform/posix/posix_profile_files.h"
#include "support/support.h"

namespace telvaro {
namespace {

namespace fs = std::filesystem;

class IniFiles : public testing::Test {
protected:
    void SetUp() override {
        home_ = fs::temp_directory_path() / ("telvaro-ini-" + std::to_string(::getpid()));
        fs::remove_all(home_);
        home_variable_.emplace("TELVARO_HOME", home_.c_str());
        fs::create_directories(posix::mapPath(u"C:\\App"));
    }
    void TearDown() override {
        home_variable_.reset();
        fs::remove_all(home_);
    }

    static void writeFile(const char* bytes) {
        std::ofstream(posix::mapPath(u"C:\\App\\app.ini"), std::ios::binary) << bytes;
    }
    static std::string readFile() {
        std::ifstream in(posix::mapPath(u"C:\\App\\app.ini"), std::ios::binary);
        std::ostringstream s;
        s << in.rdbuf();
        return s.str();
    }
    static String read(const char16_t* section, const char16_t* key, Variant def = Variant::missing()) {
        Fun fun(defaultPlatform());
        std::vector<Variant> args{Variant(u"C:\\App\\app.ini"), Variant(section), Variant(key), def};
        return invoke(fun, "INI_LeerIni", args).get<String>();
    }
    static void write(const char16_t* section, const char16_t* key, const String& value,
                      const char16_t* file = u"C:\\App\\app.ini") {
        Fun fun(defaultPlatform());
        std::vector<Variant> args{Variant(file), Variant(section), Variant(key), Variant(value)};
        invoke(fun, "INI_GuardarIni", args);
    }

    fs::path home_;
    std::optional<ScopedVariable> home_variable_;
};

TEST_F(IniFiles, ReadingFollowsTheProfileRules) {
    writeFile(
        "; configuracion\r\n"
        "[Conexion]\r\n"
        "  Servidor  =  srv01  \r\n"
        "Base=\"contable\"\r\n"
        "Clave='x y'\r\n"
        "Vacia=\r\n"
        "Servidor=segundo\r\n"
        ";Puerto=99\r\n"
        "[Otra]\r\n"
        "Servidor=otro\r\n"
        "[conexion]\r\n"
        "Puerto=1433\r\n");
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
    Fun fun(defaultPlatform());
    std::vector<Variant> args{Variant(u"suelto.ini"), Variant(u"S"), Variant(u"K"), Variant::missing()};
    EXPECT_TRUE(identical(invoke(fun, "INI_LeerIni", args), Variant(u"v")));
}

TEST_F(IniFiles, AMissingFolderIsNotCreatedAndNothingIsRaised) {
    write(u"S", u"K", u"v", u"C:\\NoExiste\\x.ini");
    EXPECT_FALSE(fs::exists(posix::mapPath(u"C:\\NoExiste")));
}

TEST(ProfileWrites, CreateDriveCAsTheFileWritesDo) {
    const fs::path home = fs::temp_directory_path() / ("telvaro-fresh-" + std::to_string(::getpid()));
    fs::remove_all(home);
    ScopedVariable variable("TELVARO_HOME", home.c_str());
    Fun fun(defaultPlatform());
    std::vector<Variant> args{Variant(u"C:\\x.ini"), Variant(u"S"), Variant(u"K"), Variant(u"v")};
    invoke(fun, "INI_GuardarIni", args);
    EXPECT_TRUE(fs::is_regular_file(home / "drives" / "c" / "x.ini"));
    std::vector<Variant> other{Variant(u"Q:\\x.ini"), Variant(u"S"), Variant(u"K"), Variant(u"v")};
    invoke(fun, "INI_GuardarIni", other);
    EXPECT_FALSE(fs::exists(home / "drives" / "q")) << "another drive exists only when its folder does";
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

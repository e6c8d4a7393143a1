// Paths that try to climb out of the home folder or a mapped drive, in
// every form a caller may write one, through the one mapping and through
// every file operation: nothing outside is read, written, created, deleted
// or run.
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "context/fun.h"
#include "frame/invoke.h"
#include "host/default_platform.h"
#include "platform/posix/home.h"
#include "platform/posix/launcher.h"
#include "support/support.h"
#include "support/test_platform.h"

namespace telvaro {
namespace {

namespace fs = std::filesystem;

TEST(HostilePaths, DotDotStopsAtTheRootOfTheDriveShareOrCurrentFolder) {
    ScopedVariable home("TELVARO_HOME", "/h");
    ScopedVariable noDriveC("TELVARO_DRIVE_C", nullptr);
    ScopedVariable driveD("TELVARO_DRIVE_D", "/mnt/datos");
    ScopedVariable noDriveE("TELVARO_DRIVE_E", nullptr);
    struct Case {
        const char16_t* path;
        const char* expected;  // nullptr: error 52
    };
    const Case cases[] = {
        {u"C:\\..\\..\\..\\x.dat", "/h/drives/c/x.dat"},
        {u"c:/../..//x", "/h/drives/c/x"},
        {u"C:..\\x", "/h/drives/c/x"},
        {u"C:", "/h/drives/c"},
        {u"C:\\a\\b\\..\\c", "/h/drives/c/a/c"},
        // Trailing dots and blanks go, as Windows drops them.
        {u"C:\\.. \\x.", "/h/drives/c/x"},
        {u"\\..\\..\\x", "/h/drives/c/x"},
        {u"\\\\srv\\share\\..\\..\\x", "/h/unc/srv/share/x"},
        {u"\\\\srv\\..\\x", nullptr},
        {u"..\\..\\x", "x"},
        {u"D:\\..\\..\\etc\\passwd", "/mnt/datos/etc/passwd"},
        {u"e:/datos/./x.db", "/h/drives/e/datos/x.db"},  // a drive without a variable: a folder of the home
        // A POSIX path: as it is inside a mapped drive, on drive C elsewhere.
        {u"/mnt/datos/../../etc/passwd", "/mnt/datos/etc/passwd"},
        {u"/mnt/datos2/y", "/h/drives/c/mnt/datos2/y"},
        {u"/../../etc/passwd", "/h/drives/c/etc/passwd"},
        {u"/h/drives/c/x", "/h/drives/c/h/drives/c/x"}};
    for (const auto& c : cases) {
        fs::path got;
        const int error = errorNumberOf([&] { got = posix::mapPath(c.path); });
        if (!c.expected) {
            EXPECT_EQ(error, err::BadFileNameOrNumber) << toUtf8(c.path) << " -> " << got;
        } else {
            EXPECT_EQ(error, 0) << toUtf8(c.path);
            EXPECT_EQ(got, fs::path(c.expected)) << toUtf8(c.path);
        }
    }
    EXPECT_EQ(errorNumberOf([] { posix::mapPath(String(u"C:\\a\0b", 6)); }), err::BadFileNameOrNumber);
}

// A home folder two levels inside a folder of the test's own, its working
// folder too; beside the home folder, a file every hostile path aims at.
class HostileFileOperations : public testing::Test {
protected:
    void SetUp() override {
        root_ = fs::temp_directory_path() / ("telvaro-hostile-" + std::to_string(::getpid()));
        fs::remove_all(root_);
        home_ = root_ / "a" / "home";
        fs::create_directories(home_ / "unc" / "srv" / "share");
        fs::create_directories(home_ / "drives" / "c");
        old_ = fs::current_path();
        fs::current_path(home_);
        homeVariable_.emplace("TELVARO_HOME", home_.c_str());
        std::ofstream(victim(), std::ios::binary) << victimRecord();
    }
    // An empty home folder with drive C and one share.
    void resetHome() const {
        for (const auto& entry : fs::directory_iterator(home_)) fs::remove_all(entry.path());
        fs::create_directories(home_ / "unc" / "srv" / "share");
        fs::create_directories(home_ / "drives" / "c");
    }
    void TearDown() override {
        fs::current_path(old_);
        homeVariable_.reset();
        fs::remove_all(root_);
    }
    fs::path victim() const { return root_ / "a" / "v.dat"; }
    std::string victimBytes() const {
        std::ifstream in(victim(), std::ios::binary);
        std::ostringstream s;
        s << in.rdbuf();
        return s.str();
    }
    // Everything under the test's folder but inside the home folder.
    std::vector<fs::path> outsideHome() const {
        std::vector<fs::path> found;
        for (const auto& entry : fs::recursive_directory_iterator(root_)) {
            const auto relative = entry.path().lexically_relative(home_);
            if (!relative.empty() && *relative.begin() != "..") continue;
            if (entry.path() == home_ || entry.path() == home_.parent_path() || entry.path() == victim()) continue;
            found.push_back(entry.path());
        }
        return found;
    }

    // A record holding the String "secreto".
    static std::string victimRecord() { return std::string("\x08\x00\x07\x00secreto", 11); }
    fs::path root_, home_, old_;
    std::optional<ScopedVariable> homeVariable_;
    ScopedVariable noDriveC_{"TELVARO_DRIVE_C", nullptr};
};

TEST_F(HostileFileOperations, NoFileOperationReachesOutsideTheHomeFolder) {
    // Each path, mapped naively, names v.dat beside the home folder.
    const String up = fromUtf8(root_.string()) + u"/a/v.dat";
    const String paths[] = {u"..\\v.dat", u"\\\\srv\\share\\..\\..\\..\\..\\v.dat", u"C:\\.. \\...\\..\\..\\v.dat.", up,
                            u"C:\\..\\..\\..\\*.dat"};
    // Each method with the path first and ordinary values after it.
    const std::pair<const char*, std::vector<Variant>> operations[] = {
        {"fsoGrabaArchivo", {Variant(std::int16_t(1)), Variant(u"x")}},
        {"fsoLeeArchivo", {Variant(std::int16_t(1))}},
        {"fsoCrearCarpeta", {}},
        {"fsoBorraArchivo", {Variant(False)}},
        {"fsoExisteArchivo", {}},
        {"fsoExisteCarpeta", {}},
        {"INI_GuardarIni", {Variant(u"s"), Variant(u"k"), Variant(u"v")}},
        {"INI_LeerIni", {Variant(u"s"), Variant(u"k"), Variant(u"d")}}};
    for (const auto& path : paths) {
        for (const auto& [method, rest] : operations) {
            const std::string label = std::string(method) + "(" + toUtf8(path) + ")";
            resetHome();
            fakes::TestPlatform platform;
            Fun fun(platform);
            Variant result;
            std::vector<Variant> args{Variant(path)};
            args.insert(args.end(), rest.begin(), rest.end());
            errorNumberOf([&] { result = invoke(fun, method, args); });
            EXPECT_EQ(victimBytes(), victimRecord()) << label;
            if (result.isString()) {
                EXPECT_EQ(result.get<String>().find(u"secreto"), String::npos) << label;
            }
            if (result.type() == VarType::Boolean) {
                EXPECT_FALSE(result.get<Boolean>().isTrue()) << label;
            }
            for (const auto& outside : outsideHome()) ADD_FAILURE() << label << " left " << outside;
        }
        // Run: the file named is never the one outside.
        for (const auto& part : posix::launchCommand(path, u"", home_))
            EXPECT_NE(fs::path(part).lexically_normal(), victim()) << "EjecutaArchivo(" << toUtf8(path) << ")";
    }
}

}  // namespace
}  // namespace telvaro

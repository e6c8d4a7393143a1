// Paths that try to climb out of the home folder or a mapped drive, in
// every form a caller may write one, through the one mapping every file
// operation takes.
#include <gtest/gtest.h>

#include "platform/posix/home.h"
#include "support/support.h"

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
    // clang-format off
    const Case cases[] = {
        {u"C:\\..\\..\\..\\x.dat", "/h/drives/c/x.dat"}, {u"c:/../..//x", "/h/drives/c/x"}, {u"C:", "/h/drives/c"},
        {u"C:..\\x", "/h/drives/c/x"}, {u"C:\\a\\b\\..\\c", "/h/drives/c/a/c"}, {u"\\..\\..\\x", "/h/drives/c/x"},
        {u"C:\\.. \\x.", "/h/drives/c/x"},  // trailing dots and blanks go, as Windows drops them
        {u"\\\\srv\\share\\..\\..\\x", "/h/unc/srv/share/x"}, {u"\\\\srv\\..\\x", nullptr}, {u"..\\..\\x", "x"},
        {u"D:\\..\\..\\etc\\passwd", "/mnt/datos/etc/passwd"},
        {u"e:/datos/./x.db", "/h/drives/e/datos/x.db"},  // a drive without a variable: a folder of the home
        // A POSIX path: as it is inside a mapped drive, on drive C elsewhere.
        {u"/mnt/datos/../../etc/passwd", "/mnt/datos/etc/passwd"}, {u"/mnt/datos2/y", "/h/drives/c/mnt/datos2/y"},
        {u"/../../etc/passwd", "/h/drives/c/etc/passwd"}};
    // clang-format on
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

}  // namespace
}  // namespace telvaro

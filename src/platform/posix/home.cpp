#include "platform/posix/home.h"

#include <cstdlib>

namespace telvaro::posix {

namespace fs = std::filesystem;

namespace {

const char* env(const char* name) {
    const char* v = std::getenv(name);
    return v && *v ? v : nullptr;
}

bool isSeparator(char16_t c) { return c == u'\\' || c == u'/'; }

bool isDriveLetter(char16_t c) { return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z'); }

// Appends the folders and file of `rest` ("a\b/c") to `base`.
fs::path appendComponents(fs::path base, StringView rest) {
    std::size_t i = 0;
    while (i < rest.size()) {
        while (i < rest.size() && isSeparator(rest[i])) ++i;
        std::size_t j = i;
        while (j < rest.size() && !isSeparator(rest[j])) ++j;
        if (j > i) {
            StringView part = rest.substr(i, j - i);
            if (part != u".") base /= toUtf8(part);
        }
        i = j;
    }
    return base;
}

}  // namespace

fs::path homeFolder() {
    if (const char* home = env("TELVARO_HOME")) return fs::path(home);
    if (const char* data = env("XDG_DATA_HOME")) return fs::path(data) / "telvaro";
    if (const char* user = env("HOME")) return fs::path(user) / ".local" / "share" / "telvaro";
    return fs::temp_directory_path() / "telvaro";
}

fs::path driveFolder(char16_t letter) {
    const char lower = static_cast<char>(letter >= u'A' && letter <= u'Z' ? letter - u'A' + u'a' : letter);
    std::string variable = "TELVARO_DRIVE_";
    variable += static_cast<char>(lower - 'a' + 'A');
    if (const char* mapped = env(variable.c_str())) return fs::path(mapped);
    return homeFolder() / "drives" / std::string(1, lower);
}

bool isFullPath(StringView p) {
    if (p.size() >= 2 && isDriveLetter(p[0]) && p[1] == u':') return true;
    return !p.empty() && isSeparator(p[0]);
}

fs::path mapPath(StringView p) {
    if (p.size() >= 2 && isDriveLetter(p[0]) && p[1] == u':') return appendComponents(driveFolder(p[0]), p.substr(2));
    if (p.size() >= 2 && p[0] == u'\\' && p[1] == u'\\') return appendComponents(homeFolder() / "unc", p.substr(2));
    if (!p.empty() && p[0] == u'/') return appendComponents(fs::path("/"), p);
    if (!p.empty() && p[0] == u'\\') return appendComponents(driveFolder(u'c'), p);
    return appendComponents(fs::path(), p);
}

}  // namespace telvaro::posix

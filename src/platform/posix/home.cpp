#include "platform/posix/home.h"

#include <cstdlib>
#include <optional>
#include <vector>

#include "runtime/error.h"

namespace telvaro::posix {

namespace fs = std::filesystem;

namespace {

const char* env(const char* name) {
    const char* v = std::getenv(name);
    return v && *v ? v : nullptr;
}

bool isSeparator(char16_t c) { return c == u'\\' || c == u'/'; }

bool isDriveLetter(char16_t c) { return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z'); }

bool hasDrive(StringView p) { return p.size() >= 2 && isDriveLetter(p[0]) && p[1] == u':'; }

// The names of `rest` ("a\b/c"), split at either separator, as Windows
// reads them: trailing blanks and dots dropped, "." and empty names
// skipped, ".." taking back the name before it but never one of the root's.
std::vector<String> cleanNames(StringView rest) {
    std::vector<String> names;
    std::size_t i = 0;
    while (i < rest.size()) {
        while (i < rest.size() && isSeparator(rest[i])) ++i;
        std::size_t j = i;
        while (j < rest.size() && !isSeparator(rest[j])) ++j;
        String name(rest.substr(i, j - i));
        i = j;
        while (!name.empty() && name.back() == u' ') name.pop_back();
        if (name == u"..") {
            if (!names.empty()) names.pop_back();
            continue;
        }
        while (!name.empty() && (name.back() == u'.' || name.back() == u' ')) name.pop_back();
        if (!name.empty()) names.push_back(std::move(name));
    }
    return names;
}

fs::path under(fs::path root, const std::vector<String>& names) {
    for (const auto& name : names) root /= toUtf8(name);
    return root;
}

// The mapped drive whose folder holds the POSIX path `p`, with the names
// of `p` below that folder; nothing when no mapped drive holds it.
std::optional<fs::path> onMappedDrive(StringView p) {
    std::vector<String> names;  // as written: ".." not applied yet
    std::size_t i = 0;
    while (i < p.size()) {
        while (i < p.size() && isSeparator(p[i])) ++i;
        std::size_t j = i;
        while (j < p.size() && !isSeparator(p[j])) ++j;
        if (j > i && p.substr(i, j - i) != u".") names.emplace_back(p.substr(i, j - i));
        i = j;
    }
    for (char letter = 'A'; letter <= 'Z'; ++letter) {
        const char* mapped = env((std::string("TELVARO_DRIVE_") + letter).c_str());
        if (!mapped || mapped[0] != '/') continue;
        const fs::path root = fs::path(mapped).lexically_normal();
        std::size_t matched = 0;
        bool holds = true;
        for (const auto& part : root.relative_path()) {
            if (part.empty()) continue;  // a trailing "/"
            if (matched >= names.size() || toUtf8(names[matched]) != part.string()) {
                holds = false;
                break;
            }
            ++matched;
        }
        if (!holds) continue;
        String rest;
        for (std::size_t k = matched; k < names.size(); ++k) rest += u"\\" + names[k];
        return under(root, cleanNames(rest));
    }
    return std::nullopt;
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

bool isFullPath(StringView p) { return hasDrive(p) || (!p.empty() && isSeparator(p[0])); }

void ensureSystemDrive() {
    std::error_code ec;
    fs::create_directories(driveFolder(u'c'), ec);
}

fs::path mapPath(StringView p) {
    if (p.find(u'\0') != StringView::npos) raise(err::BadFileNameOrNumber);
    if (hasDrive(p)) return under(driveFolder(p[0]), cleanNames(p.substr(2)));
    if (p.size() >= 2 && isSeparator(p[0]) && isSeparator(p[1])) {
        // The share's root is its server and share names: ".." stops there.
        std::vector<String> share;
        std::size_t i = 2;
        while (share.size() < 2 && i < p.size()) {
            std::size_t j = i;
            while (j < p.size() && !isSeparator(p[j])) ++j;
            share.emplace_back(p.substr(i, j - i));
            i = j < p.size() ? j + 1 : j;
        }
        for (const auto& name : share)
            if (name.empty() || cleanNames(name).size() != 1 || cleanNames(name)[0] != name)
                raise(err::BadFileNameOrNumber);
        if (share.size() < 2) raise(err::BadFileNameOrNumber);
        return under(homeFolder() / "unc" / toUtf8(share[0]) / toUtf8(share[1]), cleanNames(p.substr(i)));
    }
    if (!p.empty() && p[0] == u'/') {
        if (auto mapped = onMappedDrive(p)) return *mapped;
    }
    if (!p.empty() && isSeparator(p[0])) return under(driveFolder(u'c'), cleanNames(p));
    return under(fs::path(), cleanNames(p));
}

}  // namespace telvaro::posix

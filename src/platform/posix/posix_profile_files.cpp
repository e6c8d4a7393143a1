#include "platform/posix/posix_profile_files.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <fstream>
#include <sstream>

#include "platform/ansi.h"
#include "platform/ini_document.h"
#include "platform/posix/home.h"

namespace telvaro::posix {

namespace fs = std::filesystem;

namespace {

std::optional<std::string> readBytes(const fs::path& path) {
    std::ifstream in(path, std::ios::binary);
    if (!in) return std::nullopt;
    std::ostringstream bytes;
    bytes << in.rdbuf();
    return bytes.str();
}

// An exclusive lock on a folder for as long as the object lives.
class FolderLock {
public:
    explicit FolderLock(const fs::path& folder) : fd_(::open(folder.c_str(), O_RDONLY | O_DIRECTORY)) {
        if (fd_ >= 0) ::flock(fd_, LOCK_EX);
    }
    ~FolderLock() {
        if (fd_ >= 0) {
            ::flock(fd_, LOCK_UN);
            ::close(fd_);
        }
    }
    FolderLock(const FolderLock&) = delete;
    FolderLock& operator=(const FolderLock&) = delete;
    bool held() const { return fd_ >= 0; }

private:
    int fd_;
};

// Writes `bytes` to a new file beside `path` and renames it over `path`.
bool replaceFile(const fs::path& path, const std::string& bytes) {
    std::string temp = (path.parent_path() / ("." + path.filename().string() + ".XXXXXX")).string();
    int fd = ::mkstemp(temp.data());
    if (fd < 0) return false;
    bool ok = ::write(fd, bytes.data(), bytes.size()) == static_cast<ssize_t>(bytes.size());
    ok = ::fsync(fd) == 0 && ok;
    ::fchmod(fd, 0644);
    ok = ::close(fd) == 0 && ok;
    if (ok) ok = ::rename(temp.c_str(), path.c_str()) == 0;
    if (!ok) ::unlink(temp.c_str());
    return ok;
}

String withoutTrailingBlanks(StringView s) {
    std::size_t e = s.size();
    while (e > 0 && s[e - 1] == u' ') --e;
    return String(s.substr(0, e));
}

}  // namespace

fs::path PosixProfileFiles::locate(StringView file) {
    if (isFullPath(file)) return mapPath(file);
    return mapPath(u"C:\\Windows\\" + String(file));
}

String PosixProfileFiles::getString(StringView file, StringView section, StringView key, StringView defaultText,
                                    std::size_t bufferSize) {
    String result = withoutTrailingBlanks(defaultText);
    if (auto bytes = readBytes(locate(file))) {
        if (auto value = IniDocument(fromAnsi(*bytes)).value(section, key)) result = *value;
    }
    if (bufferSize == 0) return {};
    if (result.size() > bufferSize - 1) result.resize(bufferSize - 1);
    return result;
}

bool PosixProfileFiles::writeString(StringView file, StringView section, StringView key, StringView value) {
    const fs::path path = locate(file);
    std::error_code ec;
    // The Windows folder always exists on Windows; other folders must.
    if (!isFullPath(file)) fs::create_directories(path.parent_path(), ec);
    if (!fs::is_directory(path.parent_path(), ec)) return false;
    FolderLock lock(path.parent_path());
    if (!lock.held()) return false;
    IniDocument document(fromAnsi(readBytes(path).value_or(std::string())));
    document.set(section, key, value);
    return replaceFile(path, toAnsi(document.text()));
}

}  // namespace telvaro::posix

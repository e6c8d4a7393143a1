#include "platform/posix/atomic_file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <fstream>
#include <sstream>

namespace telvaro::posix {

namespace fs = std::filesystem;

std::optional<std::string> readBytes(const fs::path& path) {
    std::ifstream in(path, std::ios::binary);
    if (!in) return std::nullopt;
    std::ostringstream bytes;
    bytes << in.rdbuf();
    return bytes.str();
}

FolderLock::FolderLock(const fs::path& folder)
    : fd_(::open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
    if (fd_ >= 0) ::flock(fd_, LOCK_EX);
}

FolderLock::~FolderLock() {
    if (fd_ >= 0) {
        ::flock(fd_, LOCK_UN);
        ::close(fd_);
    }
}

bool isTemporaryName(const std::string& name) {
    const std::size_t mark = name.rfind(kTemporaryMark);
    if (name.size() < 2 || name[0] != '.' || mark == std::string::npos) return false;
    return name.size() - mark - kTemporaryMark.size() == 6;  // mkstemp's six characters
}

void removeStaleTemporaries(const fs::path& folder) {
    std::error_code ec;
    for (const auto& entry : fs::directory_iterator(folder.empty() ? fs::path(".") : folder, ec)) {
        if (!isTemporaryName(entry.path().filename().string())) continue;
        if (entry.is_regular_file(ec) && !entry.is_symlink(ec)) fs::remove(entry.path(), ec);
    }
}

bool replaceFile(const fs::path& path, const std::string& bytes) {
    const std::string name = "." + path.filename().string() + std::string(kTemporaryMark) + "XXXXXX";
    std::string temp = (path.parent_path() / name).string();
    int fd = ::mkostemp(temp.data(), O_CLOEXEC);
    if (fd < 0) return false;
    bool ok = ::write(fd, bytes.data(), bytes.size()) == static_cast<ssize_t>(bytes.size());
    ok = ::fsync(fd) == 0 && ok;
    ::fchmod(fd, 0644);
    ok = ::close(fd) == 0 && ok;
    if (ok) ok = ::rename(temp.c_str(), path.c_str()) == 0;
    if (!ok) ::unlink(temp.c_str());
    return ok;
}

}  // namespace telvaro::posix

#include "sheet/workbook_file.h"

#include <unistd.h>

#include <cerrno>
#include <cstdlib>

#include "runtime/error.h"

namespace telvaro::sheet {

namespace fs = std::filesystem;

fs::path reserveTemporary(const fs::path& folder) {
    std::string pattern = (folder / ".libro-XXXXXX.part").string();
    int fd = ::mkstemps(pattern.data(), 5);
    if (fd < 0) raise(err::PathFileAccessError);
    ::close(fd);
    return pattern;
}

// link(2) fails with EEXIST instead of replacing a file.
fs::path publish(const fs::path& temporary, const fs::path& folder, const std::string& baseName) {
    for (int n = 1; n <= kMostWorkbookNames; ++n) {
        fs::path target = folder / (baseName + std::to_string(n) + ".xlsx");
        if (::link(temporary.c_str(), target.c_str()) == 0) {
            ::unlink(temporary.c_str());
            return target;
        }
        if (errno != EEXIST) break;
    }
    ::unlink(temporary.c_str());
    raise(err::PathFileAccessError);
}

void removeFile(const fs::path& file) noexcept { ::unlink(file.c_str()); }

std::string writerPath(const fs::path& path) { return path.string(); }

}  // namespace telvaro::sheet

// Files that several processes change at once: each change is made under an
// exclusive lock on the file's folder, written to a temporary file beside it
// and renamed over it, so that no change is lost and a crash leaves the old
// or the new file, never a torn one.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace telvaro::posix {

// The whole content of a file; nothing when it cannot be read.
std::optional<std::string> readBytes(const std::filesystem::path& path);

// An exclusive lock on a folder for as long as the object lives.
class FolderLock {
public:
    explicit FolderLock(const std::filesystem::path& folder);
    ~FolderLock();
    FolderLock(const FolderLock&) = delete;
    FolderLock& operator=(const FolderLock&) = delete;
    bool held() const { return fd_ >= 0; }

private:
    int fd_;
};

// Writes `bytes` to a new file beside `path` and renames it over `path`.
// The new file is named ".<name>.telvaro-tmp-XXXXXX" until the rename.
bool replaceFile(const std::filesystem::path& path, const std::string& bytes);

// What marks a temporary file of `replaceFile`, and the test for its name.
inline constexpr std::string_view kTemporaryMark = ".telvaro-tmp-";
bool isTemporaryName(const std::string& fileName);

// Removes the temporary files a killed writer left in `folder`. Only under
// the folder's lock: every writer renames its temporary file before it lets
// the lock go, so any one found then is stale.
void removeStaleTemporaries(const std::filesystem::path& folder);

// Under the folder's lock, replaces the file's content with what `change`
// makes of it (the old content, or empty when the file is missing). False
// when the folder is missing or the file cannot be written.
template <class Change>
bool changeFile(const std::filesystem::path& path, Change&& change) {
    FolderLock lock(path.parent_path());
    if (!lock.held()) return false;
    removeStaleTemporaries(path.parent_path());
    return replaceFile(path, change(readBytes(path).value_or(std::string())));
}

}  // namespace telvaro::posix

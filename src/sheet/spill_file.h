// A scratch file a long sheet keeps its older rows in, so that a sheet of
// hundreds of thousands of rows does not have to be held in memory until it
// is written. The file lives in the folder the workbooks are written to (the
// host's, under the home folder), has no name anyone else can open (removed
// at once on POSIX, deleted on close on Windows) and goes with its sheet.
#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <vector>

namespace telvaro::sheet {

class SpillFile {
public:
    // Nullptr when no scratch file can be made there: the sheet then keeps
    // every row in memory.
    static std::unique_ptr<SpillFile> create(const std::filesystem::path& folder);
    ~SpillFile();
    SpillFile(const SpillFile&) = delete;
    SpillFile& operator=(const SpillFile&) = delete;

    // Adds the bytes at the end; their offset, or nothing when they could not
    // all be written (the caller keeps its data).
    std::optional<std::uint64_t> append(const std::vector<char>& bytes);
    // Bytes written earlier; error 57 when they cannot be read back.
    const char* read(std::uint64_t offset, std::uint32_t size);

private:
    SpillFile() = default;
    bool readAt(std::uint64_t offset, char* into, std::size_t size);

    std::intptr_t handle_ = -1;
    std::uint64_t end_ = 0;
    // The last stretch read: rows spilled together are read back together.
    std::vector<char> window_;
    std::uint64_t windowStart_ = 0;
};

}  // namespace telvaro::sheet

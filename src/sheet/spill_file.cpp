#include "sheet/spill_file.h"

#ifdef _WIN32
#include <windows.h>
#else
#include <fcntl.h>
#include <unistd.h>
#endif

#include <algorithm>
#include <cstring>
#include <random>
#include <string>
#include <system_error>

#include "runtime/error.h"

namespace telvaro::sheet {

namespace {

constexpr std::size_t kWindow = std::size_t{1} << 18;

}  // namespace

#ifdef _WIN32

std::unique_ptr<SpillFile> SpillFile::create(const std::filesystem::path& folder) {
    std::error_code ec;
    std::filesystem::create_directories(folder, ec);
    std::random_device random;
    for (int attempt = 0; attempt < 16; ++attempt) {
        const auto path = folder / (".hoja-" + std::to_string(random()) + ".tmp");
        HANDLE h = CreateFileW(path.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                               FILE_ATTRIBUTE_TEMPORARY | FILE_ATTRIBUTE_HIDDEN | FILE_FLAG_DELETE_ON_CLOSE, nullptr);
        if (h == INVALID_HANDLE_VALUE) {
            if (GetLastError() == ERROR_FILE_EXISTS) continue;
            return nullptr;
        }
        std::unique_ptr<SpillFile> file(new SpillFile);
        file->handle_ = reinterpret_cast<std::intptr_t>(h);
        return file;
    }
    return nullptr;
}

SpillFile::~SpillFile() { CloseHandle(reinterpret_cast<HANDLE>(handle_)); }

std::optional<std::uint64_t> SpillFile::append(const std::vector<char>& bytes) {
    OVERLAPPED at{};
    at.Offset = static_cast<DWORD>(end_);
    at.OffsetHigh = static_cast<DWORD>(end_ >> 32);
    DWORD written = 0;
    if (bytes.size() > 0xFFFFFFFFu ||
        !WriteFile(reinterpret_cast<HANDLE>(handle_), bytes.data(), static_cast<DWORD>(bytes.size()), &written, &at) ||
        written != bytes.size())
        return std::nullopt;
    const std::uint64_t offset = end_;
    end_ += bytes.size();
    return offset;
}

bool SpillFile::readAt(std::uint64_t offset, char* into, std::size_t size) {
    OVERLAPPED at{};
    at.Offset = static_cast<DWORD>(offset);
    at.OffsetHigh = static_cast<DWORD>(offset >> 32);
    DWORD got = 0;
    return ReadFile(reinterpret_cast<HANDLE>(handle_), into, static_cast<DWORD>(size), &got, &at) && got == size;
}

#else

std::unique_ptr<SpillFile> SpillFile::create(const std::filesystem::path& folder) {
    std::error_code ec;
    std::filesystem::create_directories(folder, ec);
    std::string pattern = (folder / ".hoja-XXXXXX").string();
    const int fd = ::mkostemp(pattern.data(), O_CLOEXEC);
    if (fd < 0) return nullptr;
    ::unlink(pattern.c_str());
    std::unique_ptr<SpillFile> file(new SpillFile);
    file->handle_ = fd;
    return file;
}

SpillFile::~SpillFile() { ::close(static_cast<int>(handle_)); }

std::optional<std::uint64_t> SpillFile::append(const std::vector<char>& bytes) {
    std::size_t done = 0;
    while (done < bytes.size()) {
        const ssize_t n = ::pwrite(static_cast<int>(handle_), bytes.data() + done, bytes.size() - done,
                                   static_cast<off_t>(end_ + done));
        if (n <= 0) return std::nullopt;
        done += static_cast<std::size_t>(n);
    }
    const std::uint64_t offset = end_;
    end_ += bytes.size();
    return offset;
}

bool SpillFile::readAt(std::uint64_t offset, char* into, std::size_t size) {
    std::size_t done = 0;
    while (done < size) {
        const ssize_t n =
            ::pread(static_cast<int>(handle_), into + done, size - done, static_cast<off_t>(offset + done));
        if (n <= 0) return false;
        done += static_cast<std::size_t>(n);
    }
    return true;
}

#endif

const char* SpillFile::read(std::uint64_t offset, std::uint32_t size) {
    if (offset < windowStart_ || offset + size > windowStart_ + window_.size()) {
        const std::size_t length = static_cast<std::size_t>(
            std::min<std::uint64_t>(std::max<std::size_t>(kWindow, size), end_ > offset ? end_ - offset : 0));
        if (length < size) raise(err::DeviceIOError);
        window_.resize(length);
        windowStart_ = offset;
        if (!readAt(offset, window_.data(), length)) {
            window_.clear();
            raise(err::DeviceIOError);
        }
    }
    return window_.data() + (offset - windowStart_);
}

}  // namespace telvaro::sheet

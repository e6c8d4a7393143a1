#include <windows.h>

#include <chrono>
#include <cstdint>
#include <random>

#include "runtime/error.h"
#include "sheet/workbook_file.h"

namespace telvaro::sheet {

namespace fs = std::filesystem;

namespace {

constexpr int kTemporaryTries = 100;

// Six letters or digits for a temporary name. CREATE_NEW makes the name
// unique; the randomness only keeps the tries few.
std::wstring randomPart() {
    static constexpr wchar_t kLetters[] = L"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789";
    thread_local std::mt19937 generator([] {
        std::random_device device;
        std::seed_seq seed{static_cast<std::uint32_t>(device()), static_cast<std::uint32_t>(GetCurrentProcessId()),
                           static_cast<std::uint32_t>(GetCurrentThreadId()),
                           static_cast<std::uint32_t>(std::chrono::steady_clock::now().time_since_epoch().count())};
        return std::mt19937(seed);
    }());
    std::uniform_int_distribution<std::size_t> pick(0, std::size(kLetters) - 2);
    std::wstring part(6, L'A');
    for (wchar_t& c : part) c = kLetters[pick(generator)];
    return part;
}

bool exists(DWORD error) { return error == ERROR_FILE_EXISTS || error == ERROR_ALREADY_EXISTS; }

}  // namespace

fs::path reserveTemporary(const fs::path& folder) {
    for (int i = 0; i < kTemporaryTries; ++i) {
        fs::path candidate = folder / (L".libro-" + randomPart() + L".part");
        HANDLE file =
            CreateFileW(candidate.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr);
        if (file != INVALID_HANDLE_VALUE) {
            CloseHandle(file);
            return candidate;
        }
        if (!exists(GetLastError())) break;
    }
    raise(err::PathFileAccessError);
}

// MoveFileExW without MOVEFILE_REPLACE_EXISTING fails when the name is
// taken instead of replacing the file; within one folder it renames.
fs::path publish(const fs::path& temporary, const fs::path& folder, const std::string& baseName) {
    const std::wstring base = fs::path(std::u8string(baseName.begin(), baseName.end())).native();
    for (int n = 1; n <= kMostWorkbookNames; ++n) {
        fs::path target = folder / (base + std::to_wstring(n) + L".xlsx");
        if (MoveFileExW(temporary.c_str(), target.c_str(), 0)) return target;
        if (!exists(GetLastError())) break;
    }
    DeleteFileW(temporary.c_str());
    raise(err::PathFileAccessError);
}

void removeFile(const fs::path& file) noexcept { DeleteFileW(file.c_str()); }

std::string writerPath(const fs::path& path) {
    const std::u8string text = path.u8string();
    return std::string(text.begin(), text.end());
}

}  // namespace telvaro::sheet

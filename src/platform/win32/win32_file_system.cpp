#include "platform/win32/win32_file_system.h"

#include <string>
#include <vector>

#include "platform/win32/win32_text.h"
#include "runtime/error.h"

namespace telvaro::win32 {

namespace {

// The runtime's error for a failed call, with the standard description.
[[noreturn]] void raiseLastError(int otherwise) {
    switch (GetLastError()) {
        case ERROR_FILE_NOT_FOUND: raise(err::FileNotFound);
        case ERROR_PATH_NOT_FOUND:
        case ERROR_INVALID_DRIVE:
        case ERROR_BAD_NETPATH:
        case ERROR_INVALID_NAME: raise(err::PathNotFound);
        case ERROR_ACCESS_DENIED:
        case ERROR_WRITE_PROTECT:
        case ERROR_SHARING_VIOLATION: raise(err::PermissionDenied);
        case ERROR_ALREADY_EXISTS:
        case ERROR_FILE_EXISTS: raise(err::FileAlreadyExists);
        case ERROR_DISK_FULL:
        case ERROR_HANDLE_DISK_FULL: raise(err::DiskFull);
        case ERROR_TOO_MANY_OPEN_FILES: raise(err::TooManyFiles);
        case ERROR_NOT_READY: raise(err::DiskNotReady);
        default: raise(otherwise);
    }
}

bool hasWildcards(StringView s) { return s.find_first_of(u"*?") != StringView::npos; }

DWORD attributesOf(StringView path) {
    if (path.empty() || hasWildcards(path)) return INVALID_FILE_ATTRIBUTES;
    return GetFileAttributesW(wide(path).c_str());
}

String withoutTrailingSeparator(String path) {
    if (path.size() > 3 && path.back() == u'\\') path.pop_back();
    return path;
}

// A file handle closed on scope exit; opening fails as the runtime's Open
// does: 76 for a missing folder, 75 for anything it may not open.
class FileHandle {
public:
    FileHandle(StringView path, DWORD access, DWORD disposition)
        : handle_(CreateFileW(wide(path).c_str(), access, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, disposition,
                              FILE_ATTRIBUTE_NORMAL, nullptr)) {
        if (handle_ != INVALID_HANDLE_VALUE) return;
        const DWORD error = GetLastError();
        if (error == ERROR_PATH_NOT_FOUND || error == ERROR_INVALID_DRIVE) raise(err::PathNotFound);
        if (error == ERROR_TOO_MANY_OPEN_FILES) raise(err::TooManyFiles);
        raise(err::PathFileAccessError);
    }
    ~FileHandle() { CloseHandle(handle_); }
    FileHandle(const FileHandle&) = delete;
    FileHandle& operator=(const FileHandle&) = delete;
    HANDLE get() const { return handle_; }

    void seek(std::int64_t offset) {
        LARGE_INTEGER at;
        at.QuadPart = offset;
        if (!SetFilePointerEx(handle_, at, nullptr, FILE_BEGIN)) raiseLastError(err::DeviceIOError);
    }

private:
    HANDLE handle_;
};

std::int64_t recordOffset(std::int32_t number, std::size_t length) {
    if (number < 1) raise(err::BadRecordNumber);
    return static_cast<std::int64_t>(number - 1) * static_cast<std::int64_t>(length);
}

}  // namespace

bool Win32FileSystem::fileExists(StringView path) {
    const DWORD a = attributesOf(path);
    return a != INVALID_FILE_ATTRIBUTES && (a & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

bool Win32FileSystem::folderExists(StringView path) {
    const DWORD a = attributesOf(path);
    return a != INVALID_FILE_ATTRIBUTES && (a & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

void Win32FileSystem::createFolder(StringView path) {
    if (path.empty()) raise(err::InvalidProcedureCall);
    if (!CreateDirectoryW(wide(path).c_str(), nullptr)) raiseLastError(err::PathFileAccessError);
}

void Win32FileSystem::deleteFiles(StringView files) {
    std::size_t cut = files.size();
    while (cut > 0 && files[cut - 1] != u'\\' && files[cut - 1] != u'/') --cut;
    const String folder(files.substr(0, cut));
    if (cut > 0 && !folderExists(folder.size() > 3 ? StringView(folder).substr(0, folder.size() - 1) : folder))
        raise(err::PathNotFound);
    if (cut == files.size()) raise(err::FileNotFound);

    std::vector<String> victims;
    WIN32_FIND_DATAW found;
    HANDLE search = FindFirstFileW(wide(files).c_str(), &found);
    if (search != INVALID_HANDLE_VALUE) {
        do {
            if ((found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0)
                victims.push_back(folder + fromWide(found.cFileName, wcslen(found.cFileName)));
        } while (FindNextFileW(search, &found));
        FindClose(search);
    }
    if (victims.empty()) raise(err::FileNotFound);
    for (const String& file : victims) {
        const std::wstring name = wide(file);
        const DWORD a = GetFileAttributesW(name.c_str());
        if (a != INVALID_FILE_ATTRIBUTES && (a & FILE_ATTRIBUTE_READONLY))
            SetFileAttributesW(name.c_str(), a & ~FILE_ATTRIBUTE_READONLY);
        if (!DeleteFileW(name.c_str())) raiseLastError(err::PathFileAccessError);
    }
}

String Win32FileSystem::specialFolder(int which) {
    wchar_t buffer[MAX_PATH + 1] = {};
    UINT n = 0;
    switch (which) {
        case 0: n = GetWindowsDirectoryW(buffer, MAX_PATH); break;
        case 1: n = GetSystemDirectoryW(buffer, MAX_PATH); break;
        case 2: n = GetTempPathW(MAX_PATH, buffer); break;
        default: raise(err::InvalidProcedureCall);
    }
    return withoutTrailingSeparator(fromWide(buffer, n));
}

String Win32FileSystem::applicationPath() {
    // The folder of the program that loaded the library.
    std::wstring path(32768, L'\0');
    const DWORD n = GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
    path.resize(n);
    const std::size_t slash = path.find_last_of(L"\\/");
    if (slash != std::wstring::npos) path.resize(slash);
    return withoutTrailingSeparator(fromWide(path));
}

void Win32FileSystem::appendToFile(StringView path, std::string_view bytes) {
    FileHandle file(path, FILE_APPEND_DATA, OPEN_ALWAYS);
    // One write: appends of other processes land before or after, not inside.
    DWORD written = 0;
    if (!WriteFile(file.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) ||
        written != bytes.size())
        raiseLastError(err::DeviceIOError);
}

std::string Win32FileSystem::readRecord(StringView path, std::int32_t number, std::size_t length) {
    FileHandle file(path, GENERIC_READ | GENERIC_WRITE, OPEN_ALWAYS);
    file.seek(recordOffset(number, length));
    std::string record(length, '\0');
    DWORD got = 0;
    // Past the end of the file the rest of the record reads as zeros.
    if (!ReadFile(file.get(), record.data(), static_cast<DWORD>(length), &got, nullptr))
        raiseLastError(err::DeviceIOError);
    return record;
}

void Win32FileSystem::writeRecord(StringView path, std::int32_t number, std::string_view bytes) {
    FileHandle file(path, GENERIC_READ | GENERIC_WRITE, OPEN_ALWAYS);
    file.seek(recordOffset(number, bytes.size()));
    DWORD written = 0;
    if (!WriteFile(file.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) ||
        written != bytes.size())
        raiseLastError(err::DeviceIOError);
}

}  // namespace telvaro::win32

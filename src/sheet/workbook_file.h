// The names a workbook file goes through while it is written: a hidden
// temporary file reserved in the destination folder, then published under
// the first free final name "<base><n>.xlsx" without ever replacing a file,
// or removed when the write failed. A reader never sees a half-written
// workbook, and two processes writing into one folder never overwrite each
// other. POSIX (mkstemps, link, unlink) and Win32 (CreateFileW with
// CREATE_NEW, MoveFileExW without replacing, DeleteFileW) each have theirs.
#pragma once

#include <filesystem>
#include <string>

namespace telvaro::sheet {

// The highest n tried for "<base><n>.xlsx".
inline constexpr int kMostWorkbookNames = 100000;

// A new ".libro-XXXXXX.part" in `folder`, reserved by creating it empty.
// Error 75 when no such file can be created.
std::filesystem::path reserveTemporary(const std::filesystem::path& folder);

// Gives the written temporary file the first free name "<base><n>.xlsx" in
// `folder` and returns it; the temporary name is gone afterwards. Error 75
// when no name can be given (the temporary file is then removed).
std::filesystem::path publish(const std::filesystem::path& temporary, const std::filesystem::path& folder,
                              const std::string& baseName);

// Removes a file; nothing happens when it cannot be removed.
void removeFile(const std::filesystem::path& file) noexcept;

// The path as libxlsxwriter takes it: the file system's own bytes on POSIX,
// UTF-8 on Windows (the Windows build of libxlsxwriter opens its files
// through wide-character calls, see win32/xlsxwriter_file_names.h).
std::string writerPath(const std::filesystem::path& path);

}  // namespace telvaro::sheet

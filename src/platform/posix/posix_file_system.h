// Files and folders on Linux, through the Windows-path mapping of home.h.
// Drive C always exists (its folder is created on first use); another drive
// exists when its folder does. The Windows and system folders are
// C:\Windows and C:\Windows\System32 under drive C; the temporary folder is
// the system's own. Wildcards match names without regard to case, as on
// Windows; a name without wildcards is looked up as the file system has it.
#pragma once

#include <filesystem>

#include "platform/file_system.h"

namespace telvaro::posix {

class PosixFileSystem : public FileSystem {
public:
    bool fileExists(StringView path) override;
    bool folderExists(StringView path) override;
    void createFolder(StringView path) override;
    void deleteFiles(StringView files) override;
    String specialFolder(int which) override;
    String applicationPath() override;
    void appendToFile(StringView path, std::string_view bytes) override;
    std::string readRecord(StringView path, std::int32_t number, std::size_t length) override;
    void writeRecord(StringView path, std::int32_t number, std::string_view bytes) override;

    // The folder or file a Windows-form path names here.
    static std::filesystem::path resolve(StringView path);
};

}  // namespace telvaro::posix

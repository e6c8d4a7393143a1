// Files and folders through the Win32 wide-character file functions, with
// the answers the scripting file-system object gives: the Windows, system
// and temporary folders without a trailing "\", wildcards in the last part
// of a deletion, read-only files deleted too, and the runtime's file errors
// (53, 58, 70, 75, 76 ...) for failures.
#pragma once

#include "platform/file_system.h"

namespace telvaro::win32 {

class Win32FileSystem : public FileSystem {
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
};

}  // namespace telvaro::win32

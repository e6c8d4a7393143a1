// Files and folders as the library's methods use them: existence tests,
// folder creation, deleting files (wildcards allowed, read-only files too),
// the special folders, appending text to a file, and fixed-length records
// of a random-access file. Paths are in Windows form ("C:\App\datos.dat");
// failures raise the runtime's file errors (53, 58, 70, 75, 76 ...).
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "runtime/ustring.h"

namespace telvaro {

class FileSystem {
public:
    virtual ~FileSystem() = default;

    virtual bool fileExists(StringView path) = 0;
    virtual bool folderExists(StringView path) = 0;
    // One level: the parent must exist. 58 when the name exists already.
    virtual void createFolder(StringView path) = 0;
    // Deletes the files `files` names ("*" and "?" allowed in its last part),
    // read-only ones included. 53 when no file matches.
    virtual void deleteFiles(StringView files) = 0;
    // 0 the Windows folder, 1 the system folder, 2 the temporary folder.
    virtual String specialFolder(int which) = 0;
    // Where the calling application runs from; its first three characters
    // are the drive root of the application's files.
    virtual String applicationPath() = 0;

    // Appends bytes to a file, creating it when missing, in one write.
    virtual void appendToFile(StringView path, std::string_view bytes) = 0;

    // Opens the file for random access (creating it when missing) and reads
    // or writes record `number` (from 1; 63 below) of `length` bytes. A
    // record past the end of the file reads as zero bytes.
    virtual std::string readRecord(StringView path, std::int32_t number, std::size_t length) = 0;
    virtual void writeRecord(StringView path, std::int32_t number, std::string_view bytes) = 0;
};

}  // namespace telvaro

// Profile files on Linux: paths mapped under the home folder (a file named
// without a full path lives in the Windows folder, C:\Windows), text in the
// ANSI code page with CR LF line ends. A change is written to a temporary
// file and renamed over the old one while the folder is locked, so that two
// processes writing at once lose nothing and a crash leaves the old or the
// new file, never a torn one.
#pragma once

#include <filesystem>

#include "platform/profile_files.h"

namespace telvaro::posix {

class PosixProfileFiles : public ProfileFiles {
public:
    String getString(StringView file, StringView section, StringView key, StringView defaultText,
                     std::size_t bufferSize) override;
    bool writeString(StringView file, StringView section, StringView key, StringView value) override;

    static std::filesystem::path locate(StringView file);
};

}  // namespace telvaro::posix

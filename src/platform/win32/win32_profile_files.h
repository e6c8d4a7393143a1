// Profile (INI) files through GetPrivateProfileStringA and
// WritePrivateProfileStringA.
#pragma once

#include "platform/profile_files.h"

namespace telvaro::win32 {

class Win32ProfileFiles : public ProfileFiles {
public:
    String getString(StringView file, StringView section, StringView key, StringView defaultText,
                     std::size_t bufferSize) override;
    bool writeString(StringView file, StringView section, StringView key, StringView value) override;
};

}  // namespace telvaro::win32

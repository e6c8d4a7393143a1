#include "platform/win32/win32_profile_files.h"

#include <string>

#include "platform/win32/win32_text.h"

namespace telvaro::win32 {

String Win32ProfileFiles::getString(StringView file, StringView section, StringView key, StringView defaultText,
                                    std::size_t bufferSize) {
    std::string buffer(bufferSize, '\0');
    const DWORD n = GetPrivateProfileStringA(ansi(section).c_str(), ansi(key).c_str(), ansi(defaultText).c_str(),
                                             buffer.data(), static_cast<DWORD>(bufferSize), ansi(file).c_str());
    return fromAnsi(buffer.data(), n);
}

bool Win32ProfileFiles::writeString(StringView file, StringView section, StringView key, StringView value) {
    return WritePrivateProfileStringA(ansi(section).c_str(), ansi(key).c_str(), ansi(value).c_str(),
                                      ansi(file).c_str()) != 0;
}

}  // namespace telvaro::win32

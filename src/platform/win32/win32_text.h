// Text across the Win32 boundary: wide strings are the runtime's UTF-16
// units as they are; the A-functions take text in the system's ANSI code
// page, with a character it lacks written as "?".
#pragma once

#include <windows.h>

#include <string>

#include "runtime/ustring.h"

namespace telvaro::win32 {

inline std::wstring wide(StringView s) { return std::wstring(s.begin(), s.end()); }
inline String fromWide(const wchar_t* s, std::size_t n) { return String(s, s + n); }
inline String fromWide(const std::wstring& s) { return fromWide(s.data(), s.size()); }

std::string ansi(StringView s);
String fromAnsi(const char* bytes, std::size_t n);

}  // namespace telvaro::win32

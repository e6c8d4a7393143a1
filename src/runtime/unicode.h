// The platform's Unicode tables, one UTF-16 unit at a time: simple case
// mappings. ICU supplies them on Linux, the Win32 national-language
// functions on Windows. Surrogates and mappings
// that leave the basic plane come back unchanged.
#pragma once

#include "runtime/ustring.h"

namespace telvaro::unicode {

char16_t foldCase(char16_t c);
char16_t toUpper(char16_t c);
char16_t toLower(char16_t c);

}  // namespace telvaro::unicode

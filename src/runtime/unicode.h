// The platform's Unicode tables, one UTF-16 unit at a time: simple case
// mappings and the Spanish text order. ICU supplies them on Linux, the
// Win32 national-language functions on Windows. Surrogates and mappings
// that leave the basic plane come back unchanged.
#pragma once

#include "runtime/ustring.h"

namespace telvaro::unicode {

char16_t foldCase(char16_t c);
char16_t toUpper(char16_t c);
char16_t toLower(char16_t c);

// The order of two texts in Spanish with case ignored and accents counted:
// -1, 1, or 0 when they are equal for it or the platform cannot tell.
int collate(StringView a, StringView b);

}  // namespace telvaro::unicode

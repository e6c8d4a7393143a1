// Case mappings from ICU.
#include <unicode/uchar.h>

#include "runtime/unicode.h"

namespace telvaro::unicode {

namespace {

bool isSurrogate(char16_t c) { return c >= 0xD800 && c <= 0xDFFF; }

char16_t mapped(char16_t c, UChar32 (*mapping)(UChar32)) {
    if (isSurrogate(c)) return c;
    const UChar32 u = mapping(c);
    return u <= 0xFFFF ? static_cast<char16_t>(u) : c;
}

UChar32 simpleFold(UChar32 c) { return u_foldCase(c, U_FOLD_CASE_DEFAULT); }

}  // namespace

char16_t foldCase(char16_t c) { return mapped(c, simpleFold); }
char16_t toUpper(char16_t c) { return mapped(c, u_toupper); }
char16_t toLower(char16_t c) { return mapped(c, u_tolower); }

}  // namespace telvaro::unicode

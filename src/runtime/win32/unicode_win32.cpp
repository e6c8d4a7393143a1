// Case mappings from the Win32 national-language
// functions. The case tables of the whole basic plane are built once, each
// with a single LCMapStringEx call, so a mapping is an array lookup.
#include <windows.h>

#include <array>

#include "runtime/unicode.h"

namespace telvaro::unicode {

namespace {

using Table = std::array<char16_t, 0x10000>;

bool isSurrogate(unsigned c) { return c >= 0xD800 && c <= 0xDFFF; }

Table identity() {
    Table t{};
    for (unsigned c = 0; c < t.size(); ++c) t[c] = static_cast<char16_t>(c);
    return t;
}

// The plane mapped by one LCMapStringEx flag; surrogates and units whose
// mapping changes the length are left as they are.
Table mappedPlane(DWORD flag) {
    Table source = identity();
    for (unsigned c = 0xD800; c <= 0xDFFF; ++c) source[c] = u' ';
    Table out{};
    const int n = LCMapStringEx(LOCALE_NAME_INVARIANT, flag, reinterpret_cast<LPCWSTR>(source.data() + 1),
                                static_cast<int>(source.size() - 1), reinterpret_cast<LPWSTR>(out.data() + 1),
                                static_cast<int>(out.size() - 1), nullptr, nullptr, 0);
    if (n != static_cast<int>(out.size() - 1)) return identity();
    out[0] = 0;
    for (unsigned c = 0xD800; c <= 0xDFFF; ++c) out[c] = static_cast<char16_t>(c);
    return out;
}

const Table& upperTable() {
    static const Table t = mappedPlane(LCMAP_UPPERCASE);
    return t;
}
const Table& lowerTable() {
    static const Table t = mappedPlane(LCMAP_LOWERCASE);
    return t;
}
// Simple folding: the lower case of the upper case, so that letters with
// two small forms (final sigma, long s) fold together.
const Table& foldTable() {
    static const Table t = [] {
        Table f{};
        for (unsigned c = 0; c < f.size(); ++c)
            f[c] = isSurrogate(c) ? static_cast<char16_t>(c) : lowerTable()[upperTable()[c]];
        return f;
    }();
    return t;
}

}  // namespace

char16_t foldCase(char16_t c) { return foldTable()[c]; }
char16_t toUpper(char16_t c) { return upperTable()[c]; }
char16_t toLower(char16_t c) { return lowerTable()[c]; }

}  // namespace telvaro::unicode

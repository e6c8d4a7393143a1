// Text comparison and the string functions of the runtime. Every comparison
// is the runtime's text comparison: case-insensitive under the current
// locale, with accented and unaccented letters kept apart ("A" equals "a",
// "á" does not equal "a"). Positions are 1-based and count UTF-16 units.
#pragma once

#include <cstdint>
#include <vector>

#include "runtime/ustring.h"

namespace telvaro {

// Case folding of one UTF-16 unit / a whole text (simple folding).
char16_t foldCase(char16_t c);
String upperCase(StringView s);  // UCase
String lowerCase(StringView s);  // LCase

bool textEquals(StringView a, StringView b);

// InStr(start, s, find, vbTextCompare): position of `find` in `s` from
// `start`, 0 when not found; an empty `s` gives 0, an empty `find` in a
// text gives `start` when start <= len(s) + 1. Error 5 when start < 1.
std::int32_t inStr(std::int32_t start, StringView s, StringView find);
inline std::int32_t inStr(StringView s, StringView find) { return inStr(1, s, find); }
// InStrRev(s, find, start, vbTextCompare): position of the last `find`
// that lies within the first `start` units (-1: the whole text), 0 when not
// found or when start > len(s); an empty `find` gives `start`.
// Error 5 when start is 0 or below -1.
std::int32_t inStrRev(StringView s, StringView find, std::int32_t start = -1);
// Every position at which `find` occurs in `s`, in ascending order,
// overlapping occurrences included ("aa" occurs at 1, 2 and 3 of "aaaa"),
// found in one linear pass; empty when `find` is empty.
std::vector<std::int32_t> textOccurrences(StringView s, StringView find);
// Replace(s, find, with, 1, -1, vbTextCompare): every occurrence, one left
// to right pass (replaced text is not searched again). An empty `find`
// leaves `s` unchanged.
String replaceText(StringView s, StringView find, StringView with);

// Mid, Left, Right with the runtime's argument checks (error 5 for a start
// below 1 or a negative length).
String mid(StringView s, std::int32_t start);
String mid(StringView s, std::int32_t start, std::int32_t length);
String left(StringView s, std::int32_t length);
String right(StringView s, std::int32_t length);
// Trim, LTrim, RTrim remove blanks (U+0020) only.
String trim(StringView s);
String ltrim(StringView s);
String rtrim(StringView s);
String space(std::int32_t n);  // error 5 when n < 0
// String(n, c); error 5 when n < 0, 14 past kMaxBuiltTextLength.
String repeatChar(std::int32_t n, char16_t c);

}  // namespace telvaro

// Text as the automation runtime holds it: counted UTF-16 strings.
// Lengths and positions count UTF-16 units, so "año" has length 3.
#pragma once

#include <string>
#include <string_view>

namespace telvaro {

using String = std::u16string;
using StringView = std::u16string_view;

// UTF-8 <-> UTF-16 at the edges (command line, files, JSON).
// Invalid UTF-8 bytes become U+FFFD; lone surrogates become U+FFFD in UTF-8.
String fromUtf8(std::string_view utf8);
std::string toUtf8(StringView text);
// The same, added to the end of `out` (a buffer kept for reuse).
void appendUtf8(std::string& out, StringView text);

// ASCII-only helpers for building texts from numbers and literals.
String ascii(std::string_view text);

}  // namespace telvaro

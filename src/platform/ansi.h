// The ANSI code page of the Spanish Windows desktops (1252), in which INI
// files, error logs and the Windows A-functions carry text. Decoding and
// encoding are exact inverses for every byte, so lines the library does not
// change are written back byte for byte; a character outside the code page
// is written as "?".
#pragma once

#include <string>
#include <string_view>

#include "runtime/ustring.h"

namespace telvaro {

String fromAnsi(std::string_view bytes);
std::string toAnsi(StringView text);

}  // namespace telvaro

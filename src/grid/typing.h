// Typing into a caller's grid from its key-press event: a printable key is
// appended to the current cell's text, Backspace removes the last character
// (and the key code becomes 0), Escape and Enter change nothing.
#pragma once

#include <cstdint>

#include "runtime/variant.h"

namespace telvaro {
class Fun;
}

namespace telvaro::grid {

void EscribeGrid(Fun&, const ObjectRef& Grid, std::int16_t& KEyAsci);

}  // namespace telvaro::grid

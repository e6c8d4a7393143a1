// The backspace of an edited text: the control's Text loses its last
// character and, for a text box or a combo box, the caret goes to the new
// end. The result is always 0, so that a key-press handler can make it its
// key code and cancel the native backspace. An empty text is left alone.
#pragma once

#include <cstdint>

#include "runtime/variant.h"

namespace telvaro::grid {

std::int16_t removeLastCharacter(const Variant& control);

}  // namespace telvaro::grid

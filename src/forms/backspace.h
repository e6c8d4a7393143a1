// The backspace key done by hand, for key-press handlers that cancel the
// native one (and for the grid's cell editor):
//
//     KeyAscii = fn_Backspace(txtCodigo)     "abc" -> "ab", caret at 2
#pragma once

#include <cstdint>

#include "runtime/variant.h"

namespace telvaro {
class Fun;
}

namespace telvaro::forms {

// Removes the last character of the control's Text (an empty box is left
// alone); a text box or combo box gets its caret at the new end. Always 0.
std::int16_t fn_Backspace(Fun&, const ObjectRef& Control);

}  // namespace telvaro::forms

// Whether a key pressed in a control marks the record as changed:
//
//     mbCambios = esChanged(txtNombre, KeyAscii, mbCambios)
//
// A search box (Tag "BUSCAR") never marks a change; Esc and Enter in a text
// or combo box do not either; space toggles a check box or option button.
// The result is never set back to False.
#pragma once

#include <cstdint>

#include "runtime/variant.h"

namespace telvaro {
class Fun;
}

namespace telvaro::forms {

Boolean esChanged(Fun&, const ObjectRef& aControl, std::int16_t KeyA, Boolean EstActual);

}  // namespace telvaro::forms

// Enabling or disabling a container with everything in it:
//
//     HabilitaControles fraDatos, True
//
// Every control of the container's form whose container, or container's
// container, up to four levels, has the container's Name is switched, then
// the container itself. Statement-skipping mode: controls without a
// container (menus) are passed over, and the method never fails.
#pragma once

#include "runtime/variant.h"

namespace telvaro {
class Fun;
}

namespace telvaro::forms {

void HabilitaControles(Fun&, const ObjectRef& NomControl, Boolean Habilitar);

}  // namespace telvaro::forms

// Clearing and trimming every text control of a form, from its handlers:
//
//     fn_LimpiaTextObjetos Me     every text box and editable combo emptied
//     QuitaEspacios Me            every text without its outer blanks
//
// Both run in statement-skipping mode: a control without Text (a label, a
// command button) is passed over, and they never fail. A drop-down list
// combo (Style 2) is left alone; grids are left out of the clearing (a
// control that answers TextMatrix(0, 0) is a grid) but not of the trimming,
// which trims a grid's current cell.
#pragma once

#include "runtime/variant.h"

namespace telvaro {
class Fun;
}

namespace telvaro::forms {

void fn_LimpiaTextObjetos(Fun&, const ObjectRef& Formulario);
void QuitaEspacios(Fun&, const ObjectRef& Formulario);

}  // namespace telvaro::forms

// The window calls of a form's handlers, through the platform's Windows
// service:
//
//     fn_ScrollHListBox lstClientes          a horizontal scroll bar fitted to the items
//     fn_FormSiempreVisible Me               the form stays above all windows
//     fn_VentanaFlotante frmBuscar, frmPrincipal   floats above its owner
//     fn_MoverControl Me.hWnd                from MouseDown: drag the window by its body
//
// The calls' own results are not checked.
#pragma once

#include <cstdint>

#include "runtime/variant.h"

namespace telvaro {
class Fun;
}

namespace telvaro::forms {

// The extent is the longest item's length times (FontSize - 2) pixels, as
// an Integer (error 6 beyond 32767); 200 for an empty list.
void fn_ScrollHListBox(Fun& fun, const ObjectRef& Lista);
void fn_FormSiempreVisible(Fun& fun, const ObjectRef& Formulario);
void fn_VentanaFlotante(Fun& fun, const ObjectRef& Formulario, const ObjectRef& Padre);
void fn_MoverControl(Fun& fun, std::int32_t hWnd_control);

}  // namespace telvaro::forms

// The error log: a form's error handler calls fn_LogErrores with the control
// where the failure happened and the error object. One line goes to the
// month's file, <drive>\Errores\ErrLog\<month>.txt on the application's
// drive, followed by a line of 127 hyphens, and the user is told where the
// file is:
//
//   14/07/2024 - Módulo: frmClientes - Contenedor: Frame1 - Control: txtCodigo - Procedimiento: Validar - Error:
//   Overflow
//   -------------------------------------------------------------------------------------------------------------------------------
//
// The July file of every year is the same file: the log keeps one file per
// month number and grows.
#pragma once

#include "runtime/object.h"
#include "runtime/variant.h"

namespace telvaro {

class Fun;

void fn_LogErrores(Fun&, const Variant& Objeto, const ObjectRef& nerr, const String& InfoExtra);

}  // namespace telvaro

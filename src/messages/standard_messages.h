// The standard confirmations and notices of record editing, shared by every
// data-entry form: save, delete, not saved, saved, deleted, nothing changed,
// no record selected. Each shows a modal box with a fixed style and title and
// turns the answer into a Boolean.
#pragma once

#include "runtime/variant.h"

namespace telvaro {
class Fun;
}

namespace telvaro::messages {

Boolean MsgGuardarRegistro(Fun&, const String& Msg);
Boolean MsgEliminarRegistro(Fun&, const String& Msg);
Boolean MsgRegistroNoGuardado(Fun&, const String& Msg);
void MsgDatosGuardados(Fun&, const String& Msg);
void MsgDatosEliminados(Fun&, const String& Msg);
// Shows its notice only when Changed is exactly 0; returns Changed as it came.
Boolean MsgHayCambios(Fun&, Boolean Changed, const String& Msg);
// Shows its notice when Nuevo is non-zero; returns the 16-bit complement of Nuevo.
Boolean MsgRegistroSeleccionado(Fun&, Boolean Nuevo, const String& Msg);

}  // namespace telvaro::messages

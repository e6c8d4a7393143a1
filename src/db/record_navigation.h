// Moving a data-entry form through its records, asking the same questions
// on every form before unsaved edits are lost. The form owns the data, the
// saving and the loading; the library owns the dialogue and reaches the form
// only through its named members (callers/navigable_form.h).
#pragma once

#include "runtime/object.h"

namespace telvaro {
class Fun;
}

namespace telvaro::db {

void RegistroInicial(Fun&, const ObjectRef& Formulario, const String& MsgError, const String& MsgIgnora);
void RegistroAnterior(Fun&, const ObjectRef& Formulario, const String& MsgError, const String& MsgIgnora);
void RegistroSiguiente(Fun&, const ObjectRef& Formulario, const String& MsgError, const String& MsgIgnora);
void RegistroFinal(Fun&, const ObjectRef& Formulario, const String& MsgError, const String& MsgIgnora);
// Always asks, then loads CodRegistro unless the user keeps the edits.
void regReintentaCargarDatos(Fun&, const ObjectRef& Formulario, const Variant& CodRegistro, const String& MsgError,
                             const String& MsgIgnora);
// True when the caller may go on with its operation.
Boolean regReintentarEstaOperacion(Fun&, const ObjectRef& Formul, const String& MsgError, const String& MsgIgnora);

}  // namespace telvaro::db

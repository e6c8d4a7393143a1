#include "messages/standard_messages.h"

#include "context/fun.h"
#include "platform/message_box.h"

namespace telvaro::messages {

namespace {

constexpr int kQuestion = msgbox::YesNo | msgbox::Question;    // 36
constexpr int kWarning = msgbox::YesNo | msgbox::Exclamation;  // 52
constexpr int kNotice = msgbox::OkOnly | msgbox::Information;  // 64

Boolean askYes(Fun& fun, const String& prompt, int style, const char16_t* title) {
    return Boolean(fun.showMessage(prompt, style, title) == msgbox::Yes);
}

}  // namespace

Boolean MsgGuardarRegistro(Fun& fun, const String& Msg) { return askYes(fun, Msg, kQuestion, u"Guardar registro?"); }

Boolean MsgEliminarRegistro(Fun& fun, const String& Msg) { return askYes(fun, Msg, kWarning, u"¡Eliminar registro?"); }

Boolean MsgRegistroNoGuardado(Fun& fun, const String& Msg) {
    return askYes(fun, Msg, kWarning, u"Registro no guardado!");
}

void MsgDatosGuardados(Fun& fun, const String& Msg) { fun.showMessage(Msg, kNotice, u"LISTO"); }

void MsgDatosEliminados(Fun& fun, const String& Msg) { fun.showMessage(Msg, kNotice, u"LISTO"); }

Boolean MsgHayCambios(Fun& fun, Boolean Changed, const String& Msg) {
    if (Changed.bits == 0) fun.showMessage(Msg, kNotice, u"Registro sin cambios");
    return Changed;
}

Boolean MsgRegistroSeleccionado(Fun& fun, Boolean Nuevo, const String& Msg) {
    if (Nuevo.bits != 0) fun.showMessage(Msg, kNotice, u"Seleccione un registro");
    return Boolean::fromBits(static_cast<std::int16_t>(~Nuevo.bits));
}

}  // namespace telvaro::messages

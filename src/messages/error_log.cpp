#include "messages/error_log.h"

#include <cmath>

#include "context/fun.h"
#include "platform/ansi.h"
#include "platform/message_box.h"
#include "runtime/convert.h"
#include "runtime/datetime.h"
#include "runtime/format.h"
#include "system/files.h"

namespace telvaro {

namespace {

constexpr std::size_t kSeparatorLength = 127;

// A value joined into text as "&" joins it: Null is empty.
String joined(const Variant& v) { return v.isNull() ? String() : toString(v); }

String nameOf(const Variant& object) { return joined(objectOf(object).get(u"Name")); }

}  // namespace

void fn_LogErrores(Fun& fun, const Variant& Objeto, const ObjectRef& nerr, const String& InfoExtra) {
    // 1. What went wrong, from the caller's error object.
    const String description = joined(objectOf(Variant(nerr)).get(u"Description"));
    // 2. The library keeps no pending error of its own between calls (errors
    //    leave a method with it), so there is nothing to clear here or at
    //    the end; the caller's error object is not touched.

    // 4. The month's folder on the application's drive, created when missing.
    const double now = fun.platform().environment().now();
    const String month = toString(Variant(static_cast<std::int32_t>(civilDate(now).month)));
    const String driveRoot = fun.platform().fileSystem().applicationPath().substr(0, 3);
    const String folder = driveRoot + u"Errores\\ErrLog";
    if (!fun.platform().fileSystem().folderExists(folder)) system::fsoCrearCarpeta(fun, folder);

    // 5. The entry; the control's form, container and own name are read in
    //    that order.
    String entry = format(Variant(Date{std::trunc(now)}), u"dd/mm/yyyy") + u" - ";
    entry += u"Módulo: " + nameOf(objectOf(Objeto).get(u"Parent"));
    entry += u" - Contenedor: " + nameOf(objectOf(Objeto).get(u"Container"));
    entry += u" - Control: " + nameOf(Objeto);
    entry += u" - Procedimiento: " + InfoExtra;
    entry += u" - Error: " + description;

    // 6. Both lines in one append.
    const String file = folder + u"\\" + month + u".txt";
    fun.platform().fileSystem().appendToFile(file, toAnsi(entry + u"\r\n" + String(kSeparatorLength, u'-') + u"\r\n"));

    // 7. The drive in the message is always C:.
    fun.showMessage(
        u"La operación solicitada no pudo completarse debido a un error. Se ha generado un archivo de "
        u"errores el cual contiene la descripción del error y el control que lo generó. Notifique los "
        u"errores al desarrollador de este sistema para su corrección respectiva. El archivo se encuentra "
        u"en C:\\Errores\\ErrLog\\" +
            month + u".txt",
        msgbox::OkOnly | msgbox::Critical, u"Error interceptado");
}

}  // namespace telvaro

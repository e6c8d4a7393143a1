#include "system/files.h"

#include "context/error_modes.h"
#include "context/fun.h"
#include "platform/message_box.h"
#include "runtime/checked.h"
#include "system/variant_record.h"
#include "text/strings.h"

namespace telvaro::system {

namespace {
FileSystem& files(Fun& fun) { return fun.platform().fileSystem(); }
}  // namespace

void fsoBorraArchivo(Fun& fun, const String& Origen, Boolean PoneMsg) {
    SkipErrors onError;
    onError([&] { files(fun).deleteFiles(Origen); });
    if (onError.failed() && PoneMsg.isTrue()) {
        fun.showMessage(u"No se pudo eliminar el archivo: Error=" + onError.pendingError()->description() + u".",
                        msgbox::OkOnly | msgbox::Critical, u"Error");
    }
    onError.clear();
}

Boolean fsoExisteCarpeta(Fun& fun, const String& Carpeta) { return Boolean(files(fun).folderExists(Carpeta)); }

Boolean fsoExisteArchivo(Fun& fun, const String& Archivo) { return Boolean(files(fun).fileExists(Archivo)); }

String fsoCarpetaSistema(Fun& fun, TipoCarpetaSys Cual) {
    const auto which = static_cast<std::int32_t>(Cual);
    if (which < 0 || which > 2) return {};
    return files(fun).specialFolder(which);
}

void fsoCrearCarpeta(Fun& fun, const String& Carpeta) {
    // Level by level: the text before the second "\", before the third, ...
    // (the drive, before the first, is never created), then the whole path.
    const std::int16_t n = text::strCuentaCaracteres(fun, Carpeta, u"\\", 1);
    forLoop(Int16(2), Int16(n), [&](Int16 k) {
        const std::int16_t p = text::strPosicion_XAvo_Caracter(fun, Carpeta, u"\\", k.value());
        const String prefix = text::strCadenaEntrePosicion(fun, Carpeta, 1, p);
        if (!files(fun).folderExists(prefix)) files(fun).createFolder(prefix);
    });
    if (!files(fun).folderExists(Carpeta)) files(fun).createFolder(Carpeta);
}

Variant fsoLeeArchivo(Fun& fun, const String& NomArchivo, std::int16_t NumRegistro) {
    return decodeRecord(files(fun).readRecord(NomArchivo, NumRegistro, kRecordLength));
}

void fsoGrabaArchivo(Fun& fun, const String& NomArchivo, std::int16_t NumRegistro, const Variant& Valor) {
    // The record is laid out first: a value that does not fit changes nothing.
    const std::string record = encodeRecord(Valor, kRecordLength);
    files(fun).writeRecord(NomArchivo, NumRegistro, record);
}

}  // namespace telvaro::system

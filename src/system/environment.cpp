#include "system/environment.h"

#include "context/fun.h"
#include "context/thread_state.h"
#include "runtime/checked.h"
#include "runtime/datetime.h"

namespace telvaro::system {

namespace {

Environment& environment(Fun& fun) { return fun.platform().environment(); }

// The seconds field (0 to 59) of the current time.
std::int16_t currentSecond(Fun& fun) { return static_cast<std::int16_t>(timeOfDay(environment(fun).now()).second); }

// The names come from fixed buffers: 255 characters for the computer's,
// 260 for the user's, which ends at its first zero.
constexpr std::size_t kComputerNameBuffer = 255;
constexpr std::size_t kUserNameBuffer = 260;

}  // namespace

String fn_NombreComputador(Fun& fun) { return environment(fun).computerName().substr(0, kComputerNameBuffer); }

String fn_NombreUsuarioWindows(Fun& fun) {
    String name = environment(fun).userName().substr(0, kUserNameBuffer);
    return name.substr(0, name.find(u'\0'));
}

void fn_EsperaXSegundos(Fun& fun, std::int16_t NumSegundos, Boolean EjecutarOtrosProcesos) {
    // Only the seconds field is compared: a target of 60 or more is never
    // reached and the wait does not end. Callers keep waits within the
    // current minute.
    const Int16 target = Int16(currentSecond(fun)) + Int16(NumSegundos);
    for (;;) {
        if (EjecutarOtrosProcesos.isTrue()) environment(fun).processEvents();
        if (target.value() <= currentSecond(fun)) break;
        environment(fun).idle();
    }
}

void EjecutaArchivo(Fun& fun, const String& Archivo, const String& Parametros, const String& Directorio,
                    Boolean Visible) {
    // 1 shows the program normally; 4 shows it without activating it (the
    // window is not hidden).
    environment(fun).open(Archivo, Parametros, Directorio, Visible.isTrue() ? 1 : 4);
}

Boolean HayConexionInternet(Fun& fun) { return Boolean(environment(fun).internetReachable()); }

void sndTocaArchivoWab(Fun& fun, const String& Archivo, Boolean Detener, Boolean Repetitivo) {
    if (Detener.isTrue()) {
        // A request for a file that is not there stops the sound playing.
        environment(fun).playSound(u"1", sound::Synchronous);
    } else {
        environment(fun).playSound(Archivo,
                                   Repetitivo.isTrue() ? sound::Asynchronous | sound::Loop : sound::Asynchronous);
    }
}

void CapturaMsgBox(Fun& fun, Boolean mostrarMsgBox) {
    const bool capture = !mostrarMsgBox.isTrue();
    threadState().messageBoxCapture = capture;
    environment(fun).captureMessageBoxes(capture);
}

}  // namespace telvaro::system

// The environment of the running application: who and where it runs,
// opening documents and programs, a connection test, a sound, a short wait,
// and switching the thread's message boxes off for unattended runs.
//
//     fn_NombreComputador()                      -> "CAJA01"
//     EjecutaArchivo("C:\Reportes\ventas.pdf")     opens it with its program
//     sndTocaArchivoWab("C:\Sonidos\alerta.wav", False, True)   plays it in a loop
//     sndTocaArchivoWab("", True)                  stops it
//     CapturaMsgBox()                              message boxes close at once
//     CapturaMsgBox(True)                          message boxes show again
#pragma once

#include <cstdint>

#include "runtime/variant.h"

namespace telvaro {
class Fun;
}

namespace telvaro::system {

String fn_NombreComputador(Fun&);
String fn_NombreUsuarioWindows(Fun&);
void fn_EsperaXSegundos(Fun&, std::int16_t NumSegundos, Boolean EjecutarOtrosProcesos);
void EjecutaArchivo(Fun&, const String& Archivo, const String& Parametros, const String& Directorio, Boolean Visible);
Boolean HayConexionInternet(Fun&);
void sndTocaArchivoWab(Fun&, const String& Archivo, Boolean Detener, Boolean Repetitivo);
void CapturaMsgBox(Fun&, Boolean mostrarMsgBox);

}  // namespace telvaro::system

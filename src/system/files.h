// Files and folders: the small file services the forms use to test for and
// create folders, delete work files, and keep a few values in numbered
// records of a file of their own.
//
//     fsoCrearCarpeta("C:\Datos\2024\Julio")     creates each missing level
//     fsoExisteCarpeta("C:\Datos\2024")       -> True
//     fsoGrabaArchivo("C:\Datos\ult.dat", 3, "F-0012")
//     fsoLeeArchivo("C:\Datos\ult.dat", 3)    -> "F-0012"
//     fsoBorraArchivo("C:\Datos\*.tmp", True)    a message if it fails
#pragma once

#include <cstdint>

#include "context/enums.h"
#include "runtime/variant.h"

namespace telvaro {
class Fun;
}

namespace telvaro::system {

// The record length of the random-access files.
inline constexpr std::size_t kRecordLength = 128;

void fsoBorraArchivo(Fun&, const String& Origen, Boolean PoneMsg);
Boolean fsoExisteCarpeta(Fun&, const String& Carpeta);
Boolean fsoExisteArchivo(Fun&, const String& Archivo);
String fsoCarpetaSistema(Fun&, TipoCarpetaSys Cual);
void fsoCrearCarpeta(Fun&, const String& Carpeta);
Variant fsoLeeArchivo(Fun&, const String& NomArchivo, std::int16_t NumRegistro);
void fsoGrabaArchivo(Fun&, const String& NomArchivo, std::int16_t NumRegistro, const Variant& Valor);

}  // namespace telvaro::system

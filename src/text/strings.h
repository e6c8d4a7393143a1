// String and vector helpers: counting, cutting, locating and padding
// substrings, and turning a separated list into an array of typed values.
// Counters and positions are 16-bit Integers (error 6 past 32767); every
// comparison is the runtime's case-insensitive text comparison.
#pragma once

#include <cstdint>

#include "context/enums.h"
#include "runtime/variant.h"

namespace telvaro {
class Fun;
}

namespace telvaro::text {

std::int16_t strCuentaCaracteres(Fun&, const String& Cadena, const String& Caracter, std::int16_t PosInicio);
String strCadenaEntrePosicion(Fun&, const String& Cadena, std::int16_t posIni, std::int16_t PosFin);
std::int16_t strPosicion_XAvo_Caracter(Fun&, const String& Cadena, const String& Caracter, std::int16_t NumCaracter);
Variant fn_LlenaVector(Fun&, const String& Elementos, TipoDato TipoDat, const String& Separador);
std::int32_t fn_BuscaEnVector(Fun&, const Variant& Vector, const Variant& ItemB);

// Private routines of the class, used by other families.
String strDesdePosicion(const String& Cadena, std::int16_t Posicion);
String strDespuesDeUltimo(const String& Cadena, const String& Caracter);
String strRellena(const String& Cadena, const String& Relleno, std::int16_t Longitud, LadoCadena Lado);

}  // namespace telvaro::text

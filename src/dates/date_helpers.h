// Date helpers for data-entry screens: a date as "yyyy-mm-dd" for SQL text,
// a person's exact age as a Spanish phrase, the days of a month and the
// first day of a month.
//
//     MyFecha("15/03/2024")                      -> "2024-03-15"
//     fecEdadExacta(#1/1/2020#, #1/1/2000#)     -> " 20 años con  0 meses y  0 días"
//     fecUltimoDiaMes(2, 2024)                   -> 29
#pragma once

#include <cstdint>

#include "runtime/variant.h"

namespace telvaro {
class Fun;
}

namespace telvaro::dates {

String MyFecha(Fun&, const String& Fecha);
String fecEdadExacta(Fun&, Date FechaActual, Date FechaNacimiento);
std::uint8_t fecUltimoDiaMes(Fun&, std::uint8_t Mes, std::int16_t Anio);
Date FechaPrimerDia(Fun&, const Variant& Fecha);

}  // namespace telvaro::dates

// Writing the cells of a caller's grid: replacing a value in a column,
// filling a row or an area with one value, numbering a column. A negative
// range end means the last row or column; cells written before a failure
// stay written.
#pragma once

#include <cstdint>

#include "runtime/variant.h"

namespace telvaro {
class Fun;
}

namespace telvaro::grid {

void fn_ReemplazaValorColumnaGrid(Fun&, const ObjectRef& Grid, std::int16_t Columna, const Variant& Que,
                                  const Variant& ConQue, std::int32_t FilInicio, std::int32_t FilFin);
void fn_LimpiaFilaGrid(Fun&, const ObjectRef& Grid, std::int32_t Fila, const Variant& ValoraPoner,
                       std::int16_t ColInicio, std::int16_t ColFin);
// Rows outer, columns inner, Integer counters.
void fn_LimpiaAreaGrid(Fun&, const ObjectRef& Grid, std::int16_t FilaIni, std::int16_t ColInic, std::int16_t FilaFin,
                       std::int16_t ColFin, const String& PonerEsto);
// Each row gets the running number in the regional general format followed
// by SignoNumero; the caller's NumeroInicial is not changed.
void fn_NumeraColumnaGrid(Fun&, const ObjectRef& Grid, std::int16_t Columna, std::int16_t FilaInicial,
                          std::int16_t FilaFin, double NumeroInicial, double Incremento, const String& SignoNumero);

}  // namespace telvaro::grid

// Searching and counting the cells of a caller's grid: the first row of a
// column, or the first column of a row, whose text equals a value; how many
// cells of a column pass a comparison. Cells compare as text, without
// regard to case (a number is compared through its text: 5 finds "5", not
// "5.0"); a negative range end means the last row or column.
#pragma once

#include <cstdint>

#include "runtime/variant.h"

namespace telvaro {
class Fun;
}

namespace telvaro::grid {

std::int32_t fn_BuscaColGrid(Fun&, const ObjectRef& Grid, std::int16_t Columna, const Variant& Valor,
                             std::int32_t FilaInic, std::int32_t FilaFin);
std::int32_t fn_BuscaFilGrid(Fun&, const ObjectRef& Grid, std::int32_t Fila, const Variant& Valor, std::int16_t ColInic,
                             std::int16_t ColFin);
// Operacion is "=", ">", "<", ">=" or "<="; the numeric ones read both
// sides by their leading number and skip empty cells; any other operation
// counts nothing. The count is an Integer (error 6 past 32767).
std::int16_t fn_CuentaElementosColGrid(Fun&, const ObjectRef& Grid, std::int16_t Columna, const Variant& Valor,
                                       const String& Operacion, std::int16_t FilaInicio, std::int16_t FilaFin);

}  // namespace telvaro::grid

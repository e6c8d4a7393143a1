// Colouring, aligning, re-fonting and sizing the cells of a caller's grid.
// The cell members act on the current cell, so each method saves Col and
// Row, moves the current cell over its range and puts Col and Row back
// (fn_CambiaLetraFilaGrid puts Row back first, the others Col). The
// centring, font and width methods suspend painting (Redraw False) and turn
// it on at the end. A failure leaves the cells formatted so far, the
// current cell where it was and painting off.
#pragma once

#include <cstdint>

#include "runtime/variant.h"

namespace telvaro {
class Fun;
}

namespace telvaro::grid {

void fn_PintaFilaGrid(Fun&, const ObjectRef& Grid, std::int32_t Fila, std::int32_t Color, std::int32_t ColorLetra,
                      std::int16_t ColInicio, std::int16_t ColFin);
void fn_PintaColumnaGrid(Fun&, const ObjectRef& Grid, std::int16_t Columna, std::int32_t Color, std::int32_t ColorLetra,
                         std::int32_t FilInicio, std::int32_t FilFin);
// The two centring methods hold the saved Col in a Byte: a current column
// above 255 is error 6 before any cell changes.
void fn_CentraFilaGrid(Fun&, const ObjectRef& Grid, std::int32_t Fila, std::int16_t Alineamiento,
                       std::int16_t ColInicio, std::int16_t ColFin);
void fn_CentraColumGrid(Fun&, const ObjectRef& Grid, std::int16_t Columna, std::int16_t Alineamiento,
                        std::int32_t FilInicio, std::int32_t FilFin);
void fn_CambiaLetraFilaGrid(Fun&, const ObjectRef& Grid, std::int32_t Fila, double Tamanio, Boolean Negrita,
                            Boolean Cursiva, Boolean Subrayada, const String& NomLetra, std::int16_t ColInicio,
                            std::int16_t ColFin);
// Columnas and Anchos are lists of numbers separated by ",": ColWidth of
// each listed column becomes the width at the same place. Widths beyond the
// columns are ignored; a missing width is error 9; 256 or more columns is
// error 6 (the counter is a Byte).
void fn_CambiaAnchoColumnaGrid(Fun&, const ObjectRef& Grid, const String& Columnas, const String& Anchos);

}  // namespace telvaro::grid

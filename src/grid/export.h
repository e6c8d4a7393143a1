// A range of a caller's grid copied into a new workbook of the spreadsheet
// application, for the user to look at, print or save: the title in B1,
// the subtitle in B3, the header row on sheet row 4 and the data below it,
// from column B, each column boxed in thin lines and as wide as in the grid.
// The workbook is left open (on Linux: written to a file of the home
// folder's exports/ and opened when the user can see it).
#pragma once

#include <cstdint>

#include "runtime/variant.h"

namespace telvaro {
class Fun;
}

namespace telvaro::grid {

// Rows FilaInicio (the header) to FilaFin and columns ColInicio to ColFin;
// a negative end is the grid's last row or column, and is written back.
// Never fails: every failing step is skipped.
void fn_ExportaExcelGrid(Fun&, const ObjectRef& Grid, std::int16_t FilaInicio, const String& Titulo,
                         const String& SubTitulo, std::int16_t ColInicio, std::int16_t& ColFin, std::int16_t& FilaFin,
                         Boolean PoneLineas);

}  // namespace telvaro::grid

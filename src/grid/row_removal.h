// Removing rows from a caller's grid. A grid keeps at least one row below
// its fixed rows, so the only data row under a header is not removed but
// the grid shrunk to the header (and, when asked, one empty row re-created).
#pragma once

#include <cstdint>

#include "runtime/variant.h"

namespace telvaro {
class Fun;
}

namespace telvaro::grid {

void fn_QuitaFilaGrid2(Fun&, const ObjectRef& Grid, std::int16_t Fila, Boolean Dejar1Fila);
// Removes every row from FilasFixed down whose cell in ColumnaBuscar equals
// ValorNulo (case-insensitively). Never fails: a failing step is skipped.
void fn_QuitaFilasInvalidas(Fun&, const ObjectRef& Grid, std::int16_t ColumnaBuscar, const String& ValorNulo,
                            std::uint8_t FilasFixed);

}  // namespace telvaro::grid

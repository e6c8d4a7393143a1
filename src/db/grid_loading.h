// Filling the caller's flexible grid from a query: which fields go to which
// grid column, each written by its format code (db/column_formats.h), with
// the progress form frmProg shown for long results. Neither method traps
// errors: a failure ends the method with the rows written so far left in
// the grid (and frmProg on screen if it was shown).
#pragma once

#include <cstdint>

#include "runtime/object.h"

namespace telvaro {
class Fun;
}

namespace telvaro::db {

// Fills Grid from SQL_ from row FilInicio, entry k of Campos into column
// ColInicio + k. With Limpiar the data rows go first (FilInicio 0: the
// whole grid); with NegritaTit the title rows are centred and bold.
void RegLlenaGridRegSql(Fun&, const ObjectRef& Conexion, const ObjectRef& Grid, const String& SQL_,
                        const String& Campos, Boolean Limpiar, Boolean Dejar1Fila, std::int32_t FilInicio,
                        std::int16_t ColInicio, Boolean NegritaTit, const String& NumDeci, Boolean ProgresB);
// A search as the user types: an empty pattern finds nothing, and the grid
// is hidden when it has no rows.
void regLlenaGridLIKE(Fun&, const ObjectRef& Conexion, const String& SQL_, const ObjectRef& Grid, const String& CamposC,
                      std::int32_t FilaInic, std::int16_t ColInic, Boolean OcultaSiNo, Boolean Deja1rafila);

// The numeric empty-search marker: "'%'" (else "' %'") becomes "'0.00000000'".
String markEmptyNumericSearch(StringView sql);

}  // namespace telvaro::db

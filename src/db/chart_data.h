// The label/value matrix a chart control draws, from a two-column query:
// one row per record, column 0 the first field joined with a unit text
// (the label), column 1 the second field as stored (the value).
//
//     fn_MatrizParaEstadistica(cn, "SELECT mes, total FROM ventas", " USD", True, MSChart1)
//     -> {{"Enero USD", 1200}, {"Febrero USD", 950}, ...}, drawn by MSChart1
//
// A query with no rows (or a count the cursor cannot give) answers an
// all-Empty 2 x 2 matrix, after the message "No existen datos para generar
// una gráfica estadística." when ConMsgError is True. A single row gives a
// 2 x 2 matrix whose second row stays Empty. The rows are handed to the
// chart last, with errors ignored: when there are rows and the chart takes
// them the matrix is the result, otherwise (no chart, or a chart that
// refuses the data) the result is Empty. Errors of the query reach the
// caller.
#pragma once

#include "runtime/object.h"

namespace telvaro {
class Fun;
}

namespace telvaro::db {

Variant fn_MatrizParaEstadistica(Fun&, const ObjectRef& Conexion, const String& SQL, const String& SufijoX,
                                 Boolean ConMsgError, const ObjectRef& Chart);

}  // namespace telvaro::db

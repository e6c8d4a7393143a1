// The records of a query copied into a new workbook of the spreadsheet
// application: the title in C2, the caller's header texts on sheet row 4
// from column B with the caller's widths, every column boxed in thin lines,
// one sheet row per record from row 5. Dates, and texts that read as dates,
// keep the text the database gave them.
#pragma once

#include <vector>

#include "callers/recordset.h"
#include "runtime/variant.h"

namespace telvaro {
class Fun;
}

namespace telvaro::db {

// Campos and Anchos are comma-separated lists (header texts, widths in the
// spreadsheet's unit) in the order of the query's columns. The query's and
// the lists' errors reach the caller; the sheet's are skipped.
void ExportExcelReg(Fun&, const ObjectRef& Conexion, const String& Campos, const String& Anchos, const String& SQL_,
                    const String& Titulo);

// The class's private writer: the page of an open recordset, from its
// current state to its end. Never fails: every failing step is skipped.
void EscribeHojaRecordset(Fun&, const callers::Recordset& Registro, const std::vector<String>& Encabezados,
                          const std::vector<double>& Anchos, const String& Titulo, Boolean PoneLineas);

}  // namespace telvaro::db

// Small helpers over the caller's open connection: one value from a query,
// the next free code of a table, and a CASE expression built from two comma
// lists. They never open or close the connection and keep nothing between
// calls; none shows anything.
#pragma once

#include "context/enums.h"
#include "runtime/object.h"

namespace telvaro {
class Fun;
}

namespace telvaro::db {

// The first column of the first row (its value), or Empty when the
// recordset reports no rows (RecordCount 0 or -1).
Variant regDevuelveDatoCampoSQL(Fun&, const ObjectRef& Conexion, const String& SQL);
// MAX(NomCampo) + Incremento over the rows meeting CondicionSinWhere; the
// maximum of no rows is 0. 6 when the sum leaves the Long range.
std::int32_t regUltimoCodigo(Fun&, const ObjectRef& Conexion, const String& NomCampo, const String& NomTabla,
                             const String& CondicionSinWhere, std::int16_t Incremento);
// " CASE NomCampo WHEN w1 THEN 't1' ... END" with doubled blanks folded.
String SQL_When(Fun&, const String& NomCampo, const String& When_, const String& Then_, TipoDato TipDato);

// The ADO constants the database methods pass.
inline constexpr std::int32_t kOpenForwardOnly = 0;
inline constexpr std::int32_t kLockReadOnly = 1;
inline constexpr std::int32_t kUnspecified = -1;

}  // namespace telvaro::db

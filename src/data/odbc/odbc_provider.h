// Database servers through the ODBC driver manager (unixODBC on Linux, the
// system's on Windows), for DSN-less strings ("Driver={PostgreSQL
// Unicode};Server=...") and data source names. Texts cross as UTF-16.
// Values come back by the column's SQL type: small integers as Integer,
// integers as Long, big integers as Long within its range and Decimal
// beyond, exact numerics as Decimal, floating types as Double, dates and
// times as Date, bits and booleans as Boolean, binary types as Byte arrays,
// everything else as String.
//
// Strings that would make the driver manager load a library or read a file
// of the caller's choosing (a Driver given as a path, FILEDSN, SAVEFILE)
// are refused with 3001.
#pragma once

#include <memory>

#include "data/provider.h"

namespace telvaro::data {

std::unique_ptr<ProviderSession> openOdbcSession(StringView connectionString);

}  // namespace telvaro::data

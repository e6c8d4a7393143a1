// The embedded database engine. Values come back by what each one holds:
// an integer as Long, or as Double beyond the Long range; a real as Double;
// a text as String; a blob as a Byte array; NULL as Null. Field.Type comes
// from the column's declared type (INT -> adInteger, REAL/FLOA/DOUB ->
// adDouble, CHAR/CLOB/TEXT -> adVarWChar, BLOB -> adLongVarBinary) and, for
// expressions and other declarations, from the first row's value.
//
// A database opened here cannot reach other files: attaching databases is
// switched off (which also refuses VACUUM INTO), and so are extensions.
#pragma once

#include <memory>

#include "data/provider.h"

namespace telvaro::data {

// `target` is ":memory:" or a Windows-form path resolved through the
// services.
std::unique_ptr<ProviderSession> openSqliteSession(StringView target, const DataServices& services);

}  // namespace telvaro::data

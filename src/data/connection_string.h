// Connection strings as callers write them, and which engine serves each:
//  - ":memory:"                          a new empty embedded database
//  - "C:\Datos\ventas.db"                an embedded database file
//  - "Data Source=C:\Datos\ventas.db"    the same ("Provider=SQLite;" may
//                                        come first)
//  - "Driver={PostgreSQL Unicode};Server=...;Database=...;Uid=...;"
//    "DSN=ventas;Uid=...;", "Provider=MSDASQL;DSN=..."
//                                        an ODBC data source
//  - "odbc:<ODBC connection string>"     the same, said explicitly
// Keys are compared without regard to case; a value may be written in
// braces to hold ";" or "=".
#pragma once

#include <optional>
#include <utility>
#include <vector>

#include "runtime/ustring.h"

namespace telvaro::data {

struct ConnectionPair {
    String key;
    String value;
};

// The "key=value" pairs in order; error 3001 for a malformed string (an
// unclosed brace, a pair without "=").
std::vector<ConnectionPair> parseConnectionString(StringView text);

// A value written so that it reads back as itself: in braces, with "}"
// doubled, when it holds ";", "=", braces or blanks.
String connectionValueText(StringView value);

// The value of a key, if given.
std::optional<String> connectionValue(const std::vector<ConnectionPair>& pairs, StringView key);

enum class Engine { Embedded, Odbc };

struct ConnectionTarget {
    Engine engine = Engine::Embedded;
    // Embedded: ":memory:" or the Windows-form path of the file.
    // Odbc: the ODBC connection string handed to the driver manager.
    String target;
};

// Which engine a connection string names; 3706 for an unknown provider,
// 3001 for an empty or malformed string.
ConnectionTarget chooseEngine(StringView connectionString);

}  // namespace telvaro::data

// What the data tests share: the objects made by ProgID on a path mapping
// that keeps every file under the test's home folder, late-bound calls that
// read like a caller's code, and the PostgreSQL server the ODBC tests use.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "data/data_services.h"
#include "runtime/object.h"
#include "support/postgres_server.h"
#include "support/support.h"

namespace telvaro::data::testing {

// "C:\a\b" -> <working folder>/drives/c/a/b; anything else (a relative
// path, "..", a POSIX path) is refused with error 75.
DataServices homeServices();
std::filesystem::path driveFile(StringView windowsPath);

ObjectRef create(StringView progId);
// An open connection on a new in-memory database, at `cursorLocation`,
// after the statements of `setup`.
ObjectRef memoryConnection(const std::vector<String>& setup, std::int32_t cursorLocation);
// A recordset opened forward-only, read-only, Options -1, as the library's
// methods open theirs.
ObjectRef openRecordset(const ObjectRef& connection, StringView sql);

}  // namespace telvaro::data::testing

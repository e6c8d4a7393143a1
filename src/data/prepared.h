// Connections and recordsets made from a description rather than by a
// caller's member calls (the batch protocol's "connection" and "recordset"
// objects), and the state of a recordset as a report gives it back.
#pragma once

#include <cstdint>
#include <utility>
#include <vector>

#include "data/data_services.h"
#include "data/data_types.h"
#include "runtime/object.h"

namespace telvaro::data {

struct ConnectionRequest {
    // ":memory:", a Windows-form file path, or "odbc:<ODBC connection string>".
    String database;
    // Statements run, in order, once the connection is open.
    std::vector<String> setup;
    std::int32_t cursorLocation = kUseServer;
};

// An open Connection; a failing setup statement raises its error naming it.
ObjectRef openPreparedConnection(const ConnectionRequest& request, const DataServices& services);

// A Recordset open over `source` on `connection` (forward-only, read-only),
// at `cursorLocation` (0: the connection's), moved to the 1-based `position`
// (0: before the first row). 3001 for a position the rows do not have.
ObjectRef openPreparedRecordset(const ObjectRef& connection, StringView source, std::int32_t cursorLocation,
                                std::int32_t position, const DataServices& services);

struct RecordsetReport {
    bool open = false;
    std::int32_t position = kPosUnknown;  // AbsolutePosition
    std::int32_t recordCount = -1;
    bool bof = true;
    bool eof = true;
    // The current record's fields in order; empty at BOF or EOF.
    std::vector<std::pair<String, Variant>> fields;
};

// Reads the state of any recordset object through its members.
RecordsetReport describeRecordset(Object& recordset);

}  // namespace telvaro::data

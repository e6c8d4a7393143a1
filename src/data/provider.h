// The small interface every database engine offers the data objects: open a
// session from a connection string, run one statement, read its rows one by
// one into a row store. The recordset builds cursors, counts and positions
// on top of it.
#pragma once

#include <chrono>
#include <memory>
#include <vector>

#include "data/data_services.h"
#include "data/data_types.h"
#include "data/row_store.h"

namespace telvaro::data {

struct ColumnInfo {
    String name;
    DataType type = DataType::VarWChar;
};

// The rows of one executed statement, read forward only.
class ProviderCursor {
public:
    virtual ~ProviderCursor() = default;
    // The result's columns; none for a statement that returns no rows.
    virtual const std::vector<ColumnInfo>& columns() const = 0;
    // Reads the next row into a new row of `rows` (which has one column per
    // result column); false, with no row added, after the last.
    virtual bool fetch(RowStore& rows) = 0;
    // How many rows the statement inserted, changed or deleted; -1 when
    // unknown or for a query.
    virtual std::int32_t recordsAffected() const { return -1; }
};

// One open connection to a database.
class ProviderSession {
public:
    virtual ~ProviderSession() = default;
    // Runs one statement. A failing statement raises the provider's error
    // naming it; nothing stays open then.
    virtual std::unique_ptr<ProviderCursor> execute(StringView sql) = 0;
    // The name used as the source of the provider's errors.
    virtual StringView name() const = 0;
    // How long one statement may run (each fetch of a forward-only cursor
    // counts apart) before it is stopped with -2147217871; zero for no limit.
    virtual void setCommandTimeout(std::chrono::milliseconds timeout) = 0;
};

// Opens a session for an ADO-style connection string (see
// connection_string.h for the forms it takes). 3706 for a provider that
// does not exist here; the provider's error when the database cannot be
// opened.
std::unique_ptr<ProviderSession> openSession(StringView connectionString, const DataServices& services);

}  // namespace telvaro::data

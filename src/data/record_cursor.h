// The rows of an open recordset and the position on them, shared by the
// Recordset object, its Fields collection and every Field handed out, so a
// Field always reads the current record of the recordset it came from.
//
// Two ways of holding the rows:
//  - loaded (client-side cursors, and server-side ones that are not
//    forward-only): every row is read at Open into a column store, so
//    RecordCount and AbsolutePosition are exact and every move works;
//  - forward-only on the server side: one row at a time from the provider.
//    RecordCount and AbsolutePosition are -1 (unknown), MoveNext walks on;
//    MovePrevious and MoveLast fail as a cursor that cannot fetch backward,
//    and MoveFirst once the cursor has moved on fails as one that cannot be
//    restarted.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "data/provider.h"

namespace telvaro::data {

class RecordCursor {
public:
    // Reads the result of `cursor` as the settings ask. `keepAlive` is the
    // session the provider cursor reads from.
    RecordCursor(std::shared_ptr<ProviderSession> keepAlive, std::unique_ptr<ProviderCursor> cursor, bool loadAll);

    bool loaded() const { return loaded_; }
    const std::vector<ColumnInfo>& columns() const { return columns_; }
    // The column called `name` (without regard to case), or -1.
    std::int32_t columnIndex(StringView name) const;

    std::int32_t recordCount() const;
    std::int32_t absolutePosition() const;
    void setAbsolutePosition(std::int32_t position);
    bool bof() const;
    bool eof() const;
    void moveFirst();
    void movePrevious();
    void moveNext();
    void moveLast();

    // The current record's value and size in column `column`; 3021 when
    // there is no current record.
    Variant value(std::size_t column) const;
    std::int32_t actualSize(std::size_t column) const;

    std::size_t memoryUsed() const { return rows_.memoryUsed(); }

private:
    std::size_t currentRow() const;

    std::shared_ptr<ProviderSession> session_;
    std::unique_ptr<ProviderCursor> cursor_;  // forward-only: the rows still to come
    std::vector<ColumnInfo> columns_;
    RowStore rows_;
    bool loaded_;
    // Loaded: -1 before the first row, count() after the last.
    std::int64_t current_ = 0;
    // Forward-only: rows passed so far, and whether the end was reached.
    std::int64_t passed_ = 0;
    bool atEnd_ = false;
};

}  // namespace telvaro::data

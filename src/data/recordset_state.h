// What a Recordset shares with its Fields collection and Field objects: the
// open cursor (none while closed) and a count of the times it was opened, so
// a Field kept from an earlier opening is told apart.
#pragma once

#include <cstdint>
#include <memory>

#include "data/record_cursor.h"

namespace telvaro::data {

struct RecordsetState {
    std::shared_ptr<RecordCursor> cursor;
    std::uint64_t opening = 0;

    bool open() const { return cursor != nullptr; }
    // The open cursor; 3704 when the recordset is closed.
    RecordCursor& openCursor() const;
};

}  // namespace telvaro::data

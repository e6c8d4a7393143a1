// ADODB.Recordset: the rows of a query and a current record on them.
//
//   Open [Source], [ActiveConnection], [CursorType], [LockType], [Options]
//     Source: the statement text (a table name with Options adCmdTable, 2);
//     ActiveConnection: a Connection, or a connection string for a private
//     connection, or left out to keep the one given before;
//     CursorType 0..3 and LockType 1..4, -1 or left out to keep the current
//     setting. Recordsets here are read-only whatever the lock type says.
//   Close; State; RecordCount; AbsolutePosition; BOF; EOF;
//   MoveFirst, MovePrevious, MoveNext, MoveLast; Fields; CursorLocation
//   (the connection's when not set on the recordset); DataSource and
//   DataMember (kept for binding controls to the recordset).
//   rs(i) is rs.Fields(i), the default member.
//
// How counts, positions and moves behave for each cursor: record_cursor.h.
#pragma once

#include <memory>

#include "data/connection.h"
#include "data/data_services.h"
#include "data/recordset_state.h"
#include "runtime/object.h"

namespace telvaro::data {

class Recordset : public Object {
public:
    explicit Recordset(DataServices services);
    Variant invoke(StringView member, InvokeKind kind, std::span<Variant> args) override;
    String typeName() const override { return u"Recordset"; }

    // Opens the recordset over `source` on `connection` with the current
    // settings; it stays closed when the statement returns no rows.
    void open(const std::shared_ptr<Connection>& connection, StringView source,
              std::int32_t* recordsAffected = nullptr);
    void close();
    bool isOpen() const { return state_->open(); }
    const std::shared_ptr<RecordsetState>& state() const { return state_; }
    void setCursorType(std::int32_t cursorType);
    std::int32_t cursorLocation() const;
    void setCursorLocation(std::int32_t location);

private:
    Variant openFromArguments(std::span<Variant> args);

    DataServices services_;
    std::shared_ptr<RecordsetState> state_;
    std::shared_ptr<Connection> connection_;
    std::int32_t cursorType_;
    std::int32_t lockType_;
    std::int32_t cursorLocation_ = 0;  // 0: not set, the connection's
    std::int32_t openedLocation_ = 0;
    ObjectRef dataSource_;
    String dataMember_;
};

}  // namespace telvaro::data

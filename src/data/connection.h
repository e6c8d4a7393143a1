// ADODB.Connection: an open session with a database, chosen by its
// connection string (connection_string.h).
//
//   Open [ConnectionString], [UserID], [Password], [Options]
//   Execute(CommandText, [RecordsAffected], [Options]) -> Recordset
//   Close; State (0 closed, 1 open); ConnectionString; CursorLocation
//   (2 server, the default; 3 client: the recordsets it makes load their
//   rows, so their counts are exact).
//
// Closing the connection closes the recordsets open on it.
#pragma once

#include <chrono>
#include <memory>
#include <vector>

#include "data/data_services.h"
#include "data/provider.h"
#include "data/recordset_state.h"
#include "runtime/object.h"

namespace telvaro::data {

class Connection : public Object {
public:
    explicit Connection(DataServices services) : services_(std::move(services)) {}
    Variant invoke(StringView member, InvokeKind kind, std::span<Variant> args) override;
    String typeName() const override { return u"Connection"; }

    void open(StringView connectionString, StringView user = {}, StringView password = {});
    void close();
    bool isOpen() const { return session_ != nullptr; }
    // The session; 3709 when the connection is closed.
    std::shared_ptr<ProviderSession> session() const;
    std::int32_t cursorLocation() const { return cursorLocation_; }
    // How long one statement may run before it is stopped (30 seconds, as
    // the component's CommandTimeout; zero for no limit).
    void setCommandTimeout(std::chrono::milliseconds timeout);
    void setCursorLocation(std::int32_t location);
    // Runs a statement and gives the recordset over its rows (closed when
    // the statement returns none).
    ObjectRef execute(StringView sql, std::int32_t* recordsAffected = nullptr);
    // A recordset opened on this connection, closed with it.
    void track(const std::shared_ptr<RecordsetState>& state);

private:
    DataServices services_;
    std::shared_ptr<ProviderSession> session_;
    String connectionString_;
    std::int32_t cursorLocation_ = kUseServer;
    std::chrono::milliseconds commandTimeout_{30000};
    std::vector<std::weak_ptr<RecordsetState>> recordsets_;
};

}  // namespace telvaro::data

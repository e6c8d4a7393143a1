#include "data/connection.h"

#include "data/connection_string.h"
#include "data/errors.h"
#include "data/members.h"
#include "data/recordset.h"

namespace telvaro::data {

namespace {

constexpr StringView kSource = u"ADODB.Connection";

enum class Member { Open, Execute, Close, State, CursorLocation, ConnectionString };
constexpr MemberName<Member> kMembers[] = {
    {u"Open", Member::Open},
    {u"Execute", Member::Execute},
    {u"Close", Member::Close},
    {u"State", Member::State},
    {u"CursorLocation", Member::CursorLocation},
    {u"ConnectionString", Member::ConnectionString},
};

// Command types and execution flags of Execute's Options.
constexpr std::int32_t kCmdTable = 2;
constexpr std::int32_t kCmdTableDirect = 512;
constexpr std::int32_t kExecutionFlags = 0x10 | 0x20 | 0x40 | 0x80;

}  // namespace

void Connection::open(StringView connectionString, StringView user, StringView password) {
    if (isOpen()) raiseAdo(ado::ObjectOpen, kSource);
    if (!connectionString.empty()) connectionString_ = String(connectionString);
    String text = connectionString_;
    // A user and password given apart go to a database server with the string.
    if ((!user.empty() || !password.empty()) && chooseEngine(text).engine == Engine::Odbc) {
        if (text.back() != u';') text += u';';
        text += u"UID=" + connectionValueText(user) + u";PWD=" + connectionValueText(password) + u";";
    }
    auto session = openSession(text, services_);
    session->setCommandTimeout(commandTimeout_);
    session_ = std::move(session);
}

void Connection::setCommandTimeout(std::chrono::milliseconds timeout) {
    commandTimeout_ = timeout;
    if (session_) session_->setCommandTimeout(timeout);
}

void Connection::close() {
    if (!isOpen()) raiseAdo(ado::ObjectClosed, kSource);
    for (const auto& weak : recordsets_)
        if (auto state = weak.lock()) state->cursor.reset();
    recordsets_.clear();
    session_.reset();
}

std::shared_ptr<ProviderSession> Connection::session() const {
    if (!session_) raiseAdo(ado::InvalidConnection, kSource);
    return session_;
}

void Connection::setCursorLocation(std::int32_t location) {
    if (location != kUseServer && location != kUseClient) raiseAdo(ado::InvalidArgument, kSource);
    cursorLocation_ = location;
}

void Connection::track(const std::shared_ptr<RecordsetState>& state) {
    std::erase_if(recordsets_, [](const auto& weak) { return weak.expired(); });
    recordsets_.push_back(state);
}

ObjectRef Connection::execute(StringView sql, std::int32_t* recordsAffected) {
    session();  // 3709 when closed
    auto recordset = std::make_shared<Recordset>(services_);
    recordset->setCursorLocation(cursorLocation_);
    recordset->open(std::static_pointer_cast<Connection>(shared_from_this()), sql, recordsAffected);
    return recordset;
}

Variant Connection::invoke(StringView member, InvokeKind kind, std::span<Variant> args) {
    const Member id = findMember(member, kMembers);
    switch (id) {
        case Member::Open:
            expectRead(kind, args, 4);
            open(stringArg(args, 0), stringArg(args, 1), stringArg(args, 2));
            return {};
        case Member::Execute: {
            expectRead(kind, args, 3);
            if (!given(args, 0)) raise(err::ArgumentNotOptional);
            String sql = toString(args[0]);
            const std::int32_t options = longArg(args, 2, -1);
            if (options != -1) {
                const std::int32_t command = options & ~kExecutionFlags;
                if (command == kCmdTable || command == kCmdTableDirect) sql = u"SELECT * FROM " + sql;
            }
            std::int32_t affected = -1;
            ObjectRef result = execute(sql, &affected);
            if (args.size() > 1 && !args[1].isMissing()) args[1] = Variant(affected);
            return Variant(std::move(result));
        }
        case Member::Close:
            expectRead(kind, args);
            close();
            return {};
        case Member::State: expectRead(kind, args); return Variant(isOpen() ? kStateOpen : kStateClosed);
        case Member::CursorLocation:
            if (isWrite(kind)) {
                setCursorLocation(toLong(assigned(args)));
                return {};
            }
            expectRead(kind, args);
            return Variant(cursorLocation_);
        case Member::ConnectionString:
            if (isWrite(kind)) {
                const Variant& value = assigned(args);
                if (isOpen()) raiseAdo(ado::ObjectOpen, kSource);
                connectionString_ = toString(value);
                return {};
            }
            expectRead(kind, args);
            return Variant(connectionString_);
    }
    raiseNoSuchMember();
}

}  // namespace telvaro::data

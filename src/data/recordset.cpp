#include "data/recordset.h"

#include "data/errors.h"
#include "data/fields.h"
#include "data/members.h"

namespace telvaro::data {

namespace {

constexpr StringView kSource = u"ADODB.Recordset";

enum class Member {
    Open,
    Close,
    State,
    RecordCount,
    AbsolutePosition,
    BOF,
    EOF_,
    MoveFirst,
    MovePrevious,
    MoveNext,
    MoveLast,
    Fields,
    CursorLocation,
    DataSource,
    DataMember,
};
constexpr MemberName<Member> kMembers[] = {
    {u"Open", Member::Open},
    {u"Close", Member::Close},
    {u"State", Member::State},
    {u"RecordCount", Member::RecordCount},
    {u"AbsolutePosition", Member::AbsolutePosition},
    {u"BOF", Member::BOF},
    {u"EOF", Member::EOF_},
    {u"MoveFirst", Member::MoveFirst},
    {u"MovePrevious", Member::MovePrevious},
    {u"MoveNext", Member::MoveNext},
    {u"MoveLast", Member::MoveLast},
    {u"Fields", Member::Fields},
    {u"CursorLocation", Member::CursorLocation},
    {u"DataSource", Member::DataSource},
    {u"DataMember", Member::DataMember},
};

constexpr std::int32_t kUnspecified = -1;
constexpr std::int32_t kCmdTable = 2;
constexpr std::int32_t kCmdTableDirect = 512;

}  // namespace

Recordset::Recordset(DataServices services)
    : services_(std::move(services)),
      state_(std::make_shared<RecordsetState>()),
      cursorType_(kOpenForwardOnly),
      lockType_(kLockReadOnly) {}

void Recordset::setCursorType(std::int32_t cursorType) {
    if (cursorType == kUnspecified) return;
    if (cursorType < kOpenForwardOnly || cursorType > kOpenStatic) raiseAdo(ado::InvalidArgument, kSource);
    cursorType_ = cursorType;
}

std::int32_t Recordset::cursorLocation() const {
    if (isOpen()) return openedLocation_;
    if (cursorLocation_ != 0) return cursorLocation_;
    return kUseServer;
}

void Recordset::setCursorLocation(std::int32_t location) {
    if (isOpen()) raiseAdo(ado::ObjectOpen, kSource);
    if (location != kUseServer && location != kUseClient) raiseAdo(ado::InvalidArgument, kSource);
    cursorLocation_ = location;
}

void Recordset::open(const std::shared_ptr<Connection>& connection, StringView source, std::int32_t* recordsAffected) {
    if (isOpen()) raiseAdo(ado::ObjectOpen, kSource);
    if (!connection) raiseAdo(ado::InvalidConnection, kSource);
    auto session = connection->session();
    const std::int32_t location = cursorLocation_ != 0 ? cursorLocation_ : connection->cursorLocation();
    auto cursor = session->execute(source);
    if (recordsAffected) *recordsAffected = cursor->recordsAffected();
    connection_ = connection;
    if (cursor->columns().empty()) return;  // a statement without rows leaves the recordset closed
    const bool loadAll = location == kUseClient || cursorType_ != kOpenForwardOnly;
    state_->cursor = std::make_shared<RecordCursor>(std::move(session), std::move(cursor), loadAll);
    ++state_->opening;
    openedLocation_ = location;
    connection->track(state_);
}

void Recordset::close() {
    if (!isOpen()) raiseAdo(ado::ObjectClosed, kSource);
    state_->cursor.reset();
}

Variant Recordset::openFromArguments(std::span<Variant> args) {
    if (args.size() > 5) raise(err::WrongNumberOfArguments);
    if (isOpen()) raiseAdo(ado::ObjectOpen, kSource);
    if (!given(args, 0) || args[0].isObject() || args[0].isNull()) raiseAdo(ado::InvalidArgument, kSource);
    String source = toString(args[0]);

    std::shared_ptr<Connection> connection = connection_;
    if (given(args, 1)) {
        if (args[1].isObject()) {
            connection = std::dynamic_pointer_cast<Connection>(args[1].get<ObjectRef>());
            if (!connection) raiseAdo(ado::InvalidConnection, kSource);
        } else {
            // A connection string: a connection of the recordset's own.
            connection = std::make_shared<Connection>(services_);
            connection->open(toString(args[1]));
        }
    }
    if (!connection) raiseAdo(ado::InvalidConnection, kSource);

    const std::int32_t cursorType = longArg(args, 2, kUnspecified);
    const std::int32_t lockType = longArg(args, 3, kUnspecified);
    const std::int32_t options = longArg(args, 4, kUnspecified);
    if (lockType != kUnspecified && (lockType < kLockReadOnly || lockType > kLockBatchOptimistic))
        raiseAdo(ado::InvalidArgument, kSource);
    const std::int32_t keptType = cursorType_;
    setCursorType(cursorType);
    if (lockType != kUnspecified) lockType_ = lockType;
    if (options == kCmdTable || options == kCmdTableDirect) source = u"SELECT * FROM " + source;
    try {
        open(connection, source);
    } catch (...) {
        cursorType_ = keptType;
        throw;
    }
    return {};
}

Variant Recordset::invoke(StringView member, InvokeKind kind, std::span<Variant> args) {
    if (member.empty()) {
        // The default member is Fields: rs(i) reads rs.Fields(i).
        expectRead(kind, args, 1);
        if (args.empty()) return Variant(ObjectRef(std::make_shared<Fields>(state_)));
        return Variant(Fields::item(state_, args[0]));
    }
    const Member id = findMember(member, kMembers);
    switch (id) {
        case Member::Open:
            if (!isRead(kind)) raiseNoSuchMember();
            return openFromArguments(args);
        case Member::Close:
            expectRead(kind, args);
            close();
            return {};
        case Member::State: expectRead(kind, args); return Variant(isOpen() ? kStateOpen : kStateClosed);
        case Member::RecordCount: expectRead(kind, args); return Variant(state_->openCursor().recordCount());
        case Member::AbsolutePosition:
            if (isWrite(kind)) {
                const std::int32_t position = toLong(assigned(args));
                state_->openCursor().setAbsolutePosition(position);
                return {};
            }
            expectRead(kind, args);
            return Variant(state_->openCursor().absolutePosition());
        case Member::BOF: expectRead(kind, args); return Variant(Boolean(state_->openCursor().bof()));
        case Member::EOF_: expectRead(kind, args); return Variant(Boolean(state_->openCursor().eof()));
        case Member::MoveFirst:
            expectRead(kind, args);
            state_->openCursor().moveFirst();
            return {};
        case Member::MovePrevious:
            expectRead(kind, args);
            state_->openCursor().movePrevious();
            return {};
        case Member::MoveNext:
            expectRead(kind, args);
            state_->openCursor().moveNext();
            return {};
        case Member::MoveLast:
            expectRead(kind, args);
            state_->openCursor().moveLast();
            return {};
        case Member::Fields:
            expectRead(kind, args, 1);
            if (args.empty()) return Variant(ObjectRef(std::make_shared<Fields>(state_)));
            return Variant(Fields::item(state_, args[0]));
        case Member::CursorLocation:
            if (isWrite(kind)) {
                setCursorLocation(toLong(assigned(args)));
                return {};
            }
            expectRead(kind, args);
            return Variant(cursorLocation());
        case Member::DataSource:
            if (isWrite(kind)) {
                const Variant& value = assigned(args);
                if (!value.isObject()) raise(err::ObjectRequired);
                dataSource_ = value.get<ObjectRef>();
                return {};
            }
            expectRead(kind, args);
            return Variant(dataSource_);
        case Member::DataMember:
            if (isWrite(kind)) {
                dataMember_ = toString(assigned(args));
                return {};
            }
            expectRead(kind, args);
            return Variant(dataMember_);
    }
    raiseNoSuchMember();
}

}  // namespace telvaro::data

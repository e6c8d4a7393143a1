#include "data/fields.h"

#include <cmath>

#include "data/errors.h"
#include "data/members.h"

namespace telvaro::data {

namespace {

constexpr StringView kSource = u"ADODB.Recordset";

enum class FieldsMember { Count, Item };
constexpr MemberName<FieldsMember> kFieldsMembers[] = {{u"Count", FieldsMember::Count}, {u"Item", FieldsMember::Item}};

enum class FieldMember { Value, Name, Type, ActualSize };
constexpr MemberName<FieldMember> kFieldMembers[] = {{u"Value", FieldMember::Value},
                                                     {u"Name", FieldMember::Name},
                                                     {u"Type", FieldMember::Type},
                                                     {u"ActualSize", FieldMember::ActualSize}};

}  // namespace

RecordCursor& RecordsetState::openCursor() const {
    if (!cursor) raiseAdo(ado::ObjectClosed, kSource);
    return *cursor;
}

ObjectRef Fields::item(const std::shared_ptr<RecordsetState>& state, const Variant& index) {
    if (!state->open()) raiseAdo(ado::ItemNotFound, kSource);
    const RecordCursor& cursor = *state->cursor;
    const Variant& key = index.isObject() ? Variant(objectOf(index).get(u"")) : index;
    std::int64_t column = -1;
    if (key.isString()) {
        column = cursor.columnIndex(key.get<String>());
    } else if (key.isNumber()) {
        const double ordinal = toDouble(key);
        if (ordinal == std::floor(ordinal)) column = static_cast<std::int64_t>(ordinal);
    } else if (!key.isEmpty()) {
        raiseAdo(ado::InvalidArgument, kSource);
    }
    if (column < 0 || static_cast<std::size_t>(column) >= cursor.columns().size()) raiseAdo(ado::ItemNotFound, kSource);
    return std::make_shared<Field>(state, static_cast<std::size_t>(column));
}

Variant Fields::invoke(StringView member, InvokeKind kind, std::span<Variant> args) {
    const FieldsMember id = member.empty() ? FieldsMember::Item : findMember(member, kFieldsMembers);
    switch (id) {
        case FieldsMember::Count:
            expectRead(kind, args);
            return Variant(std::int32_t(state_->open() ? state_->cursor->columns().size() : 0));
        case FieldsMember::Item:
            expectRead(kind, args, 1);
            if (args.empty()) raise(err::ArgumentNotOptional);
            return Variant(item(state_, args[0]));
    }
    raiseNoSuchMember();
}

const RecordCursor& Field::cursor() const {
    const RecordCursor& cursor = state_->openCursor();
    // A Field of an earlier opening names a column that may no longer be there.
    if (state_->opening != opening_) raiseAdo(ado::IllegalOperation, kSource);
    return cursor;
}

Variant Field::value() const { return cursor().value(column_); }

Variant Field::invoke(StringView member, InvokeKind kind, std::span<Variant> args) {
    const FieldMember id = member.empty() ? FieldMember::Value : findMember(member, kFieldMembers);
    if (id == FieldMember::Value && isWrite(kind)) {
        assigned(args);
        // Recordsets here are read-only.
        raiseAdo(ado::NotCapable, kSource);
    }
    expectRead(kind, args);
    switch (id) {
        case FieldMember::Value: return value();
        case FieldMember::Name: return Variant(cursor().columns()[column_].name);
        case FieldMember::Type: return Variant(static_cast<std::int32_t>(cursor().columns()[column_].type));
        case FieldMember::ActualSize: return Variant(cursor().actualSize(column_));
    }
    raiseNoSuchMember();
}

}  // namespace telvaro::data

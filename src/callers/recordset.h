// A caller's recordset and connection, with the members the database
// methods use. Fields are reached through the recordset's Fields
// collection: `fieldValue(0)` and `fieldValue(u"UCodi")` give the field's Value.
#pragma once

#include "callers/caller_object.h"

namespace telvaro::callers {

// A field of a recordset and the recordset's Fields collection. Both follow
// the current record: a Field fetched on one record gives the Value of
// whichever record is current when it is read.
class RecordField : public CallerObject {
public:
    using CallerObject::CallerObject;
    Variant value() const { return get(u"Value"); }
    Variant name() const { return get(u"Name"); }
};

class RecordFields : public CallerObject {
public:
    using CallerObject::CallerObject;
    Variant count() const { return get(u"Count"); }
    RecordField item(const Variant& key) const { return RecordField(call(u"Item", {key})); }
};

class Recordset : public CallerObject {
public:
    using CallerObject::CallerObject;

    // Open(Source, ActiveConnection, CursorType, LockType, Options); a
    // missing ActiveConnection is passed as an omitted argument.
    void open(const Variant& source, const Variant& activeConnection, std::int32_t cursorType, std::int32_t lockType,
              std::int32_t options) const {
        call(u"Open", {source, activeConnection, Variant(cursorType), Variant(lockType), Variant(options)});
    }
    void close() const { call(u"Close"); }
    Variant recordCount() const { return get(u"RecordCount"); }
    Variant absolutePosition() const { return get(u"AbsolutePosition"); }
    Variant eof() const { return get(u"EOF"); }
    void moveFirst() const { call(u"MoveFirst"); }
    void movePrevious() const { call(u"MovePrevious"); }
    void moveNext() const { call(u"MoveNext"); }
    void moveLast() const { call(u"MoveLast"); }
    Variant dataSource() const { return get(u"DataSource"); }
    Variant dataMember() const { return get(u"DataMember"); }

    // The Fields collection and its members.
    RecordFields fields() const { return RecordFields(get(u"Fields")); }
    Variant fieldCount() const { return fields().count(); }
    // Fields(key) itself: the field object (for passing on as the value it
    // stands for).
    Variant fieldObject(const Variant& key) const { return fields().item(key).asVariant(); }
    Variant fieldName(const Variant& key) const { return fields().item(key).name(); }
    Variant fieldValue(const Variant& key) const { return fields().item(key).value(); }
};

class Connection : public CallerObject {
public:
    using CallerObject::CallerObject;

    // Execute(CommandText, , Options): the records-affected argument omitted.
    Variant execute(const Variant& commandText, std::int32_t options) const {
        return call(u"Execute", {commandText, Variant::missing(), Variant(options)});
    }
};

}  // namespace telvaro::callers

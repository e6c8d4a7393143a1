// A caller's recordset and connection, with the members the database
// methods use. Fields are reached through the recordset's Fields
// collection: `field(0)` and `field(u"UCodi")` give the field's Value.
#pragma once

#include "callers/caller_object.h"

namespace telvaro::callers {

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
    Variant fieldCount() const { return fields().get(u"Count"); }
    // Fields(key) itself: the field object (for passing on as the value it
    // stands for).
    Variant fieldObject(const Variant& key) const { return fields().call(u"Item", {key}); }
    Variant fieldName(const Variant& key) const { return objectOf(fieldObject(key)).get(u"Name"); }
    Variant fieldValue(const Variant& key) const { return objectOf(fieldObject(key)).get(u"Value"); }

private:
    ObjectHandle fields() const { return objectOf(get(u"Fields")); }
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

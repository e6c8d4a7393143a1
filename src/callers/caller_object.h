// The base of the typed facades over a caller's object: a grid, a list, a
// form, a recordset. A facade names the members a method uses, in the
// caller's own words (`grid.rows()`, `list.addItem(text)`), while every
// member is still looked up by name when it is called, in the order the
// method calls it, so a missing member raises the object's own error (438)
// at the step that needs it. The facade owns a share of the object.
#pragma once

#include <span>
#include <vector>

#include "runtime/object.h"

namespace telvaro::callers {

class CallerObject {
public:
    // Error 91 for Nothing, 424 for a value that is no object.
    explicit CallerObject(const Variant& object) : object_(objectOf(object)) {}
    explicit CallerObject(ObjectHandle object) : object_(std::move(object)) {}

    const ObjectHandle& object() const { return object_; }
    Variant asVariant() const { return Variant(object_.ref()); }
    String typeName() const { return object_.typeName(); }

protected:
    Variant get(StringView member) const { return object_.get(member); }
    Variant get(StringView member, std::vector<Variant> indices) const {
        return object_.get(member, std::move(indices));
    }
    void put(StringView member, const Variant& value) const { object_.put(member, value); }
    void put(StringView member, std::vector<Variant> indices, const Variant& value) const {
        object_.put(member, std::move(indices), value);
    }
    void put(StringView member, std::initializer_list<Variant> indices, Variant value) const {
        object_.put(member, indices, std::move(value));
    }
    Variant get(StringView member, std::initializer_list<Variant> indices) const {
        return object_.get(member, indices);
    }
    Variant call(StringView member, std::vector<Variant> args = {}) const {
        return object_.call(member, std::move(args));
    }
    Variant call(StringView member, std::initializer_list<Variant> args) const { return object_.call(member, args); }

private:
    ObjectHandle object_;
};

}  // namespace telvaro::callers

// The late-bound object: a caller's form, control, connection or recordset,
// reached only through its members' names at call time, as an automation
// client reaches an IDispatch. Names are compared case-insensitively. An
// object without the member raises error 438.
#pragma once

#include <initializer_list>
#include <memory>
#include <span>
#include <vector>

#include "runtime/variant.h"

namespace telvaro {

enum class InvokeKind { Method, PropertyGet, PropertyPut, PropertyPutRef };

class Object : public std::enable_shared_from_this<Object> {
public:
    virtual ~Object() = default;

    // The one entry point. `member` empty means the default member. `args`
    // are the call's arguments in order (for a put, the indices followed by
    // the value); a method may write back into them (by-reference arguments).
    virtual Variant invoke(StringView member, InvokeKind kind, std::span<Variant> args) = 0;

    // The runtime's TypeName of the object ("TextBox", "Recordset", ...).
    virtual String typeName() const { return u"Object"; }

    // Conveniences that read like the member access they perform. Those
    // given a braced list of a few arguments build them on the stack: the
    // per-cell and per-field calls of the exports and grid fills are many.
    Variant get(StringView member);
    Variant get(StringView member, std::vector<Variant> indices);
    Variant get(StringView member, std::initializer_list<Variant> indices);
    void put(StringView member, const Variant& value);
    void put(StringView member, std::vector<Variant> indices, const Variant& value);
    void put(StringView member, std::initializer_list<Variant> indices, Variant value);
    Variant call(StringView member, std::vector<Variant> args = {});
    Variant call(StringView member, std::initializer_list<Variant> args);
    Variant call(StringView member, std::span<Variant> args);
};

// An owning reference to an object that is there (never Nothing): what
// objectOf gives. It keeps the object alive as long as it is held, so a
// member that returns an object can be used on at once or kept:
//
//     ObjectHandle font = objectOf(grid.get(u"Font"));   // owns the font
//     font.put(u"Bold", Variant(True));
//
// No bare Object& can be taken from a temporary handle.
class ObjectHandle {
public:
    explicit ObjectHandle(ObjectRef object) : object_(std::move(object)) {}

    Variant get(StringView member) const { return object_->get(member); }
    Variant get(StringView member, std::vector<Variant> indices) const {
        return object_->get(member, std::move(indices));
    }
    Variant get(StringView member, std::initializer_list<Variant> indices) const {
        return object_->get(member, indices);
    }
    void put(StringView member, const Variant& value) const { object_->put(member, value); }
    void put(StringView member, std::vector<Variant> indices, const Variant& value) const {
        object_->put(member, std::move(indices), value);
    }
    void put(StringView member, std::initializer_list<Variant> indices, Variant value) const {
        object_->put(member, indices, std::move(value));
    }
    Variant call(StringView member, std::vector<Variant> args = {}) const {
        return object_->call(member, std::move(args));
    }
    Variant call(StringView member, std::initializer_list<Variant> args) const { return object_->call(member, args); }
    Variant call(StringView member, std::span<Variant> args) const { return object_->call(member, args); }
    Variant invoke(StringView member, InvokeKind kind, std::span<Variant> args) const {
        return object_->invoke(member, kind, args);
    }
    String typeName() const { return object_->typeName(); }

    Object* operator->() const { return object_.get(); }
    Object& operator*() const& { return *object_; }
    Object& operator*() const&& = delete;
    const ObjectRef& ref() const { return object_; }

private:
    ObjectRef object_;
};

// The object held by a Variant; error 91 for Nothing, 424 for a non-object.
ObjectHandle objectOf(const Variant& v);

// The error for a member an object does not have.
[[noreturn]] void raiseNoSuchMember();

}  // namespace telvaro

#include "runtime/object.h"

#include "runtime/error.h"

namespace telvaro {

Variant Object::get(StringView member) { return invoke(member, InvokeKind::PropertyGet, {}); }

Variant Object::get(StringView member, std::vector<Variant> indices) {
    return invoke(member, InvokeKind::PropertyGet, indices);
}

void Object::put(StringView member, const Variant& value) {
    Variant args[] = {value};
    invoke(member, InvokeKind::PropertyPut, args);
}

void Object::put(StringView member, std::vector<Variant> indices, const Variant& value) {
    indices.push_back(value);
    invoke(member, InvokeKind::PropertyPut, indices);
}

Variant Object::call(StringView member, std::vector<Variant> args) { return invoke(member, InvokeKind::Method, args); }

Variant Object::call(StringView member, std::span<Variant> args) { return invoke(member, InvokeKind::Method, args); }

ObjectHandle objectOf(const Variant& v) {
    if (!v.isObject()) raise(err::ObjectRequired);
    const auto& o = v.get<ObjectRef>();
    if (!o) raise(err::ObjectVariableNotSet);
    return ObjectHandle(o);
}

void raiseNoSuchMember() { raise(err::ObjectDoesNotSupport); }

}  // namespace telvaro

#include "runtime/object.h"

#include <cstddef>
#include <new>
#include <utility>
#include <vector>

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

namespace {

// Up to this many arguments live on the stack; a longer list goes to the heap.
constexpr std::size_t kFewArguments = 4;

// Invokes with the listed arguments and then `last` when given, copied into
// one array (a member may write into its arguments, so they are copies).
Variant invokeListed(Object& object, StringView member, InvokeKind kind, std::initializer_list<Variant> listed,
                     Variant* last) {
    const std::size_t count = listed.size() + (last ? 1 : 0);
    if (count > kFewArguments) {
        std::vector<Variant> args(listed);
        if (last) args.push_back(std::move(*last));
        return object.invoke(member, kind, args);
    }
    // Only the arguments given are made (and unmade).
    struct Arguments {
        alignas(Variant) std::byte room[kFewArguments * sizeof(Variant)];
        std::size_t made = 0;
        void add(const Variant& value) { new (room + made++ * sizeof(Variant)) Variant(value); }
        void add(Variant&& value) { new (room + made++ * sizeof(Variant)) Variant(std::move(value)); }
        Variant* at(std::size_t i) { return std::launder(reinterpret_cast<Variant*>(room) + i); }
        ~Arguments() {
            while (made > 0) at(--made)->~Variant();
        }
    } args;
    for (const Variant& v : listed) args.add(v);
    if (last) args.add(std::move(*last));
    return object.invoke(member, kind, std::span<Variant>(count ? args.at(0) : nullptr, count));
}

}  // namespace

Variant Object::get(StringView member, std::initializer_list<Variant> indices) {
    return invokeListed(*this, member, InvokeKind::PropertyGet, indices, nullptr);
}

void Object::put(StringView member, std::initializer_list<Variant> indices, Variant value) {
    invokeListed(*this, member, InvokeKind::PropertyPut, indices, &value);
}

Variant Object::call(StringView member, std::initializer_list<Variant> args) {
    return invokeListed(*this, member, InvokeKind::Method, args, nullptr);
}

Variant Object::call(StringView member, std::span<Variant> args) { return invoke(member, InvokeKind::Method, args); }

ObjectHandle objectOf(const Variant& v) {
    if (!v.isObject()) raise(err::ObjectRequired);
    const auto& o = v.get<ObjectRef>();
    if (!o) raise(err::ObjectVariableNotSet);
    return ObjectHandle(o);
}

void raiseNoSuchMember() { raise(err::ObjectDoesNotSupport); }

}  // namespace telvaro

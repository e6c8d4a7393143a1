// One call of a member as the object sees it: the kind of access and the
// arguments (for an assignment, the indices followed by the value), with
// the checks and conversions the members share. A wrong number of
// arguments is error 450, an assignment to a read-only property 383; the
// values convert as the runtime converts them (13 for a text that is not a
// number, 6 out of range, 94 for Null).
#pragma once

#include <cstdint>
#include <span>

#include "runtime/object.h"

namespace telvaro::objects {

class MemberCall {
public:
    MemberCall(InvokeKind kind, std::span<Variant> args, const String& name) : kind_(kind), args_(args), name_(name) {}

    bool isPut() const { return kind_ == InvokeKind::PropertyPut || kind_ == InvokeKind::PropertyPutRef; }
    const String& name() const { return name_; }

    // The indices of a property (all the arguments of a read, all but the
    // value of an assignment); error 450 unless there are exactly `count`.
    std::span<Variant> indices(std::size_t count) const;
    // The value assigned.
    const Variant& value() const;
    // The arguments of a method, between `min` and `max` of them (error 450);
    // an assignment to a method is error 438.
    std::span<Variant> arguments(std::size_t min, std::size_t max) const;
    // Error 383 when the call assigns to this read-only property.
    void readOnly() const;

private:
    InvokeKind kind_;
    std::span<Variant> args_;
    const String& name_;
};

// Conversions of argument values. A missing optional argument where a
// value is needed is error 449.
std::int32_t longValue(const Variant& v);
std::int16_t integerValue(const Variant& v);
double doubleValue(const Variant& v);
Boolean booleanValue(const Variant& v);
String textValue(const Variant& v);
// An object or Nothing (a null reference); error 424 for any other value.
ObjectRef objectValue(const Variant& v);
// A Long that must not be negative (sizes and counts): error 380 otherwise.
std::int32_t sizeValue(const Variant& v);

// A read-write property without indices.
template <typename Get, typename Set>
Variant property(const MemberCall& call, Get get, Set set) {
    call.indices(0);
    if (call.isPut()) {
        set(call.value());
        return {};
    }
    return get();
}

// The property shapes the controls share: a Boolean, a position or size in
// twips (error 380 outside a Long; negative only where `mayBeNegative`), and
// one of the numbered choices 0 to `highest` (ScaleMode, Alignment; error
// 380 outside them).
Variant flagProperty(const MemberCall& call, bool& field);
Variant twipsProperty(const MemberCall& call, double& field, bool mayBeNegative);
Variant choiceProperty(const MemberCall& call, std::int16_t& field, std::int16_t highest);

// A read-only property without indices.
template <typename Get>
Variant readOnlyProperty(const MemberCall& call, Get get) {
    call.readOnly();
    call.indices(0);
    return get();
}

}  // namespace telvaro::objects

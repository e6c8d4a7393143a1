// How the data objects read the late-bound calls they receive: the member
// named (without regard to case), the kind of access, and the arguments,
// where a trailing or explicitly missing optional argument takes its
// default. Too many arguments is error 450; an argument of the wrong type
// fails with the runtime's conversion error.
#pragma once

#include <cstdint>
#include <span>

#include "data/names.h"
#include "runtime/convert.h"
#include "runtime/error.h"
#include "runtime/object.h"

namespace telvaro::data {

template <typename Id>
struct MemberName {
    StringView name;
    Id id;
};

// The member `name` names in `table`; error 438 when none.
template <typename Id, std::size_t N>
Id findMember(StringView name, const MemberName<Id> (&table)[N]) {
    for (const auto& entry : table)
        if (sameName(entry.name, name)) return entry.id;
    raiseNoSuchMember();
}

inline bool isRead(InvokeKind kind) { return kind == InvokeKind::Method || kind == InvokeKind::PropertyGet; }
inline bool isWrite(InvokeKind kind) { return kind == InvokeKind::PropertyPut || kind == InvokeKind::PropertyPutRef; }

// A read-only property or a method: 438 for an assignment, 450 beyond
// `most` arguments.
inline void expectRead(InvokeKind kind, std::span<Variant> args, std::size_t most = 0) {
    if (!isRead(kind)) raiseNoSuchMember();
    if (args.size() > most) raise(err::WrongNumberOfArguments);
}

// The value assigned by a property put (its last argument).
inline const Variant& assigned(std::span<Variant> args) {
    if (args.size() != 1) raise(err::WrongNumberOfArguments);
    return args.back();
}

inline bool given(std::span<Variant> args, std::size_t i) { return i < args.size() && !args[i].isMissing(); }

inline std::int32_t longArg(std::span<Variant> args, std::size_t i, std::int32_t fallback) {
    return given(args, i) ? toLong(args[i]) : fallback;
}

inline String stringArg(std::span<Variant> args, std::size_t i, StringView fallback = {}) {
    return given(args, i) ? toString(args[i]) : String(fallback);
}

}  // namespace telvaro::data

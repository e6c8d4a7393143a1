// One late-bound call of a method of Fun: the one entry point every face
// uses (the command line, the automation server's v-table and IDispatch,
// the demo and the tests). The method is found by name (case-insensitive)
// or by DISPID; the caller's arguments are coerced to the declared types
// and completed with the defaults of omitted optional ones; by-reference
// arguments are written back into `args`, also when the method fails; a
// run-time error leaves with the library as its source, and a failure to
// allocate becomes the runtime's error 7 (14 for a text too long to build).
#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "context/fun.h"
#include "frame/catalogue.h"

namespace telvaro {

// The source of every error a method of the library raises.
inline constexpr std::u16string_view kErrorSource = u"Telvaro.Fun";

// `args` are the caller's arguments in order; an omitted optional argument
// is absent or the missing marker. Error 438 for an unknown name or DISPID,
// 450 for too many arguments, 449 for an omitted required one, 13 or 6 for
// an argument that cannot take its declared type.
Variant invoke(Fun& fun, const MethodInfo& method, std::span<Variant> args);
Variant invoke(Fun& fun, std::string_view method, std::span<Variant> args);
Variant invoke(Fun& fun, StringView method, std::span<Variant> args);
Variant invoke(Fun& fun, std::int32_t dispid, std::span<Variant> args);

// For callers that need no write-back.
inline Variant call(Fun& fun, std::string_view method, std::vector<Variant> args = {}) {
    return invoke(fun, method, args);
}

}  // namespace telvaro

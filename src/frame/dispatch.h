// Late-bound dispatch: the arguments of a call checked against the
// method's catalogue entry, coerced to the declared types, completed with
// the defaults of omitted optional arguments, passed to the method, and the
// by-reference ones written back.
#pragma once

#include <vector>

#include "frame/catalogue.h"

namespace telvaro {

class Fun;

// Coerces one argument to its parameter's declared type, as a late-bound
// call does: error 13 when impossible (Null, an array or an error value for
// a typed parameter; text that is not a number), 6 when out of range.
Variant coerceArgument(const Variant& value, const ParamInfo& param);

// The arguments the method will see: one per parameter, coerced, with
// defaults for omitted optional ones. Error 449 for an omitted required
// argument, 450 for too many arguments.
std::vector<Variant> prepareArguments(const MethodInfo& method, const std::vector<Variant>& args);

Variant dispatch(Fun& fun, const MethodInfo& method, std::vector<Variant>& args);

}  // namespace telvaro

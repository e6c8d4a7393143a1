// Values across the automation boundary: a VARIANT (by reference or not,
// arrays as SAFEARRAYs, a caller's IDispatch) becomes the core's Variant,
// and a Variant goes back into a new VARIANT or into the caller's typed
// storage (a by-reference argument, a method's result). The library's own
// objects go out through their IDispatch face (core_dispatch.h). Values that
// have no automation form raise error 458.
#pragma once

#include <oaidl.h>

#include "runtime/variant.h"

namespace telvaro::com {

// The value a VARIANT holds; by-reference VARIANTs are read through.
Variant fromVariant(const VARIANT& v);

// A new VARIANT the caller owns.
void toVariant(const Variant& value, VARIANT* out);

// Stores `value` into storage of automation type `vt` (without VT_BYREF)
// at `target`, converted to that type as an assignment converts it. The
// value held there before is released.
void storeInto(VARTYPE vt, void* target, const Variant& value);

}  // namespace telvaro::com

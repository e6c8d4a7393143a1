// The automation face of the library's own objects (a picture, a data
// object of the test server, any core Object a method hands back): an
// IDispatch that answers GetIDsOfNames with a number per member name, as the
// object itself knows its members only by name, and Invoke by calling the
// object late-bound. A core object that comes back across the boundary is
// unwrapped again, so it keeps its identity.
#pragma once

#include <oaidl.h>

#include "runtime/object.h"

namespace telvaro::com {

// A new IDispatch (one reference for the caller) over `object`.
IDispatch* dispatchFaceOf(ObjectRef object);

// The core object behind `unknown` when it is one of these faces, else null.
ObjectRef coreObjectBehind(IUnknown* unknown);

}  // namespace telvaro::com

// The facades are header-only members over the late-bound object; this
// unit gives the callers layer its library.
#include "callers/caller_object.h"

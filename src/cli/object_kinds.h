// The object kinds `batch` builds beyond the controls and forms of the
// objects layer: the kinds of the data layer and the other rooms, given to
// the request's ObjectBuilder as hooks.
#pragma once

#include "cli/object_json.h"

namespace telvaro::cli {

ObjectKindHooks batchObjectHooks();

}  // namespace telvaro::cli

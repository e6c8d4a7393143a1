#include "cli/object_kinds.h"

namespace telvaro::cli {

ObjectKindHooks batchObjectHooks() { return {}; }

}  // namespace telvaro::cli

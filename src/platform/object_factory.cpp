#include "platform/object_factory.h"

#include "runtime/error.h"

namespace telvaro {

ObjectRef FunctionObjectFactory::create(StringView progId) {
    ObjectRef made = maker_ ? maker_(progId) : ObjectRef();
    if (!made) raise(err::CantCreateObject);
    return made;
}

}  // namespace telvaro

// Creating an automation object by its ProgID ("ADODB.Recordset"), as the
// runtime's CreateObject does. A ProgID the host cannot make raises 429
// "ActiveX component can't create object". The host decides which classes
// exist: on Windows the registered COM classes, elsewhere the library's own
// data objects.
#pragma once

#include <functional>

#include "runtime/object.h"

namespace telvaro {

class ObjectFactory {
public:
    virtual ~ObjectFactory() = default;
    // Never returns a null reference.
    virtual ObjectRef create(StringView progId) = 0;
};

// A factory over one function that returns a null reference for a ProgID it
// does not know; the empty factory knows none.
class FunctionObjectFactory : public ObjectFactory {
public:
    using Maker = std::function<ObjectRef(StringView progId)>;
    explicit FunctionObjectFactory(Maker maker = {}) : maker_(std::move(maker)) {}
    ObjectRef create(StringView progId) override;

private:
    Maker maker_;
};

}  // namespace telvaro

// The create-object service of the automation server: a ProgID becomes the
// registered class's object, as the runtime's CreateObject makes it
// (CLSIDFromProgID, then CoCreateInstance in process or out of it), reached
// late-bound through its IDispatch. "Excel.Application" (in any case) that
// cannot be created so is the embedded spreadsheet application, writing
// into the user's Documents\Telvaro\exports (host/exported_sheets.h). Any
// other ProgID that is not registered, or a class that cannot be created
// or has no IDispatch, raises 429.
#pragma once

#include "platform/object_factory.h"
#include "platform/platform.h"

namespace telvaro::com {

class ComObjectFactory : public ObjectFactory {
public:
    ObjectRef create(StringView progId) override;
};

// The platform the server's Fun objects run on: the host's, with objects
// created through COM.
const Platform& serverPlatform();

}  // namespace telvaro::com

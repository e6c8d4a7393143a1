#include "com/com_object_factory.h"

#include <memory>

#include "com/com_handles.h"
#include "com/dispatch_object.h"
#include "host/default_platform.h"
#include "host/exported_sheets.h"
#include "platform/message_box.h"
#include "runtime/error.h"
#include "runtime/text.h"

namespace telvaro::com {

namespace {

// The registered class's object through its IDispatch; null when the
// ProgID is not registered or the class cannot be created.
ObjectRef createInstalled(const String& name) {
    CLSID clsid{};
    if (name.empty() || FAILED(CLSIDFromProgID(reinterpret_cast<LPCOLESTR>(name.c_str()), &clsid))) return nullptr;
    ComPtr<IDispatch> dispatch;
    const HRESULT hr = CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER | CLSCTX_LOCAL_SERVER, IID_IDispatch,
                                        reinterpret_cast<void**>(dispatch.put()));
    if (FAILED(hr) || !dispatch) return nullptr;
    return std::make_shared<DispatchObject>(std::move(dispatch));
}

}  // namespace

ObjectRef ComObjectFactory::create(StringView progId) {
    const String name(progId);
    if (ObjectRef installed = createInstalled(name)) return installed;
    // No spreadsheet application installed: the embedded one writes the
    // workbooks into the user's exports folder, and tells the user of one it
    // could not write (the method that exported has already ended its
    // statements; no error can reach the caller any more).
    if (textEquals(progId, u"Excel.Application"))
        return host::makeSheetApplication(
            host::exportsFolder(), host::ExportRecord::NotKept, [](const RuntimeError& failure) {
                serverPlatform().messageBoxes().show(host::exportFailureMessage(failure),
                                                     msgbox::OkOnly | msgbox::Exclamation, u"Telvaro");
            });
    raise(err::CantCreateObject);
}

const Platform& serverPlatform() {
    static const Platform platform = [] {
        Platform p = defaultPlatform();
        p.use(std::shared_ptr<ObjectFactory>(std::make_shared<ComObjectFactory>()));
        return p;
    }();
    return platform;
}

}  // namespace telvaro::com

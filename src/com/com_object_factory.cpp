#include "com/com_object_factory.h"

#include <memory>

#include "com/com_handles.h"
#include "com/dispatch_object.h"
#include "host/default_platform.h"
#include "runtime/error.h"

namespace telvaro::com {

ObjectRef ComObjectFactory::create(StringView progId) {
    const String name(progId);
    CLSID clsid{};
    if (name.empty() || FAILED(CLSIDFromProgID(reinterpret_cast<LPCOLESTR>(name.c_str()), &clsid)))
        raise(err::CantCreateObject);
    ComPtr<IDispatch> dispatch;
    const HRESULT hr = CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER | CLSCTX_LOCAL_SERVER, IID_IDispatch,
                                        reinterpret_cast<void**>(dispatch.put()));
    if (FAILED(hr) || !dispatch) raise(err::CantCreateObject);
    return std::make_shared<DispatchObject>(std::move(dispatch));
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

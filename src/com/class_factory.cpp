#include "com/class_factory.h"

#include "com/fun_object.h"
#include "com/server_module.h"

namespace telvaro::com {

HRESULT ClassFactory::QueryInterface(REFIID iid, void** object) {
    if (!object) return E_POINTER;
    *object = nullptr;
    if (!IsEqualIID(iid, IID_IUnknown) && !IsEqualIID(iid, IID_IClassFactory)) return E_NOINTERFACE;
    *object = static_cast<IClassFactory*>(this);
    return S_OK;
}

HRESULT ClassFactory::CreateInstance(IUnknown* outer, REFIID iid, void** object) {
    if (!object) return E_POINTER;
    *object = nullptr;
    if (outer) return CLASS_E_NOAGGREGATION;
    return FunObject::create(iid, object);
}

HRESULT ClassFactory::LockServer(BOOL lock) {
    ServerModule::lock(lock != FALSE);
    return S_OK;
}

ClassFactory& ClassFactory::instance() {
    static ClassFactory factory;
    return factory;
}

}  // namespace telvaro::com

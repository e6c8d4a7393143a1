// The class object of Fun: makes new Fun objects and keeps the server
// loaded while a client holds a lock on it.
#pragma once

#include <unknwn.h>

namespace telvaro::com {

class ClassFactory final : public IClassFactory {
public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override;
    // The class object lives as long as the module; counting is a formality.
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID iid, void** object) override;
    HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override;

    static ClassFactory& instance();
};

}  // namespace telvaro::com

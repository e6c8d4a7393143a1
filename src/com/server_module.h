// The state of the loaded server: its module handle, the number of live
// objects and of class-factory locks (the can-unload answer), and the type
// library embedded in the DLL, loaded once.
#pragma once

#include <windows.h>
#include <oaidl.h>

#include <string>

namespace telvaro::com {

class ServerModule {
public:
    static void setHandle(HMODULE module);
    static HMODULE handle();
    // The full path of the DLL.
    static std::wstring path();

    static void objectCreated();
    static void objectDestroyed();
    static void lock(bool lock);
    static bool canUnload();

    // The embedded type library; nullptr (with the HRESULT) when it cannot
    // be loaded. The caller gets a reference of its own.
    static HRESULT typeLibrary(ITypeLib** library);
    // The type information of _Fun as a dispatch interface.
    static HRESULT funTypeInfo(ITypeInfo** info);
};

}  // namespace telvaro::com

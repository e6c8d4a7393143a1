// The four entry points of an in-process server, and the DLL's entry.
#include <windows.h>
#include <olectl.h>

#include "com/class_factory.h"
#include "com/identities.h"
#include "com/registration.h"
#include "com/server_module.h"

using namespace telvaro::com;

extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID) {
    if (reason == DLL_PROCESS_ATTACH) {
        ServerModule::setHandle(instance);
        DisableThreadLibraryCalls(instance);
    }
    return TRUE;
}

STDAPI DllGetClassObject(REFCLSID clsid, REFIID iid, void** object) {
    if (!object) return E_POINTER;
    *object = nullptr;
    if (!IsEqualCLSID(clsid, kFunClassId)) return CLASS_E_CLASSNOTAVAILABLE;
    return ClassFactory::instance().QueryInterface(iid, object);
}

STDAPI DllCanUnloadNow() { return ServerModule::canUnload() ? S_OK : S_FALSE; }

STDAPI DllRegisterServer() { return registerServer(); }

STDAPI DllUnregisterServer() { return unregisterServer(); }

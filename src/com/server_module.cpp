#include "com/server_module.h"

#include <atomic>
#include <mutex>

#include "com/com_handles.h"
#include "com/identities.h"

namespace telvaro::com {

namespace {

HMODULE moduleHandle = nullptr;
std::atomic<long> liveObjects{0};
std::atomic<long> locks{0};

}  // namespace

void ServerModule::setHandle(HMODULE module) { moduleHandle = module; }
HMODULE ServerModule::handle() { return moduleHandle; }

std::wstring ServerModule::path() {
    std::wstring path(MAX_PATH, L'\0');
    for (;;) {
        const DWORD n = GetModuleFileNameW(moduleHandle, path.data(), static_cast<DWORD>(path.size()));
        if (n < path.size()) {
            path.resize(n);
            return path;
        }
        path.resize(path.size() * 2);
    }
}

void ServerModule::objectCreated() { ++liveObjects; }
void ServerModule::objectDestroyed() { --liveObjects; }
void ServerModule::lock(bool lock) { lock ? ++locks : --locks; }
bool ServerModule::canUnload() { return liveObjects == 0 && locks == 0; }

HRESULT ServerModule::typeLibrary(ITypeLib** library) {
    *library = nullptr;
    // Loaded once and kept while the process lives: releasing it while the
    // process ends could reach an automation runtime already unloaded.
    static std::mutex guard;
    static ITypeLib* loaded = nullptr;
    std::lock_guard<std::mutex> hold(guard);
    if (!loaded) {
        const HRESULT hr = LoadTypeLibEx(path().c_str(), REGKIND_NONE, &loaded);
        if (FAILED(hr)) return hr;
    }
    loaded->AddRef();
    *library = loaded;
    return S_OK;
}

HRESULT ServerModule::funTypeInfo(ITypeInfo** info) {
    *info = nullptr;
    ComPtr<ITypeLib> library;
    const HRESULT hr = typeLibrary(library.put());
    if (FAILED(hr)) return hr;
    return library->GetTypeInfoOfGuid(kFunInterfaceId, info);
}

}  // namespace telvaro::com

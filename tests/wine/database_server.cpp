// A test-only server offering the library's own data objects under the
// database ProgIDs, so that scripts under Wine (where the real objects cannot
// run) reach databases through ODBC, which Wine passes on to the host's
// driver manager. Only the test prefix registers it.
#include <windows.h>
#include <olectl.h>

#include <atomic>
#include <filesystem>
#include <string>

#include "com/com_error.h"
#include "com/core_dispatch.h"
#include "data/factory.h"

using namespace telvaro;

namespace {

const struct {
    const wchar_t* progId;
    CLSID clsid;
} kClasses[] = {
    {L"ADODB.Connection", {0x9b1d6e70, 0x2c4a, 0x4e0b, {0x8e, 0x55, 0x0a, 0x1f, 0x3c, 0x7d, 0x5e, 0x01}}},
    {L"ADODB.Recordset", {0x9b1d6e70, 0x2c4a, 0x4e0b, {0x8e, 0x55, 0x0a, 0x1f, 0x3c, 0x7d, 0x5e, 0x02}}},
    {L"ADODB.Stream", {0x9b1d6e70, 0x2c4a, 0x4e0b, {0x8e, 0x55, 0x0a, 0x1f, 0x3c, 0x7d, 0x5e, 0x03}}},
};

HINSTANCE module = nullptr;

class Factory final : public IClassFactory {
public:
    explicit Factory(const wchar_t* progId) : progId_(progId) {}
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** out) override {
        if (!out) return E_POINTER;
        *out = nullptr;
        if (iid != IID_IUnknown && iid != IID_IClassFactory) return E_NOINTERFACE;
        *out = static_cast<IClassFactory*>(this);
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
    ULONG STDMETHODCALLTYPE Release() override {
        const ULONG left = --references_;
        if (left == 0) delete this;
        return left;
    }
    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID iid, void** out) override {
        if (!out) return E_POINTER;
        *out = nullptr;
        if (outer) return CLASS_E_NOAGGREGATION;
        try {
            const std::u16string name(progId_, progId_ + wcslen(progId_));
            // Paths are the caller's own Windows paths.
            const data::DataServices services{
                [](StringView path) { return std::filesystem::path(std::wstring(path.begin(), path.end())); }};
            ObjectRef object = data::createDataObject(name, services);
            if (!object) return CLASS_E_CLASSNOTAVAILABLE;
            IDispatch* face = com::dispatchFaceOf(std::move(object));
            const HRESULT hr = face->QueryInterface(iid, out);
            face->Release();
            return hr;
        } catch (...) {
            return com::hresultOf(com::currentError().number());
        }
    }
    HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }

private:
    std::atomic<ULONG> references_{1};
    const wchar_t* progId_;
};

std::wstring guidText(const CLSID& clsid) {
    wchar_t text[40];
    StringFromGUID2(clsid, text, 40);
    return text;
}

bool setValue(const std::wstring& key, const wchar_t* name, const std::wstring& value) {
    return RegSetKeyValueW(HKEY_CLASSES_ROOT, key.c_str(), name, REG_SZ, value.c_str(),
                           static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t))) == ERROR_SUCCESS;
}

}  // namespace

extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID) {
    if (reason == DLL_PROCESS_ATTACH) module = instance;
    return TRUE;
}

STDAPI DllGetClassObject(REFCLSID clsid, REFIID iid, void** out) {
    if (!out) return E_POINTER;
    *out = nullptr;
    for (const auto& c : kClasses) {
        if (!IsEqualCLSID(clsid, c.clsid)) continue;
        auto* factory = new Factory(c.progId);
        const HRESULT hr = factory->QueryInterface(iid, out);
        factory->Release();
        return hr;
    }
    return CLASS_E_CLASSNOTAVAILABLE;
}

// The library's objects may still be referenced by a client's caches.
STDAPI DllCanUnloadNow() { return S_FALSE; }

STDAPI DllRegisterServer() {
    wchar_t path[MAX_PATH];
    GetModuleFileNameW(module, path, MAX_PATH);
    for (const auto& c : kClasses) {
        const std::wstring clsid = guidText(c.clsid);
        const std::wstring classKey = L"CLSID\\" + clsid;
        if (!setValue(std::wstring(c.progId) + L"\\CLSID", nullptr, clsid) || !setValue(classKey, nullptr, c.progId) ||
            !setValue(classKey + L"\\InprocServer32", nullptr, path) ||
            !setValue(classKey + L"\\InprocServer32", L"ThreadingModel", L"Both") ||
            !setValue(classKey + L"\\ProgID", nullptr, c.progId))
            return SELFREG_E_CLASS;
    }
    return S_OK;
}

STDAPI DllUnregisterServer() {
    for (const auto& c : kClasses) {
        RegDeleteTreeW(HKEY_CLASSES_ROOT, (L"CLSID\\" + guidText(c.clsid)).c_str());
        RegDeleteTreeW(HKEY_CLASSES_ROOT, c.progId);
    }
    return S_OK;
}

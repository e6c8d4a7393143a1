#include "com/registration.h"

#include <oleauto.h>
#include <olectl.h>

#include <string>
#include <vector>

#include "com/com_handles.h"
#include "com/identities.h"
#include "com/server_module.h"

namespace telvaro::com {

namespace {

// The marshaller of automation interfaces described by a type library.
constexpr const wchar_t* kTypeLibraryMarshaller = L"{00020424-0000-0000-C000-000000000046}";

std::wstring text(const GUID& guid) {
    wchar_t buffer[40] = {};
    StringFromGUID2(guid, buffer, 40);
    return buffer;
}

std::wstring wide(const char* s) { return std::wstring(s, s + std::char_traits<char>::length(s)); }

std::wstring version() { return std::to_wstring(kLibraryMajor) + L"." + std::to_wstring(kLibraryMinor); }

struct Entry {
    std::wstring key;   // under HKEY_CLASSES_ROOT
    std::wstring name;  // empty: the key's default value
    std::wstring value;
};

// The keys whose whole tree belongs to the server.
std::vector<std::wstring> ownedKeys() {
    return {L"CLSID\\" + text(kFunClassId), wide(kProgId), L"Interface\\" + text(kFunV0InterfaceId),
            L"Interface\\" + text(kFunV1InterfaceId)};
}

std::vector<Entry> entries(const std::wstring& path) {
    const std::wstring clsid = L"CLSID\\" + text(kFunClassId);
    std::vector<Entry> list = {
        {clsid, L"", wide(kProgId)},
        {clsid + L"\\InprocServer32", L"", path},
        {clsid + L"\\InprocServer32", L"ThreadingModel", L"Apartment"},
        {clsid + L"\\ProgID", L"", wide(kProgId)},
        {clsid + L"\\TypeLib", L"", text(kLibraryId)},
        {clsid + L"\\VERSION", L"", version()},
        {wide(kProgId), L"", wide(kProgId)},
        {wide(kProgId) + L"\\CLSID", L"", text(kFunClassId)},
    };
    const std::pair<const GUID*, const wchar_t*> earlier[] = {{&kFunV0InterfaceId, L"Fun___v0"},
                                                              {&kFunV1InterfaceId, L"Fun___v1"}};
    for (const auto& [iid, name] : earlier) {
        const std::wstring key = L"Interface\\" + text(*iid);
        list.push_back({key, L"", name});
        list.push_back({key + L"\\ProxyStubClsid", L"", kTypeLibraryMarshaller});
        list.push_back({key + L"\\ProxyStubClsid32", L"", kTypeLibraryMarshaller});
        list.push_back({key + L"\\TypeLib", L"", text(kLibraryId)});
        list.push_back({key + L"\\TypeLib", L"Version", version()});
    }
    return list;
}

HRESULT write(const Entry& e) {
    HKEY key = nullptr;
    LONG status =
        RegCreateKeyExW(HKEY_CLASSES_ROOT, e.key.c_str(), 0, nullptr, 0, KEY_SET_VALUE, nullptr, &key, nullptr);
    if (status != ERROR_SUCCESS) return HRESULT_FROM_WIN32(status);
    status = RegSetValueExW(key, e.name.empty() ? nullptr : e.name.c_str(), 0, REG_SZ,
                            reinterpret_cast<const BYTE*>(e.value.c_str()),
                            static_cast<DWORD>((e.value.size() + 1) * sizeof(wchar_t)));
    RegCloseKey(key);
    return HRESULT_FROM_WIN32(status);
}

SYSKIND thisSystem() { return sizeof(void*) == 8 ? SYS_WIN64 : SYS_WIN32; }

}  // namespace

HRESULT registerServer() {
    std::wstring path = ServerModule::path();
    for (const Entry& e : entries(path)) {
        const HRESULT hr = write(e);
        if (FAILED(hr)) return hr;
    }
    ComPtr<ITypeLib> library;
    HRESULT hr = ServerModule::typeLibrary(library.put());
    if (SUCCEEDED(hr)) hr = RegisterTypeLib(library.get(), path.data(), nullptr);
    return SUCCEEDED(hr) ? S_OK : SELFREG_E_TYPELIB;
}

HRESULT unregisterServer() {
    // Removes the type library with the interface entries of _Fun.
    UnRegisterTypeLib(kLibraryId, kLibraryMajor, kLibraryMinor, LOCALE_NEUTRAL, thisSystem());
    for (const std::wstring& key : ownedKeys()) RegDeleteTreeW(HKEY_CLASSES_ROOT, key.c_str());
    return S_OK;
}

}  // namespace telvaro::com

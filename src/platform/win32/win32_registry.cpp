#include "platform/win32/win32_registry.h"

#include <string>

#include "platform/win32/win32_text.h"

namespace telvaro::win32 {

namespace {

constexpr REGSAM kAccess = 63;

// The predefined root of a ClavesRegistro value; null for any other value,
// which makes the registry call fail.
HKEY rootOf(std::int32_t root) {
    switch (root) {
        case 0: return HKEY_CLASSES_ROOT;
        case 1: return HKEY_CURRENT_USER;
        case 2: return HKEY_LOCAL_MACHINE;
        case 3: return HKEY_USERS;
        default: return nullptr;
    }
}

// Registry handles are 32-bit values even in 64-bit processes.
HKEY keyOf(std::int32_t key) { return reinterpret_cast<HKEY>(static_cast<std::intptr_t>(key)); }
std::int32_t handleOf(HKEY key) { return static_cast<std::int32_t>(reinterpret_cast<std::intptr_t>(key)); }

}  // namespace

std::int32_t Win32Registry::createKey(std::int32_t root, StringView path) {
    HKEY key = nullptr;
    DWORD disposition = 0;
    if (RegCreateKeyExA(rootOf(root), ansi(path).c_str(), 0, nullptr, 0, kAccess, nullptr, &key, &disposition) !=
        ERROR_SUCCESS)
        return 0;
    return handleOf(key);
}

std::int32_t Win32Registry::openKey(std::int32_t root, StringView path) {
    HKEY key = nullptr;
    if (RegOpenKeyExA(rootOf(root), ansi(path).c_str(), 0, kAccess, &key) != ERROR_SUCCESS) return 0;
    return handleOf(key);
}

void Win32Registry::closeKey(std::int32_t key) { RegCloseKey(keyOf(key)); }

bool Win32Registry::setValue(std::int32_t key, StringView name, std::uint32_t type, std::string_view data) {
    return RegSetValueExA(keyOf(key), ansi(name).c_str(), 0, type, reinterpret_cast<const BYTE*>(data.data()),
                          static_cast<DWORD>(data.size())) == ERROR_SUCCESS;
}

std::optional<Registry::Value> Win32Registry::queryValue(std::int32_t key, StringView name) {
    const std::string valueName = ansi(name);
    DWORD type = 0, size = 0;
    if (RegQueryValueExA(keyOf(key), valueName.c_str(), nullptr, &type, nullptr, &size) != ERROR_SUCCESS)
        return std::nullopt;
    Value value{type, std::string(size, '\0')};
    if (RegQueryValueExA(keyOf(key), valueName.c_str(), nullptr, &type, reinterpret_cast<BYTE*>(value.data.data()),
                         &size) != ERROR_SUCCESS)
        return std::nullopt;
    value.type = type;
    value.data.resize(size);
    return value;
}

}  // namespace telvaro::win32

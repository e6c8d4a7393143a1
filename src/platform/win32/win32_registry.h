// The registry through the Win32 A-functions, with the fixed arguments the
// methods have always used: RegCreateKeyExA and RegOpenKeyExA with access
// 63 (query, set, create-subkey, enumerate, notify, create-link), values
// written with RegSetValueExA and read with RegQueryValueExA. Key handles
// travel as the Long value of the HKEY.
#pragma once

#include "platform/registry.h"

namespace telvaro::win32 {

class Win32Registry : public Registry {
public:
    std::int32_t createKey(std::int32_t root, StringView path) override;
    std::int32_t openKey(std::int32_t root, StringView path) override;
    void closeKey(std::int32_t key) override;
    bool setValue(std::int32_t key, StringView name, std::uint32_t type, std::string_view data) override;
    std::optional<Value> queryValue(std::int32_t key, StringView name) override;
};

}  // namespace telvaro::win32

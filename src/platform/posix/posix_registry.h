// The registry on Linux: one file per root under <home>/registry
// (HKEY_CURRENT_USER.reg ...), in the layout of registry_document.h. Every
// change re-reads the file and replaces it atomically under the folder's
// lock, so processes sharing the store lose nothing. Handles are numbers of
// this process that name a root and a key path; a key deleted by hand while
// open is created again by the next value written into it.
#pragma once

#include <filesystem>
#include <map>
#include <mutex>

#include "platform/registry.h"

namespace telvaro::posix {

class PosixRegistry : public Registry {
public:
    explicit PosixRegistry(std::filesystem::path folder = {});  // default: <home>/registry

    std::int32_t createKey(std::int32_t root, StringView path) override;
    std::int32_t openKey(std::int32_t root, StringView path) override;
    void closeKey(std::int32_t key) override;
    bool setValue(std::int32_t key, StringView name, std::uint32_t type, std::string_view data) override;
    std::optional<Value> queryValue(std::int32_t key, StringView name) override;

private:
    struct OpenKey {
        std::int32_t root;
        String path;
    };
    std::filesystem::path folder() const;
    std::filesystem::path fileOf(std::int32_t root) const;
    std::int32_t newHandle(std::int32_t root, String path);
    std::optional<OpenKey> keyOf(std::int32_t handle);

    std::filesystem::path folder_;
    std::mutex mutex_;
    std::map<std::int32_t, OpenKey> open_;
    std::int32_t next_ = 0x1000;
};

}  // namespace telvaro::posix

#include "platform/posix/posix_registry.h"

#include "platform/posix/atomic_file.h"
#include "platform/posix/home.h"
#include "platform/registry_document.h"

namespace telvaro::posix {

namespace fs = std::filesystem;

namespace {

const char16_t* rootName(std::int32_t root) {
    switch (root) {
        case 0: return u"HKEY_CLASSES_ROOT";
        case 1: return u"HKEY_CURRENT_USER";
        case 2: return u"HKEY_LOCAL_MACHINE";
        case 3: return u"HKEY_USERS";
        default: return nullptr;
    }
}

}  // namespace

PosixRegistry::PosixRegistry(fs::path folder) : folder_(std::move(folder)) {}

fs::path PosixRegistry::folder() const { return folder_.empty() ? homeFolder() / "registry" : folder_; }

fs::path PosixRegistry::fileOf(std::int32_t root) const { return folder() / (toUtf8(rootName(root)) + ".reg"); }

std::int32_t PosixRegistry::newHandle(std::int32_t root, String path) {
    std::lock_guard lock(mutex_);
    do {
        next_ = next_ >= 0x7FFFFFF0 ? 0x1000 : next_ + 4;
    } while (open_.count(next_));
    open_[next_] = OpenKey{root, std::move(path)};
    return next_;
}

std::optional<PosixRegistry::OpenKey> PosixRegistry::keyOf(std::int32_t handle) {
    std::lock_guard lock(mutex_);
    auto it = open_.find(handle);
    if (it == open_.end()) return std::nullopt;
    return it->second;
}

std::int32_t PosixRegistry::createKey(std::int32_t root, StringView path) {
    const auto key = normalizedKeyPath(path);
    if (!rootName(root) || !key) return 0;
    // An existing key is opened without rewriting the store.
    const RegistryDocument current(rootName(root), readBytes(fileOf(root)).value_or(std::string()));
    if (current.hasKey(*key)) return newHandle(root, *key);
    std::error_code ec;
    fs::create_directories(folder(), ec);
    const bool stored = changeFile(fileOf(root), [&](const std::string& old) {
        RegistryDocument document(rootName(root), old);
        document.addKey(*key);
        return document.text();
    });
    return stored ? newHandle(root, *key) : 0;
}

std::int32_t PosixRegistry::openKey(std::int32_t root, StringView path) {
    const auto key = normalizedKeyPath(path);
    if (!rootName(root) || !key) return 0;
    const RegistryDocument document(rootName(root), readBytes(fileOf(root)).value_or(std::string()));
    return document.hasKey(*key) ? newHandle(root, *key) : 0;
}

void PosixRegistry::closeKey(std::int32_t key) {
    std::lock_guard lock(mutex_);
    open_.erase(key);
}

bool PosixRegistry::setValue(std::int32_t handle, StringView name, std::uint32_t type, std::string_view data) {
    const auto key = keyOf(handle);
    if (!key || key->path.empty()) return false;
    return changeFile(fileOf(key->root), [&](const std::string& old) {
        RegistryDocument document(rootName(key->root), old);
        document.setValue(key->path, RegistryDocument::Value{String(name), type, std::string(data)});
        return document.text();
    });
}

std::optional<Registry::Value> PosixRegistry::queryValue(std::int32_t handle, StringView name) {
    const auto key = keyOf(handle);
    if (!key) return std::nullopt;
    const RegistryDocument document(rootName(key->root), readBytes(fileOf(key->root)).value_or(std::string()));
    auto value = document.value(key->path, name);
    if (!value) return std::nullopt;
    return Value{value->type, value->data};
}

}  // namespace telvaro::posix

// A platform made of one service object per concern, which it owns: what
// the POSIX and Win32 builds put together for the process.
#pragma once

#include <memory>

#include "platform/platform.h"

namespace telvaro {

struct PlatformServices {
    std::unique_ptr<MessageBoxService> messageBoxes;
    std::unique_ptr<ProfileFiles> profileFiles;
    std::unique_ptr<FileSystem> fileSystem;
    std::unique_ptr<Registry> registry;
    std::unique_ptr<RegionalStore> regionalStore;
    std::unique_ptr<Environment> environment;
};

class ComposedPlatform final : public Platform {
public:
    explicit ComposedPlatform(PlatformServices services) : services_(std::move(services)) {}

    MessageBoxService& messageBoxes() override { return *services_.messageBoxes; }
    ProfileFiles& profileFiles() override { return *services_.profileFiles; }
    FileSystem& fileSystem() override { return *services_.fileSystem; }
    Registry& registry() override { return *services_.registry; }
    RegionalStore& regionalStore() override { return *services_.regionalStore; }
    Environment& environment() override { return *services_.environment; }

private:
    PlatformServices services_;
};

}  // namespace telvaro

// The Win32 services of the library, and the platform of a process that
// loads it on Windows.
#pragma once

#include <memory>

#include "platform/platform.h"

namespace telvaro::win32 {

class Win32Platform : public Platform {
public:
    Win32Platform();
    ~Win32Platform() override;

    MessageBoxService& messageBoxes() override;
    ProfileFiles& profileFiles() override;
    FileSystem& fileSystem() override;
    Registry& registry() override;
    RegionalStore& regionalStore() override;
    Environment& environment() override;

private:
    std::unique_ptr<MessageBoxService> messageBoxes_;
    std::unique_ptr<ProfileFiles> profileFiles_;
    std::unique_ptr<FileSystem> fileSystem_;
    std::unique_ptr<Registry> registry_;
    std::unique_ptr<RegionalStore> regionalStore_;
    std::unique_ptr<Environment> environment_;
};

}  // namespace telvaro::win32

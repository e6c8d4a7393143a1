// The platform services on Linux and other POSIX systems. Creating it puts
// the stored regional settings in force.
#pragma once

#include <memory>

#include "platform/platform.h"

namespace telvaro::posix {

class PosixFileSystem;
class PosixRegistry;
class PosixRegionalStore;
class PosixEnvironment;

class PosixPlatform : public Platform {
public:
    PosixPlatform();
    ~PosixPlatform() override;
    MessageBoxService& messageBoxes() override;
    ProfileFiles& profileFiles() override;
    FileSystem& fileSystem() override;
    Registry& registry() override;
    RegionalStore& regionalStore() override;
    Environment& environment() override;

private:
    std::unique_ptr<MessageBoxService> messageBoxes_;
    std::unique_ptr<ProfileFiles> profileFiles_;
    std::unique_ptr<PosixFileSystem> fileSystem_;
    std::unique_ptr<PosixRegistry> registry_;
    std::unique_ptr<PosixRegionalStore> regionalStore_;
    std::unique_ptr<PosixEnvironment> environment_;
};

}  // namespace telvaro::posix

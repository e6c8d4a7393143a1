// The platform services on Linux and other POSIX systems.
#pragma once

#include <memory>

#include "platform/platform.h"

namespace telvaro::posix {

class PosixPlatform : public Platform {
public:
    PosixPlatform();
    ~PosixPlatform() override;
    MessageBoxService& messageBoxes() override;
    ProfileFiles& profileFiles() override;

private:
    std::unique_ptr<MessageBoxService> messageBoxes_;
    std::unique_ptr<ProfileFiles> profileFiles_;
};

}  // namespace telvaro::posix

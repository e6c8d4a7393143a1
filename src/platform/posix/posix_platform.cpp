#include "platform/posix/posix_platform.h"

#include "platform/default_platform.h"
#include "platform/posix/posix_profile_files.h"
#include "platform/posix/terminal_message_box.h"

namespace telvaro::posix {

PosixPlatform::PosixPlatform()
    : messageBoxes_(std::make_unique<TerminalMessageBox>()), profileFiles_(std::make_unique<PosixProfileFiles>()) {}
PosixPlatform::~PosixPlatform() = default;

MessageBoxService& PosixPlatform::messageBoxes() { return *messageBoxes_; }
ProfileFiles& PosixPlatform::profileFiles() { return *profileFiles_; }

}  // namespace telvaro::posix

namespace telvaro {

Platform& defaultPlatform() {
    static posix::PosixPlatform platform;
    return platform;
}

}  // namespace telvaro

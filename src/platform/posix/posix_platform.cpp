#include "platform/posix/posix_platform.h"

#include "platform/default_platform.h"
#include "platform/posix/terminal_message_box.h"

namespace telvaro::posix {

PosixPlatform::PosixPlatform() : messageBoxes_(std::make_unique<TerminalMessageBox>()) {}
PosixPlatform::~PosixPlatform() = default;

MessageBoxService& PosixPlatform::messageBoxes() { return *messageBoxes_; }

}  // namespace telvaro::posix

namespace telvaro {

Platform& defaultPlatform() {
    static posix::PosixPlatform platform;
    return platform;
}

}  // namespace telvaro

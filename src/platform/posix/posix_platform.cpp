#include "platform/posix/posix_platform.h"

#include "platform/default_platform.h"
#include "platform/posix/posix_environment.h"
#include "platform/posix/posix_file_system.h"
#include "platform/posix/posix_profile_files.h"
#include "platform/posix/posix_regional_store.h"
#include "platform/posix/posix_registry.h"
#include "platform/posix/terminal_message_box.h"

namespace telvaro::posix {

PosixPlatform::PosixPlatform()
    : messageBoxes_(std::make_unique<TerminalMessageBox>()),
      profileFiles_(std::make_unique<PosixProfileFiles>()),
      fileSystem_(std::make_unique<PosixFileSystem>()),
      registry_(std::make_unique<PosixRegistry>()),
      regionalStore_(std::make_unique<PosixRegionalStore>()),
      environment_(std::make_unique<PosixEnvironment>()) {
    setRegional(regionalStore_->load());
}
PosixPlatform::~PosixPlatform() = default;

MessageBoxService& PosixPlatform::messageBoxes() { return *messageBoxes_; }
ProfileFiles& PosixPlatform::profileFiles() { return *profileFiles_; }
FileSystem& PosixPlatform::fileSystem() { return *fileSystem_; }
Registry& PosixPlatform::registry() { return *registry_; }
RegionalStore& PosixPlatform::regionalStore() { return *regionalStore_; }
Environment& PosixPlatform::environment() { return *environment_; }

}  // namespace telvaro::posix

namespace telvaro {

Platform& defaultPlatform() {
    static posix::PosixPlatform platform;
    return platform;
}

}  // namespace telvaro

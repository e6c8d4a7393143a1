// The platform of a process on Linux and other POSIX systems. Creating it
// puts the stored regional settings in force.
#include "platform/composed_platform.h"
#include "platform/default_platform.h"
#include "platform/posix/posix_environment.h"
#include "platform/posix/posix_file_system.h"
#include "platform/posix/posix_profile_files.h"
#include "platform/posix/posix_regional_store.h"
#include "platform/posix/posix_registry.h"
#include "platform/posix/terminal_message_box.h"

namespace telvaro {

namespace {

PlatformServices posixServices() {
    auto regionalStore = std::make_unique<posix::PosixRegionalStore>();
    setRegional(regionalStore->load());
    return {std::make_unique<posix::TerminalMessageBox>(), std::make_unique<posix::PosixProfileFiles>(),
            std::make_unique<posix::PosixFileSystem>(),    std::make_unique<posix::PosixRegistry>(),
            std::move(regionalStore),                      std::make_unique<posix::PosixEnvironment>()};
}

}  // namespace

Platform& defaultPlatform() {
    static ComposedPlatform platform(posixServices());
    return platform;
}

}  // namespace telvaro

#include "platform/win32/win32_platform.h"

#include "platform/default_platform.h"
#include "platform/win32/win32_environment.h"
#include "platform/win32/win32_file_system.h"
#include "platform/win32/win32_message_box.h"
#include "platform/win32/win32_profile_files.h"
#include "platform/win32/win32_regional_store.h"
#include "platform/win32/win32_registry.h"

namespace telvaro::win32 {

Win32Platform::Win32Platform()
    : messageBoxes_(std::make_unique<Win32MessageBox>()),
      profileFiles_(std::make_unique<Win32ProfileFiles>()),
      fileSystem_(std::make_unique<Win32FileSystem>()),
      registry_(std::make_unique<Win32Registry>()),
      regionalStore_(std::make_unique<Win32RegionalStore>()),
      environment_(std::make_unique<Win32Environment>()) {
    setRegional(Win32RegionalStore::load());
}
Win32Platform::~Win32Platform() = default;

MessageBoxService& Win32Platform::messageBoxes() { return *messageBoxes_; }
ProfileFiles& Win32Platform::profileFiles() { return *profileFiles_; }
FileSystem& Win32Platform::fileSystem() { return *fileSystem_; }
Registry& Win32Platform::registry() { return *registry_; }
RegionalStore& Win32Platform::regionalStore() { return *regionalStore_; }
Environment& Win32Platform::environment() { return *environment_; }

}  // namespace telvaro::win32

namespace telvaro {

Platform& defaultPlatform() {
    static win32::Win32Platform platform;
    return platform;
}

}  // namespace telvaro

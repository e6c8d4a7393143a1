// The platform of a process that loads the library on Windows. Creating it
// puts the user's regional settings in force.
#include "platform/composed_platform.h"
#include "platform/default_platform.h"
#include "platform/win32/win32_environment.h"
#include "platform/win32/win32_file_system.h"
#include "platform/win32/win32_message_box.h"
#include "platform/win32/win32_profile_files.h"
#include "platform/win32/win32_regional_store.h"
#include "platform/win32/win32_registry.h"

namespace telvaro {

namespace {

PlatformServices win32Services() {
    setRegional(win32::Win32RegionalStore::load());
    return {std::make_unique<win32::Win32MessageBox>(), std::make_unique<win32::Win32ProfileFiles>(),
            std::make_unique<win32::Win32FileSystem>(), std::make_unique<win32::Win32Registry>(),
            std::make_unique<win32::Win32RegionalStore>(), std::make_unique<win32::Win32Environment>()};
}

}  // namespace

Platform& defaultPlatform() {
    static ComposedPlatform platform(win32Services());
    return platform;
}

}  // namespace telvaro

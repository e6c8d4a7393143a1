// The host of a process that loads the library on Windows.
#include "host/default_platform.h"
#include "host/win32_display.h"
#include "host/win32_pictures.h"
#include "platform/win32/win32_environment.h"
#include "platform/win32/win32_file_system.h"
#include "platform/win32/win32_message_box.h"
#include "platform/win32/win32_printing.h"
#include "platform/win32/win32_profile_files.h"
#include "platform/win32/win32_progress.h"
#include "platform/win32/win32_regional_store.h"
#include "platform/win32/win32_registry.h"
#include "platform/win32/win32_windows.h"

namespace telvaro {

namespace {

Platform win32Platform() {
    setRegional(win32::Win32RegionalStore::load());
    Platform p;
    p.use(std::shared_ptr<MessageBoxService>(std::make_shared<win32::Win32MessageBox>()));
    p.use(std::shared_ptr<ProfileFiles>(std::make_shared<win32::Win32ProfileFiles>()));
    p.use(std::shared_ptr<FileSystem>(std::make_shared<win32::Win32FileSystem>()));
    p.use(std::shared_ptr<Registry>(std::make_shared<win32::Win32Registry>()));
    p.use(std::shared_ptr<RegionalStore>(std::make_shared<win32::Win32RegionalStore>()));
    p.use(std::shared_ptr<Environment>(std::make_shared<win32::Win32Environment>()));
    p.use(std::shared_ptr<Windows>(std::make_shared<win32::Win32Windows>()));
    p.use(std::shared_ptr<Pictures>(std::make_shared<win32::Win32Pictures>()));
    p.use(std::shared_ptr<ProgressDisplay>(std::make_shared<win32::Win32ProgressDisplay>()));
    p.use(std::shared_ptr<DisplayService>(std::make_shared<win32::Win32Display>()));
    p.use(std::shared_ptr<Printing>(std::make_shared<win32::Win32Printing>()));
    return p;
}

}  // namespace

const Platform& defaultPlatform() {
    static const Platform platform = win32Platform();
    return platform;
}

}  // namespace telvaro

// The services the methods need from the operating system, behind one
// interface per concern. A Fun object holds a Platform; the POSIX and
// Win32 implementations supply the real services, tests supply fakes.
#pragma once

#include "platform/environment.h"
#include "platform/file_system.h"
#include "platform/message_box.h"
#include "platform/profile_files.h"
#include "platform/regional_store.h"
#include "platform/registry.h"

namespace telvaro {

class Platform {
public:
    virtual ~Platform() = default;
    virtual MessageBoxService& messageBoxes() = 0;
    virtual ProfileFiles& profileFiles() = 0;
    virtual FileSystem& fileSystem() = 0;
    virtual Registry& registry() = 0;
    virtual RegionalStore& regionalStore() = 0;
    virtual Environment& environment() = 0;
};

}  // namespace telvaro

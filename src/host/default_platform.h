// The platform of the process, put together once for the host it runs on:
// the POSIX services on Linux, the Win32 services on Windows. Creating it
// puts the stored regional settings in force.
#pragma once

#include "platform/platform.h"

namespace telvaro {

const Platform& defaultPlatform();

}  // namespace telvaro

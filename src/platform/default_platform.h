// The platform of the process: the POSIX services on Linux, the Win32
// services on Windows.
#pragma once

#include "platform/platform.h"

namespace telvaro {

Platform& defaultPlatform();

}  // namespace telvaro

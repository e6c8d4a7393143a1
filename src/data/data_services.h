// What the data objects need from the host they run in. The objects never
// reach the operating system's files on their own: a database file named in
// a connection string and the files of a Stream are Windows-form paths
// ("C:\Datos\ventas.db"), turned into the file to open by the host's path
// mapping, which also refuses the paths the library must not touch.
#pragma once

#include <filesystem>
#include <functional>

#include "runtime/ustring.h"

namespace telvaro::data {

struct DataServices {
    // The file a Windows-form path names; raises the runtime's file error
    // (75, 76, ...) for a path that is refused.
    std::function<std::filesystem::path(StringView windowsPath)> resolvePath;
};

}  // namespace telvaro::data

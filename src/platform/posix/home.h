// Where the library keeps its files on Linux, and how Windows-form paths
// map to it.
//
// The home folder is $TELVARO_HOME, else $XDG_DATA_HOME/telvaro, else
// ~/.local/share/telvaro. A drive letter maps to the folder named by
// $TELVARO_DRIVE_<LETTER> when set, else to <home>/drives/<letter>; so
// "C:\Errores\ErrLog\7.txt" is <home>/drives/c/Errores/ErrLog/7.txt. A path
// that starts with "\" is on drive C; "\\server\share\x" is
// <home>/unc/server/share/x; a POSIX absolute path ("/tmp\x") stays where it
// is; any other path is relative to the current folder. "\" and "/" both separate
// folders. Names keep their case (the Linux file system tells case apart).
#pragma once

#include <filesystem>

#include "runtime/ustring.h"

namespace telvaro::posix {

std::filesystem::path homeFolder();
std::filesystem::path driveFolder(char16_t letter);
std::filesystem::path mapPath(StringView windowsPath);
// True for "X:...", "\\..." and "/..." paths; false for relative ones.
bool isFullPath(StringView windowsPath);

}  // namespace telvaro::posix

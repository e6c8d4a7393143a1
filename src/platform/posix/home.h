// Where the library keeps its files on Linux, and how Windows-form paths
// map to it.
//
// The home folder is $TELVARO_HOME, else $XDG_DATA_HOME/telvaro, else
// ~/.local/share/telvaro. A drive letter maps to the folder named by
// $TELVARO_DRIVE_<LETTER> when set, else to <home>/drives/<letter>; so
// "C:\Errores\ErrLog\7.txt" is <home>/drives/c/Errores/ErrLog/7.txt. A path
// that starts with "\" is on drive C; "\\server\share\x" is
// <home>/unc/server/share/x; any other path is relative to the current
// folder. "\" and "/" both separate folders. Names keep their case (the
// Linux file system tells case apart).
//
// No path leaves the place it names: as on Windows, ".." stops at the root
// of the drive or share ("C:\..\..\x" is "C:\x"), and at the current folder
// for a relative path; a name's trailing dots and blanks are dropped as
// Windows drops them ("x." is "x", "..." names the folder itself). A POSIX
// absolute path ("/srv/datos/x") is taken as it is only inside the folder of
// a mapped drive ($TELVARO_DRIVE_<LETTER>), the ".." clamp stopping at that
// folder; anywhere else it is a path on drive C, as "\srv\datos\x" is.
#pragma once

#include <filesystem>

#include "runtime/ustring.h"

namespace telvaro::posix {

std::filesystem::path homeFolder();
std::filesystem::path driveFolder(char16_t letter);
// The local path of a Windows-form path. Error 52 (bad file name) for a
// name no file can have: one holding a NUL character, a share path without
// its server and share names.
std::filesystem::path mapPath(StringView windowsPath);
// True for "X:...", "\\..." and "/..." paths; false for relative ones.
bool isFullPath(StringView windowsPath);
// Drive C always exists: its folder is created when missing.
void ensureSystemDrive();

}  // namespace telvaro::posix

// Opening a document or starting a program without waiting for it and
// without a shell. A program (an executable file) is started with the
// parameters split as a Windows command line splits them; a document or an
// address ("https://...", "mailto:...") is handed to the desktop's opener,
// $TELVARO_OPENER or else xdg-open. A name without a folder is looked for
// in the working folder given, then on the PATH (also without ".exe"). The
// started process has its own session and reads and writes /dev/null, so it
// never disturbs the caller's terminal or the batch protocol.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "runtime/ustring.h"

namespace telvaro::posix {

// The command line that opens `file`; empty when there is nothing to open.
std::vector<std::string> launchCommand(StringView file, StringView parameters, const std::filesystem::path& folder);

// The command line that opens a local document with the desktop's opener;
// empty when there is no opener.
std::vector<std::string> openDocumentCommand(const std::filesystem::path& document);

// Splits parameters as a Windows program's command line is split: blanks
// separate, double quotes group, "" inside quotes is one quote.
std::vector<std::string> splitParameters(StringView parameters);

// Starts the command in `folder` (when it exists) and returns at once.
// False when it could not be started.
bool startDetached(const std::vector<std::string>& command, const std::filesystem::path& folder);

}  // namespace telvaro::posix

// Where the exported workbooks go on Linux, and how a visible one is opened.
#include <cstdlib>

#include "host/exported_sheets.h"
#include "platform/posix/home.h"
#include "platform/posix/launcher.h"

namespace telvaro::host {

namespace {

bool displayAvailable() {
    for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY"}) {
        const char* value = std::getenv(name);
        if (value && *value) return true;
    }
    return false;
}

}  // namespace

std::filesystem::path exportsFolder() { return posix::homeFolder() / "exports"; }

bool openExportedWorkbook(const std::filesystem::path& file) {
    if (!displayAvailable()) return false;
    return posix::startDetached(posix::openDocumentCommand(file), file.parent_path());
}

}  // namespace telvaro::host

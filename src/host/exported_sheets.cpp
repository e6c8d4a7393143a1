#include "host/exported_sheets.h"

#include <cstdlib>
#include <utility>

#include "platform/posix/home.h"
#include "platform/posix/launcher.h"
#include "sheet/application.h"

namespace telvaro::host {

namespace {

ExportReport& report() {
    // The applications are released on the thread that called the method.
    thread_local ExportReport record;
    return record;
}

bool displayAvailable() {
    for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY"}) {
        const char* value = std::getenv(name);
        if (value && *value) return true;
    }
    return false;
}

}  // namespace

std::filesystem::path exportsFolder() { return posix::homeFolder() / "exports"; }

ObjectRef makeSheetApplication(const std::filesystem::path& folder) {
    sheet::SheetOptions options;
    options.folder = folder;
    options.written = [](const sheet::WrittenWorkbook& w) {
        ExportedSheet file{w.path, w.visible, false};
        if (w.visible && displayAvailable())
            file.opened = posix::startDetached(posix::openDocumentCommand(w.path), w.path.parent_path());
        report().files.push_back(std::move(file));
    };
    options.failed = [](const RuntimeError& e) { report().failures.push_back(e); };
    return sheet::SheetApplication::create(std::move(options));
}

ExportReport takeExportReport() { return std::exchange(report(), ExportReport{}); }

}  // namespace telvaro::host

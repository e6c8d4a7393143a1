#include "host/exported_sheets.h"

#include <utility>

#include "sheet/application.h"

namespace telvaro::host {

namespace {

ExportReport& report() {
    // The applications are released on the thread that called the method.
    thread_local ExportReport record;
    return record;
}

}  // namespace

ObjectRef makeSheetApplication(const std::filesystem::path& folder, ExportRecord record) {
    const bool kept = record == ExportRecord::Kept;
    sheet::SheetOptions options;
    options.folder = folder;
    options.written = [kept](const sheet::WrittenWorkbook& w) {
        ExportedSheet file{w.path, w.visible, false};
        if (w.visible) file.opened = openExportedWorkbook(w.path);
        if (kept) report().files.push_back(std::move(file));
    };
    options.failed = [kept](const RuntimeError& e) {
        if (kept) report().failures.push_back(e);
    };
    return sheet::SheetApplication::create(std::move(options));
}

ExportReport takeExportReport() { return std::exchange(report(), ExportReport{}); }

}  // namespace telvaro::host

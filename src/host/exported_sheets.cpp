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

ObjectRef makeSheetApplication(const std::filesystem::path& folder, ExportRecord record, ExportFailureNotice notice) {
    const bool kept = record == ExportRecord::Kept;
    sheet::SheetOptions options;
    options.folder = folder;
    options.written = [kept](const sheet::WrittenWorkbook& w) {
        ExportedSheet file{w.path, w.visible, false};
        if (w.visible) file.opened = openExportedWorkbook(w.path);
        if (kept) report().files.push_back(std::move(file));
    };
    options.failed = [kept, notice = std::move(notice)](const RuntimeError& e) {
        if (kept) report().failures.push_back(e);
        if (notice) notice(e);
    };
    return sheet::SheetApplication::create(std::move(options));
}

String exportFailureMessage(const RuntimeError& failure) {
    return u"No se pudo guardar el libro de cálculo: " + failure.description();
}

ExportReport takeExportReport() { return std::exchange(report(), ExportReport{}); }

}  // namespace telvaro::host

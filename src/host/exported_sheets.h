// The embedded spreadsheet application behind "Excel.Application" on Linux,
// and what it wrote. Each application writes its workbooks into
// <home>/exports/ (Libro<n>.xlsx, the first free n, written under a hidden
// temporary name and then linked to its final name, so no half-written file
// is ever seen) when the method that made it releases it. A workbook the
// caller made visible is opened with the desktop's opener ($TELVARO_OPENER,
// else xdg-open) when a display is there ($DISPLAY or $WAYLAND_DISPLAY).
// The command line reports the files: `call` on stderr, `batch` in the
// answer's "files".
#pragma once

#include <filesystem>
#include <vector>

#include "runtime/error.h"
#include "runtime/object.h"

namespace telvaro::host {

struct ExportedSheet {
    std::filesystem::path path;
    bool visible = false;  // the caller set Visible = True
    bool opened = false;   // handed to the desktop's opener
};

struct ExportReport {
    std::vector<ExportedSheet> files;
    std::vector<RuntimeError> failures;  // workbooks that could not be written
    bool empty() const { return files.empty() && failures.empty(); }
};

// A new spreadsheet application writing into `folder`.
ObjectRef makeSheetApplication(const std::filesystem::path& folder);
// The folder the host's applications write into: <home>/exports.
std::filesystem::path exportsFolder();

// What the applications released on this thread wrote since the last call,
// oldest first; the record is emptied.
ExportReport takeExportReport();

}  // namespace telvaro::host

// The embedded spreadsheet application behind "Excel.Application", and what
// it wrote. On Linux it is the only one; on Windows the server gives it
// where the installed spreadsheet application cannot be created. Each
// application writes its workbooks into the exports folder (Libro<n>.xlsx,
// the first free n, written under a hidden temporary name and then given
// its final name, so no half-written file is ever seen) when the method
// that made it releases it. A workbook the caller made visible is handed to
// the desktop (openExportedWorkbook). The command line reports the files:
// `call` on stderr, `batch` in the answer's "files".
#pragma once

#include <filesystem>
#include <functional>
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

// Whether what an application writes is kept for takeExportReport(): the
// command line drains it after each call; the automation server has no one
// to drain it and keeps nothing.
enum class ExportRecord { Kept, NotKept };

// Told at once of a workbook that could not be written, where nothing is
// kept: the automation server shows the user a message, so a lost export
// is never silent.
using ExportFailureNotice = std::function<void(const RuntimeError&)>;

// A new spreadsheet application writing into `folder`.
ObjectRef makeSheetApplication(const std::filesystem::path& folder, ExportRecord record = ExportRecord::Kept,
                               ExportFailureNotice notice = {});

// The message of a workbook that could not be written: "No se pudo guardar
// el libro de cálculo: " and the error's description.
String exportFailureMessage(const RuntimeError& failure);

// The folder the host's applications write into (posix_exports.cpp,
// win32_exports.cpp): <home>/exports on Linux, the user's
// Documents\Telvaro\exports on Windows.
std::filesystem::path exportsFolder();

// Hands a written workbook to the desktop's opener; true when it was
// handed over. Linux: $TELVARO_OPENER, else xdg-open, and only when a
// display is there ($DISPLAY or $WAYLAND_DISPLAY). Windows: the program
// %TELVARO_OPENER% names, started with the file, else the file's own
// "open" action (ShellExecuteW).
bool openExportedWorkbook(const std::filesystem::path& file);

// What the applications released on this thread wrote since the last call,
// oldest first; the record is emptied.
ExportReport takeExportReport();

}  // namespace telvaro::host

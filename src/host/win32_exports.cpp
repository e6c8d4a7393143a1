// Where the exported workbooks go on Windows, and how a visible one is
// opened. The folder is the user's own Documents\Telvaro\exports: the
// library has no home folder of its own on Windows (its settings are in the
// registry and the caller's files), and Documents is where a user looks for
// a file an application made for them.
#include <windows.h>

#include <knownfolders.h>
#include <shellapi.h>
#include <shlobj.h>

#include <cstdlib>
#include <string>

#include "host/exported_sheets.h"

namespace telvaro::host {

namespace fs = std::filesystem;

namespace {

// The Documents folder; the profile's Documents when the shell cannot say.
fs::path documentsFolder() {
    PWSTR found = nullptr;
    fs::path folder;
    if (SUCCEEDED(SHGetKnownFolderPath(FOLDERID_Documents, KF_FLAG_CREATE, nullptr, &found)) && found) folder = found;
    CoTaskMemFree(found);
    if (!folder.empty()) return folder;
    const wchar_t* profile = _wgetenv(L"USERPROFILE");
    if (profile && *profile) return fs::path(profile) / L"Documents";
    return {};
}

}  // namespace

fs::path exportsFolder() {
    const fs::path documents = documentsFolder();
    // No folder at all: the write fails as for a folder that cannot be made.
    if (documents.empty()) return {};
    return documents / L"Telvaro" / L"exports";
}

bool openExportedWorkbook(const fs::path& file) {
    // %TELVARO_OPENER% names the program that opens the workbook, as
    // $TELVARO_OPENER does on Linux (the tests name one that does nothing).
    const wchar_t* opener = _wgetenv(L"TELVARO_OPENER");
    const std::wstring folder = file.parent_path().native();
    HINSTANCE done;
    if (opener && *opener) {
        const std::wstring parameters = L"\"" + file.native() + L"\"";
        done = ShellExecuteW(nullptr, L"open", opener, parameters.c_str(), folder.c_str(), SW_SHOWNORMAL);
    } else {
        done = ShellExecuteW(nullptr, L"open", file.c_str(), nullptr, folder.c_str(), SW_SHOWNORMAL);
    }
    // ShellExecuteW gives a value above 32 on success.
    return reinterpret_cast<INT_PTR>(done) > 32;
}

}  // namespace telvaro::host

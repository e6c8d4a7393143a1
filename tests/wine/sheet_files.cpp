// The embedded spreadsheet's workbooks on Windows, in folders named in and
// outside the ANSI code page (libxlsxwriter opens UTF-8 names through the
// wide-character calls): each under the first free name, replacing no file,
// leaving nothing half-written. The runner reads them back (SHEET_FOLDERS).
#include <windows.h>

#include <filesystem>
#include <fstream>
#include <set>
#include <string>
#include <vector>

#include "check.h"
#include "runtime/object.h"
#include "sheet/application.h"

namespace fs = std::filesystem;
using namespace telvaro;

namespace {

fs::path programFolder() {
    wchar_t path[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    return fs::path(path).parent_path();
}

// The files reported for a workbook written into `folder` with `text` in A1.
std::vector<sheet::WrittenWorkbook> writeWorkbook(const fs::path& folder, const String& text) {
    sheet::SheetOptions options;
    options.folder = folder;
    auto app = sheet::SheetApplication::create(std::move(options));
    objectOf(app->get(u"Workbooks")).call(u"Add");
    ObjectRef page = app->get(u"ActiveSheet").object();
    page->put(u"Cells", {Variant(1), Variant(1)}, Variant(text));
    std::vector<sheet::WrittenWorkbook> written = app->finish();
    page.reset();
    return written;
}

std::string contents(const fs::path& file) {
    std::ifstream in(file, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

std::set<fs::path> namesIn(const fs::path& folder) {
    std::set<fs::path> names;
    std::error_code ec;
    for (const auto& entry : fs::directory_iterator(folder, ec)) names.insert(entry.path().filename());
    return names;
}

}  // namespace

int main() {
    // Plain ASCII; in code page 1252; outside it.
    const std::u16string folders[] = {u"plain", u"A\u00f1os", u"\u03a9\u03bc\u03ad\u03b3\u03b1"};
    const fs::path root = programFolder() / L"sheet-files";
    std::error_code ec;
    fs::remove_all(root, ec);
    for (const std::u16string& name : folders) {
        const fs::path folder = root / std::wstring(name.begin(), name.end());
        const std::string label = "folder " + std::to_string(&name - folders);
        try {
            const auto first = writeWorkbook(folder, String(name));
            wine_test::check(first.size() == 1 && first[0].path == folder / L"Libro1.xlsx", label + ": Libro1.xlsx");
            // A Libro2.xlsx already there is kept as it is.
            std::ofstream(folder / L"Libro2.xlsx", std::ios::binary) << "taken";
            const auto second = writeWorkbook(folder, String(name) + u" 2");
            wine_test::check(second.size() == 1 && second[0].path == folder / L"Libro3.xlsx",
                             label + ": the next free name is Libro3.xlsx");
            wine_test::check(contents(folder / L"Libro2.xlsx") == "taken", label + ": Libro2.xlsx not replaced");
            const std::set<fs::path> expected{L"Libro1.xlsx", L"Libro2.xlsx", L"Libro3.xlsx"};
            wine_test::check(namesIn(folder) == expected, label + ": nothing but the workbooks in the folder",
                             std::to_string(namesIn(folder).size()) + " files");
        } catch (const RuntimeError& e) {
            wine_test::check(false, label + ": written", "error " + std::to_string(e.number()));
        }
    }
    return wine_test::finish("sheet_files");
}

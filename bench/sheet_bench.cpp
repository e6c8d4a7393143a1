// The embedded spreadsheet against libxlsxwriter used directly: a page of
// 100,000 rows of 6 columns, built through the objects member by member
// the way the exports build it, and the same cells written straight to the
// file with the same formats. Both write in libxlsxwriter's constant-memory
// mode; heap_MB is the heap in use once every cell is given (the buffered
// sheet for the library, libxlsxwriter's own state for the direct way).
#include <benchmark/benchmark.h>
#include <malloc.h>
#include <xlsxwriter.h>

#include <filesystem>
#include <string>

#include "direct_xlsx.h"
#include "runtime/convert.h"
#include "runtime/object.h"
#include "sheet/application.h"

namespace telvaro {
namespace {

namespace fs = std::filesystem;

constexpr std::int32_t kRows = 100000;
constexpr std::int32_t kColumns = 6;
const char* const kHeaders[kColumns] = {"Código", "Cliente", "Ciudad", "Cantidad", "Precio", "Estado"};

fs::path benchFolder() {
    fs::path folder = fs::temp_directory_path() / "telvaro-sheet-bench";
    fs::create_directories(folder);
    return folder;
}

// The text of a grid cell: texts in columns 0-2 and 5, numbers in 3 and 4.
std::string cellText(std::int32_t row, std::int32_t column) {
    switch (column) {
        case 0: return "C" + std::to_string(100000 + row);
        case 1: return "Cliente número " + std::to_string(row);
        case 2: return row % 2 ? "Quito" : "Guayaquil";
        case 3: return std::to_string(row % 977);
        case 4: return std::to_string(row % 500) + ".25";
        default: return row % 3 ? "Activo" : "Inactivo";
    }
}

bool isNumberColumn(std::int32_t column) { return column == 3 || column == 4; }

// Small blocks and the large ones the allocator maps on their own.
double heapMegabytes() {
    const auto info = mallinfo2();
    return static_cast<double>(info.uordblks + info.hblkhd) / (1024.0 * 1024.0);
}

void throughObjects(benchmark::State& state) {
    const fs::path folder = benchFolder();
    for (auto _ : state) {
        const double before = heapMegabytes();
        std::vector<fs::path> files;
        {
            sheet::SheetOptions options;
            options.folder = folder;
            options.written = [&](const sheet::WrittenWorkbook& w) { files.push_back(w.path); };
            auto app = sheet::SheetApplication::create(std::move(options));
            objectOf(app->get(u"Workbooks")).call(u"Add");
            ObjectRef page = app->get(u"ActiveSheet").object();
            for (std::int32_t c = 0; c < kColumns; ++c)
                page->put(u"Cells", {Variant(4), Variant(c + 2)}, Variant(fromUtf8(kHeaders[c])));
            for (std::int32_t r = 0; r < kRows; ++r)
                for (std::int32_t c = 0; c < kColumns; ++c)
                    page->put(u"Cells", {Variant(r + 5), Variant(c + 2)}, Variant(fromUtf8(cellText(r, c))));
            for (std::int32_t c = 0; c < kColumns; ++c) {
                Variant header = page->get(u"Cells", {Variant(4), Variant(c + 2)});
                objectOf(header).call(u"BorderAround", {Variant(1), Variant(2), Variant(1)});
                objectOf(objectOf(header).get(u"Font")).put(u"Bold", Variant(True));
                Variant block = page->get(u"Range", {page->get(u"Cells", {Variant(5), Variant(c + 2)}),
                                                     page->get(u"Cells", {Variant(kRows + 4), Variant(c + 2)})});
                objectOf(block).call(u"BorderAround", {Variant(1), Variant(2), Variant(1)});
            }
            state.counters["heap_MB"] = heapMegabytes() - before;
        }
        for (const auto& f : files) fs::remove(f);
    }
}
BENCHMARK(throughObjects)->Name("sheet_100000x6/library")->Unit(benchmark::kMillisecond);

void directly(benchmark::State& state) {
    const fs::path folder = benchFolder();
    const std::string path = (folder / "direct.xlsx").string();
    std::string tmpdir = folder.string();
    for (auto _ : state) {
        const double before = heapMegabytes();
        lxw_workbook* book = bench::openDirectWorkbook(path, tmpdir);
        lxw_worksheet* page = workbook_add_worksheet(book, "Hoja1");
        lxw_format* header = bench::boxFormat(book, true, true, true);
        lxw_format* first = bench::boxFormat(book, true, false, false);
        lxw_format* middle = bench::boxFormat(book, false, false, false);
        lxw_format* last = bench::boxFormat(book, false, true, false);
        for (std::int32_t c = 0; c < kColumns; ++c) worksheet_write_string(page, 3, c + 1, kHeaders[c], header);
        for (std::int32_t r = 0; r < kRows; ++r) {
            lxw_format* f = r == 0 ? first : r == kRows - 1 ? last : middle;
            for (std::int32_t c = 0; c < kColumns; ++c) {
                const std::string text = cellText(r, c);
                if (isNumberColumn(c))
                    worksheet_write_number(page, r + 4, c + 1, std::stod(text), f);
                else
                    worksheet_write_string(page, r + 4, c + 1, text.c_str(), f);
            }
        }
        state.counters["heap_MB"] = heapMegabytes() - before;
        workbook_close(book);
        fs::remove(path);
    }
}
BENCHMARK(directly)->Name("sheet_100000x6/direct")->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace telvaro

// ExportExcelReg of a 100,000 x 6 query against the direct way of the same
// work: the same query stepped with SQLite and the same cells written with
// libxlsxwriter in constant-memory mode, with the same formats (title,
// bold boxed headers, each column's data boxed, widths). The library writes
// through the spreadsheet objects into the embedded sheet, which also runs
// libxlsxwriter in constant-memory mode. The library's side includes the
// progress form's steps on frmProg's silent display, as the host gives it when
// stderr is no terminal.
//
// Peak memory is measured honestly in child processes: each side runs one
// whole export in a fork of the same small parent, and wait4 gives the
// child's peak resident set (ru_maxrss); the counters give both peaks, the
// growth over the parent's resident set at the fork, and their ratios. The
// library's peak is measured twice: on a client cursor, where the recordset
// holds the query's rows as that cursor must, and on the default server
// cursor, where nothing but the sheet's held rows (the rest is in its scratch
// file) and libxlsxwriter's buffers grow.
#include <benchmark/benchmark.h>
#include <sqlite3.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <xlsxwriter.h>

#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>

#include "context/fun.h"
#include "data/factory.h"
#include "direct_xlsx.h"
#include "frame/invoke.h"
#include "host/default_platform.h"
#include "host/exported_sheets.h"

namespace telvaro {
namespace {

namespace fs = std::filesystem;

constexpr int kRows = 100000;
constexpr int kColumns = 6;
const char* const kQuery = "SELECT codigo, cliente, ciudad, cantidad, precio, estado FROM ventas ORDER BY rowid";
const char16_t* const kCampos = u"Código,Cliente,Ciudad,Cantidad,Precio,Estado";
const char16_t* const kAnchos = u"10,24,12,9,9,10";
const char* const kHeaders[kColumns] = {"Código", "Cliente", "Ciudad", "Cantidad", "Precio", "Estado"};
const double kWidths[kColumns] = {10, 24, 12, 9, 9, 10};

const fs::path& benchFolder() {
    static const fs::path folder = [] {
        fs::path f = fs::temp_directory_path() / ("telvaro-exportbench-" + std::to_string(::getpid()));
        fs::create_directories(f);
        std::atexit([] { fs::remove_all(benchFolder()); });
        return f;
    }();
    return folder;
}

const fs::path& databaseFile() {
    static const fs::path file = [] {
        fs::path path = benchFolder() / "ventas.db";
        sqlite3* db = nullptr;
        sqlite3_open(path.c_str(), &db);
        sqlite3_exec(db,
                     "CREATE TABLE ventas (codigo TEXT, cliente TEXT, ciudad TEXT, cantidad INTEGER, precio REAL, "
                     "estado TEXT);"
                     "WITH RECURSIVE n(i) AS (SELECT 0 UNION ALL SELECT i + 1 FROM n WHERE i < 99999) "
                     "INSERT INTO ventas SELECT 'C' || (100000 + i), 'Cliente número ' || i, "
                     "CASE i % 2 WHEN 1 THEN 'Quito' ELSE 'Guayaquil' END, i % 977, (i % 500) + 0.25, "
                     "CASE WHEN i % 3 THEN 'Activo' ELSE 'Inactivo' END FROM n;",
                     nullptr, nullptr, nullptr);
        sqlite3_close(db);
        return path;
    }();
    return file;
}

// The default platform whose data objects open the bench's database and
// whose spreadsheet writes into the bench's folder.
const Platform& benchPlatform() {
    static const Platform platform = [] {
        Platform p = defaultPlatform();
        data::DataServices services{[](StringView) { return databaseFile(); }};
        p.use(std::shared_ptr<ObjectFactory>(
            std::make_shared<FunctionObjectFactory>([services](StringView progId) -> ObjectRef {
                if (progId == u"Excel.Application") return host::makeSheetApplication(benchFolder() / "library");
                return data::createDataObject(progId, services);
            })));
        return p;
    }();
    return platform;
}

// The connection as the applications open it: with a client cursor (3) the
// recordset holds every row and counts them, so the boxes run to the last
// record; with the server cursor (the default) rows are read one at a time
// and the count is -1.
void exportThroughLibrary(bool clientCursor) {
    Fun fun(benchPlatform());
    ObjectRef connection = benchPlatform().objectFactory().create(u"ADODB.Connection");
    if (clientCursor) connection->put(u"CursorLocation", Variant(3));
    connection->call(u"Open", {Variant(String(u"Data Source=C:\\ventas.db"))});
    std::vector<Variant> args = {Variant(connection), Variant(String(kCampos)), Variant(String(kAnchos)),
                                 Variant(fromUtf8(kQuery)), Variant(String(u"Ventas del año"))};
    invoke(fun, "ExportExcelReg", args);
    for (const auto& file : host::takeExportReport().files) fs::remove(file.path);
}
void exportWithClientCursor() { exportThroughLibrary(true); }
void exportWithServerCursor() { exportThroughLibrary(false); }

void exportDirectly() {
    const fs::path path = benchFolder() / "direct.xlsx";
    std::string tmpdir = benchFolder().string();
    lxw_workbook* book = bench::openDirectWorkbook(path.string(), tmpdir);
    lxw_worksheet* page = workbook_add_worksheet(book, "Hoja1");
    lxw_format* title = workbook_add_format(book);
    format_set_bold(title);
    format_set_font_size(title, 14);
    lxw_format* header = bench::boxFormat(book, true, true, true);
    lxw_format* first = bench::boxFormat(book, true, false, false);
    lxw_format* middle = bench::boxFormat(book, false, false, false);
    lxw_format* last = bench::boxFormat(book, false, true, false);
    worksheet_set_column(page, 0, 0, 6, nullptr);
    for (int c = 0; c < kColumns; ++c) worksheet_set_column(page, c + 1, c + 1, kWidths[c], nullptr);
    worksheet_write_string(page, 1, 2, "Ventas del año", title);
    for (int c = 0; c < kColumns; ++c) worksheet_write_string(page, 3, c + 1, kHeaders[c], header);

    sqlite3* db = nullptr;
    sqlite3_open_v2(databaseFile().c_str(), &db, SQLITE_OPEN_READONLY, nullptr);
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v2(db, kQuery, -1, &statement, nullptr);
    int row = 0;
    while (sqlite3_step(statement) == SQLITE_ROW) {
        lxw_format* f = row == 0 ? first : middle;
        for (int c = 0; c < kColumns; ++c) {
            if (sqlite3_column_type(statement, c) == SQLITE_TEXT)
                worksheet_write_string(page, row + 4, c + 1,
                                       reinterpret_cast<const char*>(sqlite3_column_text(statement, c)), f);
            else
                worksheet_write_number(page, row + 4, c + 1, sqlite3_column_double(statement, c), f);
        }
        ++row;
    }
    sqlite3_finalize(statement);
    sqlite3_close(db);
    // The boxes run one empty row past the records.
    for (int c = 0; c < kColumns; ++c) worksheet_write_blank(page, row + 4, c + 1, last);
    workbook_close(book);
    fs::remove(path);
}

double residentMegabytes() {
    std::ifstream statm("/proc/self/statm");
    long pages = 0, resident = 0;
    statm >> pages >> resident;
    return static_cast<double>(resident) * static_cast<double>(::sysconf(_SC_PAGESIZE)) / (1024.0 * 1024.0);
}

// One export in a child process: its peak resident set in MB (0 when the
// child failed).
double childPeakMegabytes(void (*work)()) {
    std::fflush(nullptr);
    const pid_t child = ::fork();
    if (child == 0) {
        work();
        ::_exit(0);
    }
    int status = 0;
    struct rusage usage {};
    if (child < 0 || ::wait4(child, &status, 0, &usage) != child || !WIFEXITED(status) || WEXITSTATUS(status) != 0)
        return 0;
    return static_cast<double>(usage.ru_maxrss) / 1024.0;
}

void libraryExport(benchmark::State& state) {
    (void)databaseFile();
    // Memory first, while this process is still small: both sides measured
    // here, each in its own child of this process, so the ratio compares
    // like with like.
    const double base = residentMegabytes();
    const double library = childPeakMegabytes(&exportWithClientCursor);
    const double streamed = childPeakMegabytes(&exportWithServerCursor);
    const double direct = childPeakMegabytes(&exportDirectly);
    for (auto _ : state) exportWithClientCursor();
    state.SetItemsProcessed(state.iterations() * kRows);
    // The default cursor's export, once, for its time: without a count its
    // boxes are shorter and the progress bar stops at 100, so it is not the
    // direct side's work and stays out of the ratio.
    const auto started = std::chrono::steady_clock::now();
    exportWithServerCursor();
    state.counters["server_cursor_ms"] =
        std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - started).count();
    state.counters["parent_RSS_MB"] = base;
    state.counters["peak_RSS_MB"] = library;
    state.counters["direct_peak_RSS_MB"] = direct;
    state.counters["RSS_ratio"] = direct > 0 ? library / direct : 0;
    state.counters["server_cursor_peak_RSS_MB"] = streamed;
    state.counters["server_cursor_RSS_ratio"] = direct > 0 ? streamed / direct : 0;
    state.counters["growth_ratio"] = direct > base ? (library - base) / (direct - base) : 0;
}
BENCHMARK(libraryExport)->Name("ExportExcelReg_100000x6/library")->Unit(benchmark::kMillisecond);

void directExport(benchmark::State& state) {
    (void)databaseFile();
    for (auto _ : state) exportDirectly();
    state.SetItemsProcessed(state.iterations() * kRows);
}
BENCHMARK(directExport)->Name("ExportExcelReg_100000x6/direct")->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace telvaro

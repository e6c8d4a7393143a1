// Grid loading: RegLlenaGridRegSql filling a 100,000 x 6 grid from a query,
// a format code on every column, against the engine's own prepare/step loop
// writing the same formatted texts into the same grid through the same
// late-bound TextMatrix (the code a caller would write without the library).
#include <benchmark/benchmark.h>
#include <sqlite3.h>
#include <unistd.h>

#include <filesystem>

#include "context/fun.h"
#include "data/factory.h"
#include "frame/invoke.h"
#include "host/default_platform.h"
#include "objects/flex_grid.h"
#include "runtime/convert.h"
#include "runtime/format.h"

namespace telvaro {
namespace {

constexpr std::int32_t kRows = 100000;
const char* const kQuery = "SELECT id, nombre, precio, total, fecha, hora FROM ventas ORDER BY id";
const char16_t* const kCampos = u"id|000000, nombre|>, precio|N, total|N$, fecha|F, hora|HL";

const std::filesystem::path& salesFile() {
    static const std::filesystem::path file = [] {
        auto path =
            std::filesystem::temp_directory_path() / ("telvaro-gridbench-" + std::to_string(::getpid()) + ".db");
        sqlite3* db = nullptr;
        sqlite3_open(path.c_str(), &db);
        sqlite3_exec(db,
                     "CREATE TABLE ventas (id INTEGER PRIMARY KEY, nombre TEXT, precio REAL, total REAL, fecha TEXT, "
                     "hora TEXT);"
                     "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 100000) "
                     "INSERT INTO ventas SELECT i, 'Cliente número ' || i, (i % 1000) / 8.0, i * 1.25, "
                     "date('2024-01-01', '+' || (i % 365) || ' days'), "
                     "time('08:00:00', '+' || (i % 36000) || ' seconds') FROM n;",
                     nullptr, nullptr, nullptr);
        sqlite3_close(db);
        std::atexit([] { std::filesystem::remove(salesFile()); });
        return path;
    }();
    return file;
}

// The default platform whose data objects open the bench's database.
const Platform& salesPlatform() {
    static const Platform platform = [] {
        Platform p = defaultPlatform();
        data::DataServices services{[](StringView) { return salesFile(); }};
        p.use(std::shared_ptr<ObjectFactory>(std::make_shared<FunctionObjectFactory>(
            [services](StringView progId) { return data::createDataObject(progId, services); })));
        return p;
    }();
    return platform;
}

std::shared_ptr<objects::FlexGrid> salesGrid() { return std::make_shared<objects::FlexGrid>(u"grdVentas", 2, 7); }

void fillGridLibrary(benchmark::State& state) {
    Fun fun(salesPlatform());
    ObjectRef connection = salesPlatform().objectFactory().create(u"ADODB.Connection");
    connection->put(u"CursorLocation", Variant(3));
    connection->call(u"Open", {Variant(String(u"Data Source=C:\\ventas.db"))});
    auto grid = salesGrid();
    std::vector<Variant> args = {Variant(connection), Variant(ObjectRef(grid)), Variant(ascii(kQuery)),
                                 Variant(String(kCampos))};
    for (auto _ : state) {
        invoke(fun, std::string_view("RegLlenaGridRegSql"), args);
        benchmark::DoNotOptimize(grid->textMatrix(kRows, 6));
        state.PauseTiming();
        grid->clearCalls();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * kRows);
}
BENCHMARK(fillGridLibrary)->Name("RegLlenaGridRegSql 100000x6/library")->Unit(benchmark::kMillisecond);

void fillGridDirect(benchmark::State& state) {
    sqlite3* db = nullptr;
    sqlite3_open_v2(salesFile().c_str(), &db, SQLITE_OPEN_READWRITE, nullptr);
    auto grid = salesGrid();
    Object& object = *grid;
    const auto text = [](sqlite3_stmt* stmt, int col) {
        return Variant(String(static_cast<const char16_t*>(sqlite3_column_text16(stmt, col)),
                              static_cast<std::size_t>(sqlite3_column_bytes16(stmt, col)) / 2));
    };
    for (auto _ : state) {
        sqlite3_stmt* stmt = nullptr;
        sqlite3_prepare_v2(db, kQuery, -1, &stmt, nullptr);
        object.put(u"Rows", Variant(std::int32_t(1)));
        object.put(u"Rows", Variant(kRows + 1));
        std::int32_t row = 1;
        while (sqlite3_step(stmt) == SQLITE_ROW) {
            const String cells[] = {
                format(Variant(static_cast<std::int32_t>(sqlite3_column_int64(stmt, 0))), u"000000"),
                format(text(stmt, 1), u">"),
                format(Variant(sqlite3_column_double(stmt, 2)), u"##0.00"),
                u"$ " + format(Variant(sqlite3_column_double(stmt, 3)), u"##0.00"),
                format(Variant(toDate(text(stmt, 4))), u"dd/MM/yyyy"),
                format(Variant(toDate(text(stmt, 5))), u"Hh:Nn:ss"),
            };
            for (std::int32_t c = 0; c < 6; ++c)
                object.put(u"TextMatrix", {Variant(row), Variant(c + 1)}, Variant(cells[c]));
            ++row;
        }
        sqlite3_finalize(stmt);
        benchmark::DoNotOptimize(grid->textMatrix(kRows, 6));
        state.PauseTiming();
        grid->clearCalls();
        state.ResumeTiming();
    }
    sqlite3_close(db);
    state.SetItemsProcessed(state.iterations() * kRows);
}
BENCHMARK(fillGridDirect)->Name("RegLlenaGridRegSql 100000x6/direct")->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace telvaro

// Reading 100,000 rows through a client-side Recordset (late-bound moves and
// field reads, as the grid and list loaders make them) against the engine's
// own prepare/step loop over the same query; and what such a cursor holds
// in memory.
#include <benchmark/benchmark.h>
#include <sqlite3.h>
#include <sys/resource.h>

#include <filesystem>

#include "data/factory.h"
#include "data/recordset.h"
#include "runtime/convert.h"

namespace telvaro {
namespace {

constexpr int kRows = 100000;
const char* const kQuery = "SELECT id, nombre, saldo FROM clientes ORDER BY id";

// One database file for the run, in the temporary folder.
const std::filesystem::path& databaseFile() {
    static const std::filesystem::path file = [] {
        auto path = std::filesystem::temp_directory_path() / ("telvaro-bench-" + std::to_string(::getpid()) + ".db");
        sqlite3* db = nullptr;
        sqlite3_open(path.c_str(), &db);
        sqlite3_exec(db,
                     "CREATE TABLE clientes (id INTEGER, nombre TEXT, saldo REAL);"
                     "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 100000) "
                     "INSERT INTO clientes SELECT i, 'Cliente número ' || i, i * 1.25 FROM n;",
                     nullptr, nullptr, nullptr);
        sqlite3_close(db);
        std::atexit([] { std::filesystem::remove(databaseFile()); });
        return path;
    }();
    return file;
}

data::DataServices services() {
    return {[](StringView) { return databaseFile(); }};
}

ObjectRef openClientCursor() {
    ObjectRef connection = data::createDataObject(u"ADODB.Connection", services());
    connection->put(u"CursorLocation", Variant(3));
    connection->call(u"Open", {Variant(u"Data Source=C:\\bench.db")});
    ObjectRef rs = data::createDataObject(u"ADODB.Recordset", services());
    rs->call(u"Open", {Variant(ascii(kQuery)), Variant(connection), Variant(0), Variant(1), Variant(-1)});
    return rs;
}

void readRecordset(benchmark::State& state) {
    for (auto _ : state) {
        ObjectRef rs = openClientCursor();
        double total = 0;
        std::size_t chars = 0;
        while (!toBoolean(rs->get(u"EOF")).isTrue()) {
            total += toDouble(rs->get(u"", {Variant(0)}).get<ObjectRef>()->get(u"Value"));
            chars += rs->get(u"", {Variant(1)}).get<ObjectRef>()->get(u"Value").get<String>().size();
            total += toDouble(rs->get(u"", {Variant(2)}).get<ObjectRef>()->get(u"Value"));
            rs->call(u"MoveNext");
        }
        benchmark::DoNotOptimize(total);
        benchmark::DoNotOptimize(chars);
    }
    state.SetItemsProcessed(state.iterations() * kRows);
}
BENCHMARK(readRecordset)->Name("100000 rows, client cursor/library")->Unit(benchmark::kMillisecond);

void readDirect(benchmark::State& state) {
    for (auto _ : state) {
        sqlite3* db = nullptr;
        sqlite3_open_v2(databaseFile().c_str(), &db, SQLITE_OPEN_READWRITE, nullptr);
        sqlite3_stmt* stmt = nullptr;
        sqlite3_prepare_v2(db, kQuery, -1, &stmt, nullptr);
        double total = 0;
        std::size_t chars = 0;
        while (sqlite3_step(stmt) == SQLITE_ROW) {
            total += static_cast<double>(sqlite3_column_int64(stmt, 0));
            String name(static_cast<const char16_t*>(sqlite3_column_text16(stmt, 1)),
                        static_cast<std::size_t>(sqlite3_column_bytes16(stmt, 1)) / 2);
            chars += name.size();
            total += sqlite3_column_double(stmt, 2);
        }
        sqlite3_finalize(stmt);
        sqlite3_close(db);
        benchmark::DoNotOptimize(total);
        benchmark::DoNotOptimize(chars);
    }
    state.SetItemsProcessed(state.iterations() * kRows);
}
BENCHMARK(readDirect)->Name("100000 rows, client cursor/direct")->Unit(benchmark::kMillisecond);

long peakKilobytes() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss;
}

// The bytes the cursor's row store holds for the 100,000 rows, and the
// growth of the process's peak resident size while one is opened (the
// first opening in the run; 0 when an earlier benchmark already reached
// that peak).
void cursorMemory(benchmark::State& state) {
    databaseFile();
    const long before = peakKilobytes();
    std::size_t held = 0;
    for (auto _ : state) {
        ObjectRef rs = openClientCursor();
        held = std::static_pointer_cast<data::Recordset>(rs)->state()->cursor->memoryUsed();
    }
    state.counters["rows"] = kRows;
    state.counters["store_MB"] = static_cast<double>(held) / (1024.0 * 1024.0);
    state.counters["peak_growth_MB"] = static_cast<double>(peakKilobytes() - before) / 1024.0;
}
BENCHMARK(cursorMemory)->Name("100000-row client cursor memory")->Iterations(1)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace telvaro

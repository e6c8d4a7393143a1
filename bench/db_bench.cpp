// The database methods against the engine's own loop doing the same work:
// a list of 100,000 clients filled by regCargaListaSQL against a
// prepare/step loop making the same AddItem calls on the same list, and one
// value by regDevuelveDatoCampoSQL against prepare/step/finalize.
#include <benchmark/benchmark.h>
#include <sqlite3.h>
#include <unistd.h>

#include <filesystem>

#include "context/fun.h"
#include "data/factory.h"
#include "frame/invoke.h"
#include "host/default_platform.h"
#include "objects/list_control.h"

namespace telvaro {
namespace {

constexpr int kRows = 100000;
const char* const kListQuery = "SELECT id, nombre FROM clientes ORDER BY id";
const char* const kOneValue = "SELECT nombre FROM clientes WHERE id = 50000";

const std::filesystem::path& databaseFile() {
    static const std::filesystem::path file = [] {
        auto path = std::filesystem::temp_directory_path() / ("telvaro-dbbench-" + std::to_string(::getpid()) + ".db");
        sqlite3* db = nullptr;
        sqlite3_open(path.c_str(), &db);
        sqlite3_exec(db,
                     "CREATE TABLE clientes (id INTEGER PRIMARY KEY, nombre TEXT);"
                     "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 100000) "
                     "INSERT INTO clientes SELECT i, 'Cliente número ' || i FROM n;",
                     nullptr, nullptr, nullptr);
        sqlite3_close(db);
        std::atexit([] { std::filesystem::remove(databaseFile()); });
        return path;
    }();
    return file;
}

// The default platform whose data objects open the bench's database.
const Platform& benchPlatform() {
    static const Platform platform = [] {
        Platform p = defaultPlatform();
        data::DataServices services{[](StringView) { return databaseFile(); }};
        p.use(std::shared_ptr<ObjectFactory>(std::make_shared<FunctionObjectFactory>(
            [services](StringView progId) { return data::createDataObject(progId, services); })));
        return p;
    }();
    return platform;
}

ObjectRef clientConnection() {
    ObjectRef connection = benchPlatform().objectFactory().create(u"ADODB.Connection");
    connection->put(u"CursorLocation", Variant(3));
    connection->call(u"Open", {Variant(String(u"Data Source=C:\\bench.db"))});
    return connection;
}

void loadListLibrary(benchmark::State& state) {
    Fun fun(benchPlatform());
    const ObjectRef connection = clientConnection();
    auto list = std::make_shared<objects::ListControl>(objects::ListControl::Kind::ListBox, u"lstClientes");
    std::vector<Variant> args = {Variant(connection), Variant(ascii(kListQuery)), Variant(ObjectRef(list)),
                                 Variant(String(u"nombre"))};
    for (auto _ : state) {
        invoke(fun, std::string_view("regCargaListaSQL"), args);
        benchmark::DoNotOptimize(list->listCount());
    }
    state.SetItemsProcessed(state.iterations() * kRows);
}
BENCHMARK(loadListLibrary)->Name("regCargaListaSQL/library")->Unit(benchmark::kMillisecond);

void loadListDirect(benchmark::State& state) {
    sqlite3* db = nullptr;
    sqlite3_open_v2(databaseFile().c_str(), &db, SQLITE_OPEN_READWRITE, nullptr);
    auto list = std::make_shared<objects::ListControl>(objects::ListControl::Kind::ListBox, u"lstClientes");
    const ObjectRef object = list;
    for (auto _ : state) {
        object->call(u"Clear");
        sqlite3_stmt* stmt = nullptr;
        sqlite3_prepare_v2(db, kListQuery, -1, &stmt, nullptr);
        while (sqlite3_step(stmt) == SQLITE_ROW) {
            String name(static_cast<const char16_t*>(sqlite3_column_text16(stmt, 1)),
                        static_cast<std::size_t>(sqlite3_column_bytes16(stmt, 1)) / 2);
            object->call(u"AddItem", {Variant(std::move(name))});
        }
        sqlite3_finalize(stmt);
        object->put(u"ListIndex", Variant(std::int32_t(0)));
        benchmark::DoNotOptimize(list->listCount());
    }
    sqlite3_close(db);
    state.SetItemsProcessed(state.iterations() * kRows);
}
BENCHMARK(loadListDirect)->Name("regCargaListaSQL/direct")->Unit(benchmark::kMillisecond);

void oneValueLibrary(benchmark::State& state) {
    Fun fun(benchPlatform());
    const ObjectRef connection = clientConnection();
    std::vector<Variant> args = {Variant(connection), Variant(ascii(kOneValue))};
    for (auto _ : state) benchmark::DoNotOptimize(invoke(fun, std::string_view("regDevuelveDatoCampoSQL"), args));
}
BENCHMARK(oneValueLibrary)->Name("regDevuelveDatoCampoSQL/library");

void oneValueDirect(benchmark::State& state) {
    sqlite3* db = nullptr;
    sqlite3_open_v2(databaseFile().c_str(), &db, SQLITE_OPEN_READWRITE, nullptr);
    for (auto _ : state) {
        sqlite3_stmt* stmt = nullptr;
        sqlite3_prepare_v2(db, kOneValue, -1, &stmt, nullptr);
        Variant value;
        if (sqlite3_step(stmt) == SQLITE_ROW) {
            value = Variant(String(static_cast<const char16_t*>(sqlite3_column_text16(stmt, 0)),
                                   static_cast<std::size_t>(sqlite3_column_bytes16(stmt, 0)) / 2));
        }
        sqlite3_finalize(stmt);
        benchmark::DoNotOptimize(value);
    }
    sqlite3_close(db);
}
BENCHMARK(oneValueDirect)->Name("regDevuelveDatoCampoSQL/direct");

}  // namespace
}  // namespace telvaro

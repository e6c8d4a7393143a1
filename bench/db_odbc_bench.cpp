// The database methods on a database server through ODBC, against the ODBC
// calls a program would make itself for the same work: the 100,000-client
// list of regCargaListaSQL against SQLExecDirect/SQLFetch/SQLGetData making
// the same AddItem calls, and one value of regDevuelveDatoCampoSQL against
// one statement executed and read. The server is the private PostgreSQL of
// the tests, started here on loopback.
#include <benchmark/benchmark.h>
#include <sql.h>
#include <sqlext.h>

#include <vector>

#include "context/fun.h"
#include "frame/invoke.h"
#include "host/default_platform.h"
#include "objects/list_control.h"
#include "runtime/convert.h"
#include "support/postgres_server.h"

namespace telvaro {
namespace {

using data::testing::PostgresServer;

constexpr int kRows = 100000;
const char* const kListQuery = "SELECT id, nombre FROM clientes ORDER BY id";
const char* const kOneValue = "SELECT nombre FROM clientes WHERE id = 50000";

// The server with its table, made once; empty when it could not start.
const String& serverConnectionString() {
    static const String connectionString = []() -> String {
        auto& server = PostgresServer::instance();
        if (!server.ready()) return {};
        ObjectRef connection = defaultPlatform().objectFactory().create(u"ADODB.Connection");
        connection->call(u"Open", {Variant(server.connectionString())});
        connection->call(u"Execute", {Variant(u"DROP TABLE IF EXISTS clientes")});
        connection->call(u"Execute", {Variant(u"CREATE TABLE clientes (id INTEGER PRIMARY KEY, nombre TEXT)")});
        connection->call(u"Execute", {Variant(u"INSERT INTO clientes SELECT i, 'Cliente número ' || i "
                                              u"FROM generate_series(1, 100000) AS i")});
        connection->call(u"Close");
        return server.connectionString();
    }();
    return connectionString;
}

bool serverMissing(benchmark::State& state) {
    if (!serverConnectionString().empty()) return false;
    state.SkipWithError(("PostgreSQL did not start: " + PostgresServer::instance().failure()).c_str());
    return true;
}

ObjectRef clientConnection() {
    ObjectRef connection = defaultPlatform().objectFactory().create(u"ADODB.Connection");
    connection->put(u"CursorLocation", Variant(3));
    connection->call(u"Open", {Variant(serverConnectionString())});
    return connection;
}

// A connection of the program's own: environment, connection, statement.
struct OdbcHandles {
    SQLHENV environment = SQL_NULL_HENV;
    SQLHDBC connection = SQL_NULL_HDBC;
    OdbcHandles() {
        SQLAllocHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE, &environment);
        SQLSetEnvAttr(environment, SQL_ATTR_ODBC_VERSION, reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3), 0);
        SQLAllocHandle(SQL_HANDLE_DBC, environment, &connection);
        const std::string text = toUtf8(serverConnectionString());
        SQLDriverConnect(connection, nullptr, reinterpret_cast<SQLCHAR*>(const_cast<char*>(text.c_str())), SQL_NTS,
                         nullptr, 0, nullptr, SQL_DRIVER_NOPROMPT);
    }
    ~OdbcHandles() {
        SQLDisconnect(connection);
        SQLFreeHandle(SQL_HANDLE_DBC, connection);
        SQLFreeHandle(SQL_HANDLE_ENV, environment);
    }
};

// Column `column` of the current row as text (UTF-16 from the driver).
String wideColumn(SQLHSTMT statement, SQLUSMALLINT column) {
    std::vector<SQLWCHAR> buffer(256);
    SQLLEN length = 0;
    SQLGetData(statement, column, SQL_C_WCHAR, buffer.data(), buffer.size() * sizeof(SQLWCHAR), &length);
    if (length == SQL_NULL_DATA) return {};
    return String(reinterpret_cast<const char16_t*>(buffer.data()), static_cast<std::size_t>(length) / 2);
}

void odbcListLibrary(benchmark::State& state) {
    if (serverMissing(state)) return;
    Fun fun(defaultPlatform());
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
BENCHMARK(odbcListLibrary)->Name("regCargaListaSQL over ODBC/library")->Unit(benchmark::kMillisecond);

void odbcListDirect(benchmark::State& state) {
    if (serverMissing(state)) return;
    OdbcHandles odbc;
    auto list = std::make_shared<objects::ListControl>(objects::ListControl::Kind::ListBox, u"lstClientes");
    const ObjectRef object = list;
    for (auto _ : state) {
        object->call(u"Clear");
        SQLHSTMT statement = SQL_NULL_HSTMT;
        SQLAllocHandle(SQL_HANDLE_STMT, odbc.connection, &statement);
        SQLExecDirect(statement, reinterpret_cast<SQLCHAR*>(const_cast<char*>(kListQuery)), SQL_NTS);
        while (SQL_SUCCEEDED(SQLFetch(statement))) object->call(u"AddItem", {Variant(wideColumn(statement, 2))});
        SQLFreeHandle(SQL_HANDLE_STMT, statement);
        object->put(u"ListIndex", Variant(std::int32_t(0)));
        benchmark::DoNotOptimize(list->listCount());
    }
    state.SetItemsProcessed(state.iterations() * kRows);
}
BENCHMARK(odbcListDirect)->Name("regCargaListaSQL over ODBC/direct")->Unit(benchmark::kMillisecond);

void odbcValueLibrary(benchmark::State& state) {
    if (serverMissing(state)) return;
    Fun fun(defaultPlatform());
    const ObjectRef connection = clientConnection();
    std::vector<Variant> args = {Variant(connection), Variant(ascii(kOneValue))};
    for (auto _ : state) benchmark::DoNotOptimize(invoke(fun, std::string_view("regDevuelveDatoCampoSQL"), args));
}
BENCHMARK(odbcValueLibrary)->Name("regDevuelveDatoCampoSQL over ODBC/library")->Unit(benchmark::kMicrosecond);

void odbcValueDirect(benchmark::State& state) {
    if (serverMissing(state)) return;
    OdbcHandles odbc;
    for (auto _ : state) {
        SQLHSTMT statement = SQL_NULL_HSTMT;
        SQLAllocHandle(SQL_HANDLE_STMT, odbc.connection, &statement);
        SQLExecDirect(statement, reinterpret_cast<SQLCHAR*>(const_cast<char*>(kOneValue)), SQL_NTS);
        Variant value;
        if (SQL_SUCCEEDED(SQLFetch(statement))) value = Variant(wideColumn(statement, 1));
        SQLFreeHandle(SQL_HANDLE_STMT, statement);
        benchmark::DoNotOptimize(value);
    }
}
BENCHMARK(odbcValueDirect)->Name("regDevuelveDatoCampoSQL over ODBC/direct")->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace telvaro

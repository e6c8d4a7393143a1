// The same queries on the embedded engine and on PostgreSQL through ODBC:
// the values and field types each gives, where they differ, and how a
// database's failures reach the caller.
#include <gtest/gtest.h>

#include <chrono>
#include <fstream>

#include "data/connection.h"
#include "data/errors.h"
#include "data/prepared.h"
#include "data_support.h"
#include "runtime/datetime.h"
#include "runtime/text.h"

namespace telvaro::data::testing {
namespace {

namespace fs = std::filesystem;

enum class Provider { Embedded, Postgres };

const char* nameOf(Provider p) { return p == Provider::Embedded ? "embedded" : "PostgreSQL"; }

ObjectRef connect(Provider provider, std::int32_t location) {
    ObjectRef connection = create(u"ADODB.Connection");
    connection->put(u"CursorLocation", Variant(location));
    if (provider == Provider::Embedded) {
        connection->call(u"Open", {Variant(u":memory:")});
    } else {
        auto& server = PostgresServer::instance();
        if (!server.ready()) throw std::runtime_error("PostgreSQL is not running: " + server.failure());
        connection->call(u"Open", {Variant(server.connectionString())});
    }
    return connection;
}

struct ValueCase {
    const char* what;
    const char16_t* embeddedSql;
    const char16_t* postgresSql;  // nullptr: the same statement
    Variant embedded;
    DataType embeddedType;
    Variant postgres;
    DataType postgresType;
};

Variant dec(const char* text) { return Variant(*Decimal::parse(ascii(text))); }
Variant blob(std::vector<std::uint8_t> b) {
    Array a = Array::vector(0, static_cast<std::int32_t>(b.size()) - 1, VarType::Byte);
    for (std::size_t i = 0; i < b.size(); ++i) a.elements()[i] = Variant(b[i]);
    return Variant(std::move(a));
}

std::vector<ValueCase> valueCases() {
    const Date leapDay{dateSerial(2024, 2, 29)};
    return {
        {"integer", u"SELECT 42", nullptr, Variant(42), DataType::Integer, Variant(42), DataType::Integer},
        {"integer beyond Long", u"SELECT 3000000000", nullptr, Variant(3000000000.0), DataType::Integer,
         dec("3000000000"), DataType::BigInt},
        {"floating", u"SELECT CAST(1.5 AS REAL)", nullptr, Variant(1.5), DataType::Double, Variant(1.5),
         DataType::Single},
        {"exact number", u"SELECT 12.50", nullptr, Variant(12.5), DataType::Double, dec("12.50"), DataType::Numeric},
        {"text", u"SELECT 'Año ñandú'", nullptr, Variant(u"Año ñandú"), DataType::VarWChar, Variant(u"Año ñandú"),
         DataType::LongVarWChar},
        {"NULL", u"SELECT NULL", nullptr, Variant(Null{}), DataType::VarWChar, Variant(Null{}), DataType::LongVarWChar},
        {"count", u"SELECT COUNT(*) FROM (SELECT 1 UNION ALL SELECT 2) AS v", nullptr, Variant(2), DataType::Integer,
         Variant(2), DataType::BigInt},
        {"maximum of no rows", u"SELECT MAX(x) FROM (SELECT 1 AS x) AS v WHERE x > 5", nullptr, Variant(Null{}),
         DataType::VarWChar, Variant(Null{}), DataType::Integer},
        {"small integer", u"SELECT CAST(5 AS SMALLINT)", nullptr, Variant(5), DataType::Integer,
         Variant(std::int16_t(5)), DataType::SmallInt},
        {"binary", u"SELECT x'00ff41'", u"SELECT '\\x00ff41'::bytea", blob({0, 255, 65}), DataType::LongVarBinary,
         blob({0, 255, 65}), DataType::LongVarBinary},
        {"long text, read in pieces", u"SELECT replace(hex(zeroblob(5000)), '00', 'ñ')", u"SELECT repeat('ñ', 5000)",
         Variant(String(5000, u'ñ')), DataType::VarWChar, Variant(String(5000, u'ñ')), DataType::LongVarWChar},
        {"date", u"SELECT '2024-02-29'", u"SELECT DATE '2024-02-29'", Variant(u"2024-02-29"), DataType::VarWChar,
         Variant(leapDay), DataType::DBDate},
        {"date and time", u"SELECT '2024-02-29 13:45:30'", u"SELECT TIMESTAMP '2024-02-29 13:45:30'",
         Variant(u"2024-02-29 13:45:30"), DataType::VarWChar,
         Variant(Date{dateTimeSerial(leapDay.serial, (13 * 3600 + 45 * 60 + 30) / 86400.0)}), DataType::DBTimeStamp},
    };
}

void checkValues(Provider provider) {
    ObjectRef connection = connect(provider, 3);
    for (const auto& c : valueCases()) {
        const bool pg = provider == Provider::Postgres;
        const String sql = pg && c.postgresSql ? c.postgresSql : c.embeddedSql;
        const Variant& expected = pg ? c.postgres : c.embedded;
        try {
            ObjectRef rs = openRecordset(connection, sql);
            const ObjectRef field = rs->get(u"Fields", {Variant(0)}).get<ObjectRef>();
            const Variant got = field->get(u"Value");
            EXPECT_TRUE(identical(got, expected)) << nameOf(provider) << ", " << c.what << ": " << describe(got);
            EXPECT_EQ(toLong(field->get(u"Type")), static_cast<std::int32_t>(pg ? c.postgresType : c.embeddedType))
                << nameOf(provider) << ", " << c.what;
        } catch (const RuntimeError& e) {
            ADD_FAILURE() << nameOf(provider) << ", " << c.what << ": " << e.what();
        }
    }
}

TEST(Providers, ValuesOnTheEmbeddedEngine) { checkValues(Provider::Embedded); }
TEST(Providers, ValuesOnPostgres) { checkValues(Provider::Postgres); }

struct FailureCase {
    const char* what;
    const char16_t* sql;
    const char16_t* mentioned;  // a part of the database's message
};

const FailureCase kFailures[] = {
    {"unknown table", u"SELECT * FROM no_existe", u"no_existe"},
    {"misspelt keyword", u"SELEC 1", u"SELEC"},
    {"condition left empty", u"SELECT MAX(x) AS UCodi FROM (SELECT 1 AS x) AS v WHERE ", u""},
};

void checkFailures(Provider provider) {
    ObjectRef connection = connect(provider, 3);
    for (const auto& c : kFailures) {
        ObjectRef rs = create(u"ADODB.Recordset");
        try {
            rs->call(u"Open", {Variant(c.sql), Variant(connection), Variant(0), Variant(1), Variant(-1)});
            ADD_FAILURE() << nameOf(provider) << ", " << c.what << ": no error";
        } catch (const RuntimeError& e) {
            EXPECT_EQ(e.number(), ado::ErrorsInCommand) << nameOf(provider) << ", " << c.what;
            EXPECT_NE(e.description().find(c.mentioned), String::npos) << nameOf(provider) << ", " << e.what();
            EXPECT_NE(e.description().find(u"[SQL: " + String(c.sql) + u"]"), String::npos) << e.what();
        }
        EXPECT_EQ(toLong(rs->get(u"State")), 0) << nameOf(provider) << ", " << c.what;
    }
    // The connection goes on serving after its failures.
    EXPECT_TRUE(identical(openRecordset(connection, u"SELECT 1")->get(u"", {Variant(0)}).get<ObjectRef>()->get(u""),
                          Variant(1)));
}

TEST(Providers, FailuresOnTheEmbeddedEngine) { checkFailures(Provider::Embedded); }
TEST(Providers, FailuresOnPostgres) { checkFailures(Provider::Postgres); }

// A failure after the first rows: while loading a client cursor, or on the
// move that reaches the failing row of a server cursor.
TEST(Providers, AFailureInTheMiddleOfTheRows) {
    const String sql =
        u"SELECT CASE WHEN x < 2 THEN x ELSE abs(-9223372036854775807 - 1) END FROM "
        u"(SELECT 1 AS x UNION ALL SELECT 2)";
    ObjectRef client = create(u"ADODB.Recordset");
    EXPECT_EQ(errorNumberOf([&] {
                  client->call(u"Open", {Variant(sql), Variant(connect(Provider::Embedded, 3))});
              }),
              ado::ErrorsInCommand);
    EXPECT_EQ(toLong(client->get(u"State")), 0);
    ObjectRef server = openRecordset(connect(Provider::Embedded, 2), sql);
    EXPECT_TRUE(identical(server->get(u"", {Variant(0)}).get<ObjectRef>()->get(u""), Variant(1)));
    EXPECT_EQ(errorNumberOf([&] { server->call(u"MoveNext"); }), ado::ErrorsInCommand);
    EXPECT_TRUE(toBoolean(server->get(u"EOF")).isTrue());
}

TEST(Providers, CursorsOnPostgresCountAsOnTheEmbeddedEngine) {
    for (Provider provider : {Provider::Embedded, Provider::Postgres}) {
        for (std::int32_t location : {2, 3}) {
            ObjectRef connection = connect(provider, location);
            connection->call(u"Execute", {Variant(u"CREATE TEMPORARY TABLE t (id INTEGER, nombre VARCHAR(20))")});
            std::vector<Variant> args = {Variant(u"INSERT INTO t VALUES (1, 'uno'), (2, 'dos'), (3, 'tres')"),
                                         Variant(0)};
            connection->invoke(u"Execute", InvokeKind::Method, args);
            EXPECT_TRUE(identical(args[1], Variant(3))) << nameOf(provider);
            ObjectRef rs = openRecordset(connection, u"SELECT id, nombre FROM t ORDER BY id");
            const std::string label = std::string(nameOf(provider)) + " at " + std::to_string(location);
            EXPECT_EQ(toLong(rs->get(u"RecordCount")), location == 3 ? 3 : -1) << label;
            rs->call(u"MoveNext");
            EXPECT_TRUE(identical(rs->get(u"", {Variant(u"NOMBRE")}).get<ObjectRef>()->get(u""), Variant(u"dos")))
                << label;
            EXPECT_EQ(errorNumberOf([&] { rs->call(u"MovePrevious"); }), location == 3 ? 0 : ado::CannotFetchBackwards)
                << label;
            rs->call(u"Close");
            connection->call(u"Close");
        }
    }
}

TEST(Providers, AStatementRunningPastTheCommandTimeoutIsStopped) {
    struct Case {
        Provider provider;
        std::chrono::milliseconds timeout;
        const char16_t* sql;
    };
    const Case cases[] = {
        {Provider::Embedded, std::chrono::milliseconds(200),
         u"WITH RECURSIVE c(x) AS (SELECT 1 UNION ALL SELECT x + 1 FROM c) SELECT COUNT(*) FROM c"},
        {Provider::Postgres, std::chrono::milliseconds(1000), u"SELECT pg_sleep(20)"},
    };
    for (const auto& c : cases) {
        ObjectRef connection = connect(c.provider, 3);
        std::static_pointer_cast<Connection>(connection)->setCommandTimeout(c.timeout);
        EXPECT_EQ(errorNumberOf([&] { openRecordset(connection, c.sql); }), ado::QueryTimeout) << nameOf(c.provider);
        EXPECT_TRUE(identical(openRecordset(connection, u"SELECT 1")->get(u"", {Variant(0)}).get<ObjectRef>()->get(u""),
                              Variant(1)))
            << nameOf(c.provider) << ": the connection goes on serving";
    }
}

TEST(Providers, ConnectionsThatCannotOpen) {
    const auto& server = PostgresServer::instance();
    ASSERT_TRUE(server.ready()) << server.failure();
    struct Case {
        const char* what;
        String connection;
        int error;
    };
    const Case cases[] = {
        {"a port nobody listens on",
         u"Driver={PostgreSQL Unicode};Server=127.0.0.1;Port=9;Database=postgres;Uid=postgres;", ado::ProviderFailure},
        {"an unknown driver", u"Driver={No Existe};Server=127.0.0.1;", ado::ProviderFailure},
        {"a driver given as a file", u"Driver=/tmp/libmalo.so;Server=x;", ado::InvalidArgument},
        {"a file data source", u"odbc:FILEDSN=/etc/passwd;", ado::InvalidArgument},
        {"a file in a missing folder", u"Data Source=C:\\falta\\datos.db", ado::ProviderFailure},
    };
    for (const auto& c : cases) {
        ObjectRef connection = create(u"ADODB.Connection");
        try {
            connection->call(u"Open", {Variant(c.connection)});
            ADD_FAILURE() << c.what << ": opened";
        } catch (const RuntimeError& e) {
            EXPECT_EQ(e.number(), c.error) << c.what << ": " << e.what();
            EXPECT_FALSE(e.description().empty()) << c.what;
        }
        EXPECT_EQ(toLong(connection->get(u"State")), 0) << c.what;
    }
}

TEST(Providers, AUserAndPasswordGivenApartGoWithTheServersString) {
    const auto& server = PostgresServer::instance();
    ASSERT_TRUE(server.ready()) << server.failure();
    const String anonymous = replaceText(server.connectionString(), u"Uid=postgres;", u"");
    struct Case {
        const char16_t* user;
        int error;
    };
    // A user name cannot smuggle in other keys of the string.
    const Case cases[] = {{u"postgres", 0}, {u"nadie;Uid=postgres", ado::ProviderFailure}};
    for (const auto& c : cases) {
        ObjectRef connection = create(u"ADODB.Connection");
        EXPECT_EQ(errorNumberOf([&] {
                      connection->call(u"Open", {Variant(anonymous), Variant(c.user), Variant(u"")});
                  }),
                  c.error)
            << toUtf8(c.user);
        EXPECT_EQ(connection->get(u"ConnectionString").get<String>(), anonymous) << "the password is not kept";
    }
}

TEST(Providers, AnEmbeddedDatabaseReachesNoOtherFile) {
    ObjectRef connection = create(u"ADODB.Connection");
    fs::create_directories(driveFile(u"C:\\datos"));
    connection->call(u"Open", {Variant(u"Data Source=C:\\datos\\ventas.db")});
    connection->call(u"Execute", {Variant(u"CREATE TABLE v (x)")});
    EXPECT_TRUE(fs::exists(driveFile(u"C:\\datos\\ventas.db")));
    const String outside = ascii((fs::temp_directory_path() / "telvaro-escape.db").string());
    const String statements[] = {u"ATTACH DATABASE '" + outside + u"' AS otra", u"VACUUM INTO '" + outside + u"'",
                                 u"SELECT load_extension('/tmp/x')"};
    for (const auto& sql : statements) {
        EXPECT_EQ(errorNumberOf([&] { connection->call(u"Execute", {Variant(sql)}); }), ado::ErrorsInCommand)
            << toUtf8(sql);
    }
    EXPECT_FALSE(fs::exists(toUtf8(outside)));
}

TEST(Providers, PreparedConnectionsRunTheirSetupOnEitherEngine) {
    const auto& server = PostgresServer::instance();
    ASSERT_TRUE(server.ready()) << server.failure();
    for (const String& database : {String(u":memory:"), u"odbc:" + server.connectionString()}) {
        ConnectionRequest request{
            database, {u"CREATE TEMPORARY TABLE p (c INTEGER)", u"INSERT INTO p VALUES (4), (5)"}, 3};
        ObjectRef connection = openPreparedConnection(request, homeServices());
        ObjectRef rs = openPreparedRecordset(connection, u"SELECT c FROM p ORDER BY c", 0, 2, homeServices());
        const RecordsetReport report = describeRecordset(*rs);
        EXPECT_EQ(report.position, 2) << toUtf8(database);
        EXPECT_EQ(report.recordCount, 2);
        ASSERT_EQ(report.fields.size(), 1u);
        EXPECT_TRUE(identical(report.fields[0].second, Variant(5))) << toUtf8(database);
        request.setup.push_back(u"INSERT INTO no_existe VALUES (1)");
        EXPECT_EQ(errorNumberOf([&] { openPreparedConnection(request, homeServices()); }), ado::ErrorsInCommand);
    }
}

}  // namespace
}  // namespace telvaro::data::testing

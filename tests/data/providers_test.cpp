// The same queries on the embedded engine and on PostgreSQL through ODBC:
// the values and field types each gives, and how failures reach the caller.
#include <gtest/gtest.h>

#include "data/connection.h"
#include "data/errors.h"
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
        const ObjectRef field = openRecordset(connection, sql)->get(u"Fields", {Variant(0)}).get<ObjectRef>();
        const Variant got = field->get(u"Value");
        EXPECT_TRUE(identical(got, expected)) << nameOf(provider) << ", " << c.what << ": " << describe(got);
        EXPECT_EQ(toLong(field->get(u"Type")), static_cast<std::int32_t>(pg ? c.postgresType : c.embeddedType))
            << nameOf(provider) << ", " << c.what;
    }
    // A failure: the statement follows the database's message.
    const String sql = u"SELECT * FROM no_existe";
    ObjectRef rs = create(u"ADODB.Recordset");
    try {
        rs->call(u"Open", {Variant(sql), Variant(connection), Variant(0), Variant(1), Variant(-1)});
        ADD_FAILURE() << nameOf(provider) << ": no error";
    } catch (const RuntimeError& e) {
        EXPECT_EQ(e.number(), ado::ErrorsInCommand) << nameOf(provider);
        EXPECT_NE(e.description().find(u"[SQL: " + sql + u"]"), String::npos) << e.what();
    }
    EXPECT_EQ(toLong(rs->get(u"State")), 0) << nameOf(provider);
    // The connection goes on serving after its failures.
    EXPECT_TRUE(identical(openRecordset(connection, u"SELECT 1")->get(u"", {Variant(0)}).get<ObjectRef>()->get(u""),
                          Variant(1)));
}

TEST(Providers, ValuesAndFailuresOnTheEmbeddedEngine) { checkValues(Provider::Embedded); }
TEST(Providers, ValuesAndFailuresOnPostgres) { checkValues(Provider::Postgres); }

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
        }
    }
}

TEST(Providers, ConnectionsThatCannotOpen) {
    const auto& server = PostgresServer::instance();
    ASSERT_TRUE(server.ready()) << server.failure();
    const std::tuple<const char*, String, int> cases[] = {
        {"a port nobody listens on",
         u"Driver={PostgreSQL Unicode};Server=127.0.0.1;Port=9;Database=postgres;Uid=postgres;", ado::ProviderFailure},
        {"a driver given as a file", u"Driver=/tmp/libmalo.so;Server=x;", ado::InvalidArgument},
        {"a file in a missing folder", u"Data Source=C:\\falta\\datos.db", ado::ProviderFailure},
    };
    for (const auto& [what, text, error] : cases) {
        ObjectRef connection = create(u"ADODB.Connection");
        EXPECT_EQ(errorNumberOf([&] { connection->call(u"Open", {Variant(text)}); }), error) << what;
        EXPECT_EQ(toLong(connection->get(u"State")), 0) << what;
    }
    // A user and password given apart go with the string; a user name cannot smuggle in other keys.
    const String anonymous = replaceText(server.connectionString(), u"Uid=postgres;", u"");
    for (const auto& [user, error] : {std::pair{u"postgres", 0}, {u"nadie;Uid=postgres", ado::ProviderFailure}}) {
        ObjectRef connection = create(u"ADODB.Connection");
        EXPECT_EQ(errorNumberOf([&] {
                      connection->call(u"Open", {Variant(anonymous), Variant(user), Variant(u"")});
                  }),
                  error)
            << toUtf8(user);
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

}  // namespace
}  // namespace telvaro::data::testing

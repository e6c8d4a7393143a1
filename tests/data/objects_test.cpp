// The members of Connection, Recordset, Fields and Field as a late-bound
// caller reaches them: names without regard to case, the default members,
// the errors of closed objects and of members they do not have.
#include <gtest/gtest.h>

#include "data/data_types.h"
#include "data/errors.h"
#include "data/factory.h"
#include "data_support.h"

namespace telvaro::data::testing {
namespace {

const std::vector<String> kPeople = {
    u"CREATE TABLE personas (codigo INTEGER, nombre TEXT, saldo REAL, foto BLOB, nota TEXT)",
    u"INSERT INTO personas VALUES (7, 'Año Nuevo', 12.5, x'0102FF', NULL), (8, 'Quito', -1, NULL, 'x')",
};

ObjectRef field(const ObjectRef& rs, const Variant& index) { return rs->get(u"Fields", {index}).get<ObjectRef>(); }

TEST(Objects, MembersAreFoundWithoutRegardToCaseAndUnknownOnesAre438) {
    ObjectRef connection = memoryConnection(kPeople, 3);
    ObjectRef rs = openRecordset(connection, u"SELECT * FROM personas ORDER BY codigo");
    EXPECT_EQ(toLong(rs->get(u"recordcount")), 2);
    rs->call(u"MOVENEXT");
    EXPECT_TRUE(identical(field(rs, Variant(u"CODIGO"))->get(u"vALUE"), Variant(8)));
    const ObjectRef fields = rs->get(u"Fields").get<ObjectRef>();
    const ObjectRef objects[] = {connection, rs, fields, field(rs, Variant(0)), create(u"ADODB.Stream")};
    for (const auto& object : objects) {
        EXPECT_EQ(errorNumberOf([&] { object->get(u"AddNew"); }), err::ObjectDoesNotSupport)
            << toUtf8(object->typeName());
        EXPECT_EQ(errorNumberOf([&] { object->call(u"Requery"); }), err::ObjectDoesNotSupport)
            << toUtf8(object->typeName());
    }
    // Read-only members refuse assignment the same way.
    EXPECT_EQ(errorNumberOf([&] { rs->put(u"RecordCount", Variant(1)); }), err::ObjectDoesNotSupport);
    EXPECT_EQ(errorNumberOf([&] { rs->call(u"MoveNext", {Variant(1)}); }), err::WrongNumberOfArguments);
}

TEST(Objects, FieldsByOrdinalByNameAndAsTheDefaultMember) {
    ObjectRef rs = openRecordset(memoryConnection(kPeople, 3), u"SELECT * FROM personas ORDER BY codigo");
    struct Case {
        Variant index;
        Variant value;
        int error;
    };
    // clang-format off
    const Case cases[] = {
        {Variant(0), Variant(7), 0}, {Variant(std::int16_t(1)), Variant(u"Año Nuevo"), 0},
        {Variant(2.0), Variant(12.5), 0}, {Variant(u"NOTA"), Variant(Null{}), 0}, {Variant(5), {}, ado::ItemNotFound},
        {Variant(-1), {}, ado::ItemNotFound}, {Variant(0.5), {}, ado::ItemNotFound},
        {Variant(u"apellido"), {}, ado::ItemNotFound},
    };
    // clang-format on
    for (const auto& c : cases) {
        // rs.Fields(i), rs(i) and rs.Fields.Item(i) name the same field.
        const int e1 =
            errorNumberOf([&] { EXPECT_TRUE(identical(field(rs, c.index)->get(u""), c.value)) << describe(c.index); });
        const int e2 = errorNumberOf([&] {
            EXPECT_TRUE(identical(rs->get(u"", {c.index}).get<ObjectRef>()->get(u"Value"), c.value))
                << describe(c.index);
        });
        const int e3 = errorNumberOf([&] {
            const ObjectRef fields = rs->get(u"Fields").get<ObjectRef>();
            EXPECT_TRUE(identical(fields->get(u"Item", {c.index}).get<ObjectRef>()->get(u"Value"), c.value));
        });
        EXPECT_EQ(e1, c.error) << describe(c.index);
        EXPECT_EQ(e2, c.error) << describe(c.index);
        EXPECT_EQ(e3, c.error) << describe(c.index);
    }
    EXPECT_EQ(toLong(rs->get(u"Fields").get<ObjectRef>()->get(u"Count")), 5);
    // A Field converts to its value, as callers pass rs(0) on.
    EXPECT_EQ(toString(Variant(field(rs, Variant(1)))), u"Año Nuevo");
}

TEST(Objects, FieldNamesTypesAndSizes) {
    ObjectRef rs = openRecordset(memoryConnection(kPeople, 3),
                                 u"SELECT codigo, nombre, saldo, foto, nota, "
                                 u"codigo * 2 AS doble, 3000000000 AS grande FROM personas");
    struct Case {
        std::int32_t ordinal;
        const char16_t* name;
        DataType type;
        std::int32_t size;
        Variant value;
    };
    const Case cases[] = {
        {0, u"codigo", DataType::Integer, 4, Variant(7)},
        {1, u"nombre", DataType::VarWChar, 18, Variant(u"Año Nuevo")},
        {2, u"saldo", DataType::Double, 8, Variant(12.5)},
        {3, u"foto", DataType::LongVarBinary, 3, {}},
        {4, u"nota", DataType::VarWChar, 0, Variant(Null{})},
        {6, u"grande", DataType::Integer, 8, Variant(3000000000.0)},
    };
    for (const auto& c : cases) {
        const ObjectRef f = field(rs, Variant(c.ordinal));
        EXPECT_EQ(f->get(u"Name").get<String>(), c.name);
        EXPECT_EQ(toLong(f->get(u"Type")), static_cast<std::int32_t>(c.type)) << toUtf8(c.name);
        EXPECT_EQ(toLong(f->get(u"ActualSize")), c.size) << toUtf8(c.name);
        if (!c.value.isEmpty()) {
            EXPECT_TRUE(identical(f->get(u"Value"), c.value)) << toUtf8(c.name);
        }
    }
}

TEST(Objects, AFieldReadsTheCurrentRecordOfItsRecordset) {
    ObjectRef connection = memoryConnection(kPeople, 3);
    ObjectRef rs = openRecordset(connection, u"SELECT codigo FROM personas ORDER BY codigo");
    const ObjectRef code = field(rs, Variant(0));
    EXPECT_TRUE(identical(code->get(u"Value"), Variant(7)));
    rs->call(u"MoveNext");
    EXPECT_TRUE(identical(code->get(u"Value"), Variant(8)));
    rs->call(u"MoveNext");
    EXPECT_EQ(errorNumberOf([&] { code->get(u"Value"); }), ado::NoCurrentRecord);
    EXPECT_EQ(errorNumberOf([&] { code->put(u"Value", Variant(1)); }), ado::NotCapable);
    rs->call(u"Close");
    EXPECT_EQ(errorNumberOf([&] { code->get(u"Value"); }), ado::ObjectClosed);
    rs->call(u"Open", {Variant(u"SELECT nombre FROM personas"), Variant(connection)});
    EXPECT_EQ(errorNumberOf([&] { code->get(u"Value"); }), ado::IllegalOperation);
    // The field outlives the recordset's own reference.
    const ObjectRef name = field(rs, Variant(0));
    rs.reset();
    EXPECT_TRUE(identical(name->get(u"Value"), Variant(u"Año Nuevo")));
}

TEST(Objects, ClosedAndOpenObjects) {
    ObjectRef connection = memoryConnection(kPeople, 3);
    ObjectRef rs = create(u"ADODB.Recordset");
    auto openWith = [&](std::vector<Variant> args) { return [&rs, args] { rs->call(u"Open", args); }; };
    struct Case {
        const char* what;
        std::function<void()> call;
        int error;
    };
    const Case cases[] = {
        {"count of a closed recordset", [&] { rs->get(u"RecordCount"); }, ado::ObjectClosed},
        {"move on a closed recordset", [&] { rs->call(u"MoveNext"); }, ado::ObjectClosed},
        {"field of a closed recordset", [&] { rs->get(u"", {Variant(0)}); }, ado::ItemNotFound},
        {"open without a connection", openWith({Variant(u"SELECT 1")}), ado::InvalidConnection},
        {"open without a source", openWith({Variant::missing(), Variant(connection)}), ado::InvalidArgument},
        {"cursor type 4", openWith({Variant(u"SELECT 1"), Variant(connection), Variant(4)}), ado::InvalidArgument},
        {"a connection that is not one", openWith({Variant(u"SELECT 1"), Variant(create(u"ADODB.Stream"))}),
         ado::InvalidConnection},
        {"cursor location 1", [&] { rs->put(u"CursorLocation", Variant(1)); }, ado::InvalidArgument},
        {"open twice",
         [&] {
             rs->call(u"Open", {Variant(u"SELECT 1"), Variant(connection)});
             rs->call(u"Open", {Variant(u"SELECT 1"), Variant(connection)});
         },
         ado::ObjectOpen},
        {"open a connection twice", [&] { connection->call(u"Open", {Variant(u":memory:")}); }, ado::ObjectOpen},
        {"open with an empty string", [&] { create(u"ADODB.Connection")->call(u"Open"); }, ado::InvalidArgument},
        {"execute on a new connection", [&] { create(u"ADODB.Connection")->call(u"Execute", {Variant(u"SELECT 1")}); },
         ado::InvalidConnection},
    };
    for (const auto& c : cases) EXPECT_EQ(errorNumberOf(c.call), c.error) << c.what;
}

TEST(Objects, ClosingTheConnectionClosesItsRecordsets) {
    ObjectRef connection = memoryConnection(kPeople, 3);
    ObjectRef first = openRecordset(connection, u"SELECT * FROM personas");
    ObjectRef second = connection->call(u"Execute", {Variant(u"SELECT * FROM personas")}).get<ObjectRef>();
    const ObjectRef code = field(first, Variant(0));
    EXPECT_EQ(toLong(connection->get(u"State")), 1);
    connection->call(u"Close");
    EXPECT_EQ(toLong(connection->get(u"State")), 0);
    EXPECT_EQ(toLong(first->get(u"State")), 0);
    EXPECT_EQ(toLong(second->get(u"State")), 0);
    EXPECT_EQ(errorNumberOf([&] { code->get(u"Value"); }), ado::ObjectClosed);
    EXPECT_EQ(errorNumberOf([&] { connection->call(u"Close"); }), ado::ObjectClosed);
    EXPECT_EQ(errorNumberOf([&] { first->call(u"Open", {Variant(u"SELECT 1")}); }), ado::InvalidConnection);
    // Opened again with the string it keeps, it serves the recordset again.
    EXPECT_EQ(connection->get(u"ConnectionString").get<String>(), u":memory:");
    connection->call(u"Open");
    first->call(u"Open", {Variant(u"SELECT 5")});
    EXPECT_TRUE(identical(first->get(u"", {Variant(0)}).get<ObjectRef>()->get(u""), Variant(5)));
}

TEST(Objects, StatementsWithoutRowsLeaveAClosedRecordsetAndCountTheirRows) {
    ObjectRef connection = memoryConnection(kPeople, 2);
    std::vector<Variant> args = {Variant(u"UPDATE personas SET nota = 'y'"), Variant(0)};
    const Variant result = connection->invoke(u"Execute", InvokeKind::Method, args);
    EXPECT_TRUE(identical(args[1], Variant(2)));
    EXPECT_EQ(toLong(result.get<ObjectRef>()->get(u"State")), 0);
    ObjectRef rs = create(u"ADODB.Recordset");
    rs->call(u"Open", {Variant(u"DELETE FROM personas WHERE codigo = 8"), Variant(connection)});
    EXPECT_EQ(toLong(rs->get(u"State")), 0);
    EXPECT_EQ(toLong(openRecordset(connection, u"SELECT COUNT(*) FROM personas")
                         ->get(u"", {Variant(0)})
                         .get<ObjectRef>()
                         ->get(u"")),
              1);
}

TEST(Objects, TableSourcesAndPrivateConnections) {
    ObjectRef connection = memoryConnection(kPeople, 3);
    ObjectRef rs = create(u"ADODB.Recordset");
    rs->call(u"Open", {Variant(u"personas"), Variant(connection), Variant(3), Variant(1), Variant(2)});
    EXPECT_EQ(toLong(rs->get(u"RecordCount")), 2);
    rs->call(u"Close");
    // Reopened with its connection, cursor type, lock type and options left out.
    rs->call(u"Open",
             {Variant(u"SELECT codigo FROM personas"), Variant::missing(), Variant(-1), Variant(-1), Variant(-1)});
    EXPECT_EQ(toLong(rs->get(u"RecordCount")), 2);
    ObjectRef own = create(u"ADODB.Recordset");
    own->call(u"Open", {Variant(u"SELECT 'solo'"), Variant(u":memory:")});
    EXPECT_TRUE(identical(own->get(u"", {Variant(0)}).get<ObjectRef>()->get(u""), Variant(u"solo")));
}

TEST(Objects, TheFactoryKnowsTheThreeProgIds) {
    struct Case {
        const char16_t* progId;
        const char16_t* type;  // nullptr: not made here
    };
    const Case cases[] = {
        {u"ADODB.Connection", u"Connection"}, {u"adodb.recordset", u"Recordset"},
        {u"ADODB.Stream", u"Stream"},         {u"ADODB.Recordset.6.0", u"Recordset"},
        {u"ADODB.RecordsetX", nullptr},       {u"ADODB.Recordset.", nullptr},
        {u"ADODB.Command", nullptr},
    };
    for (const auto& c : cases) {
        const ObjectRef made = createDataObject(c.progId, homeServices());
        if (!c.type) {
            EXPECT_FALSE(made) << toUtf8(c.progId);
            continue;
        }
        ASSERT_TRUE(made) << toUtf8(c.progId);
        EXPECT_EQ(made->typeName(), c.type);
    }
}

}  // namespace
}  // namespace telvaro::data::testing

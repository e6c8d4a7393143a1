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
    EXPECT_EQ(errorNumberOf([&] { connection->call(u"Requery"); }), err::ObjectDoesNotSupport);
    // Read-only members refuse assignment the same way.
    EXPECT_EQ(errorNumberOf([&] { rs->put(u"RecordCount", Variant(1)); }), err::ObjectDoesNotSupport);
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
        {Variant(std::int16_t(1)), Variant(u"Año Nuevo"), 0}, {Variant(2.0), Variant(12.5), 0},
        {Variant(u"NOTA"), Variant(Null{}), 0}, {Variant(5), {}, ado::ItemNotFound},
        {Variant(-1), {}, ado::ItemNotFound},
        {Variant(u"apellido"), {}, ado::ItemNotFound},
    };
    // clang-format on
    // rs.Fields(i), rs(i) and rs.Fields.Item(i) name the same field.
    const std::function<Variant(const Variant&)> ways[] = {
        [&](const Variant& i) { return field(rs, i)->get(u""); },
        [&](const Variant& i) { return rs->get(u"", {i}).object()->get(u"Value"); },
        [&](const Variant& i) { return rs->get(u"Fields").object()->get(u"Item", {i}).object()->get(u"Value"); }};
    for (const auto& c : cases)
        for (const auto& way : ways)
            EXPECT_EQ(errorNumberOf([&] { EXPECT_TRUE(identical(way(c.index), c.value)) << describe(c.index); }),
                      c.error)
                << describe(c.index);
    EXPECT_EQ(toLong(rs->get(u"Fields").get<ObjectRef>()->get(u"Count")), 5);
    // A Field converts to its value, as callers pass rs(0) on.
    EXPECT_EQ(toString(Variant(field(rs, Variant(1)))), u"Año Nuevo");
}

TEST(Objects, FieldNamesTypesAndSizes) {
    ObjectRef rs =
        openRecordset(memoryConnection(kPeople, 3), u"SELECT codigo, nombre, saldo, foto, nota FROM personas");
    const std::tuple<std::int32_t, const char16_t*, DataType, std::int32_t> cases[] = {
        {0, u"codigo", DataType::Integer, 4},
        {1, u"nombre", DataType::VarWChar, 18},
        {3, u"foto", DataType::LongVarBinary, 3},
        {4, u"nota", DataType::VarWChar, 0}};
    for (const auto& [ordinal, name, type, size] : cases) {
        const ObjectRef f = field(rs, Variant(ordinal));
        EXPECT_EQ(f->get(u"Name").get<String>(), name);
        EXPECT_EQ(toLong(f->get(u"Type")), static_cast<std::int32_t>(type)) << toUtf8(name);
        EXPECT_EQ(toLong(f->get(u"ActualSize")), size) << toUtf8(name);
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
        {"open without a connection", openWith({Variant(u"SELECT 1")}), ado::InvalidConnection},
        {"open without a source", openWith({Variant::missing(), Variant(connection)}), ado::InvalidArgument},
        {"open twice",
         [&] {
             rs->call(u"Open", {Variant(u"SELECT 1"), Variant(connection)});
             rs->call(u"Open", {Variant(u"SELECT 1"), Variant(connection)});
         },
         ado::ObjectOpen},
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
}

TEST(Objects, TheFactoryKnowsTheThreeProgIds) {
    const std::pair<const char16_t*, const char16_t*> cases[] = {
        // ProgID, type (nullptr: not made here)
        {u"ADODB.Connection", u"Connection"},   {u"adodb.recordset", u"Recordset"}, {u"ADODB.Stream", u"Stream"},
        {u"ADODB.Recordset.6.0", u"Recordset"}, {u"ADODB.Recordset.", nullptr},     {u"ADODB.Command", nullptr},
    };
    for (const auto& [progId, type] : cases) {
        const ObjectRef made = createDataObject(progId, homeServices());
        EXPECT_EQ(made ? made->typeName() : String(u"-"), type ? String(type) : String(u"-")) << toUtf8(progId);
    }
}

}  // namespace
}  // namespace telvaro::data::testing

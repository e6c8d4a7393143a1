// One value from a query, the next code of a table and the CASE text.
#include <gtest/gtest.h>

#include "db_support.h"
#include "support/support.h"

namespace telvaro::dbtest {
namespace {

constexpr int kCommandError = -2147217900;

ObjectRef codes(const std::vector<String>& rows, std::int32_t location = 3) {
    std::vector<String> setup = {u"CREATE TABLE t (c, k INTEGER)"};
    for (const auto& r : rows) setup.push_back(u"INSERT INTO t VALUES (" + r + u")");
    return data::testing::memoryConnection(setup, location);
}

TEST(QueryHelpers, OneValueFromAQuery) {
    // A server cursor cannot count: the rows are there, the answer is Empty.
    using Case = std::tuple<std::int32_t, const char16_t*, Variant>;
    for (const auto& [location, sql, expected] : {Case{3, u"SELECT nombre FROM clientes WHERE codigo = 2", v(u"Luis2")},
                                                  Case{3, u"SELECT nombre FROM clientes WHERE codigo = 99", Variant()},
                                                  Case{2, u"SELECT nombre FROM clientes", Variant()}}) {
        const Outcome out = run("regDevuelveDatoCampoSQL", {Variant(clientConnection(3, location)), v(sql)});
        EXPECT_EQ(out.error, 0) << toUtf8(out.description);
        EXPECT_TRUE(identical(out.result, expected)) << toUtf8(sql) << ": " << describe(out.result);
    }
    // The statement is named in the error.
    const Outcome bad =
        run("regDevuelveDatoCampoSQL", {Variant(clientConnection(3)), v(u"SELEC nombre FROM clientes")});
    EXPECT_EQ(bad.error, kCommandError);
    EXPECT_NE(bad.description.find(u"SELEC nombre FROM clientes"), String::npos) << toUtf8(bad.description);
}

TEST(QueryHelpers, NextCode) {
    struct Case {
        const char* what;
        std::vector<String> rows;
        const char16_t* condition;
        Variant increment;  // Empty: omitted
        Variant expected;
        int error;
    };
    const std::vector<Case> cases = {
        {"empty table, step 5", {}, u"1=1", i16(5), Variant(std::int32_t(5)), 0},
        {"condition", {u"41, 1", u"7, 2"}, u"k = 2", Variant(), Variant(std::int32_t(8)), 0},
        {"text", {u"'abc', 1"}, u"1=1", Variant(), Variant(), 13},
        {"Long overflow", {u"2147483647, 1"}, u"1=1", Variant(), Variant(), 6},
        {"empty condition", {u"1, 1"}, u"", Variant(), Variant(), kCommandError},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        std::vector<Variant> args = {Variant(codes(c.rows)), v(u"c"), v(u"t"), v(c.condition)};
        if (!c.increment.isEmpty()) args.push_back(c.increment);
        const Outcome out = run("regUltimoCodigo", args);
        EXPECT_EQ(out.error, c.error) << toUtf8(out.description);
        if (c.error == 0) {
            EXPECT_TRUE(identical(out.result, c.expected)) << describe(out.result);
        }
    }
    const Outcome bad = run("regUltimoCodigo", {Variant(codes({})), v(u"c"), v(u"t"), v(u"")});
    EXPECT_NE(bad.description.find(u"SELECT MAX(c) AS UCodi FROM t WHERE "), String::npos) << toUtf8(bad.description);
    EXPECT_EQ(run("regUltimoCodigo", {Variant(ObjectRef()), v(u"c"), v(u"t"), v(u"1=1")}).error, 91);
}

TEST(QueryHelpers, CaseText) {
    const std::vector<MethodCase> cases = {
        {"SQL_When",
         {v(u"Estado"), v(u"1, 2"), v(u"Activo,Inactivo")},
         v(u" CASE Estado WHEN 1 THEN 'Activo' WHEN 2 THEN 'Inactivo' END")},
        {"SQL_When", {v(u"Estado"), v(u"1,2"), v(u"A, B"), v(1)}, v(u" CASE Estado WHEN 1 THEN A WHEN 2 THEN B END")},
        // Four blanks become two.
        {"SQL_When", {v(u"c"), v(u"1"), v(u"a    b")}, v(u" CASE c WHEN 1 THEN 'a  b' END")},
        {"SQL_When", {v(u"c"), v(u"1,2"), v(u"a,b,c")}, v(u" CASE c WHEN 1 THEN 'a' WHEN 2 THEN 'b' END")},
        {"SQL_When", {v(u"c"), v(u"1,2,3"), v(u"a,b")}, Variant(), 9},
    };
    checkCalls(cases);
}

}  // namespace
}  // namespace telvaro::dbtest

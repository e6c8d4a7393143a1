// The same methods on a database server through ODBC.
#include <gtest/gtest.h>

#include "db_support.h"
#include "objects/list_control.h"
#include "support/support.h"

namespace telvaro::dbtest {
namespace {

ObjectRef clients(std::int32_t location) {
    ObjectRef connection = serverConnection(location);
    for (const char16_t* sql :
         {u"DROP TABLE IF EXISTS dbclientes", u"CREATE TABLE dbclientes (codigo INTEGER, nombre VARCHAR(20))",
          u"INSERT INTO dbclientes VALUES (1, 'Ana'), (41, 'QUITO'), (7, NULL)"})
        connection->call(u"Execute", {Variant(String(sql))});
    return connection;
}

TEST(OnTheServer, QueriesAndLists) {
    const ObjectRef client = clients(3);
    struct Case {
        const char* method;
        std::vector<Variant> args;
        Variant expected;
        int error;
    };
    const std::vector<Case> cases = {
        {"regDevuelveDatoCampoSQL",
         {Variant(client), v(u"SELECT nombre FROM dbclientes WHERE codigo = 41")},
         v(u"QUITO"),
         0},
        {"regDevuelveDatoCampoSQL",
         {Variant(client), v(u"SELECT nombre FROM dbclientes WHERE codigo = 7")},
         Variant(Null{}),
         0},
        {"regDevuelveDatoCampoSQL",
         {Variant(client), v(u"SELECT nombre FROM dbclientes WHERE codigo = 8")},
         Variant(),
         0},
        {"regUltimoCodigo", {Variant(client), v(u"codigo"), v(u"dbclientes"), v(u"1=1")}, Variant(std::int32_t(42)), 0},
        {"regUltimoCodigo",
         {Variant(client), v(u"codigo"), v(u"dbclientes"), v(u"codigo < 0")},
         Variant(std::int32_t(1)),
         0},
        {"regUltimoCodigo", {Variant(client), v(u"codigo"), v(u"dbclientes"), v(u"")}, Variant(), -2147217900},
        {"regUltimoCodigo", {Variant(client), v(u"nombre"), v(u"dbclientes"), v(u"1=1")}, Variant(), 13},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.method);
        const Outcome out = run(c.method, c.args);
        EXPECT_EQ(out.error, c.error) << toUtf8(out.description);
        if (c.error == 0) {
            EXPECT_TRUE(identical(out.result, c.expected)) << describe(out.result);
        }
    }
    auto list = std::make_shared<objects::ListControl>(objects::ListControl::Kind::ComboBox, u"cboClientes");
    EXPECT_EQ(run("regCargaListaSQL2", {Variant(client), v(u"SELECT codigo, nombre FROM dbclientes ORDER BY codigo"),
                                        Variant(ObjectRef(list)), v(u"nombre"), v(u"codigo")})
                  .error,
              0);
    // The Null name loses its item; its code lands on the item added
    // before it, which NewIndex still names.
    ASSERT_EQ(list->listCount(), 2);
    EXPECT_EQ(list->items()[0].text, u"Ana");
    EXPECT_EQ(list->items()[0].data, 7);
    EXPECT_EQ(list->items()[1].data, 41);
    // A server-side cursor cannot count: the value stays Empty.
    const ObjectRef server = clients(2);
    EXPECT_TRUE(run("regDevuelveDatoCampoSQL", {Variant(server), v(u"SELECT 1")}).result.isEmpty());
}

}  // namespace
}  // namespace telvaro::dbtest

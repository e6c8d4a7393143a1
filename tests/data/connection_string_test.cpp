// Connection strings: their pairs, and the engine each one names.
#include "data/connection_string.h"

#include <gtest/gtest.h>

#include "data/errors.h"
#include "support/support.h"

namespace telvaro::data {
namespace {

TEST(ConnectionStrings, Pairs) {
    struct Case {
        const char16_t* text;
        std::vector<std::pair<String, String>> pairs;
    };
    const Case cases[] = {
        {u" Data Source = C:\\x.db ; ", {{u"Data Source", u"C:\\x.db"}}},
        {u"Pwd={a;b=c}}};Uid=u", {{u"Pwd", u"a;b=c}"}, {u"Uid", u"u"}}},
        {u";;a=;", {{u"a", u""}}},
        {u"", {}},
    };
    for (const auto& c : cases) {
        const auto pairs = parseConnectionString(c.text);
        ASSERT_EQ(pairs.size(), c.pairs.size()) << toUtf8(c.text);
        for (std::size_t i = 0; i < pairs.size(); ++i) {
            EXPECT_EQ(pairs[i].key, c.pairs[i].first) << toUtf8(c.text);
            EXPECT_EQ(pairs[i].value, c.pairs[i].second) << toUtf8(c.text);
        }
    }
    for (const char16_t* bad : {u"a", u"a=1;b", u"=1", u"a={1", u"a={1}x;"})
        EXPECT_EQ(errorNumberOf([&] { parseConnectionString(bad); }), ado::InvalidArgument) << toUtf8(bad);
}

TEST(ConnectionStrings, ValuesReadBackAsThemselves) {
    for (const char16_t* value : {u"plain", u"", u"a;UID=root", u"{x}", u"}}"}) {
        const auto pairs = parseConnectionString(u"PWD=" + connectionValueText(value) + u";Next=1");
        ASSERT_EQ(pairs.size(), 2u) << toUtf8(value);
        EXPECT_EQ(pairs[0].value, value);
    }
}

TEST(ConnectionStrings, TheEngineEachOneNames) {
    struct Case {
        const char16_t* text;
        Engine engine;
        const char16_t* target;
        int error;
    };
    const Case cases[] = {
        {u":memory:", Engine::Embedded, u":memory:", 0},
        {u"C:\\Datos\\ventas.db", Engine::Embedded, u"C:\\Datos\\ventas.db", 0},
        {u"Provider=SQLite;Data Source=:memory:", Engine::Embedded, u":memory:", 0},
        {u"Driver={PostgreSQL Unicode};Server=h;", Engine::Odbc, u"Driver={PostgreSQL Unicode};Server=h;", 0},
        {u"ODBC:DSN=ventas;Uid=a", Engine::Odbc, u"DSN=ventas;Uid=a", 0},
        {u"Provider=MSDASQL.1;DSN=ventas;Pwd={x;y}", Engine::Odbc, u"DSN=ventas;Pwd={x;y};", 0},
        {u"Provider=Microsoft.Jet.OLEDB.4.0;Data Source=C:\\a.mdb", Engine::Embedded, u"", ado::ProviderNotFound},
        {u"Provider=SQLite", Engine::Embedded, u"", ado::InvalidArgument},
        {u"  ", Engine::Embedded, u"", ado::InvalidArgument},
    };
    for (const auto& c : cases) {
        try {
            const ConnectionTarget target = chooseEngine(c.text);
            EXPECT_EQ(c.error, 0) << toUtf8(c.text);
            EXPECT_EQ(target.engine, c.engine) << toUtf8(c.text);
            EXPECT_EQ(target.target, c.target) << toUtf8(c.text);
        } catch (const RuntimeError& e) {
            EXPECT_EQ(e.number(), c.error) << toUtf8(c.text);
        }
    }
}

}  // namespace
}  // namespace telvaro::data

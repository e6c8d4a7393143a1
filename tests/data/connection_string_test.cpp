// Connection strings: their pairs, and the engine each one names.
#include "data/connection_string.h"

#include <gtest/gtest.h>

#include "data/errors.h"
#include "support/support.h"

namespace telvaro::data {
namespace {

TEST(ConnectionStrings, Pairs) {
    const std::pair<const char16_t*, std::vector<std::pair<String, String>>> cases[] = {
        {u" Data Source = C:\\x.db ; ", {{u"Data Source", u"C:\\x.db"}}},
        {u"Pwd={a;b=c}}};Uid=u", {{u"Pwd", u"a;b=c}"}, {u"Uid", u"u"}}},
        {u"", {}},
    };
    for (const auto& [text, expected] : cases) {
        std::vector<std::pair<String, String>> got;
        for (const auto& pair : parseConnectionString(text)) got.emplace_back(pair.key, pair.value);
        EXPECT_EQ(got, expected) << toUtf8(text);
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
    const std::tuple<const char16_t*, Engine, const char16_t*, int> cases[] = {
        {u":memory:", Engine::Embedded, u":memory:", 0},
        {u"Provider=SQLite;Data Source=:memory:", Engine::Embedded, u":memory:", 0},
        {u"Driver={PostgreSQL Unicode};Server=h;", Engine::Odbc, u"Driver={PostgreSQL Unicode};Server=h;", 0},
        {u"Provider=MSDASQL.1;DSN=ventas;Pwd={x;y}", Engine::Odbc, u"DSN=ventas;Pwd={x;y};", 0},
        {u"Provider=Microsoft.Jet.OLEDB.4.0;Data Source=C:\\a.mdb", Engine::Embedded, u"", ado::ProviderNotFound},
        {u"Provider=SQLite", Engine::Embedded, u"", ado::InvalidArgument},
    };
    for (const auto& [text, engine, target, error] : cases) {
        try {
            const ConnectionTarget chosen = chooseEngine(text);
            EXPECT_EQ(error, 0) << toUtf8(text);
            EXPECT_EQ(chosen.engine, engine) << toUtf8(text);
            EXPECT_EQ(chosen.target, target) << toUtf8(text);
        } catch (const RuntimeError& e) {
            EXPECT_EQ(e.number(), error) << toUtf8(text);
        }
    }
}

}  // namespace
}  // namespace telvaro::data

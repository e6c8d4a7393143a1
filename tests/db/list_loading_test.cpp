// Lists filled from queries and searched again.
#include <gtest/gtest.h>

#include "db/list_loading.h"
#include "db_support.h"
#include "objects/data_grid.h"
#include "objects/list_control.h"

namespace telvaro::dbtest {
namespace {

using objects::ListControl;

std::shared_ptr<ListControl> newList(std::vector<std::pair<String, std::int32_t>> items = {}) {
    auto list = std::make_shared<ListControl>(ListControl::Kind::ListBox, u"lstClientes");
    for (auto& [text, data] : items) {
        list->addItem(text);
        list->setItemData(list->listCount() - 1, data);
    }
    return list;
}

// A list's items, each followed by "|": its texts, and its ItemData.
std::string texts(const ListControl& list) {
    std::string out;
    for (const auto& item : list.items()) out += toUtf8(item.text) + "|";
    return out;
}

std::string datas(const ListControl& list) {
    std::string out;
    for (const auto& item : list.items()) out += std::to_string(item.data) + "|";
    return out;
}

const char16_t* const kThree = u"SELECT codigo, nombre FROM clientes ORDER BY codigo";

TEST(ListLoading, TextAndCodeLists) {
    struct Case {
        const char* what;
        std::vector<Variant> options;  // after CampoText: ListaCod is added first
        std::string text, code;
        std::int32_t textIndex, codeIndex;
    };
    // clang-format off
    const std::vector<Case> cases = {
        {"with a first item", {v(u"codigo"), v(True), v(True), v(u"(Todos)"), v(u"0")}, "(Todos)|Ana1|Luis2|QUITO3|",
         "0|1|2|3|", 0, 0},
        {"no selection", {v(u"CODIGO"), v(False)}, "Ana1|Luis2|QUITO3|", "1|2|3|", -1, -1},
        {"appending", {v(u"codigo"), v(True), v(False)}, "viejo|Ana1|Luis2|QUITO3|", "9|1|2|3|", 0, 0},
        {"unknown code field", {v(u"apellido")}, "Ana1|Luis2|QUITO3|", "", 0, -1},
    };
    // clang-format on
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        auto text = newList({{u"viejo", 0}});
        auto code = newList({{u"9", 0}});
        std::vector<Variant> args = {Variant(clientConnection(3)), v(kThree), Variant(ObjectRef(text)), v(u"Nombre"),
                                     Variant(ObjectRef(code))};
        args.insert(args.end(), c.options.begin(), c.options.end());
        const Outcome out = run("regCargaListaSQL", args);
        ASSERT_EQ(out.error, 0) << toUtf8(out.description);
        EXPECT_EQ(texts(*text), c.text);
        EXPECT_EQ(texts(*code), c.code);
        EXPECT_EQ(text->listIndex(), c.textIndex);
        EXPECT_EQ(code->listIndex(), c.codeIndex);
    }
}

TEST(ListLoading, IgnoredErrorsAfterOpening) {
    // No code list, an unknown text field, a server cursor's -1 count.
    const std::tuple<std::int32_t, const char16_t*, std::string> cases[] = {
        {3, u"nombre", "Ana1|Luis2|QUITO3|"}, {3, u"x", ""}, {2, u"nombre", ""}};
    for (const auto& [location, field, expected] : cases) {
        auto list = newList();
        const Outcome out = run("regCargaListaSQL", {Variant(clientConnection(3, location)), v(kThree),
                                                     Variant(ObjectRef(list)), v(field)});
        EXPECT_EQ(out.error, 0);
        EXPECT_EQ(texts(*list), expected);
    }
    // A failing statement is the one error raised, and the lists are untouched.
    auto kept = newList({{u"viejo", 4}});
    const Outcome bad = run("regCargaListaSQL2", {Variant(clientConnection(3)), v(u"SELECT * FROM nada"),
                                                  Variant(ObjectRef(kept)), v(u"nombre")});
    EXPECT_EQ(bad.error, -2147217900);
    EXPECT_NE(bad.description.find(u"SELECT * FROM nada"), String::npos);
    EXPECT_EQ(texts(*kept), "viejo|");
}

TEST(ListLoading, CodesInItemData) {
    struct Case {
        const char* what;
        const char16_t* sql;
        std::vector<Variant> options;
        std::string text, data;
        std::int32_t index;
    };
    // clang-format off
    const std::vector<Case> cases = {
        {"fresh, first item", kThree, {v(u"codigo"), v(True), v(True), v(u"Todos"), v(-1)}, "Todos|Ana1|Luis2|QUITO3|",
         "-1|1|2|3|", 0},
        {"appending keeps the selection", kThree, {v(u"codigo"), v(False), v(False)}, "viejo|Ana1|Luis2|QUITO3|",
         "7|1|2|3|", 0},
        {"text codes stay 0", u"SELECT nombre, ciudad FROM clientes ORDER BY codigo", {v(u"ciudad")},
         "Ana1|Luis2|QUITO3|", "0|0|0|", 0},
        {"Null text loses its item", u"SELECT NULL AS nombre, 4 AS codigo", {v(u"codigo")}, "", "", -1},
    };
    // clang-format on
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        auto list = newList({{u"viejo", 7}});
        list->setListIndex(0);
        std::vector<Variant> args = {Variant(clientConnection(3)), v(c.sql), Variant(ObjectRef(list)), v(u"nombre")};
        args.insert(args.end(), c.options.begin(), c.options.end());
        const Outcome out = run("regCargaListaSQL2", args);
        ASSERT_EQ(out.error, 0) << toUtf8(out.description);
        EXPECT_EQ(texts(*list), c.text);
        EXPECT_EQ(datas(*list), c.data);
        EXPECT_EQ(list->listIndex(), c.index);
    }
}

TEST(ListLoading, EmptySearchMarker) {
    const std::vector<std::pair<String, String>> cases = {
        {u"WHERE a LIKE ' %' OR b LIKE ' %'", u"WHERE a LIKE 'x.x00x' OR b LIKE 'x.x00x'"},
        {u"WHERE a LIKE '%' OR b LIKE ' %'", u"WHERE a LIKE 'x.x00x' OR b LIKE ' %'"},
        {u"WHERE a LIKE '%an%'", u"WHERE a LIKE '%an%'"},
    };
    for (const auto& [sql, expected] : cases) EXPECT_EQ(db::markEmptySearch(sql), expected) << toUtf8(sql);
}

TEST(ListLoading, SearchFillsTheList) {
    struct Case {
        const char* what;
        std::int32_t location;
        const char16_t* pattern;
        std::string text, data;
        bool visible;
        int error;
    };
    const std::vector<Case> cases = {
        {"a match", 3, u"'%2'", "Luis2|", "2|", true, 0},
        {"empty search with a blank", 3, u"' %'", "", "", false, 0},
        // A count of -1 shows the list.
        {"server cursor", 2, u"'%2'", "Luis2|", "2|", true, 0},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        auto list = newList({{u"viejo", 1}});
        const String sql = String(u"SELECT nombre, codigo FROM clientes WHERE nombre LIKE ") + c.pattern;
        const Outcome out =
            run("LlenaListLIKE", {Variant(clientConnection(3, c.location)), Variant(sql), Variant(ObjectRef(list))});
        EXPECT_EQ(out.error, c.error) << toUtf8(out.description);
        EXPECT_EQ(texts(*list), c.text);
        EXPECT_EQ(datas(*list), c.data);
        EXPECT_EQ(list->visible, c.visible);
    }
    // A Null code stops the filling with the list half done; a Null text is an empty item.
    auto list = newList();
    const Outcome nullCode =
        run("LlenaListLIKE",
            {Variant(clientConnection(3)), v(u"SELECT NULL, 5 UNION ALL SELECT 'b', NULL"), Variant(ObjectRef(list))});
    EXPECT_EQ(nullCode.error, 94);
    EXPECT_EQ(texts(*list), "|b|");
}

TEST(ListLoading, SearchRerunsTheGridsRecordset) {
    const ObjectRef connection = clientConnection(3);
    const ObjectRef table = data::testing::openRecordset(connection, kThree);
    auto grid = std::make_shared<objects::DataGrid>();
    struct Case {
        const char16_t* pattern;
        Variant hide;
        bool visible;
    };
    const std::vector<Case> cases = {{u"'%'", Variant(), false}, {u"'Lu%'", Variant(), true}, {u"'%'", v(False), true}};
    for (const auto& c : cases) {
        std::vector<Variant> args = {
            Variant(table), Variant(String(u"SELECT codigo, nombre FROM clientes WHERE nombre LIKE ") + c.pattern),
            Variant(ObjectRef(grid))};
        if (!c.hide.isEmpty()) args.push_back(c.hide);
        const Outcome out = run("regLlenaListaLIKE", args);
        ASSERT_EQ(out.error, 0) << toUtf8(out.description);
        EXPECT_EQ(grid->visible, c.visible) << toUtf8(c.pattern);
    }
    EXPECT_EQ(grid->refreshes(), 3);
    table->call(u"Close");
    EXPECT_EQ(run("regLlenaListaLIKE", {Variant(table), v(kThree), Variant(ObjectRef(grid))}).error, 3704);
}

TEST(ListLoading, FindingItems) {
    auto list = newList({{u"Ana", 10}, {u"Luis", 20}, {u"QUITO", 20}, {u"5", 30}});
    auto empty = newList();
    const Variant l{ObjectRef(list)}, e{ObjectRef(empty)};
    const std::vector<MethodCase> cases = {
        {"fn_BuscaItem", {l, v(u"quito")}, Variant(std::int32_t(2))},
        {"fn_BuscaItem", {l, i16(5)}, Variant(std::int32_t(3))},
        {"fn_BuscaItem", {e, v(u"x")}, Variant(std::int32_t(-1))},
        {"fn_BuscaItem", {l, Variant(Null{})}, Variant(), 94},
        {"fn_BuscaItem", {e, Variant(Null{})}, Variant(std::int32_t(-1))},
        {"fn_ExisteItem", {l, v(u"LUIS")}, v(True)},
        {"fn_ExisteItem", {l, v(u"Lu")}, v(False)},
        {"fnBuscaIndex", {l, v(20)}, i16(1)},
        {"fnBuscaIndex", {e, v(0)}, i16(-1)},
        {"fnBuscaIndex", {l, v(u"treinta")}, Variant(), 13},
        {"ItemD", {l}, Variant(), 381},
        {"fn_BuscaItem", {Variant(ObjectRef()), v(u"x")}, Variant(), 91},
    };
    checkCalls(cases);
    list->setListIndex(3);
    EXPECT_TRUE(identical(run("ItemD", {l}).result, Variant(std::int32_t(30))));
}

TEST(ListLoading, IndexSearchOverflowsPastAnInteger) {
    auto big = newList();
    for (int i = 0; i < 32769; ++i) big->addItem(u"x");
    EXPECT_EQ(run("fnBuscaIndex", {Variant(ObjectRef(big)), v(5)}).error, 6);
    big->removeItem(0);
    EXPECT_TRUE(identical(run("fnBuscaIndex", {Variant(ObjectRef(big)), v(5)}).result, i16(-1)));
}

}  // namespace
}  // namespace telvaro::dbtest

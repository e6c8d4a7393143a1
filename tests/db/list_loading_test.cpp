// Lists filled from queries and searched again.
#include <gtest/gtest.h>

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
    auto text = newList({{u"viejo", 0}});
    auto code = newList({{u"9", 0}});
    const Outcome out =
        run("regCargaListaSQL", {Variant(clientConnection(3)), v(kThree), Variant(ObjectRef(text)), v(u"Nombre"),
                                 Variant(ObjectRef(code)), v(u"codigo"), v(True), v(True), v(u"(Todos)"), v(u"0")});
    ASSERT_EQ(out.error, 0) << toUtf8(out.description);
    EXPECT_EQ(texts(*text), "(Todos)|Ana1|Luis2|QUITO3|");
    EXPECT_EQ(texts(*code), "0|1|2|3|");
    EXPECT_EQ(text->listIndex(), 0);
    EXPECT_EQ(code->listIndex(), 0);
}

TEST(ListLoading, IgnoredErrorsAfterOpening) {
    // A server cursor's -1 count fills nothing and raises nothing.
    auto list = newList();
    EXPECT_EQ(
        run("regCargaListaSQL", {Variant(clientConnection(3, 2)), v(kThree), Variant(ObjectRef(list)), v(u"nombre")})
            .error,
        0);
    EXPECT_EQ(texts(*list), "");
    // A failing statement is the one error raised, and the lists are untouched.
    auto kept = newList({{u"viejo", 4}});
    const Outcome bad = run("regCargaListaSQL2", {Variant(clientConnection(3)), v(u"SELECT * FROM nada"),
                                                  Variant(ObjectRef(kept)), v(u"nombre")});
    EXPECT_EQ(bad.error, -2147217900);
    EXPECT_NE(bad.description.find(u"SELECT * FROM nada"), String::npos);
    EXPECT_EQ(texts(*kept), "viejo|");
}

TEST(ListLoading, CodesInItemData) {
    // statement, the code field, the texts and ItemData after, ListIndex
    using Case = std::tuple<const char16_t*, const char16_t*, std::string, std::string, std::int32_t>;
    const Case cases[] = {
        {u"SELECT nombre, ciudad FROM clientes ORDER BY codigo", u"ciudad", "Ana1|Luis2|QUITO3|", "0|0|0|", 0},
        {u"SELECT NULL AS nombre, 4 AS codigo", u"codigo", "", "", -1},  // a Null text loses its item
    };
    for (const auto& [sql, field, text, data, index] : cases) {
        auto list = newList({{u"viejo", 7}});
        list->setListIndex(0);
        const Outcome out = run("regCargaListaSQL2", {Variant(clientConnection(3)), v(sql), Variant(ObjectRef(list)),
                                                      v(u"nombre"), v(field)});
        ASSERT_EQ(out.error, 0) << toUtf8(out.description);
        EXPECT_EQ(texts(*list), text);
        EXPECT_EQ(datas(*list), data);
        EXPECT_EQ(list->listIndex(), index);
    }
    auto list = newList({{u"viejo", 7}});
    ASSERT_EQ(run("regCargaListaSQL2", {Variant(clientConnection(3)), v(kThree), Variant(ObjectRef(list)), v(u"nombre"),
                                        v(u"codigo"), v(True), v(True), v(u"Todos"), v(-1)})
                  .error,
              0);
    EXPECT_EQ(datas(*list), "-1|1|2|3|");
}

TEST(ListLoading, SearchFillsTheList) {
    // pattern, texts, ItemData, Visible after
    using Case = std::tuple<const char16_t*, std::string, std::string, bool>;
    for (const auto& [pattern, text, data, visible] :
         {Case{u"'%2'", "Luis2|", "2|", true}, Case{u"' %'", "", "", false}}) {
        auto list = newList({{u"viejo", 1}});
        const String sql = String(u"SELECT nombre, codigo FROM clientes WHERE nombre LIKE ") + pattern;
        const Outcome out =
            run("LlenaListLIKE", {Variant(clientConnection(3)), Variant(sql), Variant(ObjectRef(list))});
        EXPECT_EQ(out.error, 0) << toUtf8(out.description);
        EXPECT_EQ(texts(*list), text);
        EXPECT_EQ(datas(*list), data);
        EXPECT_EQ(list->visible, visible);
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
    const ObjectRef table = data::testing::openRecordset(clientConnection(3), kThree);
    auto grid = std::make_shared<objects::DataGrid>();
    for (const auto& [pattern, visible] : {std::pair{u"'%'", false}, {u"'Lu%'", true}}) {
        const Outcome out =
            run("regLlenaListaLIKE",
                {Variant(table), Variant(String(u"SELECT codigo, nombre FROM clientes WHERE nombre LIKE ") + pattern),
                 Variant(ObjectRef(grid))});
        ASSERT_EQ(out.error, 0) << toUtf8(out.description);
        EXPECT_EQ(grid->visible, visible) << toUtf8(pattern);
    }
    EXPECT_EQ(grid->refreshes(), 2);
    table->call(u"Close");
    EXPECT_EQ(run("regLlenaListaLIKE", {Variant(table), v(kThree), Variant(ObjectRef(grid))}).error, 3704);
}

TEST(ListLoading, FindingItems) {
    auto list = newList({{u"Ana", 10}, {u"Luis", 20}, {u"QUITO", 20}, {u"5", 30}});
    auto empty = newList();
    const Variant l{ObjectRef(list)}, e{ObjectRef(empty)};
    const std::vector<MethodCase> cases = {
        {"fn_BuscaItem", {l, v(u"quito")}, Variant(std::int32_t(2))},
        {"fn_BuscaItem", {l, Variant(Null{})}, Variant(), 94},
        {"fn_ExisteItem", {l, v(u"LUIS")}, v(True)},
        {"fnBuscaIndex", {l, v(20)}, i16(1)},
        {"fnBuscaIndex", {l, v(u"treinta")}, Variant(), 13},
        {"ItemD", {l}, Variant(), 381},
    };
    checkCalls(cases);
    list->setListIndex(3);
    EXPECT_TRUE(identical(run("ItemD", {l}).result, Variant(std::int32_t(30))));
}

}  // namespace
}  // namespace telvaro::dbtest

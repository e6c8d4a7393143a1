// Counts, positions and moves of recordsets as each kind of cursor gives
// them: a client cursor loads the rows and knows where it is; a server
// forward-only cursor does not count and cannot go back.
#include <gtest/gtest.h>

#include <map>

#include "data/errors.h"
#include "data_support.h"

namespace telvaro::data::testing {
namespace {

const std::vector<String> kThreeRows = {
    u"CREATE TABLE t (id INTEGER, name TEXT)",
    u"INSERT INTO t VALUES (1, 'uno'), (2, 'dos'), (3, 'tres')",
};

struct MoveCase {
    std::int32_t location;    // 2 server, 3 client
    std::int32_t cursorType;  // 0 forward-only, 3 static
    const char16_t* where;    // the rows taken
    const char* moves;        // F first, P previous, N next, L last
    int error;                // the error of the last move, or 0
    std::int32_t count, position;
    bool bof, eof;
    std::int32_t id;  // Fields(0) of the current record (0: none)
};

constexpr const char16_t* kAll = u"1 = 1";
constexpr const char16_t* kNone = u"1 = 0";

// clang-format off
const MoveCase kMoves[] = {
    // Client cursor: exact counts, every move.
    {3, 0, kAll, "NNN", 0, 3, -3, false, true, 0},
    {3, 0, kAll, "NNNN", ado::NoCurrentRecord, 0, 0, false, false, 0},
    {3, 0, kAll, "NNNP", 0, 3, 3, false, false, 3},
    {3, 0, kAll, "P", 0, 3, -2, true, false, 0},
    {3, 0, kAll, "LF", 0, 3, 1, false, false, 1},
    {3, 0, kNone, "", 0, 0, -1, true, true, 0},
    // Server forward-only cursor: no count, no position, forward only.
    {2, 0, kAll, "N", 0, -1, -1, false, false, 2},
    {2, 0, kAll, "NNN", 0, -1, -1, false, true, 0},
    {2, 0, kAll, "NF", ado::CannotRestart, 0, 0, false, false, 0},
    {2, 0, kAll, "P", ado::CannotFetchBackwards, 0, 0, false, false, 0},
    {2, 0, kNone, "F", 0, -1, -1, true, true, 0},
    // A scrollable cursor on the server counts like a client one.
    {2, 3, kAll, "LP", 0, 3, 2, false, false, 2},
};
// clang-format on

TEST(Cursors, MovesCountsAndPositions) {
    const std::map<char, const char16_t*> names = {
        {'F', u"MoveFirst"}, {'P', u"MovePrevious"}, {'N', u"MoveNext"}, {'L', u"MoveLast"}};
    for (const auto& c : kMoves) {
        SCOPED_TRACE("location " + std::to_string(c.location) + ", cursor type " + std::to_string(c.cursorType) + ", " +
                     toUtf8(c.where) + ", moves \"" + c.moves + "\"");
        ObjectRef connection = memoryConnection(kThreeRows, c.location), rs = create(u"ADODB.Recordset");
        rs->call(u"Open", {Variant(u"SELECT id, name FROM t WHERE " + String(c.where) + u" ORDER BY id"),
                           Variant(connection), Variant(c.cursorType), Variant(1), Variant(-1)});
        const int error = errorNumberOf([&] {
            for (const char* m = c.moves; *m; ++m) rs->call(names.at(*m));
        });
        EXPECT_EQ(error, c.error);
        if (c.error || error) continue;
        EXPECT_EQ(std::tuple(toLong(rs->get(u"RecordCount")), toLong(rs->get(u"AbsolutePosition")),
                             toBoolean(rs->get(u"BOF")).isTrue(), toBoolean(rs->get(u"EOF")).isTrue()),
                  std::tuple(c.count, c.position, c.bof, c.eof));
        const int valueError = errorNumberOf(
            [&] { EXPECT_TRUE(identical(rs->get(u"", {Variant(0)}).get<ObjectRef>()->get(u"Value"), Variant(c.id))); });
        EXPECT_EQ(valueError, c.id ? 0 : ado::NoCurrentRecord);
    }
}

// Enough rows and text to fill many pages of the row store, with texts long
// enough to get pages of their own: every value reads back as stored, on a
// loaded cursor and on one that reads a row at a time.
TEST(Cursors, LongResultsReadBackExactly) {
    const std::vector<String> setup = {
        u"CREATE TABLE t (id INTEGER, name TEXT)",
        u"WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 6000) "
        u"INSERT INTO t SELECT i, 'ñ' || printf('%.*c', CASE WHEN i % 1500 = 0 THEN 20000 ELSE i % 300 + 1 END, 'x') "
        u"FROM n"};
    for (const std::int32_t location : {3, 2}) {
        SCOPED_TRACE("location " + std::to_string(location));
        ObjectRef rs = openRecordset(memoryConnection(setup, location), u"SELECT id, name FROM t ORDER BY id");
        std::int32_t rows = 0;
        while (!toBoolean(rs->get(u"EOF")).isTrue()) {
            ++rows;
            const std::size_t length = rows % 1500 == 0 ? 20000 : static_cast<std::size_t>(rows % 300 + 1);
            const ObjectRef name = rs->get(u"Fields", {Variant(1)}).get<ObjectRef>();
            ASSERT_EQ(toLong(rs->get(u"Fields", {Variant(0)}).get<ObjectRef>()->get(u"Value")), rows);
            ASSERT_EQ(name->get(u"Value").get<String>(), u"ñ" + String(length, u'x')) << "row " << rows;
            ASSERT_EQ(toLong(name->get(u"ActualSize")), static_cast<std::int32_t>(2 * (length + 1)));
            rs->call(u"MoveNext");
        }
        EXPECT_EQ(rows, 6000);
    }
}

}  // namespace
}  // namespace telvaro::data::testing

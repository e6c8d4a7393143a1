// Counts, positions and moves of recordsets as each kind of cursor gives
// them: a client cursor loads the rows and knows where it is; a server
// forward-only cursor does not count and cannot go back.
#include <gtest/gtest.h>

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
    {3, 0, kAll, "", 0, 3, 1, false, false, 1},
    {3, 0, kAll, "NN", 0, 3, 3, false, false, 3},
    {3, 0, kAll, "NNN", 0, 3, -3, false, true, 0},
    {3, 0, kAll, "NNNN", ado::NoCurrentRecord, 0, 0, false, false, 0},
    {3, 0, kAll, "NNNP", 0, 3, 3, false, false, 3},
    {3, 0, kAll, "P", 0, 3, -2, true, false, 0},
    {3, 0, kAll, "PP", ado::NoCurrentRecord, 0, 0, false, false, 0},
    {3, 0, kAll, "PN", 0, 3, 1, false, false, 1},
    {3, 0, kAll, "LF", 0, 3, 1, false, false, 1},
    {3, 0, kNone, "", 0, 0, -1, true, true, 0},
    {3, 0, kNone, "F", ado::NoCurrentRecord, 0, 0, false, false, 0},
    {3, 0, kNone, "L", ado::NoCurrentRecord, 0, 0, false, false, 0},
    // Server forward-only cursor: no count, no position, forward only.
    {2, 0, kAll, "F", 0, -1, -1, false, false, 1},
    {2, 0, kAll, "N", 0, -1, -1, false, false, 2},
    {2, 0, kAll, "NNN", 0, -1, -1, false, true, 0},
    {2, 0, kAll, "NNNN", ado::NoCurrentRecord, 0, 0, false, false, 0},
    {2, 0, kAll, "NF", ado::CannotRestart, 0, 0, false, false, 0},
    {2, 0, kAll, "P", ado::CannotFetchBackwards, 0, 0, false, false, 0},
    {2, 0, kAll, "L", ado::CannotFetchBackwards, 0, 0, false, false, 0},
    {2, 0, kNone, "F", 0, -1, -1, true, true, 0},
    // A scrollable cursor on the server counts like a client one.
    {2, 3, kAll, "LP", 0, 3, 2, false, false, 2},
};
// clang-format on

std::string label(const MoveCase& c) {
    return "location " + std::to_string(c.location) + ", cursor type " + std::to_string(c.cursorType) + ", " +
           toUtf8(c.where) + ", moves \"" + c.moves + "\"";
}

TEST(Cursors, MovesCountsAndPositions) {
    for (const auto& c : kMoves) {
        ObjectRef connection = memoryConnection(kThreeRows, c.location);
        ObjectRef rs = create(u"ADODB.Recordset");
        rs->call(u"Open", {Variant(u"SELECT id, name FROM t WHERE " + String(c.where) + u" ORDER BY id"),
                           Variant(connection), Variant(c.cursorType), Variant(1), Variant(-1)});
        int error = 0;
        try {
            for (const char* m = c.moves; *m; ++m) {
                const char16_t* move = *m == 'F'   ? u"MoveFirst"
                                       : *m == 'P' ? u"MovePrevious"
                                       : *m == 'N' ? u"MoveNext"
                                                   : u"MoveLast";
                rs->call(move);
            }
        } catch (const RuntimeError& e) {
            error = e.number();
        }
        EXPECT_EQ(error, c.error) << label(c);
        if (c.error || error) continue;
        EXPECT_EQ(toLong(rs->get(u"RecordCount")), c.count) << label(c);
        EXPECT_EQ(toLong(rs->get(u"AbsolutePosition")), c.position) << label(c);
        EXPECT_EQ(toBoolean(rs->get(u"BOF")).isTrue(), c.bof) << label(c);
        EXPECT_EQ(toBoolean(rs->get(u"EOF")).isTrue(), c.eof) << label(c);
        const int valueError = errorNumberOf([&] {
            EXPECT_TRUE(identical(rs->get(u"", {Variant(0)}).get<ObjectRef>()->get(u"Value"), Variant(c.id)))
                << label(c);
        });
        EXPECT_EQ(valueError, c.id ? 0 : ado::NoCurrentRecord) << label(c);
    }
}

TEST(Cursors, TheConnectionsLocationIsTheRecordsetsUnlessItHasItsOwn) {
    struct Case {
        std::int32_t connection, recordset;  // 0: not set
        std::int32_t count, location;
    };
    const Case cases[] = {{2, 0, -1, 2}, {3, 0, 3, 3}, {3, 2, -1, 2}, {2, 3, 3, 3}};
    for (const auto& c : cases) {
        ObjectRef connection = memoryConnection(kThreeRows, c.connection);
        ObjectRef rs = create(u"ADODB.Recordset");
        EXPECT_EQ(toLong(rs->get(u"CursorLocation")), 2) << "a new recordset is on the server side";
        if (c.recordset) rs->put(u"CursorLocation", Variant(c.recordset));
        rs->call(u"Open", {Variant(u"SELECT * FROM t"), Variant(connection)});
        EXPECT_EQ(toLong(rs->get(u"RecordCount")), c.count) << c.connection << "/" << c.recordset;
        EXPECT_EQ(toLong(rs->get(u"CursorLocation")), c.location) << c.connection << "/" << c.recordset;
        EXPECT_EQ(errorNumberOf([&] { rs->put(u"CursorLocation", Variant(3)); }), ado::ObjectOpen);
    }
}

TEST(Cursors, ExecuteGivesAForwardOnlyRecordsetAtTheConnectionsLocation) {
    for (std::int32_t location : {2, 3}) {
        ObjectRef connection = memoryConnection(kThreeRows, location);
        ObjectRef rs =
            connection->call(u"Execute", {Variant(u"SELECT MAX(id) AS UCodi FROM t WHERE 1=1")}).get<ObjectRef>();
        EXPECT_EQ(toLong(rs->get(u"RecordCount")), location == 3 ? 1 : -1);
        EXPECT_TRUE(identical(rs->get(u"Fields", {Variant(u"ucodi")}).get<ObjectRef>()->get(u"Value"), Variant(3)));
    }
}

TEST(Cursors, AbsolutePositionCanBeSetOnALoadedCursorOnly) {
    ObjectRef client = openRecordset(memoryConnection(kThreeRows, 3), u"SELECT id FROM t ORDER BY id");
    client->put(u"AbsolutePosition", Variant(3));
    EXPECT_TRUE(identical(client->get(u"", {Variant(0)}).get<ObjectRef>()->get(u""), Variant(3)));
    EXPECT_EQ(errorNumberOf([&] { client->put(u"AbsolutePosition", Variant(4)); }), ado::InvalidArgument);
    EXPECT_EQ(errorNumberOf([&] { client->put(u"AbsolutePosition", Variant(0)); }), ado::InvalidArgument);
    ObjectRef server = openRecordset(memoryConnection(kThreeRows, 2), u"SELECT id FROM t");
    EXPECT_EQ(errorNumberOf([&] { server->put(u"AbsolutePosition", Variant(2)); }), ado::NotCapable);
}

}  // namespace
}  // namespace telvaro::data::testing

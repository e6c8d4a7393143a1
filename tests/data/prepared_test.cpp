// Connections and recordsets made from a description, moved to a position,
// and the report of a recordset's state.
#include "data/prepared.h"

#include <gtest/gtest.h>

#include "data/errors.h"
#include "data_support.h"

namespace telvaro::data::testing {
namespace {

const std::vector<String> kSetup = {u"CREATE TABLE t (id INTEGER, nombre TEXT)",
                                    u"INSERT INTO t VALUES (1, 'uno'), (2, 'dos'), (3, NULL)"};

TEST(Prepared, RecordsetsMovedToAPosition) {
    struct Case {
        std::int32_t connectionLocation, location, position;
        int error;
        RecordsetReport report;
    };
    const Case cases[] = {
        {3, 0, 1, 0, {true, 1, 3, false, false, {{u"id", Variant(1)}, {u"nombre", Variant(u"uno")}}}},
        {3, 0, 4, ado::InvalidArgument, {}},
        {2, 0, 2, 0, {true, -1, -1, false, false, {{u"id", Variant(2)}, {u"nombre", Variant(u"dos")}}}},
        {2, 3, 2, 0, {true, 2, 3, false, false, {{u"id", Variant(2)}, {u"nombre", Variant(u"dos")}}}},
    };
    for (const auto& c : cases) {
        const std::string label = "locations " + std::to_string(c.connectionLocation) + "/" +
                                  std::to_string(c.location) + ", position " + std::to_string(c.position);
        ObjectRef connection = openPreparedConnection({u":memory:", kSetup, c.connectionLocation}, homeServices());
        try {
            ObjectRef rs = openPreparedRecordset(connection, u"SELECT id, nombre FROM t ORDER BY id", c.location,
                                                 c.position, homeServices());
            EXPECT_EQ(c.error, 0) << label;
            const RecordsetReport got = describeRecordset(*rs);
            EXPECT_EQ(std::tuple(got.open, got.position, got.recordCount, got.bof, got.eof),
                      std::tuple(c.report.open, c.report.position, c.report.recordCount, c.report.bof, c.report.eof))
                << label;
            ASSERT_EQ(got.fields.size(), c.report.fields.size()) << label;
            for (std::size_t i = 0; i < got.fields.size(); ++i) {
                EXPECT_EQ(got.fields[i].first, c.report.fields[i].first) << label;
                EXPECT_TRUE(identical(got.fields[i].second, c.report.fields[i].second)) << label;
            }
        } catch (const RuntimeError& e) {
            EXPECT_EQ(e.number(), c.error) << label << ": " << e.what();
        }
    }
}

}  // namespace
}  // namespace telvaro::data::testing

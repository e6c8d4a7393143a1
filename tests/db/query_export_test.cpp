// ExportExcelReg on the embedded engine, read back from the .xlsx file:
// the title, the caller's headers and widths, the boxes one row past the
// records, every value with its type, and texts that read as dates kept.
#include <gtest/gtest.h>

#include "db_support.h"
#include "host/exported_sheets.h"
#include "sheet/sheet_file.h"
#include "support/support.h"

namespace telvaro::dbtest {
namespace {

using sheet::testing::readSheetFile;
using sheet::testing::SheetFile;
using sheet::testing::widthReadBack;

constexpr int kCommandError = -2147217900;
const std::string kBox = " T=thin/000000 L=thin/000000 B=thin/000000 R=thin/000000";
const std::string kTop = " T=thin/000000 L=thin/000000 R=thin/000000";
const std::string kSides = " L=thin/000000 R=thin/000000";
const std::string kBottom = " L=thin/000000 B=thin/000000 R=thin/000000";

ObjectRef ventas() {
    return data::testing::memoryConnection(
        {u"CREATE TABLE ventas (nombre TEXT, fecha TEXT, monto REAL, unidades INTEGER)",
         u"INSERT INTO ventas VALUES ('Ana Ñúñez', '2/3', 1500.25, 7)",
         u"INSERT INTO ventas VALUES ('Luis', 'sin fecha', 0.5, NULL)",
         u"INSERT INTO ventas VALUES ('0012', '2024-03-02', -3, 12)"},
        3);
}

struct Export {
    Outcome outcome;
    host::ExportReport report;
};

Export exportQuery(const ObjectRef& connection, const char16_t* campos, const char16_t* anchos, const char16_t* sql) {
    (void)host::takeExportReport();
    Export e;
    e.outcome = run("ExportExcelReg", {Variant(connection), v(campos), v(anchos), v(sql), v(u"Ventas")});
    e.report = host::takeExportReport();
    return e;
}

SheetFile onlyFile(const Export& e) {
    EXPECT_EQ(e.outcome.error, 0) << toUtf8(e.outcome.description);
    EXPECT_TRUE(e.report.failures.empty());
    if (e.report.files.size() != 1) {
        ADD_FAILURE() << e.report.files.size() << " files written";
        return {};
    }
    EXPECT_TRUE(e.report.files[0].visible);
    SheetFile file = readSheetFile(e.report.files[0].path);
    EXPECT_TRUE(file.readable);
    return file;
}

TEST(QueryExport, WritesTheRecordsUnderTheCallersHeaders) {
    struct Case {
        const char* label;
        const char16_t* campos;
        const char16_t* sql;
        std::vector<std::string> cells;
    };
    // clang-format off
    const std::vector<Case> cases = {
        {"records, date-like texts kept, one boxed row past the end", u"Nombre,Fecha,Monto,Unidades",
         u"SELECT * FROM ventas ORDER BY rowid",
         {"C2 s:Ventas bold size=14", "B4 s:Nombre bold" + kBox, "C4 s:Fecha bold" + kBox, "D4 s:Monto bold" + kBox,
          "E4 s:Unidades bold" + kBox, "B5 s:Ana Ñúñez" + kTop, "C5 s:2/3" + kTop, "D5 n:1500.25" + kTop,
          "E5 n:7.0" + kTop, "B6 s:Luis" + kSides, "C6 s:sin fecha" + kSides, "D6 n:0.5" + kSides, "E6" + kSides,
          "B7 n:12.0" + kSides, "C7 s:2024-03-02" + kSides, "D7 n:-3.0" + kSides, "E7 n:12.0" + kSides,
          "B8" + kBottom, "C8" + kBottom, "D8" + kBottom, "E8" + kBottom}},
        {"no records: headers and the one empty boxed row", u"Nombre,Monto",
         u"SELECT nombre, monto FROM ventas WHERE 0",
         {"C2 s:Ventas bold size=14", "B4 s:Nombre bold" + kBox, "C4 s:Monto bold" + kBox, "B5" + kBox, "C5" + kBox}},
    };
    // clang-format on
    for (const auto& c : cases) {
        SCOPED_TRACE(c.label);
        EXPECT_EQ(onlyFile(exportQuery(ventas(), c.campos, u"20,12.5,9,6", c.sql)).cells, c.cells);
    }
}

TEST(QueryExport, WidthsAreTheCallersAfterAMargin) {
    SheetFile file = onlyFile(exportQuery(ventas(), u"Nombre,Fecha,Monto", u"20,12.5,9", u"SELECT * FROM ventas"));
    ASSERT_EQ(file.widths.size(), 4u);
    for (auto [letter, set] : {std::pair{"A", 6.0}, {"B", 20.0}, {"C", 12.5}, {"D", 9.0}})
        EXPECT_NEAR(file.widths[letter], widthReadBack(set), sheet::testing::kWidthTolerance) << letter;
}

// More records than the sheet holds in memory: every one written, in order,
// inside the box drawn before them.
TEST(QueryExport, LongQueriesKeepEveryRecordInItsBox) {
    const ObjectRef connection = data::testing::memoryConnection(
        {u"CREATE TABLE n (i INTEGER, t TEXT)",
         u"WITH RECURSIVE k(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM k WHERE i < 9000) "
         u"INSERT INTO n SELECT i, 'fila ' || i FROM k"},
        3);
    const SheetFile file = onlyFile(exportQuery(connection, u"I,T", u"8,12", u"SELECT i, t FROM n ORDER BY i"));
    ASSERT_EQ(file.cells.size(), 1u + 2 + 2 * 9000 + 2);
    EXPECT_EQ(file.cells[3], "B5 n:1.0" + kTop);
    EXPECT_EQ(file.cells[3 + 2 * 4999 + 1], "C5004 s:fila 5000" + kSides);
    EXPECT_EQ(file.cells[file.cells.size() - 3], "C9004 s:fila 9000" + kSides);
    EXPECT_EQ(file.cells.back(), "C9005" + kBottom);
}

// The query's and the lists' faults reach the caller, before any workbook.
TEST(QueryExport, BadQueriesAndListsReachTheCaller) {
    const std::tuple<const char16_t*, const char16_t*, const char16_t*, int> cases[] = {
        {u"Nombre,Fecha,Monto", u"20,12", u"SELECT * FROM ventas", 9},  // fewer widths than headers
        {u"Nombre,Fecha", u"20,ancho", u"SELECT * FROM ventas", 13},
        {u"Nombre", u"20", u"SELEC * FROM ventas", kCommandError},
    };
    for (const auto& [campos, anchos, sql, error] : cases) {
        const Export e = exportQuery(ventas(), campos, anchos, sql);
        EXPECT_EQ(e.outcome.error, error) << toUtf8(e.outcome.description);
        EXPECT_TRUE(e.report.empty());
    }
}

// On a server cursor the count is -1: the bar refuses that maximum and keeps
// 100, counts the first 100 records and then refuses every further value,
// each refusal skipped; the caption keeps telling the bar's value.
TEST(QueryExport, ProgressWithoutACountStopsAtTheBarsMaximum) {
    Session session;
    (void)host::takeExportReport();
    const Outcome out = session.run("ExportExcelReg", {Variant(clientConnection(150, 2)), v(u"Codigo"), v(u"8"),
                                                       v(u"SELECT codigo FROM clientes"), v(u"Clientes")});
    ASSERT_EQ(out.error, 0) << toUtf8(out.description);
    ASSERT_EQ(host::takeExportReport().files.size(), 1u);
    const std::string step = "Caption=Progreso . . .      (";
    std::vector<std::string> expected = {"Load", "PB.Value=0", "Show", "ZOrder 0"};
    for (int k = 1; k <= 150; ++k) {
        if (k <= 100) expected.push_back("PB.Value=" + std::to_string(k));
        expected.push_back(step + std::to_string(std::min(k, 100)) + " de -1)");
    }
    expected.push_back("Unload");
    EXPECT_EQ(session.progress(), expected);
}

}  // namespace
}  // namespace telvaro::dbtest

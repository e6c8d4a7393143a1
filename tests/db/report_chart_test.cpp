// A data report bound to a recordset, and chart data built from queries.
#include <gtest/gtest.h>

#include "db_support.h"
#include "objects/chart.h"
#include "objects/data_report.h"
#include "objects/text_box.h"
#include "support/support.h"

namespace telvaro::dbtest {
namespace {

using objects::DataReport;
using objects::ReportControl;
using Kind = ReportControl::Kind;

constexpr const char16_t* kNoData = u"No existen datos para generar una gráfica estadística.";

std::shared_ptr<ReportControl> control(const std::shared_ptr<DataReport>& report, std::size_t section, Kind kind,
                                       const char16_t* name) {
    auto c = std::make_shared<ReportControl>(kind, name);
    c->dataMember = u"antes";
    report->sections()[section]->add(c);
    return c;
}

ObjectRef recordset(const char16_t* dataMember, ObjectRef dataSource) {
    const ObjectRef rs = data::testing::openRecordset(clientConnection(3), u"SELECT * FROM clientes");
    rs->put(u"DataMember", Variant(String(dataMember)));
    if (dataSource) rs->put(u"DataSource", Variant(dataSource));
    return rs;
}

TEST(Reports, TheDetailTextBoxesAndTheFooterFunctionsAreBound) {
    auto report = std::make_shared<DataReport>();
    // Sections 1 to 5, from 0 here: only the detail's text boxes and the
    // footer's functions take the recordset's DataMember.
    struct Placed {
        std::size_t section;
        Kind kind;
        const char16_t *name, *dataMember;  // DataMember after the call
    };
    const std::vector<Placed> placed = {
        {0, Kind::TextBox, u"txtTitulo", u"antes"},  {2, Kind::TextBox, u"txtNombre", u"Ventas"},
        {2, Kind::Function, u"fnDetalle", u"antes"}, {3, Kind::Function, u"fnPagina", u"antes"},
        {4, Kind::Function, u"fnTotal", u"Ventas"},  {4, Kind::TextBox, u"txtPie", u"antes"},
    };
    std::vector<std::shared_ptr<ReportControl>> controls;
    for (const auto& p : placed) controls.push_back(control(report, p.section, p.kind, p.name));

    const ObjectRef source = clientConnection(1);
    const Outcome out = run("PreparaReportes", {Variant(ObjectRef(report)), Variant(recordset(u"Ventas", source))});
    ASSERT_EQ(out.error, 0) << toUtf8(out.description);
    EXPECT_EQ(report->dataSource, source);
    EXPECT_EQ(report->dataMember, u"Ventas");
    for (std::size_t i = 0; i < placed.size(); ++i) {
        SCOPED_TRACE(toUtf8(placed[i].name));
        EXPECT_EQ(controls[i]->dataMember, placed[i].dataMember);
    }
    EXPECT_EQ(report->calls(), (std::vector<String>{u"DataSource=", u"DataMember=", u"Sections", u"Sections"}));
    EXPECT_EQ(controls[1]->calls(), std::vector<String>{u"DataMember="});
}

TEST(Reports, Failures) {
    auto fourSections = std::make_shared<DataReport>(u"rpt", std::vector<String>{u"a", u"b", u"c", u"d"});
    const std::tuple<const char*, ObjectRef, int> cases[] = {
        {"no report footer", fourSections, 9},
        {"Nothing for a report", nullptr, 91},
    };
    for (const auto& [what, report, error] : cases)
        EXPECT_EQ(run("PreparaReportes", {Variant(report), Variant(recordset(u"x", nullptr))}).error, error) << what;
    // What was bound before the failure stays bound.
    EXPECT_EQ(fourSections->dataMember, u"x");
}

Variant matrix(std::vector<std::vector<Variant>> rows) {
    Array m = Array::matrix(0, static_cast<std::int32_t>(rows.size()) - 1, 0, 1);
    for (std::size_t i = 0; i < rows.size(); ++i)
        for (std::size_t j = 0; j < 2; ++j)
            m.at(static_cast<std::int32_t>(i), static_cast<std::int32_t>(j)) = rows[i][j];
    return Variant(std::move(m));
}

ObjectRef sales(std::int32_t location = 3) {
    return data::testing::memoryConnection(
        {u"CREATE TABLE ventas (mes TEXT, total REAL, orden INTEGER)",
         u"INSERT INTO ventas VALUES ('Enero', 1200.5, 1), ('Febrero', 950, 2), (NULL, 7, 3)"},
        location);
}

TEST(ChartData, MatricesFromQueries) {
    const Variant E;
    struct Case {
        const char* what;
        std::int32_t location;
        const char16_t *sql, *suffix;
        bool withChart;
        Variant expected;
        bool message;
    };
    const std::vector<Case> cases = {
        {"three rows with a unit", 3, u"SELECT mes, total FROM ventas ORDER BY orden", u" kg", true,
         matrix({{v(u"Enero kg"), Variant(1200.5)}, {v(u"Febrero kg"), Variant(950.0)}, {v(u" kg"), Variant(7.0)}}),
         false},
        {"one row: the second stays Empty", 3, u"SELECT mes, total FROM ventas WHERE orden = 2", u"", true,
         matrix({{v(u"Febrero"), Variant(950.0)}, {E, E}}), false},
        {"no rows, the message", 3, u"SELECT mes, total FROM ventas WHERE orden > 9", u"", true,
         matrix({{E, E}, {E, E}}), true},
        {"rows and no chart: Empty", 3, u"SELECT mes, total FROM ventas", u"", false, Variant(), false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        auto chart = std::make_shared<objects::Chart>();
        std::vector<Variant> args = {Variant(sales(c.location)), v(c.sql), v(c.suffix), Variant::missing()};
        if (c.withChart) args.push_back(Variant(ObjectRef(chart)));
        const Outcome out = run("fn_MatrizParaEstadistica", args);
        ASSERT_EQ(out.error, 0) << toUtf8(out.description);
        EXPECT_TRUE(identical(out.result, c.expected)) << describe(out.result);
        if (c.withChart) {
            EXPECT_TRUE(identical(chart->chartData(), c.expected.isEmpty() ? Variant() : c.expected))
                << describe(chart->chartData());
        }
        ASSERT_EQ(out.boxes.size(), c.message ? 1u : 0u);
        if (c.message) {
            EXPECT_EQ(std::tuple(out.boxes[0].prompt, out.boxes[0].style, out.boxes[0].title),
                      std::tuple(String(kNoData), 16, String()));
        }
    }
}

TEST(ChartData, OnlyTheChartsFailureIsSkipped) {
    const char16_t* sql = u"SELECT mes, total FROM ventas";
    // A control that has no ChartData, or refuses it: the rows are read,
    // the result is Empty, no error.
    EXPECT_TRUE(run("fn_MatrizParaEstadistica", {Variant(sales()), v(sql), v(u""), v(True),
                                                 Variant(ObjectRef(std::make_shared<objects::TextBox>()))})
                    .result.isEmpty());
    // The query's own failures reach the caller.
    const ObjectRef closed = sales();
    closed->call(u"Close");
    for (const auto& [connection, statement, error] :
         {std::tuple{sales(), u"SELEC mes FROM ventas", -2147217900}, std::tuple{closed, sql, 3709}}) {
        auto chart = std::make_shared<objects::Chart>();
        EXPECT_EQ(run("fn_MatrizParaEstadistica",
                      {Variant(connection), v(statement), v(u""), v(True), Variant(ObjectRef(chart))})
                      .error,
                  error);
        EXPECT_TRUE(chart->chartData().isEmpty());
    }
}

}  // namespace
}  // namespace telvaro::dbtest

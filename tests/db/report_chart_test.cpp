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
        const char16_t* name;
        const char16_t* dataMember;  // after the call
    };
    const std::vector<Placed> placed = {
        {0, Kind::TextBox, u"txtTitulo", u"antes"},  {1, Kind::TextBox, u"txtPagina", u"antes"},
        {2, Kind::TextBox, u"txtNombre", u"Ventas"}, {2, Kind::Function, u"fnDetalle", u"antes"},
        {2, Kind::TextBox, u"txtCiudad", u"Ventas"}, {3, Kind::Function, u"fnPagina", u"antes"},
        {4, Kind::Function, u"fnTotal", u"Ventas"},  {4, Kind::TextBox, u"txtPie", u"antes"},
        {4, Kind::Function, u"fnCuenta", u"Ventas"},
    };
    std::vector<std::shared_ptr<ReportControl>> controls;
    for (const auto& p : placed) controls.push_back(control(report, p.section, p.kind, p.name));
    auto label = std::make_shared<ReportControl>(Kind::Label, u"lblNombre");
    report->sections()[2]->add(label);
    auto line = std::make_shared<ReportControl>(Kind::Line, u"linPie");
    report->sections()[4]->add(line);

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
    EXPECT_TRUE(label->calls().empty());
    EXPECT_TRUE(line->calls().empty());
    EXPECT_EQ(controls[2]->calls(), std::vector<String>{u"DataMember="});
}

TEST(Reports, ARecordsetWithoutBindingUnbindsTheReport) {
    auto report = std::make_shared<DataReport>();
    report->dataSource = clientConnection(1);
    report->dataMember = u"Viejo";
    auto text = control(report, 2, Kind::TextBox, u"txtNombre");
    ASSERT_EQ(run("PreparaReportes", {Variant(ObjectRef(report)), Variant(recordset(u"", nullptr))}).error, 0);
    EXPECT_EQ(report->dataSource, nullptr);
    EXPECT_EQ(report->dataMember, u"");
    EXPECT_EQ(text->dataMember, u"");
}

TEST(Reports, Failures) {
    struct Case {
        const char* what;
        ObjectRef report;
        ObjectRef recordset;
        int error;
    };
    auto fourSections = std::make_shared<DataReport>(u"rpt", std::vector<String>{u"a", u"b", u"c", u"d"});
    auto bound = std::make_shared<DataReport>();
    const std::vector<Case> cases = {
        {"no detail section", std::make_shared<DataReport>(u"rpt", std::vector<String>{u"a"}), recordset(u"x", nullptr),
         9},
        {"no report footer", fourSections, recordset(u"x", nullptr), 9},
        {"a text box for a report", std::make_shared<objects::TextBox>(u"txt"), recordset(u"x", nullptr), 438},
        {"a connection for a recordset", bound, clientConnection(1), 438},
        {"Nothing for a report", nullptr, recordset(u"x", nullptr), 91},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(run("PreparaReportes", {Variant(c.report), Variant(c.recordset)}).error, c.error);
    }
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
        const char16_t* sql;
        const char16_t* suffix;  // nullptr: omitted
        Variant conMsg;          // Empty: omitted
        bool withChart;
        Variant expected;
        bool message;
    };
    const std::vector<Case> cases = {
        {"three rows with a unit", 3, u"SELECT mes, total FROM ventas ORDER BY orden", u" kg", Variant(), true,
         matrix({{v(u"Enero kg"), Variant(1200.5)}, {v(u"Febrero kg"), Variant(950.0)}, {v(u" kg"), Variant(7.0)}}),
         false},
        {"values as stored", 3, u"SELECT orden, mes FROM ventas ORDER BY orden", nullptr, Variant(), true,
         matrix({{v(u"1"), v(u"Enero")}, {v(u"2"), v(u"Febrero")}, {v(u"3"), Variant(Null{})}}), false},
        {"one row: the second stays Empty", 3, u"SELECT mes, total FROM ventas WHERE orden = 2", u"", Variant(), true,
         matrix({{v(u"Febrero"), Variant(950.0)}, {E, E}}), false},
        {"no rows, the message", 3, u"SELECT mes, total FROM ventas WHERE orden > 9", u"", Variant(), true,
         matrix({{E, E}, {E, E}}), true},
        {"no rows and no chart: still the matrix", 3, u"SELECT mes, total FROM ventas WHERE orden > 9", u"", v(False),
         false, matrix({{E, E}, {E, E}}), false},
        {"rows and no chart: Empty", 3, u"SELECT mes, total FROM ventas", u"", Variant(), false, Variant(), false},
        // A server cursor cannot count: no rows as far as the method knows.
        {"a server cursor", 2, u"SELECT mes, total FROM ventas", u"", Variant(), true, matrix({{E, E}, {E, E}}), true},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        auto chart = std::make_shared<objects::Chart>();
        std::vector<Variant> args = {Variant(sales(c.location)), v(c.sql), c.suffix ? v(c.suffix) : Variant::missing(),
                                     c.conMsg.isEmpty() ? Variant::missing() : c.conMsg};
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
            EXPECT_EQ(out.boxes[0].prompt, kNoData);
            EXPECT_EQ(out.boxes[0].style, 16);
            EXPECT_EQ(out.boxes[0].title, u"");
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
    struct Case {
        const char* what;
        std::vector<Variant> args;
        int error;
    };
    const ObjectRef closed = sales();
    closed->call(u"Close");
    const std::vector<Case> cases = {
        {"a bad statement", {Variant(sales()), v(u"SELEC mes FROM ventas")}, -2147217900},
        {"one column", {Variant(sales()), v(u"SELECT mes FROM ventas")}, 3265},
        {"a closed connection", {Variant(closed), v(sql)}, 3709},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        auto chart = std::make_shared<objects::Chart>();
        std::vector<Variant> args = c.args;
        args.insert(args.end(), {v(u""), v(True), Variant(ObjectRef(chart))});
        EXPECT_EQ(run("fn_MatrizParaEstadistica", args).error, c.error);
        EXPECT_TRUE(chart->chartData().isEmpty());
    }
}

}  // namespace
}  // namespace telvaro::dbtest

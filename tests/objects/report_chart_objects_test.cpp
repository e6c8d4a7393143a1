// The data report (sections, controls, binding) and the chart (ChartData)
// through their members.
#include <gtest/gtest.h>

#include "member_script.h"
#include "objects/chart.h"
#include "objects/data_report.h"

namespace telvaro::objects {
namespace {

using A = Access;
using Kind = ReportControl::Kind;

Variant matrix2x2() {
    Array m = Array::matrix(0, 1, 0, 1);
    m.at(0, 0) = S(u"Enero");
    m.at(0, 1) = L(5);
    return Variant(std::move(m));
}

TEST(DataReportObject, SectionsControlsAndBinding) {
    auto report = std::make_shared<DataReport>();
    auto text = std::make_shared<ReportControl>(Kind::TextBox, u"txtNombre");
    auto label = std::make_shared<ReportControl>(Kind::Label, u"lblNombre");
    report->sections()[2]->add(text);
    report->sections()[2]->add(label);
    const ObjectRef source = std::make_shared<Chart>();
    // clang-format off
    runScript(*report, {
        {A::Get, u"Name", {}, S(u"DataReport1")}, {A::Get, u"DataSource", {}, Variant(ObjectRef())},
        {A::Put, u"DataSource", {S(u"texto")}, {}, 424}, {A::Put, u"DataSource", {Variant(source)}},
        {A::Get, u"DataSource", {}, Variant(source)}, {A::Put, u"DataMember", {S(u"Ventas")}},
        {A::Get, u"DataMember", {}, S(u"Ventas")}, {A::Put, u"Name", {S(u"otro")}, {}, 383}, {A::Call, u"Refresh"},
        {A::Get, u"NoExiste", {}, {}, 438}});
    // clang-format on
    EXPECT_EQ(report->refreshes(), 1);
    EXPECT_EQ(report->font()->description().name, u"Arial");

    ObjectHandle sections = objectOf(report->get(u"Sections"));
    EXPECT_TRUE(identical(sections.get(u"Count"), L(5)));
    // Sections(key) and Sections.Item(key) reach the same item.
    for (const auto& [key, name] :
         std::vector<std::pair<Variant, String>>{{L(3), u"Sección3"}, {S(u"SECCIÓN5"), u"Sección5"}, {L(6), u""}}) {
        SCOPED_TRACE(describe(key));
        Variant section;
        EXPECT_EQ(errorNumberOf([&] { section = sections.get(u"", {key}); }), name.empty() ? 9 : 0);
        EXPECT_TRUE(name.empty() || objectOf(section).get(u"Name").get<String>() == name) << toUtf8(name);
        EXPECT_EQ(errorNumberOf([&] { report->get(u"Sections", {key}); }), name.empty() ? 9 : 0);
    }

    ObjectHandle detail = objectOf(report->get(u"Sections", {L(3)}));
    ObjectHandle controls = objectOf(detail.get(u"Controls"));
    EXPECT_TRUE(identical(controls.get(u"Count"), L(2)));
    EXPECT_EQ(controls.call(u"_NewEnum").array().size(), 2u);
    EXPECT_EQ(objectOf(controls.get(u"", {S(u"TXTNOMBRE")})).ref(), text);
    EXPECT_EQ(objectOf(detail.get(u"Controls", {L(2)})).ref(), label);
    EXPECT_EQ(errorNumberOf([&] { controls.get(u"Item", {L(3)}); }), 9);
    // Two controls of one name in a section: refused.
    EXPECT_EQ(
        errorNumberOf([&] { report->sections()[2]->add(std::make_shared<ReportControl>(Kind::Label, u"TXTNOMBRE")); }),
        5);
}

TEST(ChartObject, ChartDataKeepsArraysOnly) {
    auto chart = std::make_shared<Chart>();
    // clang-format off
    runScript(*chart, {
        {A::Get, u"ChartData", {}, Variant()}, {A::Put, u"ChartData", {matrix2x2()}},
        {A::Get, u"ChartData", {}, matrix2x2()}, {A::Get, u"RowCount", {}, L(2)}, {A::Get, u"ColumnCount", {}, L(2)},
        {A::Put, u"ChartData", {S(u"texto")}, {}, 13}, {A::Get, u"ChartData", {}, matrix2x2()},
        {A::Put, u"RowCount", {L(3)}, {}, 383}, {A::Put, u"ChartData", {Variant(Array::ofValues({L(1), L(2), L(3)}))}},
        {A::Get, u"RowCount", {}, L(1)}, {A::Get, u"ColumnCount", {}, L(3)}});
    // clang-format on
}

}  // namespace
}  // namespace telvaro::objects

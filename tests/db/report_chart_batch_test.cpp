// Binary values, data reports and charts through batch requests.
#include <gtest/gtest.h>

#include <filesystem>

#include "cli/batch.h"
#include "cli/object_json.h"

namespace telvaro {
namespace {

using cli::Json;

Json answerOf(const std::string& request) { return Json::parse(cli::answerRequest(request)); }

const std::string kSales =
    R"j({"object":"connection","setup":["CREATE TABLE v(m, t)","INSERT INTO v VALUES ('Enero',2),('Febrero',4)"],"cursorLocation":3})j";

TEST(ReportChartBatch, RequestsAndTheirAnswers) {
    std::filesystem::create_directories("drives/c/windows/temp");
    const std::string report =
        R"({"object":"report","sections":{"Sección1":[],"Sección2":[],"Sección3":[{"object":"rpttextbox","name":"txtMes","dataField":"m"},{"object":"rptlabel","name":"lblMes","caption":"Mes"}],"Sección4":[],"Sección5":[{"object":"rptfunction","name":"fnTotal","dataField":"t","functionType":0}]}})";
    const std::string rs = R"({"object":"recordset","connection":)" + kSales +
                           R"(,"source":"SELECT * FROM v","cursorLocation":3,"dataMember":"Ventas"})";
    struct Case {
        const char* what;
        std::string request;
        std::string pointer;  // into the answer
        Json expected;
    };
    const std::vector<Case> cases = {
        {"bytes to the scratch file", R"({"id":1,"method":"regGuardaStream","args":[{"bytes":"AAEC/w=="}]})",
         "/result/value", "C:\\windows\\temp\\ResAdoStream.qzx"},
        {"and back", R"({"id":2,"method":"regLeeStream","args":["C:\\windows\\temp\\ResAdoStream.qzx"]})", "/result",
         Json{{"type", "Bytes"}, {"value", "AAEC/w=="}}},
        {"no bytes", R"({"id":3,"method":"regGuardaStream","args":[{"bytes":""},"C:\\windows\\temp\\v.bin"]})",
         "/byref/0", Json{{"type", "Bytes"}, {"value", ""}}},
        {"bad base64", R"({"id":4,"method":"regGuardaStream","args":[{"bytes":"AAE"}]})", "/error/number", 5},
        {"the detail's text box bound", R"({"id":5,"method":"PreparaReportes","args":[)" + report + "," + rs + "]}",
         "/byref/0/value/sections/Sección3/0/dataMember", "Ventas"},
        {"the label untouched", R"({"id":6,"method":"PreparaReportes","args":[)" + report + "," + rs + "]}",
         "/byref/0/value/sections/Sección3/1/calls", Json::array()},
        {"the footer's function bound", R"({"id":7,"method":"PreparaReportes","args":[)" + report + "," + rs + "]}",
         "/byref/0/value/sections/Sección5/0/dataMember", "Ventas"},
        {"the report's member", R"({"id":8,"method":"PreparaReportes","args":[)" + report + "," + rs + "]}",
         "/byref/0/value/dataMember", "Ventas"},
        {"a report of one section",
         R"({"id":9,"method":"PreparaReportes","args":[{"object":"report","sections":{"a":[]}},)" + rs + "]}",
         "/error/number", 9},
        {"a section of no list",
         R"({"id":10,"method":"PreparaReportes","args":[{"object":"report","sections":{"a":1}},)" + rs + "]}",
         "/error/number", 5},
        {"the chart's data",
         R"({"id":11,"method":"fn_MatrizParaEstadistica","args":[)" + kSales +
             R"(,"SELECT m, t FROM v"," kg",true,{"object":"chart"}]})",
         "/byref/4/value/chartData/value/1/0/value", "Febrero kg"},
        {"the result",
         R"({"id":12,"method":"fn_MatrizParaEstadistica","args":[)" + kSales +
             R"(,"SELECT m, t FROM v"," kg",true,{"object":"chart"}]})",
         "/result/value/0/1/value", 2},
        {"no rows: the message",
         R"({"id":13,"method":"fn_MatrizParaEstadistica","args":[)" + kSales + R"(,"SELECT m, t FROM v WHERE 0"]})",
         "/messages/0/style", 16},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        const Json answer = answerOf(c.request);
        EXPECT_EQ(answer.value(Json::json_pointer(c.pointer), Json()), c.expected) << answer.dump().substr(0, 800);
    }
}

}  // namespace
}  // namespace telvaro

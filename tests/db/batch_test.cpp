// The database methods through batch requests: connections, recordsets,
// binary values, reports and charts described in JSON, their state in the answer.
#include <gtest/gtest.h>

#include <filesystem>

#include "cli/batch.h"
#include "cli/object_json.h"

namespace telvaro {
namespace {

using cli::Json;

Json answerOf(const std::string& request) { return Json::parse(cli::answerRequest(request)); }

const std::string kClients =
    R"({"object":"connection","setup":["CREATE TABLE c(k, n) ","INSERT INTO c VALUES (1,'Ana'),(2,'Luis'),(3,'QUITO') "],"cursorLocation":3})";
const std::string kSales =
    R"j({"object":"connection","setup":["CREATE TABLE v(m, t)","INSERT INTO v VALUES ('Enero',2),('Febrero',4)"],"cursorLocation":3})j";

TEST(DatabaseBatch, RequestsAndTheirAnswers) {
    std::filesystem::create_directories("drives/c/windows/temp");
    const std::string report =
        R"({"object":"report","sections":{"Sección1":[],"Sección2":[],"Sección3":[{"object":"rpttextbox","name":"txtMes","dataField":"m"},{"object":"rptlabel","name":"lblMes","caption":"Mes"}],"Sección4":[],"Sección5":[{"object":"rptfunction","name":"fnTotal","dataField":"t","functionType":0}]}})";
    const std::string rs = R"({"object":"recordset","connection":)" + kSales +
                           R"(,"source":"SELECT * FROM v","cursorLocation":3,"dataMember":"Ventas"})";
    const std::string prepara = R"({"id":5,"method":"PreparaReportes","args":[)" + report + "," + rs + "]}";
    const std::string chart = R"({"id":11,"method":"fn_MatrizParaEstadistica","args":[)" + kSales +
                              R"(,"SELECT m, t FROM v"," kg",true,{"object":"chart"}]})";
    struct Case {
        const char* what;
        std::string request;
        std::string pointer;  // into the answer
        Json expected;
    };
    const std::vector<Case> cases = {
        {"one value",
         R"({"id":1,"method":"regDevuelveDatoCampoSQL","args":[)" + kClients + R"(,"SELECT n FROM c WHERE k=2"]})",
         "/result/value", "Luis"},
        {"one connection for two lists",
         R"({"id":4,"method":"regCargaListaSQL","args":[)" + kClients +
             R"(,"SELECT k, n FROM c",{"object":"list"},"n",{"object":"list"},"k"]})",
         "/byref/2/value/items/2", "QUITO"},
        {"a form's records",
         R"({"id":5,"method":"RegistroSiguiente","args":[{"object":"form","name":"f","lista":{"object":"recordset","connection":)" +
             kClients + R"(,"source":"SELECT k FROM c","position":2}}]})",
         "/byref/0/value/lista/position", 3},
        {"bytes to the scratch file", R"({"id":1,"method":"regGuardaStream","args":[{"bytes":"AAEC/w=="}]})",
         "/result/value", "C:\\windows\\temp\\ResAdoStream.qzx"},
        {"the footer's function bound", prepara, "/byref/0/value/sections/Sección5/0/dataMember", "Ventas"},
        {"the chart's data", chart, "/byref/4/value/chartData/value/1/0/value", "Febrero kg"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        const Json answer = answerOf(c.request);
        EXPECT_EQ(answer.value(Json::json_pointer(c.pointer), Json()), c.expected) << answer.dump().substr(0, 800);
    }
}

}  // namespace
}  // namespace telvaro

// The database methods through batch requests: connections, recordsets,
// binary values, reports and charts described in JSON, their state in the
// answer, the progress form's entries and the files written.
#include <gtest/gtest.h>

#include <filesystem>

#include "cli/batch.h"
#include "cli/object_json.h"
#include "host/exported_sheets.h"
#include "sheet/sheet_file.h"

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
        {"an unknown driver",
         R"({"id":6,"method":"regDevuelveDatoCampoSQL","args":[{"object":"connection","database":"odbc:Driver=Nada"},"SELECT 1"]})",
         "/error/number", -2147467259},
        {"bytes to the scratch file", R"({"id":1,"method":"regGuardaStream","args":[{"bytes":"AAEC/w=="}]})",
         "/result/value", "C:\\windows\\temp\\ResAdoStream.qzx"},
        {"and back", R"({"id":2,"method":"regLeeStream","args":["C:\\windows\\temp\\ResAdoStream.qzx"]})", "/result",
         Json{{"type", "Bytes"}, {"value", "AAEC/w=="}}},
        {"no bytes", R"({"id":3,"method":"regGuardaStream","args":[{"bytes":""},"C:\\windows\\temp\\v.bin"]})",
         "/byref/0", Json{{"type", "Bytes"}, {"value", ""}}},
        {"bad base64", R"({"id":4,"method":"regGuardaStream","args":[{"bytes":"AAE"}]})", "/error/number", 5},
        {"the footer's function bound", prepara, "/byref/0/value/sections/Sección5/0/dataMember", "Ventas"},
        {"a section of no list",
         R"({"id":10,"method":"PreparaReportes","args":[{"object":"report","sections":{"a":1}},)" + rs + "]}",
         "/error/number", 5},
        {"the chart's data", chart, "/byref/4/value/chartData/value/1/0/value", "Febrero kg"},
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

// The progress form's entries and the files written come with the answer;
// a request that shows no form and writes nothing has neither field.
TEST(DatabaseBatch, TheAnswerCarriesTheProgressFormAndTheFiles) {
    const Json grid = answerOf(
        R"J({"id":1,"method":"RegLlenaGridRegSql","args":[{"object":"connection","setup":["CREATE TABLE t(k)","INSERT INTO t VALUES (7),(8)"],"cursorLocation":3},)J"
        R"J({"object":"grid","rows":2,"cols":2},"SELECT k FROM t","k|N$",true,false,1,1,false,"##0.00",true]})J");
    ASSERT_FALSE(grid.contains("error")) << grid.dump();
    EXPECT_EQ(grid.at("byref").at(1).at("value").at("cells").at(2).at(1), "$ 8.00");
    EXPECT_EQ(grid.at("progress"), Json::parse(R"J(["Load","PB.Value=0","PB.Max=2","Show","PB.Value=1",
        "Caption=Progreso . . .      (1 de 2)","PB.Value=2","Caption=Progreso . . .      (2 de 2)","Unload"])J"));

    const Json exported = answerOf(
        R"J({"id":1,"method":"ExportExcelReg","args":[{"object":"connection","setup":["CREATE TABLE c(k, n)",)J"
        R"J("INSERT INTO c VALUES (1,'Ana')"],"cursorLocation":3},"Código,Nombre","8,20","SELECT k, n FROM c","Clientes"]})J");
    ASSERT_FALSE(exported.contains("error")) << exported.dump();
    ASSERT_EQ(exported.at("files").size(), 1u) << exported.dump();
    const Json& file = exported.at("files").at(0);
    const std::filesystem::path path = file.at("path").get<std::string>();
    EXPECT_EQ(path.parent_path(), host::exportsFolder());
    EXPECT_TRUE(file.at("visible").get<bool>());
    EXPECT_FALSE(file.at("opened").get<bool>());  // no display in the tests
    EXPECT_EQ(sheet::testing::readSheetFile(path).cells[3], "B5 n:1.0 T=thin/000000 L=thin/000000 R=thin/000000");

    const Json quiet = answerOf(R"({"id":2,"method":"strCuentaCaracteres","args":["aaa","a"]})");
    EXPECT_FALSE(quiet.contains("progress"));
    EXPECT_FALSE(quiet.contains("files"));
}

}  // namespace
}  // namespace telvaro

// The database methods through batch requests: connections and recordsets
// described in JSON, their state in the answer.
#include <gtest/gtest.h>

#include "cli/batch.h"
#include "cli/object_json.h"

namespace telvaro {
namespace {

using cli::Json;

Json answerOf(const std::string& request) { return Json::parse(cli::answerRequest(request)); }

const std::string kClients =
    R"({"object":"connection","setup":["CREATE TABLE c(k, n) ","INSERT INTO c VALUES (1,'Ana'),(2,'Luis'),(3,'QUITO') "],"cursorLocation":3})";

TEST(DatabaseBatch, RequestsAndTheirAnswers) {
    struct Case {
        std::string request;
        std::string pointer;  // into the answer
        Json expected;
    };
    const std::vector<Case> cases = {
        {R"({"id":1,"method":"regDevuelveDatoCampoSQL","args":[)" + kClients + R"(,"SELECT n FROM c WHERE k=2"]})",
         "/result/value", "Luis"},
        {R"({"id":2,"method":"regUltimoCodigo","args":[)" + kClients + R"(,"k","c","1=1",5]})", "/result/value", 8},
        {R"({"id":3,"method":"regUltimoCodigo","args":[)" + kClients + R"(,"k","c",""]})", "/error/number",
         -2147217900},
        // One description in two arguments is one connection: the list sees the setup once.
        {R"({"id":4,"method":"regCargaListaSQL","args":[)" + kClients +
             R"(,"SELECT k, n FROM c",{"object":"list"},"n",{"object":"list"},"k"]})",
         "/byref/2/value/items/2", "QUITO"},
        {R"({"id":5,"method":"RegistroSiguiente","args":[{"object":"form","name":"f","lista":{"object":"recordset","connection":)" +
             kClients + R"(,"source":"SELECT k FROM c","position":2}}]})",
         "/byref/0/value/lista/position", 3},
        {R"({"id":6,"method":"regDevuelveDatoCampoSQL","args":[{"object":"connection","database":"odbc:Driver=Nada"},"SELECT 1"]})",
         "/error/number", -2147467259},
        {R"({"id":7,"method":"regDevuelveDatoCampoSQL","args":[{"object":"connection","cursorLocation":9},"SELECT 1"]})",
         "/error/number", 5},
    };
    for (const auto& c : cases) {
        const Json answer = answerOf(c.request);
        EXPECT_EQ(answer.value(Json::json_pointer(c.pointer), Json()), c.expected) << answer.dump().substr(0, 600);
    }
}

}  // namespace
}  // namespace telvaro

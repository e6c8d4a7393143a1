#include "db_support.h"

#include "frame/invoke.h"
#include "host/default_platform.h"

#include <stdexcept>

namespace telvaro::dbtest {

Session::Session(std::vector<int> answers) : platform_(defaultPlatform(), std::move(answers)) {
    platform_.use(std::shared_ptr<ProgressDisplay>(recorder_));
}

Outcome Session::run(const char* method, std::vector<Variant> args) {
    Fun fun(platform_);
    Outcome out;
    try {
        out.result = invoke(fun, method, args);
    } catch (const RuntimeError& e) {
        out.error = e.number();
        out.description = e.description();
    }
    out.boxes = platform_.boxes().shown();
    return out;
}

std::vector<std::string> Session::progress() {
    std::vector<std::string> out;
    for (const auto& entry : recorder_->take()) out.push_back(toUtf8(entry));
    return out;
}

std::vector<String> clientTable(int rows) {
    static const char16_t* const names[] = {u"Ana", u"Luis", u"QUITO", u"Marta", u"Pedro"};
    std::vector<String> setup = {u"CREATE TABLE clientes (codigo INTEGER, nombre TEXT, ciudad TEXT)"};
    for (int i = 1; i <= rows; ++i) {
        setup.push_back(u"INSERT INTO clientes VALUES (" + fromUtf8(std::to_string(i)) + u", '" + names[(i - 1) % 5] +
                        fromUtf8(std::to_string(i)) + u"', 'Quito')");
    }
    return setup;
}

ObjectRef clientConnection(int rows, std::int32_t cursorLocation) {
    return data::testing::memoryConnection(clientTable(rows), cursorLocation);
}

ObjectRef serverConnection(std::int32_t cursorLocation) {
    auto& server = data::testing::PostgresServer::instance();
    if (!server.ready()) throw std::runtime_error("PostgreSQL is not running: " + server.failure());
    ObjectRef connection = data::testing::create(u"ADODB.Connection");
    connection->put(u"CursorLocation", Variant(cursorLocation));
    connection->call(u"Open", {Variant(server.connectionString())});
    return connection;
}

}  // namespace telvaro::dbtest

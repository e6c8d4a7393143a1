#include "db_support.h"

#include "context/fun.h"
#include "frame/invoke.h"
#include "host/default_platform.h"

namespace telvaro::dbtest {

Outcome run(const char* method, std::vector<Variant> args, std::vector<int> answers) {
    ScriptedPlatform platform(defaultPlatform(), std::move(answers));
    Fun fun(platform);
    Outcome out;
    try {
        out.result = invoke(fun, method, args);
    } catch (const RuntimeError& e) {
        out.error = e.number();
        out.description = e.description();
    }
    out.boxes = platform.boxes().shown();
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

}  // namespace telvaro::dbtest

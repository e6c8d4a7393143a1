// Calls two methods the way an application does, late-bound by name, and
// prints their results: a number and a text.
#include <iostream>
#include <vector>

#include "context/fun.h"
#include "frame/invoke.h"
#include "host/default_platform.h"
#include "runtime/convert.h"
#include "runtime/error.h"

int main() {
    using namespace telvaro;
    try {
        Fun fun(defaultPlatform());
        std::cout << toUtf8(toString(call(fun, "strCuentaCaracteres", {Variant(u"aaaa"), Variant(u"aa")}))) << '\n';
        std::cout << toUtf8(toString(call(fun, "strCadenaEntrePosicion",
                                          {Variant(u"abcdef"), Variant(std::int16_t{2}), Variant(std::int16_t{4})})))
                  << '\n';
    } catch (const RuntimeError& e) {
        std::cerr << "Error " << e.number() << '\n';
        return 1;
    }
    return 0;
}

#include <ostream>

#include "host/default_platform.h"
#include "frame/invoke.h"
#include "cli/commands.h"
#include "cli/json_values.h"
#include "context/fun.h"
#include "runtime/convert.h"
#include "runtime/error.h"

namespace telvaro::cli {

namespace {

// The display form of a result: its text; an array as its elements, one
// per line.
void printValue(std::ostream& out, const Variant& v) {
    if (v.isArray()) {
        for (const auto& item : v.array().elements()) printValue(out, item);
        return;
    }
    if (v.isNull()) {
        out << "Null\n";
        return;
    }
    if (v.isObject()) {
        out << (v.get<ObjectRef>() ? "(Object)" : "Nothing") << '\n';
        return;
    }
    out << toUtf8(toString(v)) << '\n';
}

}  // namespace

int callMethod(const std::string& method, const std::vector<std::string>& args, std::ostream& out, std::ostream& err) {
    std::vector<Variant> values;
    for (const auto& a : args) values.push_back(Variant(fromUtf8(a)));
    try {
        Fun fun(defaultPlatform());
        Variant result = invoke(fun, method, values);
        printValue(out, result);
        out.flush();
        if (!out) {
            err << "telvaro call: the result cannot be written\n";
            return 1;
        }
        return 0;
    } catch (const RuntimeError& e) {
        err << "Error " << e.number() << ": " << toUtf8(e.description()) << '\n';
        return 1;
    }
}

}  // namespace telvaro::cli

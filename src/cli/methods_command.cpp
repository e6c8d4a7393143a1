#include <cstdio>
#include <ostream>

#include "cli/commands.h"
#include "frame/bind.h"
#include "frame/catalogue.h"
#include "runtime/convert.h"

namespace telvaro::cli {

namespace {

std::string defaultText(const Variant& v) {
    if (v.isMissing()) return "";
    if (v.isObject()) return "Nothing";
    if (v.isString()) return "\"" + toUtf8(v.get<String>()) + "\"";
    return toUtf8(str(v).substr(v.holds<Boolean>() ? 0 : 0));
}

}  // namespace

std::string parameterText(const ParamInfo& p) {
    std::string text;
    if (!p.byRef) text += "ByVal ";
    text += std::string(p.name) + " As " + std::string(p.typeName);
    if (p.optional) {
        std::string def;
        if (p.defaultValue.holds<Boolean>())
            def = p.defaultValue.get<Boolean>().isTrue() ? "True" : "False";
        else
            def = defaultText(p.defaultValue);
        while (!def.empty() && def.front() == ' ') def.erase(def.begin());
        text = "[" + text + (def.empty() ? "" : " = " + def) + "]";
    }
    return text;
}

std::string signatureText(const MethodInfo& m) {
    std::string params;
    for (const auto& p : m.params) params += (params.empty() ? "" : ", ") + parameterText(p);
    return std::string(m.name) + "(" + params + ") As " + std::string(m.resultName);
}

void listMethods(std::ostream& out, bool missingOnly) {
    for (const auto& m : catalogue()) {
        if (missingOnly) {
            if (!findBinding(m.name)) out << m.name << '\n';
            continue;
        }
        char head[64];
        std::snprintf(head, sizeof head, "%3d  0x%08X  ", m.order, static_cast<unsigned>(m.dispid));
        out << head << signatureText(m) << '\n';
    }
}

}  // namespace telvaro::cli

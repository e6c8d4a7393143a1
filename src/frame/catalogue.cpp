#include "frame/catalogue.h"

#include <unordered_map>

#include "runtime/text.h"

namespace telvaro {

VarType varTypeOf(ArgType t) {
    switch (t) {
        case ArgType::String: return VarType::String;
        case ArgType::Integer: return VarType::Integer;
        case ArgType::Long: return VarType::Long;
        case ArgType::Double: return VarType::Double;
        case ArgType::Boolean: return VarType::Boolean;
        case ArgType::Byte: return VarType::Byte;
        case ArgType::Date: return VarType::Date;
        case ArgType::Currency: return VarType::Currency;
        case ArgType::Object: return VarType::Object;
        case ArgType::None: return VarType::Empty;
        case ArgType::Variant: break;
    }
    return VarType::Variant;
}

const char* argTypeName(ArgType t) {
    switch (t) {
        case ArgType::None: return "none";
        case ArgType::String: return "String";
        case ArgType::Integer: return "Integer";
        case ArgType::Long: return "Long";
        case ArgType::Double: return "Double";
        case ArgType::Boolean: return "Boolean";
        case ArgType::Byte: return "Byte";
        case ArgType::Date: return "Date";
        case ArgType::Currency: return "Currency";
        case ArgType::Variant: return "Variant";
        case ArgType::Object: return "Object";
    }
    return "?";
}

std::size_t MethodInfo::requiredCount() const {
    std::size_t n = 0;
    for (const auto& p : params)
        if (!p.optional) ++n;
    return n;
}

namespace {

String foldedName(std::string_view name) { return upperCase(ascii(name)); }

struct Index {
    std::unordered_map<String, const MethodInfo*> byName;
    std::unordered_map<std::int32_t, const MethodInfo*> byDispid;
};

const Index& index() {
    static const Index idx = [] {
        Index i;
        for (const auto& m : catalogue()) {
            i.byName.emplace(foldedName(m.name), &m);
            i.byDispid.emplace(m.dispid, &m);
        }
        return i;
    }();
    return idx;
}

}  // namespace

const MethodInfo* findMethod(StringView name) {
    auto it = index().byName.find(upperCase(name));
    return it == index().byName.end() ? nullptr : it->second;
}

const MethodInfo* findMethod(std::string_view name) { return findMethod(StringView(fromUtf8(name))); }

const MethodInfo* findMethod(std::int32_t dispid) {
    auto it = index().byDispid.find(dispid);
    return it == index().byDispid.end() ? nullptr : it->second;
}

}  // namespace telvaro

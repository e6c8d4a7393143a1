#include "frame/catalogue.h"

#include <unordered_map>


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

StoredDefault storedDefault(const ParamInfo& p) {
    if (!p.optional || p.defaultValue.isMissing() || p.type == ArgType::Object) return StoredDefault::None;
    switch (p.type) {
        case ArgType::Variant:
        case ArgType::Double:
        case ArgType::Date:
        case ArgType::Currency: return StoredDefault::OutsideWidl;
        case ArgType::String: return p.byRef ? StoredDefault::OutsideWidl : StoredDefault::Everywhere;
        default: return StoredDefault::Everywhere;
    }
}

std::size_t MethodInfo::requiredCount() const {
    std::size_t n = 0;
    for (const auto& p : params)
        if (!p.optional) ++n;
    return n;
}

namespace {

// Method names are ASCII: they are folded to upper case byte by byte.
std::string foldedName(std::string_view name) {
    std::string folded(name);
    for (auto& c : folded)
        if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
    return folded;
}

struct Index {
    std::unordered_map<std::string, const MethodInfo*> byName;
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

const MethodInfo* findMethod(std::string_view name) {
    auto it = index().byName.find(foldedName(name));
    return it == index().byName.end() ? nullptr : it->second;
}

const MethodInfo* findMethod(StringView name) {
    for (char16_t c : name)
        if (c >= 0x80) return nullptr;  // no method name has other characters
    return findMethod(std::string_view(toUtf8(name)));
}

const MethodInfo* findMethod(std::int32_t dispid) {
    auto it = index().byDispid.find(dispid);
    return it == index().byDispid.end() ? nullptr : it->second;
}

}  // namespace telvaro

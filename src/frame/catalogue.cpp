#include "frame/catalogue.h"

#include <array>
#include <type_traits>
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

// Method names are ASCII and compared without regard to case. The index
// hashes a name's length and a few of its letters, folded to upper case,
// so a look-up reads little and allocates nothing; a name with other
// characters names no method.
template <class Char>
constexpr char16_t upper(Char c) {
    const auto u = static_cast<char16_t>(static_cast<std::make_unsigned_t<Char>>(c));
    return u >= u'a' && u <= u'z' ? static_cast<char16_t>(u - 32) : u;
}

template <class Text>
std::uint32_t foldedHash(const Text& name) {
    const std::size_t n = name.size();
    if (n == 0) return 0;
    std::uint32_t h = static_cast<std::uint32_t>(n) * 2654435761u;
    for (std::size_t i : {std::size_t(0), n / 4, n / 2, (3 * n) / 4, n - 1}) h = (h ^ upper(name[i])) * 16777619u;
    return h ^ (h >> 15);
}

template <class Text>
bool sameName(std::string_view known, const Text& name) {
    if (known.size() != name.size()) return false;
    if constexpr (std::is_same_v<Text, std::string_view>)
        if (known == name) return true;  // as the catalogue spells it: the usual case
    for (std::size_t i = 0; i < known.size(); ++i)
        if (upper(known[i]) != upper(name[i])) return false;
    return true;
}

// Open addressing over a power of two at least four times the catalogue.
struct Index {
    static constexpr std::size_t kSlots = 512;
    std::array<const MethodInfo*, kSlots> byName{};
    std::unordered_map<std::int32_t, const MethodInfo*> byDispid;

    template <class Text>
    const MethodInfo* find(const Text& name) const {
        for (std::size_t i = foldedHash(name) & (kSlots - 1);; i = (i + 1) & (kSlots - 1)) {
            const MethodInfo* m = byName[i];
            if (!m || sameName(m->name, name)) return m;
        }
    }
};

const Index& index() {
    static const Index idx = [] {
        Index i;
        static_assert(Index::kSlots >= 4 * 119);
        for (const auto& m : catalogue()) {
            std::size_t slot = foldedHash(m.name) & (Index::kSlots - 1);
            while (i.byName[slot]) slot = (slot + 1) & (Index::kSlots - 1);
            i.byName[slot] = &m;
            i.byDispid.emplace(m.dispid, &m);
        }
        return i;
    }();
    return idx;
}

}  // namespace

const MethodInfo* findMethod(std::string_view name) { return index().find(name); }

const MethodInfo* findMethod(StringView name) { return index().find(name); }

const MethodInfo* findMethod(std::int32_t dispid) {
    auto it = index().byDispid.find(dispid);
    return it == index().byDispid.end() ? nullptr : it->second;
}

}  // namespace telvaro

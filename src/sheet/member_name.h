// Member names of the spreadsheet's objects are ASCII; they are compared
// without regard to case, as every late-bound name is.
#pragma once

#include <cstdint>
#include <span>

#include "runtime/variant.h"

namespace telvaro::sheet {

inline bool isMember(StringView name, StringView member) {
    if (name.size() != member.size()) return false;
    for (std::size_t i = 0; i < name.size(); ++i) {
        char16_t a = name[i], b = member[i];
        if (a >= u'a' && a <= u'z') a = static_cast<char16_t>(a - 32);
        if (b >= u'a' && b <= u'z') b = static_cast<char16_t>(b - 32);
        if (a != b) return false;
    }
    return true;
}

// An argument the caller gave (present and not the missing-argument marker).
inline bool given(std::span<const Variant> args, std::size_t i) { return i < args.size() && !args[i].isMissing(); }

}  // namespace telvaro::sheet

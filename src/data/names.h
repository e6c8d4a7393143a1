// Member names and connection-string keys are ASCII and compared without
// regard to case.
#pragma once

#include "runtime/ustring.h"

namespace telvaro::data {

inline char16_t asciiLower(char16_t c) { return c >= u'A' && c <= u'Z' ? char16_t(c + 32) : c; }

inline bool sameName(StringView a, StringView b) {
    if (a.size() != b.size()) return false;
    for (std::size_t i = 0; i < a.size(); ++i)
        if (asciiLower(a[i]) != asciiLower(b[i])) return false;
    return true;
}

inline bool startsWithName(StringView text, StringView prefix) {
    return text.size() >= prefix.size() && sameName(text.substr(0, prefix.size()), prefix);
}

}  // namespace telvaro::data

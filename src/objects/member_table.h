// The members an object answers to, looked up by name once per call,
// case-insensitively as late binding does. Each name gets the position it
// has in the list, which is the object's own number for the member.
#pragma once

#include <functional>
#include <initializer_list>
#include <unordered_map>
#include <vector>

#include "runtime/ustring.h"

namespace telvaro::objects {

class MemberTable {
public:
    MemberTable(std::initializer_list<const char16_t*> names);
    // `more` continues the numbering after `base` (a kind of control adds
    // its own members after the ones all controls have).
    MemberTable(const std::vector<const char16_t*>& base, std::initializer_list<const char16_t*> more);

    // The member's number, or -1 when the object has no such member.
    int find(StringView name) const;
    // The member's name as the object spells it ("Rows", "CellBackColor").
    const String& name(int id) const { return names_[static_cast<std::size_t>(id)]; }
    int size() const { return static_cast<int>(names_.size()); }

private:
    void add(const char16_t* name);

    struct Hash {
        using is_transparent = void;
        std::size_t operator()(StringView s) const { return std::hash<StringView>{}(s); }
    };
    std::vector<String> names_;
    std::unordered_map<String, int, Hash, std::equal_to<>> byFoldedName_;
};

}  // namespace telvaro::objects

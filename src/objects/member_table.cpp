#include "objects/member_table.h"

#include "runtime/text.h"

namespace telvaro::objects {

namespace {

constexpr std::size_t kLongestName = 64;

char16_t folded(char16_t c) {
    return c < 0x80 ? static_cast<char16_t>(c >= u'A' && c <= u'Z' ? c + 32 : c) : foldCase(c);
}

String folded(StringView name) {
    String key(name);
    for (auto& c : key) c = folded(c);
    return key;
}

}  // namespace

MemberTable::MemberTable(std::initializer_list<const char16_t*> names) {
    for (const auto* n : names) add(n);
}

MemberTable::MemberTable(const std::vector<const char16_t*>& base, std::initializer_list<const char16_t*> more) {
    for (const auto* n : base) add(n);
    for (const auto* n : more) add(n);
}

void MemberTable::add(const char16_t* name) {
    byFoldedName_.emplace(folded(name), static_cast<int>(names_.size()));
    names_.emplace_back(name);
}

int MemberTable::find(StringView name) const {
    // Folded on the stack: a member's name is looked up on every call.
    if (name.size() > kLongestName) return -1;
    char16_t buffer[kLongestName];
    for (std::size_t i = 0; i < name.size(); ++i) buffer[i] = folded(name[i]);
    auto it = byFoldedName_.find(StringView(buffer, name.size()));
    return it == byFoldedName_.end() ? -1 : it->second;
}

}  // namespace telvaro::objects

#include "objects/caller_object.h"

#include <atomic>

namespace telvaro::objects {

Variant CallerObject::invoke(StringView member, InvokeKind kind, std::span<Variant> args) {
    const MemberTable& table = members();
    const int id = member.empty() ? defaultMember() : table.find(member);
    if (id >= 0 && !hasMember(id)) raiseNoSuchMember();
    if (id < 0) {
        ObjectRef child = member.empty() ? nullptr : namedChild(member);
        if (!child || kind == InvokeKind::PropertyPut || kind == InvokeKind::PropertyPutRef || !args.empty())
            raiseNoSuchMember();
        childCalls_.emplace_back(member);
        calls_.push_back({&childCalls_.back(), false});
        return Variant(child);
    }
    const bool assignment = kind == InvokeKind::PropertyPut || kind == InvokeKind::PropertyPutRef;
    calls_.push_back({&table.name(id), assignment});
    return dispatch(id, MemberCall(kind, args, table.name(id)));
}

std::vector<String> CallerObject::memberNames() const {
    const MemberTable& table = members();
    std::vector<String> names;
    for (int id = 0; id < table.size(); ++id)
        if (hasMember(id)) names.push_back(table.name(id));
    return names;
}

std::vector<String> CallerObject::calls() const {
    std::vector<String> out;
    out.reserve(calls_.size());
    for (const auto& call : calls_) out.push_back(call.assignment ? *call.name + u"=" : *call.name);
    return out;
}

std::int32_t newWindowHandle() {
    static std::atomic<std::int32_t> next{0x00010010};
    return next.fetch_add(4);
}

}  // namespace telvaro::objects

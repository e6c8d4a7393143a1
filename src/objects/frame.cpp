#include "objects/frame.h"

namespace telvaro::objects {

const MemberTable& Frame::members() const {
    static const MemberTable table(commonMemberNames(), {u"Caption"});
    return table;
}

int Frame::defaultMember() const { return static_cast<int>(CommonMemberCount); }

Variant Frame::dispatch(int id, const MemberCall& call) {
    if (id < CommonMemberCount) return dispatchCommon(id, call);
    return property(
        call, [&] { return Variant(caption); }, [&](const Variant& v) { caption = textValue(v); });
}

}  // namespace telvaro::objects

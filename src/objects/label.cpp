#include "objects/label.h"

#include "runtime/error.h"

namespace telvaro::objects {

namespace {

enum Member { Caption = 0, Alignment };

}  // namespace

const MemberTable& Label::members() const {
    static const MemberTable table(commonMemberNames(), {u"Caption", u"Alignment"});
    return table;
}

int Label::defaultMember() const { return static_cast<int>(CommonMemberCount) + Caption; }

Variant Label::dispatch(int id, const MemberCall& call) {
    if (id < CommonMemberCount) return dispatchCommon(id, call);
    switch (id - CommonMemberCount) {
        case Caption:
            return property(
                call, [&] { return Variant(caption); }, [&](const Variant& v) { caption = textValue(v); });
        case Alignment: return choiceProperty(call, alignment, 2);
    }
    raiseNoSuchMember();
}

}  // namespace telvaro::objects

#include "objects/check_box.h"

#include "runtime/error.h"

namespace telvaro::objects {

namespace {

enum Member { Value = 0, Caption };

}  // namespace

const MemberTable& CheckBox::members() const {
    static const MemberTable table(commonMemberNames(), {u"Value", u"Caption"});
    return table;
}

int CheckBox::defaultMember() const { return static_cast<int>(CommonMemberCount) + Value; }

void CheckBox::setValue(std::int16_t value) {
    if (value < 0 || value > 2) raise(err::InvalidPropertyValue);
    value_ = value;
}

Variant CheckBox::dispatch(int id, const MemberCall& call) {
    if (id < CommonMemberCount) return dispatchCommon(id, call);
    switch (id - CommonMemberCount) {
        case Value:
            return property(
                call, [&] { return Variant(value_); }, [&](const Variant& v) { setValue(integerValue(v)); });
        case Caption:
            return property(
                call, [&] { return Variant(caption); }, [&](const Variant& v) { caption = textValue(v); });
    }
    raiseNoSuchMember();
}

}  // namespace telvaro::objects

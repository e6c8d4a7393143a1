#include "objects/option_button.h"

#include "objects/form.h"

namespace telvaro::objects {

namespace {

enum Member { Value = 0, Caption };

}  // namespace

const MemberTable& OptionButton::members() const {
    static const MemberTable table(commonMemberNames(), {u"Value", u"Caption"});
    return table;
}

int OptionButton::defaultMember() const { return static_cast<int>(CommonMemberCount) + Value; }

void OptionButton::setValue(bool on) {
    value_ = on;
    if (!on) return;
    auto form = std::dynamic_pointer_cast<Form>(parent());
    if (!form) return;
    const ObjectRef group = container();
    for (const auto& control : form->controls())
        if (auto option = std::dynamic_pointer_cast<OptionButton>(control);
            option && option.get() != this && option->container() == group)
            option->value_ = false;
}

Variant OptionButton::dispatch(int id, const MemberCall& call) {
    if (id < CommonMemberCount) return dispatchCommon(id, call);
    switch (id - CommonMemberCount) {
        case Value:
            return property(
                call, [&] { return Variant(Boolean(value_)); },
                [&](const Variant& v) { setValue(booleanValue(v).isTrue()); });
        case Caption:
            return property(
                call, [&] { return Variant(caption); }, [&](const Variant& v) { caption = textValue(v); });
    }
    raiseNoSuchMember();
}

}  // namespace telvaro::objects

// The option button: Value (the default member, a Boolean) and Caption.
// Setting Value to True clears the other option buttons of the same
// container on the same form, as a group of options behaves.
#pragma once

#include "objects/control.h"

namespace telvaro::objects {

class OptionButton : public Control {
public:
    explicit OptionButton(String name = u"Option1") : Control(std::move(name)) {}

    String typeName() const override { return u"OptionButton"; }

    bool value() const { return value_; }
    void setValue(bool on);
    String caption;

protected:
    const MemberTable& members() const override;
    int defaultMember() const override;
    Variant dispatch(int id, const MemberCall& call) override;

private:
    bool value_ = false;
};

}  // namespace telvaro::objects

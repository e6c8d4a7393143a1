// The check box: Value (the default member) 0 unchecked, 1 checked, 2 grey,
// and its Caption.
#pragma once

#include "objects/control.h"

namespace telvaro::objects {

class CheckBox : public Control {
public:
    explicit CheckBox(String name = u"Check1") : Control(std::move(name)) {}

    String typeName() const override { return u"CheckBox"; }

    std::int16_t value() const { return value_; }
    void setValue(std::int16_t value);  // error 380 outside 0..2
    String caption;

protected:
    const MemberTable& members() const override;
    int defaultMember() const override;
    Variant dispatch(int id, const MemberCall& call) override;

private:
    std::int16_t value_ = 0;
};

}  // namespace telvaro::objects

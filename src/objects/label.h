// The label: Caption (the default member) and Alignment (0 left, 1 right,
// 2 centre).
#pragma once

#include "objects/control.h"

namespace telvaro::objects {

class Label : public Control {
public:
    explicit Label(String name = u"Label1") : Control(std::move(name)) {}

    String typeName() const override { return u"Label"; }

    String caption;
    std::int16_t alignment = 0;

protected:
    const MemberTable& members() const override;
    int defaultMember() const override;
    Variant dispatch(int id, const MemberCall& call) override;
};

}  // namespace telvaro::objects

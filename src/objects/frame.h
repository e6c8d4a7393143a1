// The frame: a container with a Caption (the default member). Its controls
// are the form's controls whose Container is the frame.
#pragma once

#include "objects/control.h"

namespace telvaro::objects {

class Frame : public Control {
public:
    explicit Frame(String name = u"Frame1") : Control(std::move(name)) {}

    String typeName() const override { return u"Frame"; }

    String caption;

protected:
    const MemberTable& members() const override;
    int defaultMember() const override;
    Variant dispatch(int id, const MemberCall& call) override;
};

}  // namespace telvaro::objects

// The text box: its Text (the default member), the caret and selection
// (SelStart, SelLength, SelText), MaxLength and Locked. Setting Text puts
// the caret at the start, as the control does.
#pragma once

#include "objects/control.h"

namespace telvaro::objects {

class TextBox : public Control {
public:
    explicit TextBox(String name = u"Text1") : Control(std::move(name)) {}

    String typeName() const override { return u"TextBox"; }

    const String& text() const { return text_; }
    void setText(String text);
    std::int32_t selStart() const { return selStart_; }
    std::int32_t selLength() const { return selLength_; }
    void setSelStart(std::int32_t start);  // past the end: the end; negative: error 380
    void setSelLength(std::int32_t length);
    std::int32_t maxLength = 0;  // 0: no limit
    bool locked = false;

protected:
    const MemberTable& members() const override;
    int defaultMember() const override;
    Variant dispatch(int id, const MemberCall& call) override;

private:
    String text_;
    std::int32_t selStart_ = 0, selLength_ = 0;
};

}  // namespace telvaro::objects

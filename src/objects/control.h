// What every control and form has: Name, Tag, Enabled, Visible, the
// position and size in twips (Left, Top, Width, Height), TabIndex, the
// font (Font, and the older FontName, FontSize, FontBold, FontItalic,
// FontUnderline that reach the same font), the window handle hWnd, and the
// links to the control's Container (the frame or form it sits in) and
// Parent (its form). The links do not own: a form owns its controls, and a
// control whose form is gone answers Nothing.
#pragma once

#include <memory>
#include <vector>

#include "objects/caller_object.h"
#include "objects/font.h"

namespace telvaro::objects {

class Control : public CallerObject {
public:
    explicit Control(String name);
    ~Control() override;  // leaves the list of windows (window_registry.h)

    const String& name() const { return name_; }
    void setName(String name) { name_ = std::move(name); }
    String tag;
    bool enabled = true;
    bool visible = true;
    double left = 0, top = 0, width = 1215, height = 495;  // twips
    std::int16_t tabIndex = 0;
    std::int32_t hwnd() const { return hwnd_; }

    const std::shared_ptr<Font>& font() const { return font_; }
    void setFont(std::shared_ptr<Font> font);

    ObjectRef container() const { return container_.lock(); }
    ObjectRef parent() const { return parent_.lock(); }
    void setContainer(const ObjectRef& container) { container_ = container; }
    void setParent(const ObjectRef& parent) { parent_ = parent; }

protected:
    // The numbers of the common members; a kind's own members follow.
    enum CommonMember {
        NameMember,
        TagMember,
        EnabledMember,
        VisibleMember,
        LeftMember,
        TopMember,
        WidthMember,
        HeightMember,
        TabIndexMember,
        FontMember,
        FontNameMember,
        FontSizeMember,
        FontBoldMember,
        FontItalicMember,
        FontUnderlineMember,
        ContainerMember,
        ParentMember,
        HwndMember,
        CommonMemberCount
    };
    static const std::vector<const char16_t*>& commonMemberNames();
    Variant dispatchCommon(int id, const MemberCall& call);

private:
    String name_;
    std::int32_t hwnd_;
    std::shared_ptr<Font> font_;
    std::weak_ptr<Object> container_;
    std::weak_ptr<Object> parent_;
};

}  // namespace telvaro::objects

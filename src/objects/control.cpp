#include "objects/control.h"

#include "objects/window_registry.h"
#include "runtime/error.h"

namespace telvaro::objects {

Control::Control(String name) : name_(std::move(name)), hwnd_(newWindowHandle()), font_(std::make_shared<Font>()) {
    registerWindow(hwnd_, this);
}

Control::~Control() { unregisterWindow(hwnd_, this); }

void Control::setFont(std::shared_ptr<Font> font) {
    if (!font) raise(err::InvalidPropertyValue);
    font_ = std::move(font);
}

const std::vector<const char16_t*>& Control::commonMemberNames() {
    static const std::vector<const char16_t*> names{
        u"Name",     u"Tag",        u"Enabled",       u"Visible",   u"Left",     u"Top",
        u"Width",    u"Height",     u"TabIndex",      u"Font",      u"FontName", u"FontSize",
        u"FontBold", u"FontItalic", u"FontUnderline", u"Container", u"Parent",   u"hWnd"};
    return names;
}

Variant Control::dispatchCommon(int id, const MemberCall& call) {
    FontDescription& f = font_->description();
    switch (id) {
        case NameMember: return readOnlyProperty(call, [&] { return Variant(name_); });
        case TagMember:
            return property(
                call, [&] { return Variant(tag); }, [&](const Variant& v) { tag = textValue(v); });
        case EnabledMember: return flagProperty(call, enabled);
        case VisibleMember: return flagProperty(call, visible);
        case LeftMember: return twipsProperty(call, left, true);
        case TopMember: return twipsProperty(call, top, true);
        case WidthMember: return twipsProperty(call, width, false);
        case HeightMember: return twipsProperty(call, height, false);
        case TabIndexMember:
            return property(
                call, [&] { return Variant(tabIndex); },
                [&](const Variant& v) {
                    const auto index = integerValue(v);
                    if (index < 0) raise(err::InvalidPropertyValue);
                    tabIndex = index;
                });
        case FontMember:
            return property(
                call, [&] { return Variant(ObjectRef(font_)); },
                [&](const Variant& v) {
                    auto font = std::dynamic_pointer_cast<Font>(objectValue(v));
                    if (!font) raise(err::InvalidPropertyValue);
                    font_ = std::move(font);
                });
        case FontNameMember:
            return property(
                call, [&] { return Variant(f.name); }, [&](const Variant& v) { f.name = textValue(v); });
        case FontSizeMember:
            return property(
                call, [&] { return Variant(f.size); },
                [&](const Variant& v) {
                    const double size = doubleValue(v);
                    if (!(size > 0 && size <= 2160)) raise(err::InvalidPropertyValue);
                    f.size = size;
                });
        case FontBoldMember: return flagProperty(call, f.bold);
        case FontItalicMember: return flagProperty(call, f.italic);
        case FontUnderlineMember: return flagProperty(call, f.underline);
        case ContainerMember:
            return property(
                call, [&] { return Variant(container()); },
                [&](const Variant& v) {
                    auto target = objectValue(v);
                    if (!target) raise(err::InvalidPropertyValue);
                    container_ = target;
                });
        case ParentMember: return readOnlyProperty(call, [&] { return Variant(parent()); });
        case HwndMember: return readOnlyProperty(call, [&] { return Variant(hwnd_); });
    }
    raiseNoSuchMember();
}

}  // namespace telvaro::objects

// A control or form as the picture copy uses it: its scale mode, size and
// position (read as the caller's object gives them, so that they can be
// assigned as they are to another control), its window handle, and a
// picture box's members (Visible, AutoRedraw, hDC, Image, Picture). Every
// member is looked up by name when it is called.
#pragma once

#include <cstdint>

#include "callers/caller_object.h"
#include "runtime/convert.h"

namespace telvaro::callers {

class WindowControl : public CallerObject {
public:
    using CallerObject::CallerObject;

    Variant scaleMode() const { return get(u"ScaleMode"); }
    Variant height() const { return get(u"Height"); }
    Variant width() const { return get(u"Width"); }
    Variant left() const { return get(u"Left"); }
    Variant top() const { return get(u"Top"); }
    std::int32_t hwnd() const { return toLong(get(u"hwnd")); }

    void setScaleMode(const Variant& v) const { put(u"ScaleMode", v); }
    void setHeight(const Variant& v) const { put(u"Height", v); }
    void setWidth(const Variant& v) const { put(u"Width", v); }
    void setLeft(const Variant& v) const { put(u"Left", v); }
    void setTop(const Variant& v) const { put(u"Top", v); }
    void setVisible(Boolean visible) const { put(u"Visible", Variant(visible)); }
    void setAutoRedraw(Boolean redraw) const { put(u"AutoRedraw", Variant(redraw)); }
    std::int32_t hdc() const { return toLong(get(u"hDC")); }
    Variant image() const { return get(u"Image"); }
    void setPicture(const Variant& picture) const { put(u"Picture", picture); }
};

}  // namespace telvaro::callers

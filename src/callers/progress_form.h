// The library's progress form frmProg as the long-running methods drive it:
// the maximum and value of its progress bar PB, its caption, showing it in
// front of the caller's windows and unloading it.
#pragma once

#include <cstdint>

#include "callers/caller_object.h"

namespace telvaro::callers {

class ProgressForm : public CallerObject {
public:
    using CallerObject::CallerObject;

    void setBarMax(const Variant& max) const { bar().put(u"Max", max); }
    Variant barValue() const { return bar().get(u"Value"); }
    void setBarValue(const Variant& value) const { bar().put(u"Value", value); }
    void setCaption(const Variant& caption) const { put(u"Caption", caption); }
    // Show without waiting (modeless), then ZOrder 0: in front.
    void showModeless() const { call(u"Show", {Variant(std::int16_t(0))}); }
    void bringToFront() const { call(u"ZOrder", {Variant(std::int16_t(0))}); }
    void unload() const { call(u"Unload"); }

private:
    ObjectHandle bar() const { return objectOf(get(u"PB")); }
};

}  // namespace telvaro::callers

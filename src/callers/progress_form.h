// The progress form frmProg, in the words of the methods that show it
// while they fill or export a grid: its caption, its progress bar PB with
// Value and Max, Show, ZOrder and Unload. Every member is looked up by name
// when it is called, as on any form; the bar is reached through PB at each
// use, as `frmProg.PB.Value` reaches it.
#pragma once

#include "callers/caller_object.h"

namespace telvaro::callers {

class ProgressForm : public CallerObject {
public:
    using CallerObject::CallerObject;

    Variant caption() const { return get(u"Caption"); }
    void setCaption(const Variant& caption) const { put(u"Caption", caption); }
    // Shown modeless.
    void show() const { call(u"Show"); }
    void hide() const { call(u"Hide"); }
    // 0 brings the form to the front.
    void zOrder(const Variant& position) const { call(u"ZOrder", {position}); }
    // The form goes: its window closes and its state is forgotten.
    void unload() const { call(u"Unload"); }

    // The progress bar PB.
    Variant value() const { return bar().get(u"Value"); }
    void setValue(const Variant& value) const { bar().put(u"Value", value); }
    Variant max() const { return bar().get(u"Max"); }
    void setMax(const Variant& max) const { bar().put(u"Max", max); }
    Variant min() const { return bar().get(u"Min"); }
    void setMin(const Variant& min) const { bar().put(u"Min", min); }

private:
    ObjectHandle bar() const { return objectOf(get(u"PB")); }
};

}  // namespace telvaro::callers

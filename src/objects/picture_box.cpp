#include "objects/picture_box.h"

#include <algorithm>
#include <cmath>

#include "objects/window_registry.h"
#include "runtime/error.h"

namespace telvaro::objects {

namespace {

enum Member { PictureMember = 0, Image, AutoRedraw, AutoSize, ScaleMode, HDC, Cls };

std::int32_t pixels(double twips) {
    return static_cast<std::int32_t>(std::clamp(std::floor(twips / PictureBox::kTwipsPerPixel), 0.0,
                                                static_cast<double>(PictureBox::kMaxImageSide)));
}

}  // namespace

PictureBox::PictureBox(String name) : Control(std::move(name)), hdc_(newWindowHandle()) { registerWindow(hdc_, this); }

PictureBox::~PictureBox() { unregisterWindow(hdc_, this); }

const MemberTable& PictureBox::members() const {
    static const MemberTable table(commonMemberNames(),
                                   {u"Picture", u"Image", u"AutoRedraw", u"AutoSize", u"ScaleMode", u"hDC", u"Cls"});
    return table;
}

int PictureBox::defaultMember() const { return static_cast<int>(CommonMemberCount) + PictureMember; }

std::shared_ptr<Picture> PictureBox::image() {
    const std::int32_t w = pixels(width), h = pixels(height);
    if (!image_ || image_->width() != w || image_->height() != h) image_ = std::make_shared<Picture>(w, h);
    return image_;
}

Variant PictureBox::dispatch(int id, const MemberCall& call) {
    if (id < CommonMemberCount) return dispatchCommon(id, call);
    switch (id - CommonMemberCount) {
        case PictureMember:
            return property(
                call, [&] { return Variant(picture_); }, [&](const Variant& v) { picture_ = objectValue(v); });
        case Image: return readOnlyProperty(call, [&] { return Variant(ObjectRef(image())); });
        case AutoRedraw: return flagProperty(call, autoRedraw);
        case AutoSize: return flagProperty(call, autoSize);
        case ScaleMode: return choiceProperty(call, scaleMode, 7);
        case HDC: return readOnlyProperty(call, [&] { return Variant(hdc_); });
        case Cls: call.arguments(0, 0); return image_.reset(), Variant();
    }
    raiseNoSuchMember();
}

}  // namespace telvaro::objects

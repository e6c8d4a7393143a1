// The picture box: its Picture (the default member; a Picture or Nothing),
// its persistent Image (a picture of the box's size in pixels, at 15 twips
// a pixel, at most 4096 pixels a side), AutoRedraw, AutoSize, ScaleMode (0 to 7; 1 twips), the device
// context handle hDC, and Cls, which blanks the image.
#pragma once

#include "objects/control.h"
#include "objects/picture.h"

namespace telvaro::objects {

class PictureBox : public Control {
public:
    static constexpr int kTwipsPerPixel = 15;
    static constexpr std::int32_t kMaxImageSide = 4096;

    explicit PictureBox(String name = u"Picture1");
    ~PictureBox() override;

    String typeName() const override { return u"PictureBox"; }

    const ObjectRef& picture() const { return picture_; }
    void setPicture(ObjectRef picture) { picture_ = std::move(picture); }
    std::shared_ptr<Picture> image();
    bool autoRedraw = false;
    bool autoSize = false;
    std::int16_t scaleMode = 1;
    std::int32_t hdc() const { return hdc_; }

protected:
    const MemberTable& members() const override;
    int defaultMember() const override;
    Variant dispatch(int id, const MemberCall& call) override;

private:
    ObjectRef picture_;
    std::shared_ptr<Picture> image_;
    std::int32_t hdc_;
};

}  // namespace telvaro::objects

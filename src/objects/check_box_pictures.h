// The four 13 x 13 check-box pictures that grid cells show, as the objects
// layer's own Picture objects. The drawing belongs to the hidden form of
// the library (platform/check_box_drawing.h); this makes pictures of it for
// the hosts and for batch descriptions that name them.
#pragma once

#include <memory>

#include "objects/picture.h"
#include "platform/check_box_drawing.h"

namespace telvaro::objects {

using telvaro::CheckBoxPicture;
using telvaro::checkBoxPictureNamed;
using telvaro::checkBoxPixels;
using telvaro::kCheckBoxSide;

// A new picture of that kind; its source is the control's name ("imSI",
// "imNO", "imSid", "imNOd").
std::shared_ptr<Picture> makeCheckBoxPicture(CheckBoxPicture kind);

}  // namespace telvaro::objects

#include "objects/check_box_pictures.h"

namespace telvaro::objects {

std::shared_ptr<Picture> makeCheckBoxPicture(CheckBoxPicture kind) {
    const auto pixels = checkBoxPixels(kind);
    auto picture = std::make_shared<Picture>(kCheckBoxSide, kCheckBoxSide);
    for (int y = 0; y < kCheckBoxSide; ++y)
        for (int x = 0; x < kCheckBoxSide; ++x)
            picture->setPixel(x, y, pixels[static_cast<std::size_t>(y * kCheckBoxSide + x)]);
    picture->setSource(checkBoxControlName(kind));
    return picture;
}

}  // namespace telvaro::objects

// The four 13 x 13 check-box pictures that grid cells show: a sunken square
// box with a one-pixel outer frame at the top and left in RGB (128,128,128),
// an inner frame at the top and left in RGB (64,64,64), the bottom and
// right edges in RGB (212,208,200) and a 10 x 10 interior, white (enabled)
// or RGB (214,214,214) (disabled), with a tick in black (enabled) or
// RGB (120,120,120) (disabled) in the checked ones.
//
// The bottom and right edges take the two corners they share with the top
// and left frames (top-right and bottom-left), as a sunken edge is drawn:
// row 0 and column 0 are the outer frame from 0 to 11, row 1 and column 1
// the inner frame from 1 to 11, row 12 and column 12 the light edge, and
// rows and columns 2 to 11 the interior.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <optional>

#include "objects/picture.h"

namespace telvaro::objects {

enum class CheckBoxPicture {
    Checked,           // imSI
    Unchecked,         // imNO
    CheckedDisabled,   // imSid
    UncheckedDisabled  // imNOd
};

inline constexpr int kCheckBoxSide = 13;

// The pixels of that kind (0xAARRGGBB, row by row from the top): the
// drawing alone, for a layer that makes its pictures through a service.
std::array<std::uint32_t, kCheckBoxSide * kCheckBoxSide> checkBoxPixels(CheckBoxPicture kind);

// A new picture of that kind; its source is the control's name ("imSI",
// "imNO", "imSid", "imNOd").
std::shared_ptr<Picture> makeCheckBoxPicture(CheckBoxPicture kind);

// The kind for a control's name, compared without regard to case.
std::optional<CheckBoxPicture> checkBoxPictureNamed(StringView name);

}  // namespace telvaro::objects

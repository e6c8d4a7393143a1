// The four 13 x 13 check-box pictures of the hidden form frmDll, drawn as
// pixels: a sunken square box with a one-pixel outer frame at the top and
// left in RGB (128,128,128), an inner frame at the top and left in
// RGB (64,64,64), the bottom and right edges in RGB (212,208,200) and a
// 10 x 10 interior, white (enabled) or RGB (214,214,214) (disabled), with a
// tick in black (enabled) or RGB (120,120,120) (disabled) in the checked
// ones.
//
// The bottom and right edges take the two corners they share with the top
// and left frames (top-right and bottom-left), as a sunken edge is drawn:
// row 0 and column 0 are the outer frame from 0 to 11, row 1 and column 1
// the inner frame from 1 to 11, row 12 and column 12 the light edge, and
// rows and columns 2 to 11 the interior.
#pragma once

#include <array>
#include <cstdint>
#include <optional>

#include "runtime/ustring.h"

namespace telvaro {

enum class CheckBoxPicture {
    Checked,           // imSI
    Unchecked,         // imNO
    CheckedDisabled,   // imSid
    UncheckedDisabled  // imNOd
};

inline constexpr int kCheckBoxSide = 13;

// The pixels of that kind (0xAARRGGBB, row by row from the top).
std::array<std::uint32_t, kCheckBoxSide * kCheckBoxSide> checkBoxPixels(CheckBoxPicture kind);

// The name of the frmDll control holding that picture ("imSI", "imNO",
// "imSid", "imNOd").
const char16_t* checkBoxControlName(CheckBoxPicture kind);

// The kind for a control's name, compared without regard to case.
std::optional<CheckBoxPicture> checkBoxPictureNamed(StringView name);

// Pixels of a colour given as red, green and blue.
constexpr std::uint32_t opaquePixel(std::uint8_t r, std::uint8_t g, std::uint8_t b) {
    return 0xFF000000u | (std::uint32_t{r} << 16) | (std::uint32_t{g} << 8) | b;
}

}  // namespace telvaro

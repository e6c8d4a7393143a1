// Pictures as the platform makes them: from pixels the library draws (the
// check-box pictures of the hidden form), or from a picture file, as the
// runtime's picture loader reads one. The result is a picture object with
// the automation picture's members (Handle, Width, Height, Type, hPal),
// ready to be assigned to a caller's CellPicture or Picture.
#pragma once

#include <cstdint>
#include <span>

#include "runtime/variant.h"

namespace telvaro {

class Pictures {
public:
    virtual ~Pictures() = default;

    // A width x height picture of 0xAARRGGBB pixels, row by row from the
    // top; `name` says where it came from (a control's name). Error 5 when
    // the pixels do not fill that size.
    virtual ObjectRef fromPixels(std::int32_t width, std::int32_t height, std::span<const std::uint32_t> pixels,
                                 StringView name) = 0;
    // The picture in the file at a Windows-form path: error 53 when there is
    // no such file, 481 "Invalid picture" when it is no picture the loader
    // reads; an empty path gives the empty picture.
    virtual ObjectRef load(StringView windowsPath) = 0;
};

}  // namespace telvaro

// A picture: 32-bit pixels (0xAARRGGBB, row by row from the top), a size
// in pixels for C++ and, through its members, the automation picture's
// Handle (the default member), hPal, Type (1 bitmap, 0 for an empty
// picture) and Width and Height in HIMETRIC (0.01 mm, at 96 pixels per
// inch: 13 pixels are 344). The `source` names where the picture came from
// (a file's name, or "imSI" for a check-box picture) for the batch answer.
#pragma once

#include <cstdint>
#include <vector>

#include "objects/caller_object.h"

namespace telvaro::objects {

class Picture : public CallerObject {
public:
    Picture() = default;  // the empty picture
    // A picture of width x height pixels, all of `fill`; error 5 for a
    // negative size, 7 beyond 16384 pixels a side or 64 Mi pixels in all.
    Picture(std::int32_t width, std::int32_t height, std::uint32_t fill = 0xFFFFFFFF);

    String typeName() const override { return u"Picture"; }

    std::int32_t width() const { return width_; }
    std::int32_t height() const { return height_; }
    bool isEmpty() const { return width_ == 0 || height_ == 0; }
    std::uint32_t pixel(std::int32_t x, std::int32_t y) const;
    void setPixel(std::int32_t x, std::int32_t y, std::uint32_t argb);
    const std::vector<std::uint32_t>& pixels() const { return pixels_; }
    std::int32_t handle() const { return handle_; }
    std::int32_t himetricWidth() const;
    std::int32_t himetricHeight() const;

    const String& source() const { return source_; }
    void setSource(String source) { source_ = std::move(source); }

    static constexpr std::int32_t kMaxSide = 16384;
    static constexpr std::int64_t kMaxPixels = std::int64_t{64} << 20;

protected:
    const MemberTable& members() const override;
    int defaultMember() const override { return 0; }
    Variant dispatch(int id, const MemberCall& call) override;

private:
    std::int32_t width_ = 0, height_ = 0;
    std::vector<std::uint32_t> pixels_;
    std::int32_t handle_ = 0;
    String source_;
};

// Pixels of a colour given as red, green and blue.
constexpr std::uint32_t rgbPixel(std::uint8_t r, std::uint8_t g, std::uint8_t b) {
    return 0xFF000000u | (std::uint32_t{r} << 16) | (std::uint32_t{g} << 8) | b;
}

}  // namespace telvaro::objects

#include "objects/picture.h"

#include <cmath>

#include "runtime/error.h"

namespace telvaro::objects {

namespace {

enum Member { Handle, HPal, Type, Width, Height };

std::int32_t himetric(std::int32_t pixels) {
    return static_cast<std::int32_t>(std::lround(static_cast<double>(pixels) * 2540.0 / 96.0));
}

}  // namespace

Picture::Picture(std::int32_t width, std::int32_t height, std::uint32_t fill) {
    if (width < 0 || height < 0) raise(err::InvalidProcedureCall);
    if (width > kMaxSide || height > kMaxSide || std::int64_t{width} * height > kMaxPixels) raise(err::OutOfMemory);
    width_ = width;
    height_ = height;
    pixels_.assign(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), fill);
    if (!isEmpty()) handle_ = newWindowHandle();
}

std::uint32_t Picture::pixel(std::int32_t x, std::int32_t y) const {
    if (x < 0 || y < 0 || x >= width_ || y >= height_) raise(err::InvalidProcedureCall);
    return pixels_[static_cast<std::size_t>(y) * static_cast<std::size_t>(width_) + static_cast<std::size_t>(x)];
}

void Picture::setPixel(std::int32_t x, std::int32_t y, std::uint32_t argb) {
    if (x < 0 || y < 0 || x >= width_ || y >= height_) raise(err::InvalidProcedureCall);
    pixels_[static_cast<std::size_t>(y) * static_cast<std::size_t>(width_) + static_cast<std::size_t>(x)] = argb;
}

std::int32_t Picture::himetricWidth() const { return himetric(width_); }
std::int32_t Picture::himetricHeight() const { return himetric(height_); }

const MemberTable& Picture::members() const {
    static const MemberTable table{u"Handle", u"hPal", u"Type", u"Width", u"Height"};
    return table;
}

Variant Picture::dispatch(int id, const MemberCall& call) {
    switch (id) {
        case Handle: return readOnlyProperty(call, [&] { return Variant(handle_); });
        case HPal: return readOnlyProperty(call, [&] { return Variant(std::int32_t(0)); });
        case Type: return readOnlyProperty(call, [&] { return Variant(std::int16_t(isEmpty() ? 0 : 1)); });
        case Width: return readOnlyProperty(call, [&] { return Variant(himetricWidth()); });
        case Height: return readOnlyProperty(call, [&] { return Variant(himetricHeight()); });
    }
    raiseNoSuchMember();
}

}  // namespace telvaro::objects

#include "objects/check_box_pictures.h"

#include <array>

#include "runtime/text.h"

namespace telvaro::objects {

namespace {

constexpr int kSide = kCheckBoxSide;
constexpr int kInterior = 2;  // first row and column of the 10 x 10 interior

// The tick, row by row from the interior's row 1, as column ranges of the
// interior (first, last); a row has at most two ranges.
struct Span {
    int first, last;
};
constexpr std::array<std::array<Span, 2>, 8> kTick{{
    {{{8, 8}, {-1, -2}}},
    {{{7, 8}, {-1, -2}}},
    {{{1, 1}, {6, 8}}},
    {{{1, 1}, {6, 8}}},
    {{{1, 2}, {5, 7}}},
    {{{1, 6}, {-1, -2}}},
    {{{2, 5}, {-1, -2}}},
    {{{3, 4}, {-1, -2}}},
}};

const char16_t* controlName(CheckBoxPicture kind) {
    switch (kind) {
        case CheckBoxPicture::Checked: return u"imSI";
        case CheckBoxPicture::Unchecked: return u"imNO";
        case CheckBoxPicture::CheckedDisabled: return u"imSid";
        case CheckBoxPicture::UncheckedDisabled: return u"imNOd";
    }
    return u"";
}

}  // namespace

std::array<std::uint32_t, kCheckBoxSide * kCheckBoxSide> checkBoxPixels(CheckBoxPicture kind) {
    const bool disabled = kind == CheckBoxPicture::CheckedDisabled || kind == CheckBoxPicture::UncheckedDisabled;
    const bool checked = kind == CheckBoxPicture::Checked || kind == CheckBoxPicture::CheckedDisabled;
    const std::uint32_t face = disabled ? rgbPixel(214, 214, 214) : rgbPixel(255, 255, 255);
    const std::uint32_t tick = disabled ? rgbPixel(120, 120, 120) : rgbPixel(0, 0, 0);

    std::array<std::uint32_t, kSide * kSide> pixels;
    pixels.fill(face);
    auto set = [&](int x, int y, std::uint32_t argb) { pixels[static_cast<std::size_t>(y * kSide + x)] = argb; };
    for (int i = 0; i < kSide - 1; ++i) {
        set(i, 0, rgbPixel(128, 128, 128));
        set(0, i, rgbPixel(128, 128, 128));
    }
    for (int i = 1; i < kSide - 1; ++i) {
        set(i, 1, rgbPixel(64, 64, 64));
        set(1, i, rgbPixel(64, 64, 64));
    }
    for (int i = 0; i < kSide; ++i) {
        set(i, kSide - 1, rgbPixel(212, 208, 200));
        set(kSide - 1, i, rgbPixel(212, 208, 200));
    }
    if (checked)
        for (int row = 0; row < static_cast<int>(kTick.size()); ++row)
            for (const Span& span : kTick[static_cast<std::size_t>(row)])
                for (int col = span.first; col <= span.last; ++col) set(kInterior + col, kInterior + 1 + row, tick);
    return pixels;
}

std::shared_ptr<Picture> makeCheckBoxPicture(CheckBoxPicture kind) {
    const auto pixels = checkBoxPixels(kind);
    auto picture = std::make_shared<Picture>(kSide, kSide);
    for (int y = 0; y < kSide; ++y)
        for (int x = 0; x < kSide; ++x) picture->setPixel(x, y, pixels[static_cast<std::size_t>(y * kSide + x)]);
    picture->setSource(controlName(kind));
    return picture;
}

std::optional<CheckBoxPicture> checkBoxPictureNamed(StringView name) {
    for (auto kind : {CheckBoxPicture::Checked, CheckBoxPicture::Unchecked, CheckBoxPicture::CheckedDisabled,
                      CheckBoxPicture::UncheckedDisabled})
        if (textEquals(name, controlName(kind))) return kind;
    return std::nullopt;
}

}  // namespace telvaro::objects

#include "platform/check_box_drawing.h"

#include "runtime/text.h"

namespace telvaro {

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

}  // namespace

std::array<std::uint32_t, kCheckBoxSide * kCheckBoxSide> checkBoxPixels(CheckBoxPicture kind) {
    const bool disabled = kind == CheckBoxPicture::CheckedDisabled || kind == CheckBoxPicture::UncheckedDisabled;
    const bool checked = kind == CheckBoxPicture::Checked || kind == CheckBoxPicture::CheckedDisabled;
    const std::uint32_t face = disabled ? opaquePixel(214, 214, 214) : opaquePixel(255, 255, 255);
    const std::uint32_t tick = disabled ? opaquePixel(120, 120, 120) : opaquePixel(0, 0, 0);

    std::array<std::uint32_t, kSide * kSide> pixels;
    pixels.fill(face);
    auto set = [&](int x, int y, std::uint32_t argb) { pixels[static_cast<std::size_t>(y * kSide + x)] = argb; };
    for (int i = 0; i < kSide - 1; ++i) {
        set(i, 0, opaquePixel(128, 128, 128));
        set(0, i, opaquePixel(128, 128, 128));
    }
    for (int i = 1; i < kSide - 1; ++i) {
        set(i, 1, opaquePixel(64, 64, 64));
        set(1, i, opaquePixel(64, 64, 64));
    }
    for (int i = 0; i < kSide; ++i) {
        set(i, kSide - 1, opaquePixel(212, 208, 200));
        set(kSide - 1, i, opaquePixel(212, 208, 200));
    }
    if (checked)
        for (int row = 0; row < static_cast<int>(kTick.size()); ++row)
            for (const Span& span : kTick[static_cast<std::size_t>(row)])
                for (int col = span.first; col <= span.last; ++col) set(kInterior + col, kInterior + 1 + row, tick);
    return pixels;
}

const char16_t* checkBoxControlName(CheckBoxPicture kind) {
    switch (kind) {
        case CheckBoxPicture::Checked: return u"imSI";
        case CheckBoxPicture::Unchecked: return u"imNO";
        case CheckBoxPicture::CheckedDisabled: return u"imSid";
        case CheckBoxPicture::UncheckedDisabled: return u"imNOd";
    }
    return u"";
}

std::optional<CheckBoxPicture> checkBoxPictureNamed(StringView name) {
    for (auto kind : {CheckBoxPicture::Checked, CheckBoxPicture::Unchecked, CheckBoxPicture::CheckedDisabled,
                      CheckBoxPicture::UncheckedDisabled})
        if (textEquals(name, checkBoxControlName(kind))) return kind;
    return std::nullopt;
}

}  // namespace telvaro

#include "objects/window_painting.h"

#include <algorithm>
#include <cmath>

#include "objects/form.h"
#include "objects/picture_box.h"
#include "objects/window_registry.h"

namespace telvaro::objects {

namespace {

constexpr std::int32_t kPrintClient = 4, kPrintEraseBackground = 8, kPrintChildren = 16;
constexpr std::uint32_t kWhite = 0xFFFFFFFF;

std::int32_t pixels(double twips) {
    return static_cast<std::int32_t>(std::clamp(std::floor(twips / PictureBox::kTwipsPerPixel), -1e9, 1e9));
}

// A rectangle of the target image, in its pixels.
struct Area {
    std::int32_t left, top, right, bottom;
    Area inside(const Area& other) const {
        return {std::max(left, other.left), std::max(top, other.top), std::min(right, other.right),
                std::min(bottom, other.bottom)};
    }
};

void fill(Picture& target, const Area& area, std::uint32_t colour) {
    for (std::int32_t y = area.top; y < area.bottom; ++y)
        for (std::int32_t x = area.left; x < area.right; ++x) target.setPixel(x, y, colour);
}

// The control's own pixels, its top-left corner at (x, y), within `clip`.
void drawOwn(Control& control, Picture& target, std::int32_t x, std::int32_t y, const Area& clip) {
    auto* box = dynamic_cast<PictureBox*>(&control);
    if (!box) return;
    auto picture = std::dynamic_pointer_cast<Picture>(box->picture());
    if (!picture || picture.get() == &target) return;
    const Area area = clip.inside({x, y, x + picture->width(), y + picture->height()});
    for (std::int32_t py = area.top; py < area.bottom; ++py)
        for (std::int32_t px = area.left; px < area.right; ++px)
            target.setPixel(px, py, picture->pixel(px - x, py - y));
}

std::shared_ptr<Form> formOf(const std::shared_ptr<Control>& control) {
    if (auto form = std::dynamic_pointer_cast<Form>(control)) return form;
    return std::dynamic_pointer_cast<Form>(control->parent());
}

// The visible controls inside `container`, each with its own children.
void drawChildren(const Form& form, const Control& container, Picture& target, std::int32_t x, std::int32_t y,
                  const Area& clip, int depth) {
    if (depth > 64) return;  // containers nest; a loop of them draws once round at most
    for (const auto& child : form.controls()) {
        if (!child->visible || child->container().get() != &container) continue;
        const std::int32_t cx = x + pixels(child->left), cy = y + pixels(child->top);
        const Area area = clip.inside({cx, cy, cx + pixels(child->width), cy + pixels(child->height)});
        if (area.left >= area.right || area.top >= area.bottom) continue;
        drawOwn(*child, target, cx, cy, area);
        drawChildren(form, *child, target, cx, cy, area, depth + 1);
    }
}

struct Painting {
    std::shared_ptr<Control> source;
    std::shared_ptr<Picture> image;
    Area area;
};

// The source window and the image behind the device context, or nothing
// to paint.
bool begin(std::int32_t window, std::int32_t deviceContext, Painting& p) {
    auto target = deviceContextOf(deviceContext);
    p.source = windowOf(window);
    if (!target || !p.source || !target->autoRedraw) return false;
    p.image = target->image();
    p.area = Area{0, 0, p.image->width(), p.image->height()}.inside(
        {0, 0, pixels(p.source->width), pixels(p.source->height)});
    return true;
}

}  // namespace

void paintWindow(std::int32_t window, std::int32_t deviceContext) {
    Painting p;
    if (!begin(window, deviceContext, p)) return;
    drawOwn(*p.source, *p.image, 0, 0, p.area);
}

void printWindow(std::int32_t window, std::int32_t deviceContext, std::int32_t flags) {
    Painting p;
    if (!begin(window, deviceContext, p)) return;
    if (flags & kPrintEraseBackground) fill(*p.image, p.area, kWhite);
    if (flags & kPrintClient) drawOwn(*p.source, *p.image, 0, 0, p.area);
    if (flags & kPrintChildren) {
        if (auto form = formOf(p.source)) drawChildren(*form, *p.source, *p.image, 0, 0, p.area, 0);
    }
}

}  // namespace telvaro::objects

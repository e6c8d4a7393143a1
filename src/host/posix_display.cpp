#include "host/posix_display.h"

#include "objects/window_painting.h"
#include "objects/window_registry.h"

namespace telvaro::posix {

WindowRectangle PosixDisplay::windowRectangle(std::int32_t window) {
    if (objects::windowOf(window)) return {};
    return X11Display::windowRectangle(window);
}

CapturedBitmap PosixDisplay::captureWindow(std::int32_t window, bool clientArea, std::int32_t left, std::int32_t top,
                                           std::int32_t width, std::int32_t height) {
    if (window != 0 && objects::windowOf(window)) return {};
    return X11Display::captureWindow(window, clientArea, left, top, width, height);
}

void PosixDisplay::paintInto(std::int32_t window, std::int32_t deviceContext) {
    objects::paintWindow(window, deviceContext);
}

void PosixDisplay::printInto(std::int32_t window, std::int32_t deviceContext, std::int32_t flags) {
    objects::printWindow(window, deviceContext, flags);
}

void PosixWindows::keepOnTop(std::int32_t window) {
    WindowEffects::keepOnTop(window);
    if (!objects::windowOf(window)) display_->keepAbove(window);
}

void PosixWindows::setOwner(std::int32_t window, std::int32_t owner) {
    WindowEffects::setOwner(window, owner);
    if (!objects::windowOf(window)) display_->setTransientFor(window, owner);
}

}  // namespace telvaro::posix

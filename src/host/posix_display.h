// The screen on Linux as the host puts it together: captures, density and
// windows from the X server (platform/posix/x11_display), and the paint
// messages delivered to the library's own windows (objects/window_painting),
// which are the only windows that draw into a device context here.
#pragma once

#include "platform/posix/window_effects.h"
#include "platform/posix/x11_display.h"

namespace telvaro::posix {

class PosixDisplay : public X11Display {
public:
    using X11Display::X11Display;
    // The library's own windows are on no screen: a capture of one gives
    // no bitmap and its rectangle is empty, whatever the X server holds
    // under the same number.
    WindowRectangle windowRectangle(std::int32_t window) override;
    CapturedBitmap captureWindow(std::int32_t window, bool clientArea, std::int32_t left, std::int32_t top,
                                 std::int32_t width, std::int32_t height) override;
    void paintInto(std::int32_t window, std::int32_t deviceContext) override;
    void printInto(std::int32_t window, std::int32_t deviceContext, std::int32_t flags) override;
};

// The window calls on Linux: every effect is kept per handle (as
// WindowEffects does for the library's own windows), and a handle that is a
// real X window, not one of the library's, also gets the window-manager
// hints: kept above, owned. Extents and drags have no X counterpart.
class PosixWindows : public WindowEffects {
public:
    explicit PosixWindows(std::shared_ptr<X11Display> display) : display_(std::move(display)) {}
    void keepOnTop(std::int32_t window) override;
    void setOwner(std::int32_t window, std::int32_t owner) override;

private:
    std::shared_ptr<X11Display> display_;
};

}  // namespace telvaro::posix

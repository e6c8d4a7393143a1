// The screen on Linux as the host puts it together: captures, density and
// windows from the X server (platform/posix/x11_display), and the paint
// messages delivered to the library's own windows (objects/window_painting),
// which are the only windows that draw into a device context here.
#pragma once

#include "platform/posix/x11_display.h"

namespace telvaro::posix {

class PosixDisplay : public X11Display {
public:
    using X11Display::X11Display;
    void paintInto(std::int32_t window, std::int32_t deviceContext) override;
    void printInto(std::int32_t window, std::int32_t deviceContext, std::int32_t flags) override;
};

}  // namespace telvaro::posix

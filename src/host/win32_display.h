// The screen on Windows: the runtime's screen object (twips per pixel from
// the screen's pixels per inch), user32 for the windows and their device
// contexts, gdi32 for the copy, OleCreatePictureIndirect for the picture.
#pragma once

#include "platform/display.h"

namespace telvaro::win32 {

class Win32Display : public DisplayService {
public:
    double twipsPerPixelX() override;
    double twipsPerPixelY() override;
    double screenWidth() override;
    double screenHeight() override;
    std::int32_t desktopWindow() override;
    std::int32_t foregroundWindow() override;
    WindowRectangle windowRectangle(std::int32_t window) override;
    CapturedBitmap captureWindow(std::int32_t window, bool clientArea, std::int32_t left, std::int32_t top,
                                 std::int32_t width, std::int32_t height) override;
    ObjectRef pictureOfBitmap(std::int32_t bitmap, std::int32_t palette) override;
    void paintInto(std::int32_t window, std::int32_t deviceContext) override;
    void printInto(std::int32_t window, std::int32_t deviceContext, std::int32_t flags) override;
};

}  // namespace telvaro::win32

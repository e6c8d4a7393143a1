// The screen as the capture methods see it: its density (twips per pixel,
// as the runtime's screen object gives it) and size, the desktop and the
// foreground window, the copy of a window's pixels into a bitmap, the
// wrapping of a bitmap into a picture object, and the two paint messages
// that make a window draw itself into a device context.
//
// Windows and device contexts are named by the caller's handles (Longs).
// A bitmap handle is what captureWindow hands back and pictureOfBitmap
// takes over: a GDI bitmap on Windows, an X pixmap on Linux. Results of
// the platform calls are not checked: a capture that cannot be made gives
// a zero bitmap, and a zero bitmap gives no picture (Nothing).
#pragma once

#include <cstdint>

#include "runtime/variant.h"

namespace telvaro {

// A window's rectangle in screen pixels (GetWindowRect); all zero for a
// window that is not there.
struct WindowRectangle {
    std::int32_t left = 0, top = 0, right = 0, bottom = 0;
};

// What a capture leaves: the bitmap and, on a palette device, the palette
// built for it (0 otherwise). Both belong to whoever receives them.
struct CapturedBitmap {
    std::int32_t bitmap = 0;
    std::int32_t palette = 0;
};

class DisplayService {
public:
    virtual ~DisplayService() = default;

    // Screen.TwipsPerPixelX and TwipsPerPixelY (15 at 96 pixels per inch).
    virtual double twipsPerPixelX() = 0;
    virtual double twipsPerPixelY() = 0;
    // Screen.Width and Screen.Height, in twips.
    virtual double screenWidth() = 0;
    virtual double screenHeight() = 0;

    // GetDesktopWindow, GetForegroundWindow (0 when none), GetWindowRect.
    virtual std::int32_t desktopWindow() = 0;
    virtual std::int32_t foregroundWindow() = 0;
    virtual WindowRectangle windowRectangle(std::int32_t window) = 0;

    // A new bitmap of width x height pixels holding the window's pixels
    // from (left, top) on: of its client area, or of the whole window with
    // its frame. Window 0 is the whole screen. A size the platform cannot
    // make gives bitmap 0.
    virtual CapturedBitmap captureWindow(std::int32_t window, bool clientArea, std::int32_t left, std::int32_t top,
                                         std::int32_t width, std::int32_t height) = 0;
    // A picture object over the bitmap and palette, which it takes over and
    // frees with itself; Nothing when none can be made.
    virtual ObjectRef pictureOfBitmap(std::int32_t bitmap, std::int32_t palette) = 0;

    // WM_PAINT: the window paints its client area into the device context.
    virtual void paintInto(std::int32_t window, std::int32_t deviceContext) = 0;
    // WM_PRINT with the PRF_ flags: the window draws itself (its client
    // area, its children, its owned windows, as the flags say) into the
    // device context.
    virtual void printInto(std::int32_t window, std::int32_t deviceContext, std::int32_t flags) = 0;
};

}  // namespace telvaro

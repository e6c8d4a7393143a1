// The window calls of the form helpers: a list box's horizontal scroll
// extent, a window kept above all others, a window owned by another (it
// floats above its owner and is minimised with it), and a drag of a window
// by its body. Windows are named by the caller's handles (a control's or
// form's hWnd, a Long). Results are not reported: the helpers do not check
// them.
//
// On Windows these are the user32 calls themselves. Elsewhere there are no
// windows: the effect is kept per handle (WindowEffects), so that a caller
// and the tests can see what a window was told.
#pragma once

#include <cstdint>

namespace telvaro {

class Windows {
public:
    virtual ~Windows() = default;
    // LB_SETHORIZONTALEXTENT: the scrollable width of a list box, in pixels.
    virtual void setHorizontalExtent(std::int32_t listWindow, std::int16_t extent) = 0;
    // SetWindowPos to HWND_TOPMOST without moving, sizing or activating it.
    virtual void keepOnTop(std::int32_t window) = 0;
    // The owner slot of the window (GWL_HWNDPARENT).
    virtual void setOwner(std::int32_t window, std::int32_t owner) = 0;
    // ReleaseCapture, then a left button pressed on the window's caption.
    virtual void dragByBody(std::int32_t window) = 0;
};

}  // namespace telvaro

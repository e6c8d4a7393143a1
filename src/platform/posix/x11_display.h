// The screen on Linux: the X server named by $DISPLAY. The screen is the
// root window of its default screen, windows are X window ids, the density
// is the server's (pixels over millimetres, rounded to whole pixels per inch
// as a Windows screen reports it), a captured bitmap is an X pixmap, and a
// picture is made from the pixmap's pixels through the picture service.
//
// $DISPLAY is read at each call: with none set, or no server answering, the
// screen has no windows, 15 twips a pixel and size 0, and every capture
// gives no picture (Nothing), as a failed capture does. Errors the server
// reports (a window that is gone, a size it cannot allocate) are caught and
// end the call in the same way; a server that goes away drops the
// connection instead of ending the process.
//
// The paint messages reach no X window: X windows draw only themselves, so
// paintInto and printInto do nothing here (the host routes them to the
// library's own windows first).
#pragma once

#include <memory>
#include <mutex>

#include "platform/display.h"
#include "platform/pictures.h"

namespace telvaro::posix {

class X11Display : public DisplayService {
public:
    explicit X11Display(std::shared_ptr<Pictures> pictures);
    ~X11Display() override;
    X11Display(const X11Display&) = delete;
    X11Display& operator=(const X11Display&) = delete;

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

    // The window-manager hints of a real X window (the windows service on
    // Linux): kept above the others (_NET_WM_STATE_ABOVE, asked of a
    // running window manager and written on the window for one that comes
    // later), and owned by another (WM_TRANSIENT_FOR; owner 0 removes it).
    // False when the handle names no window on the server, or there is none.
    bool keepAbove(std::int32_t window);
    bool setTransientFor(std::int32_t window, std::int32_t owner);

    // The largest bitmap a capture makes, as large as a picture may be.
    static constexpr std::int32_t kMaxSide = 16384;
    static constexpr std::int64_t kMaxPixels = std::int64_t{64} << 20;

    struct Connection;

private:
    // The open connection to $DISPLAY, opened at first need and again when
    // $DISPLAY changes or the server went away; nullptr without a server.
    Connection* connect();

    std::recursive_mutex mutex_;
    std::unique_ptr<Connection> connection_;
    std::shared_ptr<Pictures> pictures_;
};

}  // namespace telvaro::posix

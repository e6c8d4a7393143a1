#include "platform/posix/x11_display.h"

#include <cmath>
#include <cstdlib>
#include <string>
#include <unordered_map>
#include <vector>

// Xlib last: it defines macros (True, False, None, Status) that the
// library's own headers must not meet.
#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <X11/Xutil.h>

namespace telvaro::posix {

struct X11Display::Connection {
    ::Display* display = nullptr;
    std::string name;
    bool lost = false;
};

namespace {

constexpr double kTwipsPerInch = 1440.0;
constexpr double kDefaultTwipsPerPixel = 15.0;  // 96 pixels per inch

// Errors the server reports on the calls of this service are kept for the
// call that made them (a trap), instead of the default handler's exit.
thread_local bool trapping = false;
thread_local int trappedError = 0;
XErrorHandler previousErrorHandler = nullptr;

int onError(::Display* display, XErrorEvent* event) {
    if (trapping) {
        if (trappedError == 0) trappedError = event->error_code;
        return 0;
    }
    return previousErrorHandler ? previousErrorHandler(display, event) : 0;
}

// A lost connection is this service's to notice (its exit handler marks
// it), not a reason to print or end the process.
int onConnectionError(::Display*) { return 0; }

// The process-wide handlers are installed once; each connection of this
// service also gets an exit handler that marks it lost and returns.
void installHandlers() {
    static const bool installed = [] {
        previousErrorHandler = XSetErrorHandler(onError);
        XSetIOErrorHandler(onConnectionError);
        return true;
    }();
    (void)installed;
}

void onConnectionLost(::Display*, void* data) { static_cast<X11Display::Connection*>(data)->lost = true; }

// Runs the calls of one step with the server's errors kept; failed() waits
// for the server's answer to all of them.
class ErrorTrap {
public:
    explicit ErrorTrap(::Display* display) : display_(display) {
        XSync(display_, 0);
        trapping = true;
        trappedError = 0;
    }
    ~ErrorTrap() { trapping = false; }
    ErrorTrap(const ErrorTrap&) = delete;
    ErrorTrap& operator=(const ErrorTrap&) = delete;
    bool failed() {
        XSync(display_, 0);
        return trappedError != 0;
    }

private:
    ::Display* display_;
};

// Whole pixels per inch from the server's pixels and millimetres, and the
// twips of one pixel at that density.
double twipsPerPixel(int pixels, int millimetres) {
    if (pixels <= 0 || millimetres <= 0) return kDefaultTwipsPerPixel;
    const long perInch = std::lround(pixels * 25.4 / millimetres);
    return perInch > 0 ? kTwipsPerInch / static_cast<double>(perInch) : kDefaultTwipsPerPixel;
}

Window rootOf(::Display* d) { return DefaultRootWindow(d); }

Window parentOf(::Display* d, Window window) {
    Window root = 0, parent = 0, *children = nullptr;
    unsigned count = 0;
    if (!XQueryTree(d, window, &root, &parent, &children, &count)) return 0;
    if (children) XFree(children);
    return parent;
}

bool isManaged(::Display* d, Window window) {
    const Atom wmState = XInternAtom(d, "WM_STATE", 0);
    Atom type = 0;
    int format = 0;
    unsigned long items = 0, after = 0;
    unsigned char* data = nullptr;
    const int status =
        XGetWindowProperty(d, window, wmState, 0, 0, 0, AnyPropertyType, &type, &format, &items, &after, &data);
    if (data) XFree(data);
    return status == Success && type != 0;
}

// The whole window, frame included: for a top-level window that a window
// manager has framed, the frame (its ancestor just below the root);
// otherwise the window itself, which has no frame of its own.
Window outerWindow(::Display* d, Window window) {
    const Window root = rootOf(d);
    if (window == root || !isManaged(d, window)) return window;
    Window outer = window;
    for (Window parent = parentOf(d, outer); parent != 0 && parent != root; parent = parentOf(d, outer)) outer = parent;
    return outer;
}

// The top-level window holding `window`: the first one a window manager
// manages, or the child of the root.
Window topLevelOf(::Display* d, Window window) {
    const Window root = rootOf(d);
    while (window != 0 && window != root && !isManaged(d, window)) {
        const Window parent = parentOf(d, window);
        if (parent == root || parent == 0) break;
        window = parent;
    }
    return window == root ? 0 : window;
}

std::int32_t asHandle(unsigned long id) { return static_cast<std::int32_t>(id); }
unsigned long asId(std::int32_t handle) { return static_cast<std::uint32_t>(handle); }

// The colour of each pixel value of a pixmap of `depth` bits: through the
// palette (a colormap) when one is given, through the masks of a true-colour
// visual of that depth, else through the screen's colormap.
class PixelColours {
public:
    PixelColours(::Display* d, int depth, Colormap palette) {
        XVisualInfo info{};
        if (palette == 0 && depth > 1 && XMatchVisualInfo(d, DefaultScreen(d), depth, TrueColor, &info)) {
            masks_[0] = info.red_mask;
            masks_[1] = info.green_mask;
            masks_[2] = info.blue_mask;
            trueColour_ = true;
            return;
        }
        if (depth == 1) return;
        const Colormap map = palette != 0 ? palette : DefaultColormap(d, DefaultScreen(d));
        const int entries = std::min(1 << std::min(depth, 16), 65536);
        std::vector<XColor> colours(static_cast<std::size_t>(entries));
        for (int i = 0; i < entries; ++i) colours[static_cast<std::size_t>(i)].pixel = static_cast<unsigned long>(i);
        XQueryColors(d, map, colours.data(), entries);
        table_.reserve(colours.size());
        for (const XColor& c : colours)
            table_.push_back(0xFF000000u | (static_cast<std::uint32_t>(c.red >> 8) << 16) |
                             (static_cast<std::uint32_t>(c.green >> 8) << 8) | static_cast<std::uint32_t>(c.blue >> 8));
        depth_ = depth;
    }

    std::uint32_t operator()(unsigned long value) const {
        if (trueColour_)
            return 0xFF000000u | (channel(value, masks_[0]) << 16) | (channel(value, masks_[1]) << 8) |
                   channel(value, masks_[2]);
        if (depth_ == 0) return value ? 0xFFFFFFFFu : 0xFF000000u;  // a 1-bit bitmap: 1 is white
        return value < table_.size() ? table_[value] : 0xFF000000u;
    }

private:
    static std::uint32_t channel(unsigned long value, unsigned long mask) {
        if (mask == 0) return 0;
        int shift = 0;
        while (((mask >> shift) & 1u) == 0) ++shift;
        const unsigned long bits = mask >> shift;
        const unsigned long v = (value & mask) >> shift;
        return static_cast<std::uint32_t>(v * 255u / bits);
    }

    bool trueColour_ = false;
    unsigned long masks_[3] = {0, 0, 0};
    std::vector<std::uint32_t> table_;
    int depth_ = 0;
};

}  // namespace

X11Display::X11Display(std::shared_ptr<Pictures> pictures) : pictures_(std::move(pictures)) {}

X11Display::~X11Display() {
    if (connection_ && connection_->display) XCloseDisplay(connection_->display);
}

X11Display::Connection* X11Display::connect() {
    const char* name = std::getenv("DISPLAY");
    const std::string wanted = name ? name : "";
    if (connection_ && (connection_->lost || connection_->name != wanted)) {
        XCloseDisplay(connection_->display);
        connection_.reset();
    }
    if (wanted.empty()) return nullptr;
    if (!connection_) {
        installHandlers();
        ::Display* display = XOpenDisplay(wanted.c_str());
        if (!display) return nullptr;
        connection_ = std::make_unique<Connection>();
        connection_->display = display;
        connection_->name = wanted;
        XSetIOErrorExitHandler(display, onConnectionLost, connection_.get());
    }
    // A server that has gone shows at the next round trip.
    XSync(connection_->display, 0);
    if (connection_->lost) {
        XCloseDisplay(connection_->display);
        connection_.reset();
        return nullptr;
    }
    return connection_.get();
}

double X11Display::twipsPerPixelX() {
    std::lock_guard lock(mutex_);
    Connection* c = connect();
    if (!c) return kDefaultTwipsPerPixel;
    const int screen = DefaultScreen(c->display);
    return twipsPerPixel(DisplayWidth(c->display, screen), DisplayWidthMM(c->display, screen));
}

double X11Display::twipsPerPixelY() {
    std::lock_guard lock(mutex_);
    Connection* c = connect();
    if (!c) return kDefaultTwipsPerPixel;
    const int screen = DefaultScreen(c->display);
    return twipsPerPixel(DisplayHeight(c->display, screen), DisplayHeightMM(c->display, screen));
}

double X11Display::screenWidth() {
    std::lock_guard lock(mutex_);
    Connection* c = connect();
    if (!c) return 0;
    return DisplayWidth(c->display, DefaultScreen(c->display)) * twipsPerPixelX();
}

double X11Display::screenHeight() {
    std::lock_guard lock(mutex_);
    Connection* c = connect();
    if (!c) return 0;
    return DisplayHeight(c->display, DefaultScreen(c->display)) * twipsPerPixelY();
}

std::int32_t X11Display::desktopWindow() {
    std::lock_guard lock(mutex_);
    Connection* c = connect();
    return c ? asHandle(rootOf(c->display)) : 0;
}

std::int32_t X11Display::foregroundWindow() {
    std::lock_guard lock(mutex_);
    Connection* c = connect();
    if (!c) return 0;
    ::Display* d = c->display;
    ErrorTrap trap(d);
    // The window manager names the active window; without one, the window
    // that has the keyboard focus stands for it.
    Window active = 0;
    Atom type = 0;
    int format = 0;
    unsigned long items = 0, after = 0;
    unsigned char* data = nullptr;
    if (XGetWindowProperty(d, rootOf(d), XInternAtom(d, "_NET_ACTIVE_WINDOW", 0), 0, 1, 0, XA_WINDOW, &type, &format,
                           &items, &after, &data) == Success &&
        data && items == 1 && format == 32)
        active = *reinterpret_cast<Window*>(data);
    if (data) XFree(data);
    if (active == 0) {
        int revert = 0;
        Window focus = 0;
        XGetInputFocus(d, &focus, &revert);
        if (focus != PointerRoot && focus != 0) active = topLevelOf(d, focus);
    }
    if (trap.failed()) return 0;
    return asHandle(active);
}

WindowRectangle X11Display::windowRectangle(std::int32_t window) {
    std::lock_guard lock(mutex_);
    Connection* c = connect();
    if (!c || window == 0) return {};
    ::Display* d = c->display;
    ErrorTrap trap(d);
    const Window outer = outerWindow(d, asId(window));
    XWindowAttributes a{};
    Window child = 0;
    int x = 0, y = 0;
    if (!XGetWindowAttributes(d, outer, &a) || trap.failed()) return {};
    XTranslateCoordinates(d, outer, rootOf(d), 0, 0, &x, &y, &child);
    if (trap.failed()) return {};
    // The border belongs to the window, as a frame does on Windows.
    return {x - a.border_width, y - a.border_width, x + a.width + a.border_width, y + a.height + a.border_width};
}

CapturedBitmap X11Display::captureWindow(std::int32_t window, bool clientArea, std::int32_t left, std::int32_t top,
                                         std::int32_t width, std::int32_t height) {
    std::lock_guard lock(mutex_);
    Connection* c = connect();
    if (!c) return {};
    if (width <= 0 || height <= 0 || width > kMaxSide || height > kMaxSide || std::int64_t{width} * height > kMaxPixels)
        return {};
    ::Display* d = c->display;
    ErrorTrap trap(d);
    Window source = window == 0 ? rootOf(d) : asId(window);
    if (!clientArea) source = outerWindow(d, source);
    XWindowAttributes a{};
    if (!XGetWindowAttributes(d, source, &a) || trap.failed()) return {};

    // A bitmap compatible with the window, black where the window has
    // nothing to give (outside it), as a new bitmap starts.
    const Pixmap bitmap = XCreatePixmap(d, source, static_cast<unsigned>(width), static_cast<unsigned>(height),
                                        static_cast<unsigned>(a.depth));
    XGCValues values{};
    values.subwindow_mode = IncludeInferiors;  // the children's pixels too, as on screen
    values.graphics_exposures = 0;
    values.foreground = BlackPixelOfScreen(a.screen);
    GC gc = XCreateGC(d, bitmap, GCSubwindowMode | GCGraphicsExposures | GCForeground, &values);
    XFillRectangle(d, bitmap, gc, 0, 0, static_cast<unsigned>(width), static_cast<unsigned>(height));
    XCopyArea(d, source, bitmap, gc, left, top, static_cast<unsigned>(width), static_cast<unsigned>(height), 0, 0);
    XFreeGC(d, gc);
    if (trap.failed()) {
        XFreePixmap(d, bitmap);
        XSync(d, 0);
        return {};
    }

    // A palette only for a device of exactly 256 palette entries: a new
    // colormap holding the colours of the window's.
    CapturedBitmap result{asHandle(bitmap), 0};
    if (a.visual && (a.visual->c_class == PseudoColor || a.visual->c_class == GrayScale) &&
        a.visual->map_entries == 256) {
        std::vector<XColor> colours(256);
        for (int i = 0; i < 256; ++i) {
            colours[static_cast<std::size_t>(i)].pixel = static_cast<unsigned long>(i);
            colours[static_cast<std::size_t>(i)].flags = DoRed | DoGreen | DoBlue;
        }
        XQueryColors(d, a.colormap, colours.data(), 256);
        const Colormap palette = XCreateColormap(d, source, a.visual, AllocAll);
        XStoreColors(d, palette, colours.data(), 256);
        if (!trap.failed()) result.palette = asHandle(palette);
    }
    return result;
}

ObjectRef X11Display::pictureOfBitmap(std::int32_t bitmap, std::int32_t palette) {
    std::lock_guard lock(mutex_);
    Connection* c = connect();
    if (!c || bitmap == 0) return nullptr;
    ::Display* d = c->display;
    std::vector<std::uint32_t> pixels;
    unsigned width = 0, height = 0;
    {
        ErrorTrap trap(d);
        Window root = 0;
        int x = 0, y = 0;
        unsigned border = 0, depth = 0;
        const bool sized = XGetGeometry(d, asId(bitmap), &root, &x, &y, &width, &height, &border, &depth) != 0;
        XImage* image = nullptr;
        if (sized && !trap.failed() && width <= static_cast<unsigned>(kMaxSide) &&
            height <= static_cast<unsigned>(kMaxSide) && std::int64_t{width} * height <= kMaxPixels)
            image = XGetImage(d, asId(bitmap), 0, 0, width, height, AllPlanes, ZPixmap);
        if (image && !trap.failed()) {
            const PixelColours colour(d, static_cast<int>(depth), asId(palette));
            pixels.reserve(std::size_t{width} * height);
            for (unsigned row = 0; row < height; ++row)
                for (unsigned col = 0; col < width; ++col)
                    pixels.push_back(colour(XGetPixel(image, static_cast<int>(col), static_cast<int>(row))));
        }
        if (image) XDestroyImage(image);
        // The picture takes the bitmap and palette over: they go now that
        // their pixels are read.
        XFreePixmap(d, asId(bitmap));
        if (palette != 0) XFreeColormap(d, asId(palette));
        (void)trap.failed();
    }
    if (pixels.empty()) return nullptr;
    return pictures_->fromPixels(static_cast<std::int32_t>(width), static_cast<std::int32_t>(height), pixels, u"");
}

bool X11Display::keepAbove(std::int32_t window) {
    std::lock_guard lock(mutex_);
    Connection* c = connect();
    if (!c || window == 0) return false;
    ::Display* d = c->display;
    ErrorTrap trap(d);
    XWindowAttributes a{};
    const Window w = asId(window);
    if (!XGetWindowAttributes(d, w, &a) || trap.failed()) return false;
    const Atom state = XInternAtom(d, "_NET_WM_STATE", 0);
    const Atom above = XInternAtom(d, "_NET_WM_STATE_ABOVE", 0);
    // The state on the window, once.
    Atom type = 0;
    int format = 0;
    unsigned long items = 0, after = 0;
    unsigned char* data = nullptr;
    bool present = false;
    if (XGetWindowProperty(d, w, state, 0, 1024, 0, XA_ATOM, &type, &format, &items, &after, &data) == Success &&
        data && format == 32)
        for (unsigned long i = 0; i < items; ++i) present = present || reinterpret_cast<Atom*>(data)[i] == above;
    if (data) XFree(data);
    if (!present)
        XChangeProperty(d, w, state, XA_ATOM, 32, PropModeAppend, reinterpret_cast<const unsigned char*>(&above), 1);
    // The request to a running window manager: add ABOVE, from an application.
    XEvent event{};
    event.xclient.type = ClientMessage;
    event.xclient.window = w;
    event.xclient.message_type = state;
    event.xclient.format = 32;
    event.xclient.data.l[0] = 1;
    event.xclient.data.l[1] = static_cast<long>(above);
    event.xclient.data.l[3] = 1;
    XSendEvent(d, rootOf(d), 0, SubstructureRedirectMask | SubstructureNotifyMask, &event);
    XRaiseWindow(d, w);
    return !trap.failed();
}

bool X11Display::setTransientFor(std::int32_t window, std::int32_t owner) {
    std::lock_guard lock(mutex_);
    Connection* c = connect();
    if (!c || window == 0) return false;
    ::Display* d = c->display;
    ErrorTrap trap(d);
    XWindowAttributes a{};
    if (!XGetWindowAttributes(d, asId(window), &a) || trap.failed()) return false;
    if (owner == 0)
        XDeleteProperty(d, asId(window), XA_WM_TRANSIENT_FOR);
    else
        XSetTransientForHint(d, asId(window), asId(owner));
    return !trap.failed();
}

void X11Display::paintInto(std::int32_t, std::int32_t) {}
void X11Display::printInto(std::int32_t, std::int32_t, std::int32_t) {}

}  // namespace telvaro::posix

// Screen capture on a virtual X server, and picture copy between the
// library's own controls. The capture fixture starts Xvfb (1024 x 768, 24
// bits, 96 pixels per inch, so 15 twips a pixel), draws known pixels into a
// window with Xlib and reads them back through the methods.
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <optional>
#include <tuple>

#include "forms/forms_fixture.h"
#include "forms/xvfb_server.h"
#include "objects/picture.h"
#include "objects/picture_box.h"

// Xlib last, and its True and False macros gone: they are the library's Booleans here.
#include <X11/Xlib.h>
#include <X11/Xutil.h>
#undef True
#undef False

namespace telvaro {
namespace {

using objects::Picture;
using objects::rgbPixel;

constexpr std::uint32_t kRed = rgbPixel(255, 0, 0), kBlue = rgbPixel(0, 0, 255), kGreen = rgbPixel(0, 255, 0),
                        kBlack = rgbPixel(0, 0, 0), kWhite = 0xFFFFFFFF;

std::shared_ptr<Picture> pictureOf(const Variant& v) {
    return v.isObject() ? std::dynamic_pointer_cast<Picture>(v.get<ObjectRef>()) : nullptr;
}

// DISPLAY for the length of a scope.
class DisplayVariable {
public:
    explicit DisplayVariable(const std::string& value) {
        if (const char* old = std::getenv("DISPLAY")) old_ = old;
        set(value);
    }
    ~DisplayVariable() { set(old_.value_or("")); }

private:
    static void set(const std::string& v) { v.empty() ? ::unsetenv("DISPLAY") : ::setenv("DISPLAY", v.c_str(), 1); }
    std::optional<std::string> old_;
};

// A 200 x 100 window at (20, 10) of the screen: red on its left half, blue
// on its right half, one green pixel at (10, 5).
struct TestWindow {
    static constexpr int kLeft = 20, kTop = 10, kWidth = 200, kHeight = 100;
    ::Display* display = nullptr;
    Window window = 0;

    unsigned long colour(unsigned short r, unsigned short g, unsigned short b) const {
        XColor c{0, r, g, b, 0, 0};
        XAllocColor(display, DefaultColormap(display, DefaultScreen(display)), &c);
        return c.pixel;
    }
    void fill(unsigned long pixel, int x, int y, unsigned w, unsigned h) const {
        GC gc = XCreateGC(display, window, 0, nullptr);
        XSetForeground(display, gc, pixel);
        XFillRectangle(display, window, gc, x, y, w, h);
        XFreeGC(display, gc);
    }
    void open(const std::string& name) {
        display = XOpenDisplay(name.c_str());
        if (!display) return;
        const int screen = DefaultScreen(display);
        XSetWindowAttributes attributes{};
        attributes.override_redirect = 1;
        window = XCreateWindow(display, RootWindow(display, screen), kLeft, kTop, kWidth, kHeight, 0, CopyFromParent,
                               InputOutput, CopyFromParent, CWOverrideRedirect, &attributes);
        XMapRaised(display, window);
        XSync(display, 0);
        fill(colour(0xFFFF, 0, 0), 0, 0, kWidth / 2, kHeight);
        fill(colour(0, 0, 0xFFFF), kWidth / 2, 0, kWidth / 2, kHeight);
        fill(colour(0, 0xFFFF, 0), 10, 5, 1, 1);
        XSetInputFocus(display, window, RevertToParent, CurrentTime);
        XSync(display, 0);
    }
    void close() {
        if (display) XCloseDisplay(display);
        display = nullptr;
    }
    std::int32_t handle() const { return static_cast<std::int32_t>(window); }
};

class CaptureTest : public FormsTest {
protected:
    static void SetUpTestSuite() {
        server_ = std::make_unique<testing::XvfbServer>("1024x768x24");
        if (!server_->running()) return;
        display_ = std::make_unique<DisplayVariable>(server_->display());
        window_.open(server_->display());
    }
    static void TearDownTestSuite() {
        window_.close();
        display_.reset();
        server_.reset();
    }
    void SetUp() override {
        ASSERT_TRUE(server_ && server_->running()) << server_->failure();
        ASSERT_NE(window_.display, nullptr) << "no connection to " << server_->display();
    }

    std::shared_ptr<Picture> capture(std::int32_t window, bool client, std::int32_t left, std::int32_t top,
                                     std::int32_t widthTwips, std::int32_t heightTwips) {
        return pictureOf(call("imgCaptureWindow", {Variant(window), Variant(Boolean(client)), Variant(left),
                                                   Variant(top), Variant(widthTwips), Variant(heightTwips)}));
    }

    static inline std::unique_ptr<testing::XvfbServer> server_;
    static inline std::unique_ptr<DisplayVariable> display_;
    static inline TestWindow window_;
};

TEST_F(CaptureTest, WindowCapturesGiveThePixelsDrawn) {
    struct Pixel {
        int x, y;
        std::uint32_t argb;
    };
    enum Source { Client, Whole, Screen };  // the test window's client area, the whole window, window 0
    struct Case {
        const char* label;
        Source source;
        std::int32_t left, top, widthTwips, heightTwips;
        int width, height;
        std::vector<Pixel> pixels;
    };
    const int w = TestWindow::kWidth, h = TestWindow::kHeight, x0 = TestWindow::kLeft, y0 = TestWindow::kTop;
    // clang-format off
    // clang-format off
    const std::vector<Case> cases = {
        {"the client area by its twips", Client, 0, 0, w * 15, h * 15, w, h, {{0, 0, kRed}, {199, 99, kBlue}, {10, 5, kGreen}}},
        {"whole window, no frame without a window manager", Whole, 0, 0, w * 15, h * 15, w, h, {{0, 0, kRed}, {10, 5, kGreen}}},
        {"from a point of the window, in pixels", Client, 10, 5, 15, 15, 1, 1, {{0, 0, kGreen}}},
        {"past the window's edge is black", Client, 190, 0, 20 * 15, 15, 20, 1, {{9, 0, kBlue}, {10, 0, kBlack}}},
        {"twips round to whole pixels: 22 twips are 1 pixel", Client, 0, 0, 22, 23, 1, 2, {{0, 1, kRed}}},
        {"window 0 is the screen", Screen, x0, y0 + 5, 11 * 15, 15, 11, 1, {{0, 0, kRed}, {10, 0, kGreen}}},
    };
    // clang-format on
    for (const auto& c : cases) {
        SCOPED_TRACE(c.label);
        auto picture = capture(c.source == Screen ? 0 : window_.handle(), c.source == Client, c.left, c.top,
                               c.widthTwips, c.heightTwips);
        ASSERT_NE(picture, nullptr);
        EXPECT_EQ(picture->width(), c.width);
        EXPECT_EQ(picture->height(), c.height);
        for (const auto& p : c.pixels) EXPECT_EQ(picture->pixel(p.x, p.y), p.argb) << p.x << "," << p.y;
    }
}

TEST_F(CaptureTest, TheConvenienceCapturesDivideTheirPixelsAgain) {
    // 1024 x 768 pixels are 15360 x 11520 twips; 15360 \ 15 = 1024 pixels,
    // which the window capture takes as twips again: 68 x 51.
    auto screen = pictureOf(call("imgCaptureScreen", {}));
    ASSERT_NE(screen, nullptr);
    EXPECT_EQ(screen->width(), 68);
    EXPECT_EQ(screen->height(), 51);
    EXPECT_EQ(screen->pixel(TestWindow::kLeft, TestWindow::kTop), kRed);
    EXPECT_EQ(screen->pixel(TestWindow::kLeft + 10, TestWindow::kTop + 5), kGreen);

    // The focused window, 200 x 100 pixels: 13 x 7 (200 / 15 = 13.3, 100 / 15 = 6.7).
    auto active = pictureOf(call("imgCaptureActiveWindow", {}));
    ASSERT_NE(active, nullptr);
    EXPECT_EQ(active->width(), 13);
    EXPECT_EQ(active->height(), 7);
    EXPECT_EQ(active->pixel(10, 5), kGreen);
    EXPECT_EQ(active->pixel(0, 0), kRed);
}

TEST_F(CaptureTest, CapturesThatCannotBeMadeGiveNothing) {
    // A window that was there and is gone.
    const Window gone = XCreateSimpleWindow(window_.display, DefaultRootWindow(window_.display), 0, 0, 10, 10, 0, 0, 0);
    XDestroyWindow(window_.display, gone);
    XSync(window_.display, 0);
    const std::int32_t goneHandle = static_cast<std::int32_t>(gone);
    const std::int32_t win = window_.handle();
    struct Case {
        const char* label;
        std::int32_t window, left, top, width, height;
    };
    const std::vector<Case> cases = {
        {"a window that is gone", goneHandle, 0, 0, 150, 150},
        {"a width of 0", win, 0, 0, 0, 150},
        {"less than half a pixel", win, 0, 0, 7, 7},
        {"a negative height", win, 0, 0, 150, -1500},
        {"wider than a picture may be", win, 0, 0, 16385 * 15, 15},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.label);
        const Variant result = call("imgCaptureWindow", {Variant(c.window), Variant(False), Variant(c.left),
                                                         Variant(c.top), Variant(c.width), Variant(c.height)});
        ASSERT_TRUE(result.isObject());
        EXPECT_EQ(result.get<ObjectRef>(), nullptr);
    }
    // A window of the library's own is on no screen.
    auto form = std::make_shared<objects::Form>(u"frmEnMemoria");
    EXPECT_EQ(capture(form->hwnd(), true, 0, 0, 150, 150), nullptr);
    // Far outside the window the capture is made, and black.
    auto outside = capture(win, true, -100000, 2000000, 30, 30);
    ASSERT_NE(outside, nullptr);
    EXPECT_EQ(outside->pixel(1, 1), kBlack);
}

TEST_F(CaptureTest, ABitmapBecomesAPictureThatTakesItOver) {
    ::Display* d = window_.display;
    const Pixmap bitmap = XCreatePixmap(d, window_.window, 3, 2, static_cast<unsigned>(DefaultDepth(d, 0)));
    GC gc = XCreateGC(d, bitmap, 0, nullptr);
    XSetForeground(d, gc, window_.colour(0, 0xFFFF, 0));
    XFillRectangle(d, bitmap, gc, 0, 0, 3, 2);
    XSetForeground(d, gc, window_.colour(0xFFFF, 0, 0));
    XDrawPoint(d, bitmap, gc, 2, 1);
    XFreeGC(d, gc);
    XSync(d, 0);
    const std::int32_t handle = static_cast<std::int32_t>(bitmap);

    auto picture = pictureOf(call("imgCreateBitmapPicture", {Variant(handle), Variant(std::int32_t{0})}));
    ASSERT_NE(picture, nullptr);
    EXPECT_EQ(picture->width(), 3);
    EXPECT_EQ(picture->height(), 2);
    EXPECT_EQ(picture->pixel(0, 0), kGreen);
    EXPECT_EQ(picture->pixel(2, 1), kRed);
    // The picture took the bitmap: it is freed, and a second picture of it cannot be made.
    struct Case {
        const char* label;
        std::int32_t bitmap, palette;
    };
    for (const Case& c : std::vector<Case>{{"the bitmap already taken", handle, 0}, {"bitmap 0", 0, 0}}) {
        SCOPED_TRACE(c.label);
        const Variant result = call("imgCreateBitmapPicture", {Variant(c.bitmap), Variant(c.palette)});
        ASSERT_TRUE(result.isObject());
        EXPECT_EQ(result.get<ObjectRef>(), nullptr);
    }
}

TEST_F(CaptureTest, WithoutADisplayEveryCaptureIsNothing) {
    {
        DisplayVariable none("");
        for (const char* method : {"imgCaptureScreen", "imgCaptureActiveWindow"}) {
            const Variant result = call(method, {});
            ASSERT_TRUE(result.isObject()) << method;
            EXPECT_EQ(result.get<ObjectRef>(), nullptr) << method;
        }
        EXPECT_EQ(capture(window_.handle(), true, 0, 0, 150, 150), nullptr);
    }
    EXPECT_NE(capture(window_.handle(), true, 0, 0, 150, 150), nullptr);
}

// The picture copy, on the library's own form and picture boxes: no screen
// is needed, the objects draw their pictures themselves.
class PictureCopyTest : public FormsTest {
protected:
    PictureCopyTest() {
        place(*form, 450, 600, 3000, 1500);  // 200 x 100 pixels
        form->scaleMode = 3;
        form->add(shown);
        place(*shown, 150, 300, 60, 60);  // at (10, 20) pixels, 4 x 4
        shown->setPicture(std::make_shared<Picture>(4, 4, kRed));
        form->add(hidden);
        place(*hidden, 0, 0, 60, 60);
        hidden->visible = false;
        hidden->setPicture(std::make_shared<Picture>(4, 4, kBlue));
        target->left = 15;
        target->top = 30;
    }
    static void place(objects::Control& c, double left, double top, double width, double height) {
        std::tie(c.left, c.top, c.width, c.height) = std::tie(left, top, width, height);
    }
    std::shared_ptr<objects::Form> form = std::make_shared<objects::Form>(u"frmFoto");
    std::shared_ptr<objects::PictureBox> shown = std::make_shared<objects::PictureBox>(u"picLogo");
    std::shared_ptr<objects::PictureBox> hidden = std::make_shared<objects::PictureBox>(u"picOculta");
    std::shared_ptr<objects::PictureBox> target = std::make_shared<objects::PictureBox>(u"picCopia");
};

TEST_F(PictureCopyTest, TheCopyLaysTheBoxOverTheSourceWithItsPaintedLook) {
    call("ImgCopiaImagen", {Variant(ObjectRef(form)), Variant(ObjectRef(target))});
    EXPECT_EQ(target->calls(),
              (std::vector<String>{u"ScaleMode=", u"Height=", u"Width=", u"Left=", u"Top=", u"Visible=", u"AutoRedraw=",
                                   u"hDC", u"hDC", u"Image", u"Picture=", u"AutoRedraw="}));
    EXPECT_EQ(form->calls(),
              (std::vector<String>{u"ScaleMode", u"Height", u"Width", u"Left", u"Top", u"hWnd", u"hWnd"}));
    EXPECT_EQ(std::tie(target->scaleMode, target->width, target->height, target->left, target->top),
              std::make_tuple(3, 3000.0, 1500.0, 450.0, 600.0));
    EXPECT_FALSE(target->visible);
    EXPECT_FALSE(target->autoRedraw);
    auto copy = std::dynamic_pointer_cast<Picture>(target->picture());
    ASSERT_NE(copy, nullptr);
    ASSERT_EQ(copy->width(), 200);
    ASSERT_EQ(copy->height(), 100);
    struct Pixel {
        const char* label;
        int x, y;
        std::uint32_t argb;
    };
    for (const auto& p : std::vector<Pixel>{{"the shown box's first pixel", 10, 20, kRed},
                                            {"its last pixel", 13, 23, kRed},
                                            {"past it", 14, 23, kWhite},
                                            {"where the hidden box is", 0, 0, kWhite}}) {
        EXPECT_EQ(copy->pixel(p.x, p.y), p.argb) << p.label;
    }
}

TEST_F(PictureCopyTest, WithBothOptionsFalseOnlyScaleModeAndSizeAreCopied) {
    call("ImgCopiaImagen", {Variant(ObjectRef(form)), Variant(ObjectRef(target)), Variant(False), Variant(False)});
    EXPECT_EQ(std::tie(target->scaleMode, target->width, target->height, target->left, target->top),
              std::make_tuple(3, 3000.0, 1500.0, 15.0, 30.0));
    EXPECT_TRUE(target->visible);
    auto copy = std::dynamic_pointer_cast<Picture>(target->picture());
    ASSERT_NE(copy, nullptr);
    EXPECT_EQ(copy->pixel(10, 20), kRed);
}

TEST_F(PictureCopyTest, APictureBoxSourceGivesItsPictureClippedToItsSize) {
    auto source = std::make_shared<objects::PictureBox>(u"picFuente");
    source->width = 45;  // 3 x 2 pixels of a 4 x 4 picture
    source->height = 30;
    auto picture = std::make_shared<Picture>(4, 4, kBlue);
    picture->setPixel(2, 1, kGreen);
    picture->setPixel(3, 3, kRed);
    source->setPicture(picture);
    call("ImgCopiaImagen", {Variant(ObjectRef(source)), Variant(ObjectRef(target))});
    auto copy = std::dynamic_pointer_cast<Picture>(target->picture());
    ASSERT_NE(copy, nullptr);
    ASSERT_EQ(copy->width(), 3);
    ASSERT_EQ(copy->height(), 2);
    EXPECT_EQ(copy->pixel(0, 0), kBlue);
    EXPECT_EQ(copy->pixel(2, 1), kGreen);
}

TEST_F(PictureCopyTest, ObjectsWithoutTheMembersRaiseTheirError) {
    struct Case {
        const char* label;
        Variant origen, destino;
        int error;
    };
    const std::vector<Case> cases = {
        {"a text box has no ScaleMode", Variant(ObjectRef(textBox(u"x"))), Variant(ObjectRef(target)), 438},
        {"a form as target has no AutoRedraw", Variant(ObjectRef(shown)),
         Variant(ObjectRef(std::make_shared<objects::Form>())), 438},
        {"Nothing as source", Variant(ObjectRef()), Variant(ObjectRef(target)), 91},
    };
    for (const auto& c : cases) EXPECT_EQ(errorOf("ImgCopiaImagen", {c.origen, c.destino}), c.error) << c.label;
}

}  // namespace
}  // namespace telvaro

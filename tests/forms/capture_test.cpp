// Screen capture on a virtual X server, and picture copy between the
// library's own controls. The capture fixture starts Xvfb (1024 x 768, 24
// bits, 96 pixels per inch, so 15 twips a pixel), draws known pixels into a
// window with Xlib and reads them back through the methods.
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <memory>
#include <optional>
#include <tuple>

#include "forms/forms_fixture.h"
#include "forms/xvfb.h"
#include "objects/picture.h"
#include "objects/picture_box.h"

// Xlib last, and its True and False macros gone: they are the library's Booleans here.
#include <X11/Xlib.h>
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
bool isNothing(const Variant& v) { return v.isObject() && v.get<ObjectRef>() == nullptr; }

// The test window: 200 x 100 at (20, 10) of the screen, red on its left
// half, blue on its right half, one green pixel at (10, 5), focused.
class CaptureTest : public FormsTest {
protected:
    static constexpr int kLeft = 20, kTop = 10, kWidth = 200, kHeight = 100;
    static void SetUpTestSuite() {
        const std::string display = testing::startXvfb(pid_);
        if (display.empty() || !(x_ = XOpenDisplay(display.c_str()))) return;
        variable_.emplace("DISPLAY", display.c_str());
        XSetWindowAttributes attributes{};
        attributes.override_redirect = 1;
        window_ = XCreateWindow(x_, DefaultRootWindow(x_), kLeft, kTop, kWidth, kHeight, 0, CopyFromParent, InputOutput,
                                CopyFromParent, CWOverrideRedirect, &attributes);
        XMapRaised(x_, window_);
        XSync(x_, 0);
        fill(window_, colour(0xFFFF, 0, 0), 0, 0, kWidth / 2, kHeight);
        fill(window_, colour(0, 0, 0xFFFF), kWidth / 2, 0, kWidth / 2, kHeight);
        fill(window_, colour(0, 0xFFFF, 0), 10, 5, 1, 1);
        XSetInputFocus(x_, window_, RevertToParent, CurrentTime);
        XSync(x_, 0);
    }
    static void TearDownTestSuite() {
        if (x_) XCloseDisplay(x_);
        variable_.reset();
        testing::stopXvfb(pid_);
    }
    void SetUp() override { ASSERT_NE(x_, nullptr) << "no virtual X server (is the package xvfb installed?)"; }

    static unsigned long colour(unsigned short r, unsigned short g, unsigned short b) {
        XColor c{0, r, g, b, 0, 0};
        XAllocColor(x_, DefaultColormap(x_, DefaultScreen(x_)), &c);
        return c.pixel;
    }
    static void fill(Drawable d, unsigned long pixel, int x, int y, unsigned w, unsigned h) {
        GC gc = XCreateGC(x_, d, 0, nullptr);
        XSetForeground(x_, gc, pixel);
        XFillRectangle(x_, d, gc, x, y, w, h);
        XFreeGC(x_, gc);
    }
    Variant captureWindow(std::int32_t window, bool client, std::int32_t left, std::int32_t top, std::int32_t width,
                          std::int32_t height) {
        return call("imgCaptureWindow", {Variant(window), Variant(Boolean(client)), Variant(left), Variant(top),
                                         Variant(width), Variant(height)});
    }
    std::shared_ptr<Picture> capture(std::int32_t window, bool client, std::int32_t left, std::int32_t top,
                                     std::int32_t widthTwips, std::int32_t heightTwips) {
        return pictureOf(captureWindow(window, client, left, top, widthTwips, heightTwips));
    }
    static std::int32_t handle() { return static_cast<std::int32_t>(window_); }

    static inline pid_t pid_ = -1;
    static inline std::optional<ScopedVariable> variable_;
    static inline ::Display* x_ = nullptr;
    static inline Window window_ = 0;
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
    const int w = kWidth, h = kHeight;
    // clang-format off
    const std::vector<Case> cases = {
        {"the client area", Client, 0, 0, w * 15, h * 15, w, h, {{0, 0, kRed}, {199, 99, kBlue}, {10, 5, kGreen}}},
        {"whole window: no frame", Whole, 0, 0, w * 15, h * 15, w, h, {{0, 0, kRed}, {10, 5, kGreen}}},
        {"from a point of the window, in pixels", Client, 10, 5, 15, 15, 1, 1, {{0, 0, kGreen}}},
        {"past the window's edge is black", Client, 190, 0, 20 * 15, 15, 20, 1, {{9, 0, kBlue}, {10, 0, kBlack}}},
        {"twips round to whole pixels: 22 twips are 1 pixel", Client, 0, 0, 22, 23, 1, 2, {{0, 1, kRed}}},
        {"window 0 is the screen", Screen, kLeft, kTop + 5, 11 * 15, 15, 11, 1, {{0, 0, kRed}, {10, 0, kGreen}}},
    };
    // clang-format on
    for (const auto& c : cases) {
        SCOPED_TRACE(c.label);
        auto picture =
            capture(c.source == Screen ? 0 : handle(), c.source == Client, c.left, c.top, c.widthTwips, c.heightTwips);
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
    EXPECT_EQ(std::make_pair(screen->width(), screen->height()), std::make_pair(68, 51));
    EXPECT_EQ(screen->pixel(kLeft + 10, kTop + 5), kGreen);
    // The focused window, 200 x 100 pixels: 13 x 7 (200 / 15 = 13.3, 100 / 15 = 6.7).
    auto active = pictureOf(call("imgCaptureActiveWindow", {}));
    ASSERT_NE(active, nullptr);
    EXPECT_EQ(std::make_pair(active->width(), active->height()), std::make_pair(13, 7));
    EXPECT_EQ(active->pixel(10, 5), kGreen);
}

TEST_F(CaptureTest, CapturesThatCannotBeMadeGiveNothing) {
    const Window gone = XCreateSimpleWindow(x_, DefaultRootWindow(x_), 0, 0, 10, 10, 0, 0, 0);
    XDestroyWindow(x_, gone);
    XSync(x_, 0);
    const std::int32_t win = handle();
    struct Case {
        const char* label;
        std::int32_t window, width, height;
    };
    for (const Case& c : {Case{"a window that is gone", static_cast<std::int32_t>(gone), 150, 150},
                          Case{"less than half a pixel", win, 7, 7}, Case{"a negative height", win, 150, -1500},
                          Case{"wider than a picture may be", win, 16385 * 15, 15},
                          Case{"a window of the library's own is on no screen",
                               std::make_shared<objects::Form>(u"frmEnMemoria")->hwnd(), 150, 150}})
        EXPECT_TRUE(isNothing(captureWindow(c.window, true, 0, 0, c.width, c.height))) << c.label;
}

TEST_F(CaptureTest, ABitmapBecomesAPictureThatTakesItOver) {
    const Pixmap bitmap = XCreatePixmap(x_, window_, 3, 2, static_cast<unsigned>(DefaultDepth(x_, 0)));
    fill(bitmap, colour(0, 0xFFFF, 0), 0, 0, 3, 2);
    fill(bitmap, colour(0xFFFF, 0, 0), 2, 1, 1, 1);
    XSync(x_, 0);
    const auto taken = static_cast<std::int32_t>(bitmap);
    auto picture = pictureOf(call("imgCreateBitmapPicture", {Variant(taken), Variant(std::int32_t{0})}));
    ASSERT_NE(picture, nullptr);
    EXPECT_EQ(std::make_pair(picture->width(), picture->height()), std::make_pair(3, 2));
    EXPECT_EQ(picture->pixel(0, 0), kGreen);
    EXPECT_EQ(picture->pixel(2, 1), kRed);
    // The picture took the bitmap: a second picture of it cannot be made.
    for (std::int32_t gone : {taken, 0})
        EXPECT_TRUE(isNothing(call("imgCreateBitmapPicture", {Variant(gone), Variant(std::int32_t{0})}))) << gone;
}

TEST_F(CaptureTest, WithoutADisplayEveryCaptureIsNothing) {
    {
        ScopedVariable none("DISPLAY", nullptr);
        for (const char* method : {"imgCaptureScreen", "imgCaptureActiveWindow"})
            EXPECT_TRUE(isNothing(call(method, {}))) << method;
        EXPECT_EQ(capture(handle(), true, 0, 0, 150, 150), nullptr);
    }
    EXPECT_NE(capture(handle(), true, 0, 0, 150, 150), nullptr);
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
    source->setPicture(std::make_shared<Picture>(4, 4, kBlue));
    std::dynamic_pointer_cast<Picture>(source->picture())->setPixel(2, 1, kGreen);
    call("ImgCopiaImagen", {Variant(ObjectRef(source)), Variant(ObjectRef(target))});
    auto copy = std::dynamic_pointer_cast<Picture>(target->picture());
    ASSERT_NE(copy, nullptr);
    ASSERT_EQ(std::make_pair(copy->width(), copy->height()), std::make_pair(3, 2));
    EXPECT_EQ(copy->pixel(0, 0), kBlue);
    EXPECT_EQ(copy->pixel(2, 1), kGreen);
}

TEST_F(PictureCopyTest, ObjectsWithoutTheMembersRaiseTheirError) {
    struct Case {
        const char* label;
        Variant origen, destino;
        int error;
    };
    const Variant to{ObjectRef(target)}, toForm{ObjectRef(std::make_shared<objects::Form>())};
    const std::vector<Case> cases = {{"a text box has no ScaleMode", Variant(ObjectRef(textBox(u"x"))), to, 438},
                                     {"a form as target has no AutoRedraw", Variant(ObjectRef(shown)), toForm, 438},
                                     {"Nothing as source", Variant(ObjectRef()), to, 91}};
    for (const auto& c : cases) EXPECT_EQ(errorOf("ImgCopiaImagen", {c.origen, c.destino}), c.error) << c.label;
}

}  // namespace
}  // namespace telvaro

#include "forms/capture.h"

#include "callers/window_control.h"
#include "context/fun.h"
#include "runtime/checked.h"
#include "runtime/error.h"

namespace telvaro::forms {

namespace {

// The window draws its client area, its children and its owned windows
// (PRF_CLIENT | PRF_CHILDREN | PRF_OWNED).
constexpr std::int32_t kPrintFlags = 52;

// A \ B on Longs.
Int32 integerDivide(Int32 a, Int32 b) {
    if (b == 0) raise(err::DivisionByZero);
    return Int32::of(std::int64_t{a} / std::int64_t{b});
}

}  // namespace

void ImgCopiaImagen(Fun& fun, const ObjectRef& Origen, const ObjectRef& Destino, Boolean DestinoInvisible,
                    Boolean PonerDestinoTrasOrigen) {
    const callers::WindowControl origen{Variant(Origen)};
    const callers::WindowControl destino{Variant(Destino)};
    destino.setScaleMode(origen.scaleMode());
    destino.setHeight(origen.height());
    destino.setWidth(origen.width());
    if (PonerDestinoTrasOrigen.isTrue()) {
        destino.setLeft(origen.left());
        destino.setTop(origen.top());
    }
    if (DestinoInvisible.isTrue()) destino.setVisible(False);
    destino.setAutoRedraw(True);
    // Each message reads the window and the device context anew, in that order.
    DisplayService& display = fun.platform().display();
    std::int32_t window = origen.hwnd();
    display.paintInto(window, destino.hdc());
    window = origen.hwnd();
    display.printInto(window, destino.hdc(), kPrintFlags);
    destino.setPicture(destino.image());
    destino.setAutoRedraw(False);
}

ObjectRef imgCreateBitmapPicture(Fun& fun, std::int32_t hBmp, std::int32_t hPal) {
    return fun.platform().display().pictureOfBitmap(hBmp, hPal);
}

ObjectRef imgCaptureWindow(Fun& fun, std::int32_t hWndSrc, Boolean Client, std::int32_t LeftSrc, std::int32_t TopSrc,
                           std::int32_t WidthSrc, std::int32_t HeightSrc) {
    DisplayService& display = fun.platform().display();
    const Int32 width = Int32::ofDouble(WidthSrc / display.twipsPerPixelX());
    const Int32 height = Int32::ofDouble(HeightSrc / display.twipsPerPixelY());
    const CapturedBitmap shot = display.captureWindow(hWndSrc, Client.isTrue(), LeftSrc, TopSrc, width, height);
    return imgCreateBitmapPicture(fun, shot.bitmap, shot.palette);
}

ObjectRef imgCaptureScreen(Fun& fun) {
    DisplayService& display = fun.platform().display();
    const std::int32_t desktop = display.desktopWindow();
    const Int32 width =
        integerDivide(Int32::ofDouble(display.screenWidth()), Int32::ofDouble(display.twipsPerPixelX()));
    const Int32 height =
        integerDivide(Int32::ofDouble(display.screenHeight()), Int32::ofDouble(display.twipsPerPixelY()));
    return imgCaptureWindow(fun, desktop, False, 0, 0, width, height);
}

ObjectRef imgCaptureActiveWindow(Fun& fun) {
    DisplayService& display = fun.platform().display();
    const std::int32_t window = display.foregroundWindow();
    const WindowRectangle r = display.windowRectangle(window);
    return imgCaptureWindow(fun, window, False, 0, 0, Int32(r.right) - Int32(r.left), Int32(r.bottom) - Int32(r.top));
}

}  // namespace telvaro::forms

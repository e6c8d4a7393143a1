// Pictures of what is on the screen, for a form to show, print or store:
//
//     Set picFoto.Picture = imgCaptureWindow(Me.hWnd, True, 0, 0, Me.Width, Me.Height)
//                                              the form's client area, sizes in twips
//     Set picPantalla.Picture = imgCaptureScreen      the screen, shrunk (see below)
//     ImgCopiaImagen grdVentas, picCopia       the grid's painted look, laid over it
//
// Sizes given to imgCaptureWindow are twips, turned into pixels with the
// screen's twips per pixel. The two convenience captures pass sizes that
// are already pixels, which imgCaptureWindow divides again: they give the
// top-left part of the screen or window, shrunk in that ratio (a 1024 x 768
// screen at 15 twips a pixel gives a 68 x 51 picture). Callers rely on that
// size, so it is kept.
//
// No platform result is checked and no message is shown: a capture that
// cannot be made (no display, a window that is gone, a size of zero or
// below, or too large to allocate) gives Nothing.
#pragma once

#include <cstdint>

#include "runtime/variant.h"

namespace telvaro {
class Fun;
}

namespace telvaro::forms {

// Lays a picture box over a control or form and copies its painted
// appearance (itself, its children, its owned windows) into the box's
// Picture. Error 438 when either object lacks a member it uses.
void ImgCopiaImagen(Fun& fun, const ObjectRef& Origen, const ObjectRef& Destino, Boolean DestinoInvisible,
                    Boolean PonerDestinoTrasOrigen);
// A picture over a bitmap and palette handle; the picture takes both over.
ObjectRef imgCreateBitmapPicture(Fun& fun, std::int32_t hBmp, std::int32_t hPal);
// The window's client area (Client) or whole window, from (LeftSrc, TopSrc)
// in pixels, WidthSrc x HeightSrc twips. Window 0 is the screen.
ObjectRef imgCaptureWindow(Fun& fun, std::int32_t hWndSrc, Boolean Client, std::int32_t LeftSrc, std::int32_t TopSrc,
                           std::int32_t WidthSrc, std::int32_t HeightSrc);
ObjectRef imgCaptureScreen(Fun& fun);
ObjectRef imgCaptureActiveWindow(Fun& fun);

}  // namespace telvaro::forms

// The paint messages on the library's own windows: what a picture box or
// form draws of itself into a picture box's device context.
//
// What the objects can draw is their pictures: a picture box draws its
// Picture at its top-left corner, clipped to its size; a form, a frame and
// the other controls have no pixels of their own (text, borders and
// backgrounds are not drawn here). Children are drawn at their Left and
// Top (twips, 15 to a pixel) inside their container, in the order they were
// added, and only while Visible. Drawing into a device context reaches the
// picture box's persistent Image only while its AutoRedraw is True; without
// it the drawing goes to a window that is on no screen, and is lost.
#pragma once

#include <cstdint>

namespace telvaro::objects {

// WM_PAINT: the window's own client area.
void paintWindow(std::int32_t window, std::int32_t deviceContext);
// WM_PRINT: the client area (PRF_CLIENT, 4) after an erase to white
// (PRF_ERASEBKGND, 8), then the children (PRF_CHILDREN, 16); the library's
// windows own no others (PRF_OWNED, 32).
void printWindow(std::int32_t window, std::int32_t deviceContext, std::int32_t flags);

}  // namespace telvaro::objects

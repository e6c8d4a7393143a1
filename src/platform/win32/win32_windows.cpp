#include "platform/win32/win32_windows.h"

#include <windows.h>

namespace telvaro::win32 {

namespace {

// A handle as callers hold it (a Long) back to the window handle: window
// handles are 32 significant bits, sign-extended on 64-bit Windows.
HWND windowOf(std::int32_t handle) { return reinterpret_cast<HWND>(static_cast<LONG_PTR>(handle)); }

constexpr UINT kSetHorizontalExtent = 0x194;  // LB_SETHORIZONTALEXTENT
constexpr UINT kNonClientButtonDown = 0xA1;   // WM_NCLBUTTONDOWN
constexpr WPARAM kCaption = 2;                // HTCAPTION
constexpr UINT kTopmostFlags = 83;            // SWP_NOSIZE | SWP_NOMOVE | SWP_NOACTIVATE | SWP_SHOWWINDOW
constexpr int kOwnerSlot = -8;                // GWL_HWNDPARENT

}  // namespace

void Win32Windows::setHorizontalExtent(std::int32_t listWindow, std::int16_t extent) {
    // The Integer travels sign-extended, as a Long argument would.
    SendMessageA(windowOf(listWindow), kSetHorizontalExtent, static_cast<WPARAM>(static_cast<LONG_PTR>(extent)), 0);
}

void Win32Windows::keepOnTop(std::int32_t window) {
    SetWindowPos(windowOf(window), HWND_TOPMOST, 0, 0, 0, 0, kTopmostFlags);
}

void Win32Windows::setOwner(std::int32_t window, std::int32_t owner) {
    // The owner is a handle: pointer-sized on 64-bit Windows, so the
    // pointer-sized window-long call, with the same slot.
    SetWindowLongPtrA(windowOf(window), kOwnerSlot, reinterpret_cast<LONG_PTR>(windowOf(owner)));
}

void Win32Windows::dragByBody(std::int32_t window) {
    ReleaseCapture();
    SendMessageA(windowOf(window), kNonClientButtonDown, kCaption, 0);
}

}  // namespace telvaro::win32

#include "host/win32_display.h"

#include <windows.h>
#include <ole2.h>
#include <olectl.h>

#include "host/win32_pictures.h"

namespace telvaro::win32 {

namespace {

constexpr double kTwipsPerInch = 1440.0;
constexpr UINT kPaint = 15;            // WM_PAINT
constexpr UINT kPrint = 791;           // WM_PRINT
constexpr int kRasterCaps = 38;        // RASTERCAPS
constexpr int kPaletteDevice = 0x100;  // RC_PALETTE
constexpr int kPaletteSize = 104;      // SIZEPALETTE
constexpr WORD kPaletteVersion = 0x300;
constexpr DWORD kSourceCopy = 0xCC0020;  // SRCCOPY

// Handles travel as Longs, as callers hold them: window and GDI handles
// have 32 significant bits, sign-extended on 64-bit Windows.
template <typename Handle>
Handle handleOf(std::int32_t value) {
    return reinterpret_cast<Handle>(static_cast<LONG_PTR>(value));
}
std::int32_t longOf(const void* handle) { return static_cast<std::int32_t>(reinterpret_cast<LONG_PTR>(handle)); }

// The screen's pixels per inch, as the runtime's screen object reads them.
double twipsPerPixel(int axis) {
    HDC screen = GetDC(nullptr);
    const int perInch = GetDeviceCaps(screen, axis);
    ReleaseDC(nullptr, screen);
    return perInch > 0 ? kTwipsPerInch / perInch : 15.0;
}

// A logical palette of 256 entries.
struct Palette256 {
    WORD version;
    WORD entries;
    PALETTEENTRY entry[256];
};

}  // namespace

double Win32Display::twipsPerPixelX() { return twipsPerPixel(LOGPIXELSX); }
double Win32Display::twipsPerPixelY() { return twipsPerPixel(LOGPIXELSY); }
double Win32Display::screenWidth() { return GetSystemMetrics(SM_CXSCREEN) * twipsPerPixelX(); }
double Win32Display::screenHeight() { return GetSystemMetrics(SM_CYSCREEN) * twipsPerPixelY(); }

std::int32_t Win32Display::desktopWindow() { return longOf(GetDesktopWindow()); }
std::int32_t Win32Display::foregroundWindow() { return longOf(GetForegroundWindow()); }

WindowRectangle Win32Display::windowRectangle(std::int32_t window) {
    RECT r{};
    GetWindowRect(handleOf<HWND>(window), &r);
    return {r.left, r.top, r.right, r.bottom};
}

CapturedBitmap Win32Display::captureWindow(std::int32_t window, bool clientArea, std::int32_t left, std::int32_t top,
                                           std::int32_t width, std::int32_t height) {
    HWND source = handleOf<HWND>(window);
    HDC sourceDC = clientArea ? GetDC(source) : GetWindowDC(source);
    HDC memoryDC = CreateCompatibleDC(sourceDC);
    HBITMAP bitmap = CreateCompatibleBitmap(sourceDC, width, height);
    HGDIOBJ previousBitmap = SelectObject(memoryDC, bitmap);

    // Only a palette device of exactly 256 entries gets a palette of its own.
    const bool paletteDevice = (GetDeviceCaps(sourceDC, kRasterCaps) & kPaletteDevice) != 0;
    const int paletteSize = GetDeviceCaps(sourceDC, kPaletteSize);
    HPALETTE palette = nullptr, previousPalette = nullptr;
    if (paletteDevice && paletteSize == 256) {
        Palette256 logical{};
        logical.version = kPaletteVersion;
        logical.entries = 256;
        GetSystemPaletteEntries(sourceDC, 0, 256, logical.entry);
        palette = CreatePalette(reinterpret_cast<LOGPALETTE*>(&logical));
        previousPalette = SelectPalette(memoryDC, palette, FALSE);
        RealizePalette(memoryDC);
    }

    BitBlt(memoryDC, 0, 0, width, height, sourceDC, left, top, kSourceCopy);

    // Selecting the previous objects back hands back the captured ones.
    HGDIOBJ captured = SelectObject(memoryDC, previousBitmap);
    HPALETTE capturedPalette = palette ? SelectPalette(memoryDC, previousPalette, FALSE) : nullptr;
    DeleteDC(memoryDC);
    ReleaseDC(source, sourceDC);
    return {longOf(captured), longOf(capturedPalette)};
}

ObjectRef Win32Display::pictureOfBitmap(std::int32_t bitmap, std::int32_t palette) {
    PICTDESC description{};
    description.cbSizeofstruct = sizeof(PICTDESC);  // 20 bytes in a 32-bit process
    description.picType = PICTYPE_BITMAP;
    description.bmp.hbitmap = handleOf<HBITMAP>(bitmap);
    description.bmp.hpal = handleOf<HPALETTE>(palette);
    IDispatch* dispatch = nullptr;
    // The picture owns the bitmap and palette from now on.
    OleCreatePictureIndirect(&description, IID_IDispatch, TRUE, reinterpret_cast<void**>(&dispatch));
    if (!dispatch) return nullptr;
    IPicture* picture = nullptr;
    dispatch->QueryInterface(IID_IPicture, reinterpret_cast<void**>(&picture));
    dispatch->Release();
    if (!picture) return nullptr;
    return platformPicture(picture, String());
}

void Win32Display::paintInto(std::int32_t window, std::int32_t deviceContext) {
    SendMessageA(handleOf<HWND>(window), kPaint, reinterpret_cast<WPARAM>(handleOf<HDC>(deviceContext)), 0);
}

void Win32Display::printInto(std::int32_t window, std::int32_t deviceContext, std::int32_t flags) {
    SendMessageA(handleOf<HWND>(window), kPrint, reinterpret_cast<WPARAM>(handleOf<HDC>(deviceContext)),
                 static_cast<LPARAM>(flags));
}

}  // namespace telvaro::win32

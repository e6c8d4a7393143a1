#include "platform/win32/win32_printing.h"

#include <windows.h>
// After windows.h, which they need.
#include <commdlg.h>
#include <winspool.h>

#include <algorithm>
#include <cmath>
#include <vector>

#include "platform/win32/win32_text.h"
#include "runtime/convert.h"
#include "runtime/object.h"

namespace telvaro::win32 {

namespace {

constexpr double kA4Width = 11906, kA4Height = 16838;
constexpr int kTwipsPerInch = 1440;

int twips(double value) {
    if (!std::isfinite(value)) return 0;
    return static_cast<int>(std::lround(std::clamp(value, -1e8, 1e8)));
}

COLORREF colorOf(std::int32_t color) {
    auto c = static_cast<std::uint32_t>(color);
    if (c & 0x80000000u) return GetSysColor(static_cast<int>(c & 0xFF));
    return static_cast<COLORREF>(c & 0xFFFFFF);
}

// A GDI font made at its size in twips, so that on a device mapped to twips
// (and on the measuring context, where a unit stands for a twip) widths
// come out in twips.
HFONT makeFont(const PrintFont& font) {
    LOGFONTW lf{};
    const double size = std::isfinite(font.size) && font.size > 0 ? std::min(font.size, 2160.0) : 8.25;
    lf.lfHeight = -static_cast<LONG>(std::lround(size * 20));
    lf.lfWeight = font.bold ? FW_BOLD : FW_NORMAL;
    lf.lfItalic = font.italic ? TRUE : FALSE;
    lf.lfUnderline = font.underline ? TRUE : FALSE;
    lf.lfCharSet = DEFAULT_CHARSET;
    lf.lfOutPrecision = OUT_TT_PRECIS;
    lf.lfQuality = PROOF_QUALITY;
    const std::wstring name = wide(font.name).substr(0, LF_FACESIZE - 1);
    std::copy(name.begin(), name.end(), lf.lfFaceName);
    return CreateFontIndirectW(&lf);
}

// The measuring context of the calling thread: a memory context with the
// font selected for the length of one measurement.
class Measure {
public:
    explicit Measure(const PrintFont& font) : dc_(CreateCompatibleDC(nullptr)), font_(makeFont(font)) {
        if (dc_ && font_) old_ = SelectObject(dc_, font_);
    }
    ~Measure() {
        if (old_) SelectObject(dc_, old_);
        if (font_) DeleteObject(font_);
        if (dc_) DeleteDC(dc_);
    }
    Measure(const Measure&) = delete;
    Measure& operator=(const Measure&) = delete;

    double width(StringView text) const {
        SIZE size{};
        if (!dc_ || text.empty()) return 0;
        GetTextExtentPoint32W(dc_, reinterpret_cast<const wchar_t*>(text.data()), static_cast<int>(text.size()), &size);
        return size.cx;
    }
    double height() const {
        TEXTMETRICW tm{};
        if (!dc_ || !GetTextMetricsW(dc_, &tm)) return 0;
        return tm.tmHeight + tm.tmExternalLeading;
    }
    // How many units of `text` fit in `width`.
    std::size_t fit(StringView text, double width) const {
        if (!dc_ || text.empty() || !(width > 0)) return 0;
        int count = 0;
        SIZE size{};
        const int limit = static_cast<int>(std::min<std::size_t>(text.size(), 0x7FFFFFFF));
        GetTextExtentExPointW(dc_, reinterpret_cast<const wchar_t*>(text.data()), limit, twips(std::floor(width)),
                              &count, nullptr, &size);
        std::size_t n = static_cast<std::size_t>(std::max(count, 0));
        if (n > 0 && n < text.size() && text[n - 1] >= 0xD800 && text[n - 1] <= 0xDBFF) --n;  // keep pairs whole
        return n;
    }

private:
    HDC dc_;
    HFONT font_;
    HGDIOBJ old_ = nullptr;
};

bool blank(char16_t c) { return c == u' ' || c == u'\t'; }

String trimEnd(StringView s) {
    std::size_t end = s.size();
    while (end > 0 && blank(s[end - 1])) --end;
    return String(s.substr(0, end));
}

std::optional<DEVMODEW*> devModeFor(HANDLE printer, const std::wstring& name, std::vector<char>& buffer) {
    const LONG size = DocumentPropertiesW(nullptr, printer, const_cast<wchar_t*>(name.c_str()), nullptr, nullptr, 0);
    if (size <= 0) return std::nullopt;
    buffer.assign(static_cast<std::size_t>(size), 0);
    auto* mode = reinterpret_cast<DEVMODEW*>(buffer.data());
    if (DocumentPropertiesW(nullptr, printer, const_cast<wchar_t*>(name.c_str()), mode, nullptr, DM_OUT_BUFFER) != IDOK)
        return std::nullopt;
    return mode;
}

class GdiDocument : public PrintDocument {
public:
    GdiDocument(StringView title, double pageWidth, double pageHeight, String printer) : printer_(std::move(printer)) {
        if (printer_.empty()) printerError(u"no printer is installed");
        const std::wstring name = wide(printer_);
        // The paper asked for, in tenths of a millimetre.
        HANDLE handle = nullptr;
        std::vector<char> buffer;
        DEVMODEW* mode = nullptr;
        if (OpenPrinterW(const_cast<wchar_t*>(name.c_str()), &handle, nullptr)) {
            if (auto m = devModeFor(handle, name, buffer)) {
                mode = *m;
                if (pageWidth > 0 && pageHeight > 0) {
                    mode->dmFields |= DM_PAPERSIZE | DM_PAPERWIDTH | DM_PAPERLENGTH;
                    mode->dmPaperSize = DMPAPER_USER;
                    mode->dmPaperWidth = static_cast<short>(std::clamp(pageWidth * 254 / kTwipsPerInch, 1.0, 32767.0));
                    mode->dmPaperLength =
                        static_cast<short>(std::clamp(pageHeight * 254 / kTwipsPerInch, 1.0, 32767.0));
                }
            }
            ClosePrinter(handle);
        }
        dc_ = CreateDCW(L"WINSPOOL", name.c_str(), nullptr, mode);
        if (!dc_) printerError(printer_ + u": the printer cannot be opened");
        // Twips from the top left corner of the paper.
        SetMapMode(dc_, MM_ANISOTROPIC);
        SetWindowExtEx(dc_, kTwipsPerInch, kTwipsPerInch, nullptr);
        SetViewportExtEx(dc_, GetDeviceCaps(dc_, LOGPIXELSX), GetDeviceCaps(dc_, LOGPIXELSY), nullptr);
        SetViewportOrgEx(dc_, -GetDeviceCaps(dc_, PHYSICALOFFSETX), -GetDeviceCaps(dc_, PHYSICALOFFSETY), nullptr);
        SetBkMode(dc_, TRANSPARENT);
        const std::wstring docName = wide(title);
        DOCINFOW info{};
        info.cbSize = sizeof info;
        info.lpszDocName = docName.c_str();
        job_ = StartDocW(dc_, &info);
        if (job_ <= 0) {
            DeleteDC(dc_);
            dc_ = nullptr;
            printerError(printer_ + u": the document cannot be started");
        }
        started_ = true;
        if (StartPage(dc_) <= 0) printerError(printer_ + u": the page cannot be started");
    }

    ~GdiDocument() override {
        if (dc_) {
            if (started_) AbortDoc(dc_);
            DeleteDC(dc_);
        }
    }

    void newPage() override {
        EndPage(dc_);
        ++pages_;
        if (StartPage(dc_) <= 0) printerError(printer_ + u": the page cannot be started");
    }

    void text(double x, double y, StringView text, const PrintFont& font, std::int32_t color,
              double clipWidth) override {
        if (text.empty()) return;
        HFONT f = makeFont(font);
        HGDIOBJ old = SelectObject(dc_, f);
        SetTextColor(dc_, colorOf(color));
        SetTextAlign(dc_, TA_LEFT | TA_TOP | TA_NOUPDATECP);
        RECT clip{twips(x), twips(y), twips(x + clipWidth), twips(y) + 0x3FFFFFF};
        ExtTextOutW(dc_, twips(x), twips(y), clipWidth > 0 ? ETO_CLIPPED : 0, clipWidth > 0 ? &clip : nullptr,
                    reinterpret_cast<const wchar_t*>(text.data()), static_cast<UINT>(text.size()), nullptr);
        SelectObject(dc_, old);
        DeleteObject(f);
    }

    void line(double x1, double y1, double x2, double y2, std::int32_t color) override {
        HPEN pen = CreatePen(PS_SOLID, 15, colorOf(color));
        HGDIOBJ old = SelectObject(dc_, pen);
        MoveToEx(dc_, twips(x1), twips(y1), nullptr);
        LineTo(dc_, twips(x2), twips(y2));
        SelectObject(dc_, old);
        DeleteObject(pen);
    }

    void rectangle(double x, double y, double width, double height, std::optional<std::int32_t> fill,
                   std::optional<std::int32_t> outline) override {
        RECT r{twips(x), twips(y), twips(x + width), twips(y + height)};
        if (fill) {
            HBRUSH brush = CreateSolidBrush(colorOf(*fill));
            FillRect(dc_, &r, brush);
            DeleteObject(brush);
        }
        if (outline) {
            HPEN pen = CreatePen(PS_SOLID, 15, colorOf(*outline));
            HGDIOBJ oldPen = SelectObject(dc_, pen);
            HGDIOBJ oldBrush = SelectObject(dc_, GetStockObject(NULL_BRUSH));
            Rectangle(dc_, r.left, r.top, r.right, r.bottom);
            SelectObject(dc_, oldBrush);
            SelectObject(dc_, oldPen);
            DeleteObject(pen);
        }
    }

    // A caller's picture: its Handle is a bitmap (Type 1); other kinds of
    // picture (icons, metafiles) are not drawn.
    void picture(const Variant& picture, double x, double y, double width, double height) override {
        if (!picture.isObject() || !picture.object()) return;
        const ObjectHandle object = objectOf(picture);
        if (toLong(object.get(u"Type")) != 1) return;
        auto bitmap = reinterpret_cast<HBITMAP>(
            static_cast<std::uintptr_t>(static_cast<std::uint32_t>(toLong(object.get(u"Handle")))));
        BITMAP bm{};
        if (!GetObjectW(bitmap, sizeof bm, &bm) || bm.bmWidth <= 0 || bm.bmHeight <= 0) return;
        BITMAPINFO info{};
        info.bmiHeader.biSize = sizeof info.bmiHeader;
        info.bmiHeader.biWidth = bm.bmWidth;
        info.bmiHeader.biHeight = -bm.bmHeight;
        info.bmiHeader.biPlanes = 1;
        info.bmiHeader.biBitCount = 32;
        info.bmiHeader.biCompression = BI_RGB;
        std::vector<std::uint32_t> pixels(static_cast<std::size_t>(bm.bmWidth) * static_cast<std::size_t>(bm.bmHeight));
        HDC screen = GetDC(nullptr);
        const int rows =
            GetDIBits(screen, bitmap, 0, static_cast<UINT>(bm.bmHeight), pixels.data(), &info, DIB_RGB_COLORS);
        ReleaseDC(nullptr, screen);
        if (rows <= 0) return;
        StretchDIBits(dc_, twips(x), twips(y), twips(width), twips(height), 0, 0, bm.bmWidth, bm.bmHeight,
                      pixels.data(), &info, DIB_RGB_COLORS, SRCCOPY);
    }

    PrintDelivery finish() override {
        EndPage(dc_);
        ++pages_;
        const int ended = EndDoc(dc_);
        started_ = false;
        DeleteDC(dc_);
        dc_ = nullptr;
        if (ended <= 0) printerError(printer_ + u": the document cannot be ended");
        PrintDelivery delivery;
        delivery.printer = printer_;
        delivery.job = job_;
        delivery.pages = pages_;
        return delivery;
    }

private:
    String printer_;
    HDC dc_ = nullptr;
    int job_ = 0;
    bool started_ = false;
    std::int32_t pages_ = 0;
};

}  // namespace

std::vector<PrinterInfo> Win32Printing::printers() {
    const DWORD flags = PRINTER_ENUM_LOCAL | PRINTER_ENUM_CONNECTIONS;
    DWORD needed = 0, count = 0;
    EnumPrintersW(flags, nullptr, 2, nullptr, 0, &needed, &count);
    std::vector<PrinterInfo> all;
    if (needed == 0) return all;
    std::vector<BYTE> buffer(needed);
    if (!EnumPrintersW(flags, nullptr, 2, buffer.data(), needed, &needed, &count)) return all;
    const auto* info = reinterpret_cast<const PRINTER_INFO_2W*>(buffer.data());
    for (DWORD i = 0; i < count; ++i)
        all.push_back({info[i].pPrinterName ? fromWide(info[i].pPrinterName) : String(),
                       info[i].pPortName ? fromWide(info[i].pPortName) : String()});
    return all;
}

String Win32Printing::currentPrinter() {
    if (chosen_) return *chosen_;
    DWORD size = 0;
    GetDefaultPrinterW(nullptr, &size);
    if (size == 0) return {};
    std::wstring name(size, L'\0');
    if (!GetDefaultPrinterW(name.data(), &size)) return {};
    name.resize(wcsnlen(name.c_str(), name.size()));
    return fromWide(name);
}

bool Win32Printing::choosePrinter() {
    PRINTDLGW dialog{};
    dialog.lStructSize = sizeof dialog;
    dialog.hwndOwner = GetActiveWindow();
    dialog.Flags = PD_NOPAGENUMS | PD_NOSELECTION | PD_HIDEPRINTTOFILE;
    if (!PrintDlgW(&dialog)) return false;
    if (dialog.hDevNames) {
        if (auto* names = static_cast<DEVNAMES*>(GlobalLock(dialog.hDevNames))) {
            chosen_ = fromWide(std::wstring(reinterpret_cast<const wchar_t*>(names) + names->wDeviceOffset));
            GlobalUnlock(dialog.hDevNames);
        }
        GlobalFree(dialog.hDevNames);
    }
    if (dialog.hDevMode) GlobalFree(dialog.hDevMode);
    return true;
}

std::pair<double, double> Win32Printing::pageSize() {
    const String name = currentPrinter();
    if (name.empty()) return {kA4Width, kA4Height};
    HDC ic = CreateICW(L"WINSPOOL", wide(name).c_str(), nullptr, nullptr);
    if (!ic) return {kA4Width, kA4Height};
    const double dpiX = GetDeviceCaps(ic, LOGPIXELSX), dpiY = GetDeviceCaps(ic, LOGPIXELSY);
    const double w = GetDeviceCaps(ic, PHYSICALWIDTH), h = GetDeviceCaps(ic, PHYSICALHEIGHT);
    DeleteDC(ic);
    if (dpiX <= 0 || dpiY <= 0 || w <= 0 || h <= 0) return {kA4Width, kA4Height};
    return {std::round(w * kTwipsPerInch / dpiX), std::round(h * kTwipsPerInch / dpiY)};
}

double Win32Printing::textWidth(StringView text, const PrintFont& font) {
    const auto end = text.find_first_of(u"\r\n");
    return Measure(font).width(end == StringView::npos ? text : text.substr(0, end));
}

double Win32Printing::lineHeight(const PrintFont& font) { return Measure(font).height(); }

std::size_t Win32Printing::fittingLength(StringView text, double width, const PrintFont& font) {
    const auto end = text.find_first_of(u"\r\n");
    return Measure(font).fit(end == StringView::npos ? text : text.substr(0, end), width);
}

std::vector<String> Win32Printing::splitLines(StringView text, double width, const PrintFont& font) {
    const Measure measure(font);
    std::vector<String> lines;
    std::size_t start = 0;
    for (;;) {
        std::size_t end = text.find_first_of(u"\r\n", start);
        const StringView paragraph = text.substr(start, end == StringView::npos ? StringView::npos : end - start);
        std::size_t at = 0;
        do {
            const StringView rest = paragraph.substr(at);
            std::size_t n = measure.fit(rest, width);
            if (n < rest.size()) {
                // Break after the last blank that fits, else inside the word.
                std::size_t cut = n;
                while (cut > 0 && !blank(rest[cut])) --cut;
                if (cut > 0) {
                    while (cut < rest.size() && blank(rest[cut])) ++cut;
                    n = cut;
                } else if (blank(rest[n])) {
                    while (n < rest.size() && blank(rest[n])) ++n;
                }
                if (n == 0) n = rest.size() > 1 && rest[0] >= 0xD800 && rest[0] <= 0xDBFF ? 2 : 1;
            }
            lines.push_back(trimEnd(rest.substr(0, n)));
            at += n;
        } while (at < paragraph.size());
        if (end == StringView::npos) break;
        start = end + ((text[end] == u'\r' && end + 1 < text.size() && text[end + 1] == u'\n') ? 2 : 1);
    }
    return lines;
}

std::unique_ptr<PrintDocument> Win32Printing::startDocument(StringView title, double pageWidth, double pageHeight) {
    return std::make_unique<GdiDocument>(title, pageWidth, pageHeight, currentPrinter());
}

}  // namespace telvaro::win32

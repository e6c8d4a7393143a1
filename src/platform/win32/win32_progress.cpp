#include "platform/win32/win32_progress.h"

#include <windows.h>
#include <commctrl.h>

#include <cmath>
#include <limits>

namespace telvaro::win32 {

namespace {

const wchar_t* const kClassName = L"TelvaroFrmProg";
constexpr int kClientWidth = 360, kClientHeight = 44, kMargin = 12, kBarHeight = 20;

HINSTANCE libraryInstance() {
    HMODULE module = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       reinterpret_cast<LPCWSTR>(&libraryInstance), &module);
    return module;
}

const wchar_t* wide(const String& text) { return reinterpret_cast<const wchar_t*>(text.c_str()); }

// The bar's positions are ints: a value is rounded and kept in range.
int position(double value) {
    if (!std::isfinite(value)) return 0;
    const double r = std::nearbyint(value);
    if (r <= static_cast<double>(std::numeric_limits<int>::min())) return std::numeric_limits<int>::min();
    if (r >= static_cast<double>(std::numeric_limits<int>::max())) return std::numeric_limits<int>::max();
    return static_cast<int>(r);
}

LRESULT CALLBACK formProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    // The user's close only hides the form: it is the method's to unload.
    if (message == WM_CLOSE) {
        ShowWindow(window, SW_HIDE);
        return 0;
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

// The class and the common controls, once per process.
bool registerClass() {
    static const bool registered = [] {
        INITCOMMONCONTROLSEX controls{sizeof(INITCOMMONCONTROLSEX), ICC_PROGRESS_CLASS};
        InitCommonControlsEx(&controls);
        WNDCLASSEXW c{};
        c.cbSize = sizeof c;
        c.lpfnWndProc = formProcedure;
        c.hInstance = libraryInstance();
        c.hCursor = LoadCursorW(nullptr, reinterpret_cast<LPCWSTR>(IDC_WAIT));
        c.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
        c.lpszClassName = kClassName;
        return RegisterClassExW(&c) != 0 || GetLastError() == ERROR_CLASS_ALREADY_EXISTS;
    }();
    return registered;
}

class Win32ProgressWindow : public ProgressWindow {
public:
    explicit Win32ProgressWindow(const ProgressDesign& design) : min_(design.min), max_(design.max) {
        if (!registerClass()) return;
        const DWORD style = WS_POPUP | WS_CAPTION | WS_BORDER;
        const DWORD exStyle = WS_EX_DLGMODALFRAME;
        RECT frame{0, 0, kClientWidth, kClientHeight};
        AdjustWindowRectEx(&frame, style, FALSE, exStyle);
        const int width = frame.right - frame.left, height = frame.bottom - frame.top;
        // Centred on the screen's work area, as a small form starts.
        RECT work{0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
        SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0);
        const int x = work.left + (work.right - work.left - width) / 2;
        const int y = work.top + (work.bottom - work.top - height) / 2;
        const String caption = design.caption;
        window_ = CreateWindowExW(exStyle, kClassName, wide(caption), style, x, y, width, height, GetActiveWindow(),
                                  nullptr, libraryInstance(), nullptr);
        if (!window_) return;
        bar_ = CreateWindowExW(0, PROGRESS_CLASSW, L"", WS_CHILD | WS_VISIBLE | PBS_SMOOTH, kMargin,
                               (kClientHeight - kBarHeight) / 2, kClientWidth - 2 * kMargin, kBarHeight, window_,
                               nullptr, libraryInstance(), nullptr);
        sendRange();
        setBarValue(design.value);
    }

    ~Win32ProgressWindow() override {
        // Only the thread that made a window can destroy it; the form is
        // per thread, so this is that thread.
        if (window_ && IsWindow(window_) && GetWindowThreadProcessId(window_, nullptr) == GetCurrentThreadId())
            DestroyWindow(window_);
    }

    void setCaption(StringView caption) override {
        if (!window_) return;
        const String text(caption);
        SetWindowTextW(window_, wide(text));  // repaints the caption at once
    }
    void setBarMin(double min) override {
        min_ = min;
        sendRange();
    }
    void setBarMax(double max) override {
        max_ = max;
        sendRange();
    }
    void setBarValue(double value) override {
        if (!bar_) return;
        SendMessageW(bar_, PBM_SETPOS, static_cast<WPARAM>(position(value)), 0);
        UpdateWindow(bar_);
    }
    void show() override {
        if (!window_) return;
        ShowWindow(window_, SW_SHOWNORMAL);
        UpdateWindow(window_);
    }
    void hide() override {
        if (window_) ShowWindow(window_, SW_HIDE);
    }
    void zOrder(std::int32_t position) override {
        if (!window_) return;
        SetWindowPos(window_, position == 0 ? HWND_TOP : HWND_BOTTOM, 0, 0, 0, 0,
                     SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    }

private:
    void sendRange() {
        if (bar_)
            SendMessageW(bar_, PBM_SETRANGE32, static_cast<WPARAM>(position(min_)),
                         static_cast<LPARAM>(position(max_)));
    }

    HWND window_ = nullptr;
    HWND bar_ = nullptr;
    double min_, max_;
};

}  // namespace

std::unique_ptr<ProgressWindow> Win32ProgressDisplay::open(const ProgressDesign& design) {
    return std::make_unique<Win32ProgressWindow>(design);
}

}  // namespace telvaro::win32

#include "platform/win32/win32_environment.h"

#include <windows.h>

#include <mmsystem.h>
#include <shellapi.h>
#include <wininet.h>

#include <string>

#include "platform/win32/win32_text.h"

namespace telvaro::win32 {

namespace {

constexpr int kHookCodeWatched = 6;
constexpr int kTextBuffer = 255;

// The hook of the capturing thread; one per thread. Installing twice
// without removing replaces it, so the first hook can no longer be removed.
thread_local HHOOK capturingHook = nullptr;

// Closes the foreground window when it is a standard dialog box, after
// reading the text of its first static control.
LRESULT CALLBACK closeDialogs(int code, WPARAM, LPARAM) {
    if (code != kHookCodeWatched) return 0;
    HWND window = GetForegroundWindow();
    char className[kTextBuffer + 1] = {};
    GetClassNameA(window, className, kTextBuffer);
    if (CharUpperA(className) && std::string(className) == "#32770") {
        char text[kTextBuffer + 1] = {};
        GetWindowTextA(FindWindowExA(window, nullptr, "Static", nullptr), text, kTextBuffer);
        SendMessageA(window, WM_CLOSE, 0, 0);
    }
    return 0;
}

// The module that holds the hook procedure: this library.
HINSTANCE libraryInstance() {
    HMODULE module = nullptr;
    GetModuleHandleExA(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       reinterpret_cast<LPCSTR>(&closeDialogs), &module);
    return module;
}

}  // namespace

String Win32Environment::computerName() {
    char buffer[256] = {};
    DWORD size = 255;
    GetComputerNameA(buffer, &size);
    return fromAnsi(buffer, size);
}

String Win32Environment::userName() {
    std::string buffer(260, ' ');
    DWORD size = static_cast<DWORD>(buffer.size());
    if (!GetUserNameA(buffer.data(), &size) || size < 1) return {};
    buffer.resize(std::min<std::size_t>(size, buffer.size()));
    return fromAnsi(buffer.data(), buffer.size());
}

void Win32Environment::open(StringView file, StringView parameters, StringView folder, int showCommand) {
    ShellExecuteA(GetDesktopWindow(), "Open", ansi(file).c_str(), ansi(parameters).c_str(), ansi(folder).c_str(),
                  showCommand);
}

bool Win32Environment::internetReachable() {
    return InternetCheckConnectionA(kProbeAddress, FLAG_ICC_FORCE_CONNECTION, 0) != FALSE;
}

bool Win32Environment::playSound(StringView file, int flags) {
    return sndPlaySoundA(ansi(file).c_str(), static_cast<UINT>(flags)) != FALSE;
}

void Win32Environment::captureMessageBoxes(bool capture) {
    if (capture) {
        capturingHook = SetWindowsHookExA(WH_CBT, closeDialogs, libraryInstance(), GetCurrentThreadId());
    } else {
        UnhookWindowsHookEx(capturingHook);
    }
}

void Win32Environment::processEvents() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

}  // namespace telvaro::win32

#include "platform/win32/win32_message_box.h"

#include "platform/win32/win32_text.h"

namespace telvaro::win32 {

int Win32MessageBox::show(StringView prompt, int style, StringView title) {
    return MessageBoxA(GetActiveWindow(), ansi(prompt).c_str(), ansi(title).c_str(), static_cast<UINT>(style));
}

}  // namespace telvaro::win32

// The library's message boxes on Windows: MessageBoxA owned by the
// caller's active window, with the style and title as given.
#pragma once

#include "platform/message_box.h"

namespace telvaro::win32 {

class Win32MessageBox : public MessageBoxService {
public:
    int show(StringView prompt, int style, StringView title) override;
};

}  // namespace telvaro::win32

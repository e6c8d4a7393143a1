// The window calls on Windows: user32 itself.
#pragma once

#include "platform/windows.h"

namespace telvaro::win32 {

class Win32Windows : public Windows {
public:
    void setHorizontalExtent(std::int32_t listWindow, std::int16_t extent) override;
    void keepOnTop(std::int32_t window) override;
    void setOwner(std::int32_t window, std::int32_t owner) override;
    void dragByBody(std::int32_t window) override;
};

}  // namespace telvaro::win32

// The Fun instance a method runs in, as the method sees it: the platform
// the instance reaches the operating system through, and its message
// boxes. It owns nothing of the caller's and keeps no state a caller can
// see. Methods are plain functions whose first parameter is the Fun; the
// frame (frame/invoke.h) calls them late-bound, by name or by DISPID.
#pragma once

#include "platform/platform.h"
#include "runtime/ustring.h"

namespace telvaro {

class Fun {
public:
    explicit Fun(const Platform& platform) : platform_(&platform) {}

    const Platform& platform() const { return *platform_; }
    // Shows a message box through the platform and returns the answer; while
    // the calling thread captures message boxes, the box closes at once with
    // the answer closing gives (closingAnswer).
    int showMessage(StringView prompt, int style, StringView title) const;

private:
    const Platform* platform_;
};

}  // namespace telvaro

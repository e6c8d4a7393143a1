// The class Fun: the library's one object. It owns nothing of the caller's
// and keeps no state a caller can see; it reaches the operating system
// through its Platform. Callers invoke its methods late-bound, by name or
// by DISPID, as an automation client does; C++ code may also call the
// family functions directly (each takes the Fun as its first argument).
#pragma once

#include <cstdint>
#include <vector>

#include "platform/platform.h"
#include "runtime/variant.h"

namespace telvaro {

struct MethodInfo;

class Fun {
public:
    Fun();  // on the process's default platform
    explicit Fun(Platform& platform);

    Platform& platform() const { return *platform_; }
    // Shows a message box through the platform and returns the answer; while
    // the calling thread captures message boxes, the box closes at once with
    // the answer closing gives (closingAnswer).
    int showMessage(StringView prompt, int style, StringView title) const;

    // Late-bound calls. `args` are the caller's arguments in order (an
    // omitted optional argument is absent or the missing marker); by-reference
    // arguments are written back into `args`, even when the method fails.
    // Error 438 for an unknown name or DISPID.
    Variant invoke(StringView method, std::vector<Variant>& args);
    Variant invoke(std::string_view method, std::vector<Variant>& args);
    Variant invoke(std::int32_t dispid, std::vector<Variant>& args);
    Variant invoke(const MethodInfo& method, std::vector<Variant>& args);

    // Convenience for callers that need no write-back.
    Variant call(std::string_view method, std::vector<Variant> args = {}) { return invoke(method, args); }

private:
    Platform* platform_;
};

}  // namespace telvaro

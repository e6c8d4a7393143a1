// The window calls where there are no windows: what each handle was told,
// kept in memory by handle. A list box shows its horizontal extent, a form
// its topmost flag and owner, any window the drags asked of it. The state
// lives as long as the service (one per process in the default platform,
// one per request in `telvaro batch`).
#pragma once

#include <map>
#include <optional>

#include "platform/windows.h"

namespace telvaro::posix {

struct WindowEffect {
    std::optional<std::int16_t> horizontalExtent;
    bool topmost = false;
    std::optional<std::int32_t> owner;
    int drags = 0;
};

class WindowEffects : public Windows {
public:
    void setHorizontalExtent(std::int32_t listWindow, std::int16_t extent) override;
    void keepOnTop(std::int32_t window) override;
    void setOwner(std::int32_t window, std::int32_t owner) override;
    void dragByBody(std::int32_t window) override;

    // Every handle told something, in ascending order.
    const std::map<std::int32_t, WindowEffect>& effects() const { return effects_; }
    // The effect on one handle; nullptr when it was told nothing.
    const WindowEffect* find(std::int32_t window) const;

private:
    std::map<std::int32_t, WindowEffect> effects_;
};

}  // namespace telvaro::posix

#include "platform/posix/window_effects.h"

namespace telvaro::posix {

void WindowEffects::setHorizontalExtent(std::int32_t listWindow, std::int16_t extent) {
    effects_[listWindow].horizontalExtent = extent;
}

void WindowEffects::keepOnTop(std::int32_t window) { effects_[window].topmost = true; }

void WindowEffects::setOwner(std::int32_t window, std::int32_t owner) { effects_[window].owner = owner; }

void WindowEffects::dragByBody(std::int32_t window) { ++effects_[window].drags; }

const WindowEffect* WindowEffects::find(std::int32_t window) const {
    auto it = effects_.find(window);
    return it == effects_.end() ? nullptr : &it->second;
}

}  // namespace telvaro::posix

#include "host/posix_display.h"

#include "objects/window_painting.h"
#include "objects/window_registry.h"

namespace telvaro::posix {

void PosixDisplay::paintInto(std::int32_t window, std::int32_t deviceContext) {
    objects::paintWindow(window, deviceContext);
}

void PosixDisplay::printInto(std::int32_t window, std::int32_t deviceContext, std::int32_t flags) {
    objects::printWindow(window, deviceContext, flags);
}

void PosixWindows::keepOnTop(std::int32_t window) {
    WindowEffects::keepOnTop(window);
    if (!objects::windowOf(window)) display_->keepAbove(window);
}

void PosixWindows::setOwner(std::int32_t window, std::int32_t owner) {
    WindowEffects::setOwner(window, owner);
    if (!objects::windowOf(window)) display_->setTransientFor(window, owner);
}

}  // namespace telvaro::posix

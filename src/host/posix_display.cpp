#include "host/posix_display.h"

#include "objects/window_painting.h"

namespace telvaro::posix {

void PosixDisplay::paintInto(std::int32_t window, std::int32_t deviceContext) {
    objects::paintWindow(window, deviceContext);
}

void PosixDisplay::printInto(std::int32_t window, std::int32_t deviceContext, std::int32_t flags) {
    objects::printWindow(window, deviceContext, flags);
}

}  // namespace telvaro::posix

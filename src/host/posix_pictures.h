// The picture service on Linux: the library's own Picture objects, files
// read from the place a Windows-form path maps to.
#pragma once

#include "platform/pictures.h"

namespace telvaro::posix {

class PosixPictures : public Pictures {
public:
    ObjectRef fromPixels(std::int32_t width, std::int32_t height, std::span<const std::uint32_t> pixels,
                         StringView name) override;
    ObjectRef load(StringView windowsPath) override;
};

}  // namespace telvaro::posix

#include "host/posix_pictures.h"

#include "objects/picture.h"
#include "objects/picture_files.h"
#include "platform/posix/home.h"
#include "runtime/error.h"

namespace telvaro::posix {

ObjectRef PosixPictures::fromPixels(std::int32_t width, std::int32_t height, std::span<const std::uint32_t> pixels,
                                    StringView name) {
    if (width < 0 || height < 0 || pixels.size() != static_cast<std::size_t>(width) * static_cast<std::size_t>(height))
        raise(err::InvalidProcedureCall);
    auto picture = std::make_shared<objects::Picture>(width, height);
    for (std::int32_t y = 0; y < height; ++y)
        for (std::int32_t x = 0; x < width; ++x)
            picture->setPixel(
                x, y,
                pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(width) + static_cast<std::size_t>(x)]);
    picture->setSource(String(name));
    return picture;
}

ObjectRef PosixPictures::load(StringView windowsPath) {
    if (windowsPath.empty()) return std::make_shared<objects::Picture>();
    auto picture = objects::loadPicture(mapPath(windowsPath));
    picture->setSource(String(windowsPath));
    return picture;
}

}  // namespace telvaro::posix

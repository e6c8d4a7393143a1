// The picture service on Windows: the platform's own picture objects
// (OleCreatePictureIndirect over a bitmap of the pixels, OleLoadPicturePath
// for files), held in a late-bound object that answers the picture's
// members; `nativePicture()` gives the IPictureDisp for the COM edge.
#pragma once

#include "platform/pictures.h"

namespace telvaro::win32 {

class Win32Pictures : public Pictures {
public:
    ObjectRef fromPixels(std::int32_t width, std::int32_t height, std::span<const std::uint32_t> pixels,
                         StringView name) override;
    ObjectRef load(StringView windowsPath) override;
};

}  // namespace telvaro::win32

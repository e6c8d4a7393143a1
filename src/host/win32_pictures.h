// The picture service on Windows: the platform's own picture objects
// (OleCreatePictureIndirect over a bitmap of the pixels, OleLoadPicturePath
// for files), held in a late-bound object that answers the picture's
// members; `nativePicture()` gives the IPictureDisp for the COM edge.
#pragma once

#include <oaidl.h>

#include "platform/pictures.h"

namespace telvaro::win32 {

class Win32Pictures : public Pictures {
public:
    ObjectRef fromPixels(std::int32_t width, std::int32_t height, std::span<const std::uint32_t> pixels,
                         StringView name) override;
    ObjectRef load(StringView windowsPath) override;
};

// The platform's IPictureDisp behind a picture this service made, with a
// reference for whoever receives it; null for any other object and for an
// empty picture. Pictures leave the server as themselves, so a caller's
// control can show them.
IDispatch* nativePictureDispatch(const Object& object);

}  // namespace telvaro::win32

// The picture service on Windows: the platform's own picture objects
// (OleCreatePictureIndirect over a bitmap of the pixels, OleLoadPicturePath
// for files), held in a late-bound object that answers the picture's
// members; `nativePicture()` gives the IPictureDisp for the COM edge.
#pragma once

#include "platform/pictures.h"

struct IPicture;
struct IDispatch;

namespace telvaro::win32 {

// A picture object over the platform's picture, taking over the reference
// given (nullptr makes the empty picture).
ObjectRef platformPicture(IPicture* picture, String source);
// The IDispatch of a picture object made here, with a reference for the
// receiver; nullptr for any other object.
IDispatch* pictureDispatch(const Object& object);

class Win32Pictures : public Pictures {
public:
    ObjectRef fromPixels(std::int32_t width, std::int32_t height, std::span<const std::uint32_t> pixels,
                         StringView name) override;
    ObjectRef load(StringView windowsPath) override;
};

}  // namespace telvaro::win32

// Pictures in files. Loading decodes BMP, PNG, JPEG and GIF (the first
// frame) with stb_image; saving writes BMP (24-bit, the alpha dropped) or
// PNG (with alpha, through libpng).
//
// The paths are the platform's own, already mapped and checked by the
// caller (the file-system service turns a caller's "C:\..." into one): this
// layer never sees a caller's text as a path.
#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "objects/picture.h"

namespace telvaro::objects {

enum class PictureFileFormat { Bmp, Png };

// The picture in `file`: an empty path gives the empty picture; a file that
// does not exist is error 53 "File not found"; one that cannot be read or
// decoded is error 481 "Invalid picture"; one larger than 16384 pixels a
// side, or than 256 MiB, is error 7.
std::shared_ptr<Picture> loadPicture(const std::filesystem::path& file);
// The same from the bytes of a file.
std::shared_ptr<Picture> decodePicture(const std::string& bytes);

// The bytes of the picture as a file of that format.
std::string encodePicture(const Picture& picture, PictureFileFormat format);
// Writes the picture; error 75 "Path/File access error" when the file
// cannot be written, 5 for an empty picture.
void savePicture(const Picture& picture, const std::filesystem::path& file, PictureFileFormat format);

}  // namespace telvaro::objects

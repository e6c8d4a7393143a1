#include "objects/picture_files.h"

#include <png.h>
#include <stb_image.h>

#include <cstring>
#include <fstream>
#include <iterator>

#include "runtime/error.h"

namespace telvaro::objects {

namespace {

constexpr std::uintmax_t kMaxFileBytes = 256u << 20;

[[noreturn]] void invalidPicture() { raise(481, u"Invalid picture"); }

void putLittleEndian(std::string& out, std::uint32_t value, int bytes) {
    for (int i = 0; i < bytes; ++i) out.push_back(static_cast<char>((value >> (8 * i)) & 0xFF));
}

std::string encodeBmp(const Picture& picture) {
    const auto width = static_cast<std::uint32_t>(picture.width());
    const auto height = static_cast<std::uint32_t>(picture.height());
    const std::uint32_t stride = (width * 3 + 3) & ~3u;
    const std::uint32_t imageBytes = stride * height;
    std::string out;
    out.reserve(54 + imageBytes);
    out += "BM";
    putLittleEndian(out, 54 + imageBytes, 4);  // file size
    putLittleEndian(out, 0, 4);                // reserved
    putLittleEndian(out, 54, 4);               // offset of the pixels
    putLittleEndian(out, 40, 4);               // BITMAPINFOHEADER
    putLittleEndian(out, width, 4);
    putLittleEndian(out, height, 4);  // positive: bottom row first
    putLittleEndian(out, 1, 2);       // planes
    putLittleEndian(out, 24, 2);      // bits per pixel
    putLittleEndian(out, 0, 4);       // BI_RGB
    putLittleEndian(out, imageBytes, 4);
    putLittleEndian(out, 3780, 4);  // 96 pixels per inch, in pixels per metre
    putLittleEndian(out, 3780, 4);
    putLittleEndian(out, 0, 4);
    putLittleEndian(out, 0, 4);
    for (std::uint32_t y = height; y-- > 0;) {
        for (std::uint32_t x = 0; x < width; ++x) {
            const std::uint32_t p = picture.pixels()[y * width + x];
            putLittleEndian(out, p & 0xFFFFFF, 3);  // blue, green, red
        }
        out.append(stride - width * 3, '\0');
    }
    return out;
}

std::string encodePng(const Picture& picture) {
    png_image image;
    std::memset(&image, 0, sizeof image);
    image.version = PNG_IMAGE_VERSION;
    image.width = static_cast<png_uint_32>(picture.width());
    image.height = static_cast<png_uint_32>(picture.height());
    image.format = PNG_FORMAT_BGRA;  // 0xAARRGGBB in memory, little-endian
    // The pixels as bytes in memory order.
    std::vector<std::uint8_t> bytes(picture.pixels().size() * 4);
    for (std::size_t i = 0; i < picture.pixels().size(); ++i) {
        const std::uint32_t p = picture.pixels()[i];
        bytes[4 * i] = static_cast<std::uint8_t>(p);
        bytes[4 * i + 1] = static_cast<std::uint8_t>(p >> 8);
        bytes[4 * i + 2] = static_cast<std::uint8_t>(p >> 16);
        bytes[4 * i + 3] = static_cast<std::uint8_t>(p >> 24);
    }
    png_alloc_size_t size = 0;
    if (!png_image_write_to_memory(&image, nullptr, &size, 0, bytes.data(), 0, nullptr)) {
        png_image_free(&image);
        raise(err::OutOfMemory);
    }
    std::string out(size, '\0');
    if (!png_image_write_to_memory(&image, out.data(), &size, 0, bytes.data(), 0, nullptr)) {
        png_image_free(&image);
        raise(err::OutOfMemory);
    }
    out.resize(size);
    return out;
}

}  // namespace

std::shared_ptr<Picture> decodePicture(const std::string& bytes) {
    if (bytes.empty() || bytes.size() > static_cast<std::size_t>(INT32_MAX)) invalidPicture();
    const auto* data = reinterpret_cast<const stbi_uc*>(bytes.data());
    const int length = static_cast<int>(bytes.size());
    int width = 0, height = 0, channels = 0;
    if (!stbi_info_from_memory(data, length, &width, &height, &channels)) invalidPicture();
    if (width <= 0 || height <= 0) invalidPicture();
    if (width > Picture::kMaxSide || height > Picture::kMaxSide || std::int64_t{width} * height > Picture::kMaxPixels)
        raise(err::OutOfMemory);
    stbi_uc* rgba = stbi_load_from_memory(data, length, &width, &height, &channels, 4);
    if (!rgba) invalidPicture();
    std::shared_ptr<Picture> picture;
    try {
        picture = std::make_shared<Picture>(width, height);
    } catch (...) {
        stbi_image_free(rgba);
        throw;
    }
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) {
            const stbi_uc* p = rgba + 4 * (static_cast<std::size_t>(y) * static_cast<std::size_t>(width) +
                                           static_cast<std::size_t>(x));
            picture->setPixel(
                x, y, (std::uint32_t{p[3]} << 24) | (std::uint32_t{p[0]} << 16) | (std::uint32_t{p[1]} << 8) | p[2]);
        }
    stbi_image_free(rgba);
    return picture;
}

std::shared_ptr<Picture> loadPicture(const std::filesystem::path& file) {
    if (file.empty()) return std::make_shared<Picture>();
    std::error_code ec;
    const auto status = std::filesystem::status(file, ec);
    if (status.type() == std::filesystem::file_type::not_found) raise(err::FileNotFound);
    if (ec || status.type() != std::filesystem::file_type::regular) invalidPicture();
    const auto size = std::filesystem::file_size(file, ec);
    if (ec) invalidPicture();
    if (size > kMaxFileBytes) raise(err::OutOfMemory);
    std::ifstream in(file, std::ios::binary);
    if (!in) invalidPicture();
    std::string bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    if (in.bad()) invalidPicture();
    auto picture = decodePicture(bytes);
    picture->setSource(file.filename().u16string());
    return picture;
}

std::string encodePicture(const Picture& picture, PictureFileFormat format) {
    if (picture.isEmpty()) raise(err::InvalidProcedureCall);
    return format == PictureFileFormat::Png ? encodePng(picture) : encodeBmp(picture);
}

void savePicture(const Picture& picture, const std::filesystem::path& file, PictureFileFormat format) {
    const std::string bytes = encodePicture(picture, format);
    std::ofstream out(file, std::ios::binary | std::ios::trunc);
    if (!out) raise(err::PathFileAccessError);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    out.close();
    if (!out) raise(err::PathFileAccessError);
}

}  // namespace telvaro::objects

#include "platform/posix/wave_sound.h"

#include <cstdint>

#include "platform/posix/atomic_file.h"

namespace telvaro::posix {

namespace {

constexpr std::uint16_t kFormatPcm = 1;
constexpr std::uint16_t kFormatExtensible = 0xFFFE;

std::uint32_t little(std::string_view b, std::size_t at, int size) {
    std::uint32_t v = 0;
    for (int i = size - 1; i >= 0; --i) v = v * 256 + static_cast<unsigned char>(b[at + i]);
    return v;
}

}  // namespace

std::optional<WaveSound> parseWave(std::string_view bytes) {
    if (bytes.size() < 12 || bytes.substr(0, 4) != "RIFF" || bytes.substr(8, 4) != "WAVE") return std::nullopt;
    std::optional<WaveSound> format;
    std::size_t at = 12;
    while (at + 8 <= bytes.size()) {
        const std::string_view id = bytes.substr(at, 4);
        const std::size_t size = little(bytes, at + 4, 4);
        const std::size_t body = at + 8;
        if (id == "fmt ") {
            if (size < 16 || body + size > bytes.size()) return std::nullopt;
            std::uint16_t tag = static_cast<std::uint16_t>(little(bytes, body, 2));
            if (tag == kFormatExtensible) {
                // The sub-format's first two bytes are the real format tag.
                if (size < 40) return std::nullopt;
                tag = static_cast<std::uint16_t>(little(bytes, body + 24, 2));
            }
            WaveSound w;
            w.channels = static_cast<int>(little(bytes, body + 2, 2));
            w.sampleRate = static_cast<int>(little(bytes, body + 4, 4));
            w.bitsPerSample = static_cast<int>(little(bytes, body + 14, 2));
            if (tag != kFormatPcm || (w.channels != 1 && w.channels != 2) ||
                (w.bitsPerSample != 8 && w.bitsPerSample != 16) || w.sampleRate < 1000 || w.sampleRate > 192000 ||
                little(bytes, body + 12, 2) != w.frameSize())
                return std::nullopt;
            format = w;
        } else if (id == "data") {
            if (!format) return std::nullopt;
            const std::size_t available = std::min(size, bytes.size() - body);
            format->frames = std::string(bytes.substr(body, available - available % format->frameSize()));
            return format;
        }
        if (size > bytes.size() - body) return std::nullopt;
        at = body + size + (size & 1);  // chunks are word-aligned
    }
    return std::nullopt;
}

std::optional<WaveSound> readWave(const std::filesystem::path& file) {
    std::error_code ec;
    if (!std::filesystem::is_regular_file(file, ec)) return std::nullopt;
    const auto bytes = readBytes(file);
    if (!bytes) return std::nullopt;
    return parseWave(*bytes);
}

}  // namespace telvaro::posix

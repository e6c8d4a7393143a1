// Wave files (RIFF/WAVE) with uncompressed PCM samples of 8 or 16 bits,
// mono or stereo: the sounds applications play to draw attention.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace telvaro::posix {

struct WaveSound {
    int channels = 0;
    int sampleRate = 0;
    int bitsPerSample = 0;
    std::string frames;  // interleaved samples as stored in the file

    std::size_t frameSize() const { return static_cast<std::size_t>(channels * bitsPerSample / 8); }
};

// Nothing for another format, a damaged file, or one that is not a wave
// file. A data chunk that claims more bytes than the file holds keeps the
// whole frames that are there.
std::optional<WaveSound> parseWave(std::string_view bytes);
std::optional<WaveSound> readWave(const std::filesystem::path& file);

}  // namespace telvaro::posix

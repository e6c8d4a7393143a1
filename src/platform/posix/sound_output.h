// Playing wave sounds as the platform's sound function does: a request
// stops the sound playing; a missing or unplayable file plays nothing
// (there is no default system sound here); a synchronous request returns
// when the sound has played, an asynchronous one at once; a looping
// asynchronous one repeats until the next request. The samples go to a
// PcmSink: ALSA's default device, or a test's recorder. With no sound
// device, nothing plays and nothing is said.
#pragma once

#include <atomic>
#include <filesystem>
#include <functional>
#include <memory>
#include <mutex>
#include <string_view>
#include <thread>

#include "platform/posix/wave_sound.h"

namespace telvaro::posix {

class PcmSink {
public:
    virtual ~PcmSink() = default;
    virtual bool open(const WaveSound& format) = 0;
    // Blocks until the frames are queued; false on a device error.
    virtual bool write(std::string_view frames) = 0;
    // Lets what is queued play out (`drain`) or drops it.
    virtual void close(bool drain) = 0;
};

std::unique_ptr<PcmSink> alsaSink();

class SoundOutput {
public:
    using SinkFactory = std::function<std::unique_ptr<PcmSink>()>;
    explicit SoundOutput(SinkFactory factory = alsaSink);
    ~SoundOutput();
    SoundOutput(const SoundOutput&) = delete;
    SoundOutput& operator=(const SoundOutput&) = delete;

    // `flags` as sound::Asynchronous, sound::Loop of platform/environment.h.
    bool play(const std::filesystem::path& file, int flags);
    void stop();

private:
    void stopLocked();

    SinkFactory factory_;
    std::mutex mutex_;
    std::thread player_;
    std::shared_ptr<std::atomic<bool>> stopping_;
};

}  // namespace telvaro::posix

#include "platform/posix/sound_output.h"

#if TELVARO_HAVE_ALSA
#include <alsa/asoundlib.h>
#endif

#include "platform/environment.h"

namespace telvaro::posix {

namespace {

// Frames are written in slices of about 50 ms, so that a stop request is
// seen quickly.
std::size_t sliceBytes(const WaveSound& w) {
    const std::size_t frames = std::max(1, w.sampleRate / 20);
    return frames * w.frameSize();
}

// Plays the sound once, or until `stopping`; false when the sink failed.
bool playOnce(PcmSink& sink, const WaveSound& w, const std::atomic<bool>& stopping) {
    const std::size_t slice = sliceBytes(w);
    for (std::size_t at = 0; at < w.frames.size(); at += slice) {
        if (stopping) return true;
        if (!sink.write(std::string_view(w.frames).substr(at, slice))) return false;
    }
    return true;
}

#if TELVARO_HAVE_ALSA
void silentAlsaErrors(const char*, int, const char*, int, const char*, ...) {}

class AlsaSink : public PcmSink {
public:
    ~AlsaSink() override { close(false); }
    bool open(const WaveSound& w) override {
        static const bool quiet = (snd_lib_error_set_handler(silentAlsaErrors), true);
        (void)quiet;
        frameSize_ = w.frameSize();
        // A busy device answers at once instead of making the caller wait;
        // once open, writes block as the player expects.
        if (snd_pcm_open(&pcm_, "default", SND_PCM_STREAM_PLAYBACK, SND_PCM_NONBLOCK) < 0) {
            pcm_ = nullptr;
            return false;
        }
        snd_pcm_nonblock(pcm_, 0);
        const snd_pcm_format_t format = w.bitsPerSample == 8 ? SND_PCM_FORMAT_U8 : SND_PCM_FORMAT_S16_LE;
        if (snd_pcm_set_params(pcm_, format, SND_PCM_ACCESS_RW_INTERLEAVED, static_cast<unsigned>(w.channels),
                               static_cast<unsigned>(w.sampleRate), 1, 200000) < 0) {
            close(false);
            return false;
        }
        return true;
    }
    bool write(std::string_view frames) override {
        if (!pcm_) return false;
        snd_pcm_uframes_t left = frames.size() / frameSize_;
        const char* data = frames.data();
        while (left > 0) {
            snd_pcm_sframes_t done = snd_pcm_writei(pcm_, data, left);
            if (done < 0) done = snd_pcm_recover(pcm_, static_cast<int>(done), 1);
            if (done < 0) return false;
            left -= static_cast<snd_pcm_uframes_t>(done);
            data += static_cast<std::size_t>(done) * frameSize_;
        }
        return true;
    }
    void close(bool drain) override {
        if (!pcm_) return;
        drain ? snd_pcm_drain(pcm_) : snd_pcm_drop(pcm_);
        snd_pcm_close(pcm_);
        pcm_ = nullptr;
    }

private:
    snd_pcm_t* pcm_ = nullptr;
    std::size_t frameSize_ = 1;
};
#else
// Built without the sound library: no device opens, so a sound cannot play.
class AlsaSink : public PcmSink {
public:
    bool open(const WaveSound&) override { return false; }
    bool write(std::string_view) override { return false; }
    void close(bool) override {}
};
#endif

}  // namespace

std::unique_ptr<PcmSink> alsaSink() { return std::make_unique<AlsaSink>(); }

SoundOutput::SoundOutput(SinkFactory factory) : factory_(std::move(factory)) {}

SoundOutput::~SoundOutput() { stop(); }

void SoundOutput::stopLocked() {
    if (stopping_) *stopping_ = true;
    if (player_.joinable()) player_.join();
    stopping_.reset();
}

void SoundOutput::stop() {
    std::lock_guard lock(mutex_);
    stopLocked();
}

bool SoundOutput::play(const std::filesystem::path& file, int flags) {
    std::lock_guard lock(mutex_);
    stopLocked();
    auto wave = readWave(file);
    if (!wave || wave->frames.empty()) return false;
    std::unique_ptr<PcmSink> sink = factory_();
    if (!sink || !sink->open(*wave)) return false;

    auto stopping = std::make_shared<std::atomic<bool>>(false);
    if (!(flags & sound::Asynchronous)) {
        const bool played = playOnce(*sink, *wave, *stopping);
        sink->close(played);
        return played;
    }
    const bool loop = flags & sound::Loop;
    stopping_ = stopping;
    player_ = std::thread([sink = std::move(sink), wave = std::move(*wave), stopping, loop] {
        bool ok = true;
        do {
            ok = playOnce(*sink, wave, *stopping);
        } while (ok && loop && !*stopping);
        sink->close(ok && !*stopping);
    });
    return true;
}

}  // namespace telvaro::posix

// Wave files read as the sound output needs them, and the output's requests
// (synchronous, asynchronous, looping, stopping) on a recording sink.
#include <gtest/gtest.h>

#include <chrono>
#include <condition_variable>
#include <fstream>
#include <thread>

#include "platform/environment.h"
#include "platform/posix/sound_output.h"

namespace telvaro {
namespace {

std::string le(std::uint32_t v, int size) {
    std::string s;
    for (int i = 0; i < size; ++i) s += static_cast<char>((v >> (8 * i)) & 0xFF);
    return s;
}

std::string chunk(const std::string& id, const std::string& body, std::uint32_t claimed = 0xFFFFFFFF) {
    std::string c = id + le(claimed == 0xFFFFFFFF ? body.size() : claimed, 4) + body;
    if (body.size() & 1) c += '\0';
    return c;
}

std::string fmt(int tag, int channels, int rate, int bits, bool extensible = false, int subTag = 1, int block = 0) {
    std::string f = le(extensible ? 0xFFFE : tag, 2) + le(channels, 2) + le(rate, 4) +
                    le(rate * channels * bits / 8, 4) + le(block ? block : channels * bits / 8, 2) + le(bits, 2);
    if (extensible) f += le(22, 2) + le(bits, 2) + le(0, 4) + le(subTag, 2) + std::string(14, 'x');
    return chunk("fmt ", f);
}

std::string riff(const std::string& chunks) { return "RIFF" + le(4 + chunks.size(), 4) + "WAVE" + chunks; }

TEST(WaveFile, FormatsAndDamage) {
    const std::string pcm(8, '\x10');
    const std::tuple<const char*, std::string, int, int> readable[] = {
        {"extensible PCM", riff(fmt(0, 2, 22050, 16, true) + chunk("data", pcm)), 2, 16},
        {"odd chunk padded", riff(fmt(1, 1, 8000, 8) + chunk("junk", "abc") + chunk("data", pcm)), 1, 8},
        {"data longer than the file", riff(fmt(1, 2, 8000, 16) + "data" + le(1000, 4) + std::string(10, 'a')), 2, 16}};
    for (const auto& [what, bytes, channels, bits] : readable) {
        const auto w = posix::parseWave(bytes);
        ASSERT_TRUE(w.has_value()) << what;
        EXPECT_EQ(w->channels, channels) << what;
        EXPECT_EQ(w->bitsPerSample, bits) << what;
        EXPECT_EQ(w->frames.size(), 8u) << what;
    }
    const std::pair<const char*, std::string> unreadable[] = {
        {"block size not the frame size", riff(fmt(1, 2, 8000, 16, false, 1, 1) + chunk("data", pcm))},
        {"float samples", riff(fmt(3, 1, 8000, 32) + chunk("data", pcm))},
        {"24-bit", riff(fmt(1, 1, 8000, 24) + chunk("data", pcm))},
        {"extensible float", riff(fmt(0, 1, 8000, 16, true, 3) + chunk("data", pcm))},
        {"a chunk larger than the file", riff(chunk("LIST", "ab", 0x7FFFFFF0) + fmt(1, 1, 8000, 8))},
        {"not RIFF", "RIFX" + riff("").substr(4)}};
    for (const auto& [what, bytes] : unreadable) EXPECT_FALSE(posix::parseWave(bytes).has_value()) << what;
}

// What the sinks were asked to do, as the player's thread reports it.
struct SinkLog {
    std::mutex mutex;
    std::condition_variable changed;
    std::size_t bytes = 0;
    int opens = 0, closes = 0;
    bool note(std::size_t written, int opened, int closed) {
        std::lock_guard lock(mutex);
        bytes += written, opens += opened, closes += closed;
        changed.notify_all();
        return true;
    }
};

// Counts the frames written; can refuse to open.
class RecordingSink : public posix::PcmSink {
public:
    RecordingSink(SinkLog& log, bool opens) : log_(log), opens_(opens) {}
    bool open(const posix::WaveSound&) override { return log_.note(0, 1, 0) && opens_; }
    bool write(std::string_view frames) override {
        std::this_thread::sleep_for(std::chrono::microseconds(200));
        return log_.note(frames.size(), 0, 0);
    }
    void close(bool) override { log_.note(0, 0, 1); }

private:
    SinkLog& log_;
    bool opens_;
};

class SoundOutputTest : public ::testing::Test {
protected:
    void SetUp() override {
        std::ofstream(file_, std::ios::binary) << riff(fmt(1, 1, 8000, 8) + chunk("data", std::string(kBytes, '\x80')));
    }
    posix::SoundOutput output(bool opens = true) {
        return posix::SoundOutput([this, opens] { return std::make_unique<RecordingSink>(log_, opens); });
    }
    std::size_t bytes() {
        std::lock_guard lock(log_.mutex);
        return log_.bytes;
    }
    bool waitFor(std::size_t atLeast) {
        std::unique_lock lock(log_.mutex);
        return log_.changed.wait_for(lock, std::chrono::seconds(10), [&] { return log_.bytes >= atLeast; });
    }

    static constexpr std::size_t kBytes = 1000;  // 1/8 s at 8000 Hz, three slices
    const std::filesystem::path file_ = std::filesystem::current_path() / "tono.wav";
    SinkLog log_;
};

// Without a device nothing plays; without Asynchronous the call plays the
// whole file once and returns, even with Loop.
TEST_F(SoundOutputTest, SynchronousPlaysOnceAndNoDeviceNothing) {
    EXPECT_FALSE(output(false).play(file_, sound::Asynchronous));
    EXPECT_EQ(bytes(), 0u);
    auto out = output();
    EXPECT_TRUE(out.play(file_, sound::Loop));
    EXPECT_EQ(bytes(), kBytes);
    EXPECT_EQ(log_.closes, 1);
}

// A loop runs until the next request: one for a missing file plays nothing;
// one without Loop plays once (no more after it, so the loop had stopped).
TEST_F(SoundOutputTest, AsynchronousLoopsUntilTheNextRequest) {
    auto out = output();
    EXPECT_TRUE(out.play(file_, sound::Asynchronous | sound::Loop));
    ASSERT_TRUE(waitFor(2 * kBytes));
    EXPECT_FALSE(out.play(std::filesystem::current_path() / "1", sound::Synchronous));
    const std::size_t after = bytes();
    EXPECT_EQ(log_.closes, 1);
    EXPECT_TRUE(out.play(file_, sound::Asynchronous));
    ASSERT_TRUE(waitFor(after + kBytes));
    out.stop();
    EXPECT_EQ(bytes(), after + kBytes);
    EXPECT_EQ(log_.opens, 2);
    EXPECT_EQ(log_.closes, 2);
}

}  // namespace
}  // namespace telvaro

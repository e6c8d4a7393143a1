// The environment on Linux: the host name as the computer's name, the
// login name as the user's, the launcher, the internet probe, wave sounds
// through ALSA. Message boxes of the library are the only ones a Linux
// process shows through it, so capturing them needs nothing beyond the
// library's own per-thread capture; there are no window events to process.
#pragma once

#include <memory>

#include "platform/environment.h"

namespace telvaro::posix {

class SoundOutput;

class PosixEnvironment : public Environment {
public:
    PosixEnvironment();
    ~PosixEnvironment() override;

    String computerName() override;
    String userName() override;
    void open(StringView file, StringView parameters, StringView folder, int showCommand) override;
    bool internetReachable() override;
    bool playSound(StringView file, int flags) override;
    void captureMessageBoxes(bool) override {}
    void processEvents() override {}

    // How long the internet probe may take.
    static constexpr int kProbeTimeoutMs = 3000;

private:
    std::unique_ptr<SoundOutput> sound_;
};

}  // namespace telvaro::posix

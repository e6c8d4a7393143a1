// The environment on Windows, one or two Win32 calls each: GetComputerNameA,
// GetUserNameA, ShellExecuteA owned by the desktop window with the verb
// "Open", InternetCheckConnectionA forcing a connection to a public web-mail
// page, sndPlaySoundA, and a computer-based-training hook that closes the
// thread's standard dialog boxes while message boxes are captured.
#pragma once

#include "platform/environment.h"

namespace telvaro::win32 {

class Win32Environment : public Environment {
public:
    String computerName() override;
    String userName() override;
    void open(StringView file, StringView parameters, StringView folder, int showCommand) override;
    bool internetReachable() override;
    bool playSound(StringView file, int flags) override;
    void captureMessageBoxes(bool capture) override;
    void processEvents() override;

    // The page the internet probe asks for.
    static constexpr const char* kProbeAddress = "https://mail.google.com/mail/";
};

}  // namespace telvaro::win32

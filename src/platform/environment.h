// What the library asks the operating system about its surroundings, or
// asks it to do: the computer's and the user's names, opening a document
// or program, a short internet probe, playing a wave sound, closing the
// thread's message boxes while they are captured, and letting pending
// events run during a wait.
#pragma once

#include "runtime/ustring.h"

namespace telvaro {

// Flags of a sound request, as the platform's sound function takes them.
namespace sound {
inline constexpr int Synchronous = 0x0;   // returns when the sound has played
inline constexpr int Asynchronous = 0x1;  // returns at once
inline constexpr int NoDefault = 0x2;     // no default sound when the file is missing
inline constexpr int Loop = 0x8;          // repeats until the next request (with Asynchronous)
}  // namespace sound

class Environment {
public:
    virtual ~Environment() = default;

    virtual String computerName() = 0;
    virtual String userName() = 0;

    // Opens `file` with the program the desktop associates with it, or
    // starts it when it is a program, without waiting for it. `showCommand`
    // is 1 (normal, activated) or 4 (shown without activation). Failures
    // are not reported.
    virtual void open(StringView file, StringView parameters, StringView folder, int showCommand) = 0;

    // True when a connection to the probed public address can be made
    // within a short, bounded time.
    virtual bool internetReachable() = 0;

    // Plays a wave file with the `sound` flags; a new request stops the
    // sound playing. False when nothing could be played (missing file, no
    // sound device); never an error.
    virtual bool playSound(StringView file, int flags) = 0;

    // Starts or ends the capture of the calling thread's message boxes: while
    // captured, every standard message box of the thread closes at once.
    virtual void captureMessageBoxes(bool capture) = 0;

    // Lets the events waiting for the calling thread run.
    virtual void processEvents() = 0;

    // The local date and time as a date serial (the runtime's Now), and a
    // short pause of a waiting loop; tests replace both.
    virtual double now();
    virtual void idle();
};

}  // namespace telvaro

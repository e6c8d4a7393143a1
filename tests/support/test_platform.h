// A platform for tests: scripted message boxes, the real stores under the
// test's home folder, and an environment recording what it is asked to do.
#pragma once

#include <functional>
#include <vector>

#include "host/default_platform.h"
#include "platform/scripted_message_box.h"

namespace telvaro::fakes {

class RecordingEnvironment : public Environment {
public:
    // clang-format off
    struct Opened { String file, parameters, folder; int showCommand; };
    struct Played { String file; int flags; };
    // clang-format on

    String computer = u"CAJA01";
    String user = u"operador";
    bool reachable = true;
    std::vector<Opened> opened;
    std::vector<Played> played;
    std::vector<bool> captures;
    int eventsProcessed = 0;
    // The clock: the real one unless set; `tick` runs at every reading.
    std::function<double()> clock;

    String computerName() override { return computer; }
    String userName() override { return user; }
    void open(StringView file, StringView parameters, StringView folder, int showCommand) override {
        opened.push_back({String(file), String(parameters), String(folder), showCommand});
    }
    bool internetReachable() override { return reachable; }
    bool playSound(StringView file, int flags) override {
        played.push_back({String(file), flags});
        return true;
    }
    void captureMessageBoxes(bool capture) override { captures.push_back(capture); }
    void processEvents() override { ++eventsProcessed; }
    double now() override { return clock ? clock() : Environment::now(); }
    void idle() override {}
};

class TestPlatform : public ScriptedPlatform {
public:
    explicit TestPlatform(std::vector<int> answers = {})
        : ScriptedPlatform(defaultPlatform(), std::move(answers)),
          recording_(std::make_shared<RecordingEnvironment>()) {
        use(std::shared_ptr<Environment>(recording_));
    }

private:
    std::shared_ptr<RecordingEnvironment> recording_;

public:
    RecordingEnvironment& recording = *recording_;
};

}  // namespace telvaro::fakes

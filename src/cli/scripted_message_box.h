// Message boxes answered from a script: each box takes the next scripted
// answer, or its default button when the script has run out, and every box
// shown is recorded with its answer.
#pragma once

#include <deque>
#include <vector>

#include "platform/default_platform.h"
#include "platform/platform.h"

namespace telvaro::cli {

struct ShownMessage {
    String prompt;
    int style = 0;
    String title;
    int answer = 0;
};

class ScriptedMessageBox : public MessageBoxService {
public:
    explicit ScriptedMessageBox(std::vector<int> answers = {});
    int show(StringView prompt, int style, StringView title) override;
    const std::vector<ShownMessage>& shown() const { return shown_; }

private:
    std::deque<int> answers_;
    std::vector<ShownMessage> shown_;
};

// The process's platform with scripted message boxes in place of its own.
class ScriptedPlatform : public Platform {
public:
    explicit ScriptedPlatform(std::vector<int> answers) : boxes_(std::move(answers)) {}
    MessageBoxService& messageBoxes() override { return boxes_; }
    ProfileFiles& profileFiles() override { return defaultPlatform().profileFiles(); }
    FileSystem& fileSystem() override { return defaultPlatform().fileSystem(); }
    Registry& registry() override { return defaultPlatform().registry(); }
    RegionalStore& regionalStore() override { return defaultPlatform().regionalStore(); }
    Environment& environment() override { return defaultPlatform().environment(); }
    const ScriptedMessageBox& boxes() const { return boxes_; }

private:
    ScriptedMessageBox boxes_;
};

}  // namespace telvaro::cli

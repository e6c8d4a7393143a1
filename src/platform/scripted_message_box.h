// Message boxes answered from a script: each box takes the next scripted
// answer, or its default button when the script has run out, and every box
// shown is recorded with its answer. `batch` and the tests lay them over a
// host's platform.
#pragma once

#include <deque>
#include <memory>
#include <vector>

#include "platform/platform.h"

namespace telvaro {

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

// A platform with scripted message boxes in place of its own.
class ScriptedPlatform : public Platform {
public:
    ScriptedPlatform(const Platform& base, std::vector<int> answers);
    const ScriptedMessageBox& boxes() const { return *boxes_; }

private:
    std::shared_ptr<ScriptedMessageBox> boxes_;
};

}  // namespace telvaro

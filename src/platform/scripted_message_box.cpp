#include "platform/scripted_message_box.h"

namespace telvaro {

ScriptedMessageBox::ScriptedMessageBox(std::vector<int> answers) : answers_(answers.begin(), answers.end()) {}

int ScriptedMessageBox::show(StringView prompt, int style, StringView title) {
    int answer = buttonsOf(style).defaultAnswer;
    if (!answers_.empty()) {
        answer = answers_.front();
        answers_.pop_front();
    }
    shown_.push_back({String(prompt), style, String(title), answer});
    return answer;
}

ScriptedPlatform::ScriptedPlatform(const Platform& base, std::vector<int> answers)
    : Platform(base), boxes_(std::make_shared<ScriptedMessageBox>(std::move(answers))) {
    use(boxes_);
}

}  // namespace telvaro

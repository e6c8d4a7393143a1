#include "cli/scripted_message_box.h"

namespace telvaro::cli {

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

}  // namespace telvaro::cli

#include "platform/posix/terminal_message_box.h"

#include <unistd.h>

#include <string>

#include "runtime/text.h"

namespace telvaro::posix {

TerminalMessageBox::TerminalMessageBox(std::FILE* in, std::FILE* out, bool forceInteractive)
    : in_(in), out_(out), forceInteractive_(forceInteractive) {}

bool TerminalMessageBox::interactive() const { return forceInteractive_ || (isatty(fileno(in_)) != 0); }

int TerminalMessageBox::show(StringView prompt, int style, StringView title) {
    ButtonSet buttons = buttonsOf(style);
    if (!interactive()) {
        // No one to answer: the box is told on stderr with the answer taken.
        std::fprintf(out_, "== %s ==\n%s\n(no terminal: answered %s)\n", toUtf8(title).c_str(), toUtf8(prompt).c_str(),
                     toUtf8(answerLabel(buttons.defaultAnswer)).c_str());
        std::fflush(out_);
        return buttons.defaultAnswer;
    }

    std::string menu;
    for (int i = 0; i < buttons.count; ++i) {
        if (i) menu += "  ";
        menu += "[" + std::to_string(i + 1) + "] " + toUtf8(answerLabel(buttons.answers[i]));
    }
    std::fprintf(out_, "\n== %s ==\n%s\n%s > ", toUtf8(title).c_str(), toUtf8(prompt).c_str(), menu.c_str());
    std::fflush(out_);

    char line[256];
    while (std::fgets(line, sizeof line, in_)) {
        std::string answer(line);
        while (!answer.empty() && (answer.back() == '\n' || answer.back() == '\r' || answer.back() == ' '))
            answer.pop_back();
        if (answer.empty()) return buttons.defaultAnswer;
        if (answer.size() == 1 && answer[0] >= '1' && answer[0] < '1' + buttons.count)
            return buttons.answers[answer[0] - '1'];
        for (int i = 0; i < buttons.count; ++i)
            if (textEquals(fromUtf8(answer), answerLabel(buttons.answers[i]))) return buttons.answers[i];
        std::fprintf(out_, "%s > ", menu.c_str());
        std::fflush(out_);
    }
    return buttons.defaultAnswer;  // end of input: as if closed on the default button
}

}  // namespace telvaro::posix

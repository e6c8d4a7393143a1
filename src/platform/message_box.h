// Message boxes as the library shows them: a prompt, a numeric style (the
// platform's message-box flags) and a title; the answer is the code of the
// button pressed. Implementations: a real box on Windows, the terminal on
// Linux, scripted answers in batch, recording fakes in tests.
#pragma once

#include "runtime/ustring.h"

namespace telvaro {

namespace msgbox {
// Button sets (style & 0xF).
inline constexpr int OkOnly = 0;
inline constexpr int OkCancel = 1;
inline constexpr int AbortRetryIgnore = 2;
inline constexpr int YesNoCancel = 3;
inline constexpr int YesNo = 4;
inline constexpr int RetryCancel = 5;
// Icons.
inline constexpr int Critical = 16;
inline constexpr int Question = 32;
inline constexpr int Exclamation = 48;
inline constexpr int Information = 64;
// Answers.
inline constexpr int Ok = 1;
inline constexpr int Cancel = 2;
inline constexpr int Abort = 3;
inline constexpr int Retry = 4;
inline constexpr int Ignore = 5;
inline constexpr int Yes = 6;
inline constexpr int No = 7;
}  // namespace msgbox

// The answer codes of the buttons a style shows, in order, and the
// default one (the first button unless the style names another).
struct ButtonSet {
    int answers[3] = {msgbox::Ok, 0, 0};
    int count = 1;
    int defaultAnswer = msgbox::Ok;
};
ButtonSet buttonsOf(int style);
// The answer of a box that is closed rather than answered: Cancel when it
// has that button, else No, else OK, else Abort.
int closingAnswer(int style);
// The label of an answer code ("OK", "Sí", "No", "Cancelar", ...).
String answerLabel(int answer);

class MessageBoxService {
public:
    virtual ~MessageBoxService() = default;
    virtual int show(StringView prompt, int style, StringView title) = 0;
};

}  // namespace telvaro

#include "context/fun.h"

#include "context/thread_state.h"

namespace telvaro {

int Fun::showMessage(StringView prompt, int style, StringView title) const {
    if (threadState().messageBoxCapture) return closingAnswer(style);
    return platform_->messageBoxes().show(prompt, style, title);
}

}  // namespace telvaro

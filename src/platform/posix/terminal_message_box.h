// Message boxes on a terminal: the title, the prompt and the buttons on
// stderr, the answer read from stdin. When stdin is not a terminal the box
// answers its default button at once, so scripts never hang, and says so on
// stderr: its title, its prompt and the answer taken.
#pragma once

#include <cstdio>

#include "platform/message_box.h"

namespace telvaro::posix {

class TerminalMessageBox : public MessageBoxService {
public:
    TerminalMessageBox(std::FILE* in = stdin, std::FILE* out = stderr, bool forceInteractive = false);
    int show(StringView prompt, int style, StringView title) override;

private:
    bool interactive() const;

    std::FILE* in_;
    std::FILE* out_;
    bool forceInteractive_;
};

}  // namespace telvaro::posix

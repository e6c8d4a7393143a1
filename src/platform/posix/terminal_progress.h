// The progress form on a terminal: while the form is shown, one line on
// stderr that is redrawn in place, at most ten times a second (and once
// more when the bar is full):
//
//     Progreso . . . [############............]  50%  500 de 1000  100/s  quedan 0:05
//
// the form's caption without its trailing "(n de m)", the bar, the share
// done, the count, the rate since the form was shown and the time left at
// that rate (on a narrow terminal the rate, the time left and the title give
// way, in that order). Hiding or unloading the form erases the line. When stderr is
// no terminal (a pipe, a file, `batch`) nothing is drawn.
#pragma once

#include <chrono>
#include <cstdio>
#include <string>

#include "platform/progress_display.h"

namespace telvaro::posix {

struct ProgressLine {
    String caption;
    double min = 0, max = 100, value = 0;
    double elapsedSeconds = 0;  // since the form was shown
    double doneWhenShown = 0;   // the bar's value then, for the rate
    int width = 80;             // of the terminal, in columns
};

// The text of the line, at most `width` - 1 columns.
std::string progressLineText(const ProgressLine& line);

class TerminalProgressDisplay : public ProgressDisplay {
public:
    // Draws on `out` when it is a terminal, or always with `forceTerminal`.
    explicit TerminalProgressDisplay(std::FILE* out = stderr, bool forceTerminal = false);
    std::unique_ptr<ProgressWindow> open(const ProgressDesign& design) override;

private:
    std::FILE* out_;
    bool forceTerminal_;
};

}  // namespace telvaro::posix

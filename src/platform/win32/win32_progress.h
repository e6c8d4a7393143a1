// The progress form on Windows: a small modeless window of its own class,
// with the form's caption and a progress bar (the common control), owned by
// the caller's active window so that it floats above the caller's form.
// Changes repaint the window at once (UpdateWindow sends the paint to this
// window only); no message loop is pumped, so none of the caller's event
// handlers runs while a method fills a grid. A window that cannot be made
// (no desktop) leaves the form working unseen.
#pragma once

#include "platform/progress_display.h"

namespace telvaro::win32 {

class Win32ProgressDisplay : public ProgressDisplay {
public:
    std::unique_ptr<ProgressWindow> open(const ProgressDesign& design) override;
};

}  // namespace telvaro::win32

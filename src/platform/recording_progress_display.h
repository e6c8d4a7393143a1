// A progress display that shows nothing and writes down what its windows
// were told, in order, one entry a call:
//
//     "Load", "PB.Value=0", "PB.Max=3", "Show", "ZOrder 0",
//     "Caption=Progreso . . .      (1 de 3)", "Hide", "Unload"
//
// Numbers are written as the runtime writes a Double. `batch` answers with
// the entries of each request, and the tests check a method's sequence
// with them.
#pragma once

#include <memory>
#include <vector>

#include "platform/progress_display.h"

namespace telvaro {

class RecordingProgressDisplay : public ProgressDisplay {
public:
    std::unique_ptr<ProgressWindow> open(const ProgressDesign& design) override;

    // Every entry so far, oldest first, and the same while emptying the list.
    const std::vector<String>& entries() const { return *entries_; }
    std::vector<String> take();

private:
    std::shared_ptr<std::vector<String>> entries_ = std::make_shared<std::vector<String>>();
};

}  // namespace telvaro

// State the library keeps once per calling thread (the apartment's
// module-level variables): the formula evaluator's last formula and the
// message-box capture. Calls from one client thread share it.
#pragma once

#include "runtime/ustring.h"

namespace telvaro {

struct ThreadState {
    String lastFormula;
    bool messageBoxCapture = false;
};

ThreadState& threadState();

}  // namespace telvaro

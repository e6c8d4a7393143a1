#include "context/thread_state.h"

namespace telvaro {

ThreadState& threadState() {
    thread_local ThreadState state;
    return state;
}

}  // namespace telvaro

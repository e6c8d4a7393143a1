#include "context/frm_prog.h"

#include "context/fun.h"
#include "runtime/error.h"

namespace telvaro {

std::optional<callers::ProgressForm> loadFrmProg(const Fun& fun) {
    try {
        return callers::ProgressForm(fun.platform().objectFactory().create(kFrmProgId));
    } catch (const RuntimeError&) {
        return std::nullopt;
    }
}

}  // namespace telvaro

// The library's progress form frmProg (caption " Progreso . . .", progress
// bar PB), as the grid-filling and export methods reach it. The form is the
// host's: it comes from the platform's create-object service under the
// library's own name "Telvaro.frmProg" (a window on a desktop, a bar on a
// terminal, a recorder in tests). A host that has none gives no form, and
// every step on the form is then a failing statement of a method that skips
// them; the method's own work goes on.
#pragma once

#include <optional>

#include "callers/progress_form.h"

namespace telvaro {

class Fun;

inline constexpr char16_t kFrmProgId[] = u"Telvaro.frmProg";

// A freshly loaded frmProg, or none when the host cannot make one.
std::optional<callers::ProgressForm> loadFrmProg(const Fun& fun);

}  // namespace telvaro

// The library's progress form frmProg, as the methods reach it: a small
// modeless form with the caption " Progreso . . ." and one progress bar PB
// (Min 0, Max 100, Value 0 when loaded). The grid-filling and export
// methods set the bar and the caption, show the form while they work and
// unload it at their end.
//
// The form is loaded on first reference, once per calling thread, through
// the display of the Fun's platform (platform/progress_display.h), and
// stays loaded until it is unloaded: a method that fails while the form is
// shown leaves it on screen, and the next reference finds it as it was. A
// form loaded through another display (another platform, as in the tests
// and in `batch`) is unloaded first and loaded anew.
//
// Members: Caption, Visible, Show [Modal], Hide, ZOrder [Position],
// Unload, PB, Name; the bar's Value, Min and Max (Doubles; its default
// member is Value). A bar value outside Min..Max, or a Max not above Min,
// is error 380 as the progress bar control answers; Show with Modal other
// than 0 is error 5 (the form is never modal); a member of a form already
// unloaded is error 364.
#pragma once

#include "callers/progress_form.h"

namespace telvaro {

class Fun;

inline constexpr const char16_t* kFrmProgCaption = u" Progreso . . .";

// frmProg, loaded if it is not.
callers::ProgressForm frmProg(const Fun& fun);

}  // namespace telvaro

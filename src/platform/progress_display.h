// The screen side of the progress form frmProg: a small modeless window with
// a caption and one progress bar, shown while a long loop (a grid filled
// from a query, a grid or query exported) runs. The form itself, with its
// members, lives in context/frm_prog; it tells its window every change a
// method makes, in the method's order, one call per member.
//
// On Windows the window is a real one; on a terminal it is a bar drawn on
// stderr; `batch` and the tests record the calls instead of showing them
// (RecordingProgressDisplay). A display never pumps the caller's message
// loop: a window repaints itself, nothing else runs.
#pragma once

#include <atomic>
#include <cstdint>
#include <memory>

#include "runtime/ustring.h"

namespace telvaro {

// One loaded frmProg. Destroying it is the form's Unload: the window goes.
class ProgressWindow {
public:
    virtual ~ProgressWindow() = default;

    virtual void setCaption(StringView caption) = 0;  // Caption =
    virtual void setBarMin(double min) = 0;           // PB.Min =
    virtual void setBarMax(double max) = 0;           // PB.Max =
    virtual void setBarValue(double value) = 0;       // PB.Value =
    virtual void show() = 0;                          // Show, Visible = True
    virtual void hide() = 0;                          // Hide, Visible = False
    virtual void zOrder(std::int32_t position) = 0;   // ZOrder: 0 to the front, 1 to the back
};

// The state a form is loaded with (its design).
struct ProgressDesign {
    String caption;
    double min = 0;
    double max = 100;
    double value = 0;
};

class ProgressDisplay {
public:
    virtual ~ProgressDisplay() = default;

    // A new window for a form being loaded, hidden, in the form's design.
    virtual std::unique_ptr<ProgressWindow> open(const ProgressDesign& design) = 0;

    // Distinct for every display made in the process: a form knows the
    // display that loaded it by this number, never by an address that a
    // later display may reuse.
    std::uint64_t serial() const { return serial_; }

private:
    static std::uint64_t nextSerial() {
        static std::atomic<std::uint64_t> next{1};
        return next++;
    }
    std::uint64_t serial_ = nextSerial();
};

// A display where nothing is seen: the form still keeps its state.
class SilentProgressDisplay : public ProgressDisplay {
public:
    std::unique_ptr<ProgressWindow> open(const ProgressDesign& design) override;
};

}  // namespace telvaro

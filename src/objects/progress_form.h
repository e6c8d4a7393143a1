// The library's progress form frmProg on Linux: a caption and one progress
// bar PB (Min, Max, Value). Show makes it visible, Unload hides it and
// puts the bar back; ZOrder is accepted (there is no window to raise).
// While visible it is drawn as one line on a terminal when it is given one
// (the host gives stderr only when stderr is a terminal), redrawn only when
// the bar's whole percentage changes, and the line is cleared on Unload.
// Like every library object it records the members called on it.
#pragma once

#include <cstdio>
#include <functional>
#include <memory>

#include "objects/caller_object.h"

namespace telvaro::objects {

class ProgressBar : public CallerObject {
public:
    String typeName() const override { return u"ProgressBar"; }

    double min = 0;
    double max = 100;
    double value = 0;
    // Called after Value, Min or Max changes.
    std::function<void()> changed;

protected:
    const MemberTable& members() const override;
    int defaultMember() const override;
    Variant dispatch(int id, const MemberCall& call) override;
};

class ProgressForm : public CallerObject {
public:
    // `terminal` is where the form is drawn, or nullptr for nowhere. A
    // form made for a host records nothing (`recording` false), so a long
    // export does not grow its record of calls.
    explicit ProgressForm(std::FILE* terminal = nullptr, bool recording = true);
    ~ProgressForm() override;

    String typeName() const override { return u"frmProg"; }

    String caption = u" Progreso . . .";
    bool visible = false;
    const std::shared_ptr<ProgressBar>& bar() const { return bar_; }

protected:
    const MemberTable& members() const override;
    Variant dispatch(int id, const MemberCall& call) override;

private:
    void draw(bool force);
    void clearLine();

    std::shared_ptr<ProgressBar> bar_ = std::make_shared<ProgressBar>();
    std::FILE* terminal_;
    int drawnPercent_ = -1;
    bool lineShown_ = false;
};

}  // namespace telvaro::objects

#include "objects/progress_form.h"

#include <cmath>
#include <string>

#include "runtime/error.h"

namespace telvaro::objects {

namespace {

enum class BarMember { Value = 0, Min, Max };
enum class FormMember { Caption = 0, PB, Show, ZOrder, Unload, Visible };

constexpr int kBarWidth = 30;

}  // namespace

const MemberTable& ProgressBar::members() const {
    static const MemberTable table({u"Value", u"Min", u"Max"});
    return table;
}

int ProgressBar::defaultMember() const { return static_cast<int>(BarMember::Value); }

Variant ProgressBar::dispatch(int id, const MemberCall& call) {
    const auto notify = [&] {
        if (changed) changed();
    };
    switch (static_cast<BarMember>(id)) {
        case BarMember::Value:
            return property(
                call, [&] { return Variant(value); },
                [&](const Variant& v) {
                    const double d = doubleValue(v);
                    // A value outside Min..Max is refused, as the bar control does.
                    if (!(d >= min && d <= max)) raise(err::InvalidPropertyValue);
                    value = d;
                    notify();
                });
        case BarMember::Min:
            return property(
                call, [&] { return Variant(min); },
                [&](const Variant& v) {
                    const double d = doubleValue(v);
                    if (!std::isfinite(d) || d > max) raise(err::InvalidPropertyValue);
                    min = d;
                    if (value < min) value = min;
                    notify();
                });
        case BarMember::Max:
            return property(
                call, [&] { return Variant(max); },
                [&](const Variant& v) {
                    const double d = doubleValue(v);
                    if (!std::isfinite(d) || d < min) raise(err::InvalidPropertyValue);
                    max = d;
                    if (value > max) value = max;
                    notify();
                });
    }
    raiseNoSuchMember();
}

ProgressForm::ProgressForm(std::FILE* terminal, bool recording) : terminal_(terminal) {
    bar_->changed = [this] { draw(false); };
    setRecording(recording);
    bar_->setRecording(recording);
}

ProgressForm::~ProgressForm() {
    bar_->changed = nullptr;  // the bar may outlive the form
    clearLine();
}

const MemberTable& ProgressForm::members() const {
    static const MemberTable table({u"Caption", u"PB", u"Show", u"ZOrder", u"Unload", u"Visible"});
    return table;
}

Variant ProgressForm::dispatch(int id, const MemberCall& call) {
    switch (static_cast<FormMember>(id)) {
        case FormMember::Caption:
            return property(
                call, [&] { return Variant(caption); },
                [&](const Variant& v) {
                    caption = textValue(v);
                    draw(false);  // the line follows the bar, not every caption
                });
        case FormMember::PB: return readOnlyProperty(call, [&] { return Variant(ObjectRef(bar_)); });
        case FormMember::Show: {
            auto args = call.arguments(0, 2);
            // Show 1 (modal) would wait for the user: a progress form is
            // only ever shown modeless.
            if (!args.empty() && !args[0].isMissing() && integerValue(args[0]) != 0) raise(err::InvalidProcedureCall);
            visible = true;
            draw(true);
            return {};
        }
        case FormMember::ZOrder: call.arguments(0, 1); return {};
        case FormMember::Unload:
            call.arguments(0, 0);
            visible = false;
            clearLine();  // each load is a new form: this one keeps its last state
            return {};
        case FormMember::Visible:
            return property(
                call, [&] { return Variant(Boolean(visible)); },
                [&](const Variant& v) {
                    visible = booleanValue(v).isTrue();
                    if (visible)
                        draw(true);
                    else
                        clearLine();
                });
    }
    raiseNoSuchMember();
}

void ProgressForm::draw(bool force) {
    if (!terminal_ || !visible) return;
    const double span = bar_->max - bar_->min;
    const int percent = span > 0 ? static_cast<int>((bar_->value - bar_->min) * 100 / span) : 0;
    if (!force && percent == drawnPercent_) return;
    drawnPercent_ = percent;
    const int filled = percent * kBarWidth / 100;
    const std::string line = "\r\033[K" + toUtf8(caption) + " [" + std::string(static_cast<std::size_t>(filled), '#') +
                             std::string(static_cast<std::size_t>(kBarWidth - filled), ' ') + "] " +
                             std::to_string(percent) + "%";
    std::fputs(line.c_str(), terminal_);
    std::fflush(terminal_);
    lineShown_ = true;
}

void ProgressForm::clearLine() {
    if (!terminal_ || !lineShown_) return;
    std::fputs("\r\033[K", terminal_);
    std::fflush(terminal_);
    lineShown_ = false;
    drawnPercent_ = -1;
}

}  // namespace telvaro::objects

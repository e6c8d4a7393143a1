#include "context/frm_prog.h"

#include "context/fun.h"
#include "runtime/convert.h"
#include "runtime/error.h"
#include "runtime/text.h"

namespace telvaro {

namespace {

constexpr int kObjectWasUnloaded = 364;

// One call of a member, with the checks the form's members share.
struct Call {
    StringView member;
    InvokeKind kind;
    std::span<Variant> args;

    bool is(StringView name) const { return textEquals(member, name); }
    bool isPut() const { return kind == InvokeKind::PropertyPut || kind == InvokeKind::PropertyPutRef; }
    // A property without indices: its value when assigned, nothing when read.
    const Variant* property() const {
        if (args.size() != (isPut() ? 1u : 0u)) raise(err::WrongNumberOfArguments);
        return isPut() ? &args[0] : nullptr;
    }
    void readOnly() const {
        if (isPut()) raise(383, String(u"'") + String(member) + u"' property is read-only");
        property();
    }
    // A method's optional argument; `fallback` when it is left out.
    Variant optionalArgument(const Variant& fallback) const {
        if (isPut()) raiseNoSuchMember();
        if (args.size() > 1) raise(err::WrongNumberOfArguments);
        return args.empty() || args[0].isMissing() ? fallback : args[0];
    }
    void noArguments() const {
        if (isPut()) raiseNoSuchMember();
        if (!args.empty()) raise(err::WrongNumberOfArguments);
    }
};

class FrmProg;

// The progress bar PB of the form: Value, Min and Max.
class ProgressBar : public Object {
public:
    explicit ProgressBar(std::weak_ptr<FrmProg> form) : form_(std::move(form)) {}
    Variant invoke(StringView member, InvokeKind kind, std::span<Variant> args) override;
    String typeName() const override { return u"ProgressBar"; }

private:
    std::weak_ptr<FrmProg> form_;
};

class FrmProg : public Object {
public:
    explicit FrmProg(ProgressDisplay& display) : serial_(display.serial()) {
        ProgressDesign design;
        design.caption = kFrmProgCaption;
        caption_ = design.caption;
        window_ = display.open(design);
    }

    Variant invoke(StringView member, InvokeKind kind, std::span<Variant> args) override {
        loadedOrRaise();
        const Call call{member, kind, args};
        if (call.is(u"Caption")) {
            if (const Variant* value = call.property()) {
                caption_ = toString(*value);
                window_->setCaption(caption_);
                return {};
            }
            return Variant(caption_);
        }
        if (call.is(u"Visible")) {
            if (const Variant* value = call.property()) {
                toBoolean(*value).isTrue() ? show() : hide();
                return {};
            }
            return Variant(Boolean(visible_));
        }
        if (call.is(u"Show")) {
            if (toLong(call.optionalArgument(Variant(std::int32_t(0)))) != 0) raise(err::InvalidProcedureCall);
            show();
            return {};
        }
        if (call.is(u"Hide")) {
            call.noArguments();
            hide();
            return {};
        }
        if (call.is(u"ZOrder")) {
            const std::int32_t position = toLong(call.optionalArgument(Variant(std::int32_t(0))));
            if (position != 0 && position != 1) raise(err::InvalidProcedureCall);
            window_->zOrder(position);
            return {};
        }
        if (call.is(u"Unload")) {
            call.noArguments();
            unload();
            return {};
        }
        if (call.is(u"PB")) {
            call.readOnly();
            if (!bar_) bar_ = std::make_shared<ProgressBar>(std::static_pointer_cast<FrmProg>(shared_from_this()));
            return Variant(bar_);
        }
        if (call.is(u"Name")) {
            call.readOnly();
            return Variant(String(u"frmProg"));
        }
        raiseNoSuchMember();
    }

    String typeName() const override { return u"frmProg"; }

    bool loaded() const { return window_ != nullptr; }
    std::uint64_t serial() const { return serial_; }
    // The window closes and the bar is forgotten with the form.
    void unload() {
        window_.reset();
        bar_.reset();
    }

    void loadedOrRaise() const {
        if (!window_) raise(kObjectWasUnloaded, u"Object was unloaded");
    }

    // The bar's members, kept by the form with its window.
    Variant barMember(const Call& call) {
        loadedOrRaise();
        if (call.member.empty() || call.is(u"Value")) {
            if (const Variant* value = call.property()) {
                const double v = toDouble(*value);
                if (v < min_ || v > max_) raise(err::InvalidPropertyValue);
                value_ = v;
                window_->setBarValue(v);
                return {};
            }
            return Variant(value_);
        }
        if (call.is(u"Max")) {
            if (const Variant* value = call.property()) {
                const double v = toDouble(*value);
                if (v <= min_) raise(err::InvalidPropertyValue);
                max_ = v;
                window_->setBarMax(v);
                // A value above the new maximum comes down to it, as the control's does.
                if (value_ > max_) value_ = max_;
                return {};
            }
            return Variant(max_);
        }
        if (call.is(u"Min")) {
            if (const Variant* value = call.property()) {
                const double v = toDouble(*value);
                if (v >= max_) raise(err::InvalidPropertyValue);
                min_ = v;
                window_->setBarMin(v);
                if (value_ < min_) value_ = min_;
                return {};
            }
            return Variant(min_);
        }
        raiseNoSuchMember();
    }

private:
    void show() {
        visible_ = true;
        window_->show();
    }
    void hide() {
        visible_ = false;
        window_->hide();
    }

    std::uint64_t serial_;
    String caption_;
    bool visible_ = false;
    double min_ = 0, max_ = 100, value_ = 0;
    std::unique_ptr<ProgressWindow> window_;
    std::shared_ptr<ProgressBar> bar_;
};

Variant ProgressBar::invoke(StringView member, InvokeKind kind, std::span<Variant> args) {
    const auto form = form_.lock();
    if (!form) raise(kObjectWasUnloaded, u"Object was unloaded");
    return form->barMember(Call{member, kind, args});
}

// The form of this thread, while it is loaded.
thread_local std::shared_ptr<FrmProg> loadedForm;

}  // namespace

callers::ProgressForm frmProg(const Fun& fun) {
    ProgressDisplay& display = fun.platform().progressDisplay();
    if (loadedForm && (!loadedForm->loaded() || loadedForm->serial() != display.serial())) {
        loadedForm->unload();
        loadedForm.reset();
    }
    if (!loadedForm) loadedForm = std::make_shared<FrmProg>(display);
    return callers::ProgressForm(ObjectHandle(loadedForm));
}

}  // namespace telvaro

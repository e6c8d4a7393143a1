#include "platform/recording_progress_display.h"

#include "runtime/convert.h"

namespace telvaro {

namespace {

// The window writes into the display's list, which it shares: a form left
// loaded may outlive the display that opened it.
class RecordingWindow : public ProgressWindow {
public:
    explicit RecordingWindow(std::shared_ptr<std::vector<String>> entries) : entries_(std::move(entries)) {
        add(u"Load");
    }
    ~RecordingWindow() override { add(u"Unload"); }

    void setCaption(StringView caption) override { add(u"Caption=" + String(caption)); }
    void setBarMin(double min) override { add(u"PB.Min=" + doubleToString(min)); }
    void setBarMax(double max) override { add(u"PB.Max=" + doubleToString(max)); }
    void setBarValue(double value) override { add(u"PB.Value=" + doubleToString(value)); }
    void show() override { add(u"Show"); }
    void hide() override { add(u"Hide"); }
    void zOrder(std::int32_t position) override { add(u"ZOrder " + toString(Variant(position))); }

private:
    void add(String entry) {
        try {
            entries_->push_back(std::move(entry));
        } catch (...) {
            // A list that cannot grow loses the entry, never the window.
        }
    }
    std::shared_ptr<std::vector<String>> entries_;
};

}  // namespace

std::unique_ptr<ProgressWindow> RecordingProgressDisplay::open(const ProgressDesign&) {
    return std::make_unique<RecordingWindow>(entries_);
}

std::vector<String> RecordingProgressDisplay::take() {
    std::vector<String> out;
    out.swap(*entries_);
    return out;
}

}  // namespace telvaro

#include "platform/progress_display.h"

namespace telvaro {

namespace {

class SilentWindow : public ProgressWindow {
public:
    void setCaption(StringView) override {}
    void setBarMin(double) override {}
    void setBarMax(double) override {}
    void setBarValue(double) override {}
    void show() override {}
    void hide() override {}
    void zOrder(std::int32_t) override {}
};

}  // namespace

std::unique_ptr<ProgressWindow> SilentProgressDisplay::open(const ProgressDesign&) {
    return std::make_unique<SilentWindow>();
}

}  // namespace telvaro

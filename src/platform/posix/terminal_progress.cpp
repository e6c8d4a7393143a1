#include "platform/posix/terminal_progress.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <cmath>

#include "runtime/text.h"

namespace telvaro::posix {

namespace {

using Clock = std::chrono::steady_clock;
constexpr auto kRedrawEvery = std::chrono::milliseconds(100);

// The caption as a title: without a trailing "(...)", which repeats the count.
std::string titleOf(StringView caption) {
    String title(caption);
    if (!title.empty() && title.back() == u')') {
        const auto open = title.rfind(u'(');
        if (open != String::npos) title.erase(open);
    }
    return toUtf8(trim(title));
}

std::string wholeNumber(double d) {
    if (!std::isfinite(d)) return "?";
    char buffer[40];
    std::snprintf(buffer, sizeof buffer, "%.0f", d);
    return buffer;
}

std::string duration(double seconds) {
    if (!std::isfinite(seconds) || seconds < 0 || seconds > 359999) return "--:--";
    const auto s = static_cast<long>(std::lround(seconds));
    char buffer[32];
    if (s >= 3600)
        std::snprintf(buffer, sizeof buffer, "%ld:%02ld:%02ld", s / 3600, s / 60 % 60, s % 60);
    else
        std::snprintf(buffer, sizeof buffer, "%ld:%02ld", s / 60, s % 60);
    return buffer;
}

// The columns a UTF-8 text takes: one a character.
int columns(const std::string& text) {
    int n = 0;
    for (const char c : text) n += (static_cast<unsigned char>(c) & 0xC0) != 0x80;
    return n;
}

int terminalWidth(std::FILE* out) {
    winsize size{};
    if (ioctl(fileno(out), TIOCGWINSZ, &size) == 0 && size.ws_col > 0) return size.ws_col;
    return 80;
}

class TerminalWindow : public ProgressWindow {
public:
    TerminalWindow(std::FILE* out, const ProgressDesign& design) : out_(out) {
        line_.caption = design.caption;
        line_.min = design.min;
        line_.max = design.max;
        line_.value = design.value;
    }
    ~TerminalWindow() override { erase(); }

    void setCaption(StringView caption) override {
        line_.caption = String(caption);
        changed();
    }
    void setBarMin(double min) override {
        line_.min = min;
        changed();
    }
    void setBarMax(double max) override {
        line_.max = max;
        changed();
    }
    void setBarValue(double value) override {
        line_.value = value;
        changed();
    }
    void show() override {
        if (visible_) return;
        visible_ = true;
        shownAt_ = Clock::now();
        line_.doneWhenShown = line_.value;
        draw(shownAt_);
    }
    void hide() override {
        erase();
        visible_ = false;
    }
    void zOrder(std::int32_t) override {}

private:
    void changed() {
        if (!visible_) return;
        const auto now = Clock::now();
        // The last step is drawn whatever the time, so a finished bar is seen full.
        if (now - drawnAt_ >= kRedrawEvery || line_.value >= line_.max) draw(now);
    }

    void draw(Clock::time_point now) {
        drawnAt_ = now;
        line_.elapsedSeconds = std::chrono::duration<double>(now - shownAt_).count();
        line_.width = terminalWidth(out_);
        std::fprintf(out_, "\r%s\033[K", progressLineText(line_).c_str());
        std::fflush(out_);
        drawn_ = true;
    }

    void erase() {
        if (!drawn_) return;
        std::fputs("\r\033[K", out_);
        std::fflush(out_);
        drawn_ = false;
    }

    std::FILE* out_;
    ProgressLine line_;
    bool visible_ = false, drawn_ = false;
    Clock::time_point shownAt_{}, drawnAt_{};
};

}  // namespace

std::string progressLineText(const ProgressLine& line) {
    const double span = line.max - line.min;
    double share = span > 0 ? (line.value - line.min) / span : 0;
    if (!std::isfinite(share)) share = 0;
    share = std::clamp(share, 0.0, 1.0);

    const double done = line.value - line.doneWhenShown;
    const double rate = line.elapsedSeconds > 0.05 && done > 0 ? done / line.elapsedSeconds : 0;
    char rateText[40];
    if (rate >= 10 || rate == 0)
        std::snprintf(rateText, sizeof rateText, "%.0f/s", rate);
    else
        std::snprintf(rateText, sizeof rateText, "%.1f/s", rate);
    const std::string left = rate > 0 ? duration((line.max - line.value) / rate) : "--:--";

    char percent[8];
    std::snprintf(percent, sizeof percent, "%3d%%", static_cast<int>(share * 100));
    const std::string count =
        std::string(" ") + percent + "  " + wholeNumber(line.value) + " de " + wholeNumber(line.max);
    // On a narrow terminal the rate goes first, then the time left, then
    // the title gives way.
    const int width = std::max(line.width, 20) - 1;
    std::string title = titleOf(line.caption);
    const int titleWidth = columns(title);
    std::string tail = count + "  " + rateText + "  quedan " + left;
    if (titleWidth + static_cast<int>(tail.size()) + 13 > width) tail = count + "  quedan " + left;
    if (titleWidth + static_cast<int>(tail.size()) + 13 > width) tail = count;

    // The bar takes what the title and the figures leave, 10 to 40 columns.
    const int fixed = static_cast<int>(tail.size()) + 3;  // " [" and "]"
    int barWidth = std::clamp(width - fixed - titleWidth, 10, 40);
    if (titleWidth + fixed + barWidth > width) {
        // Cut to the room left, on a character boundary of the UTF-8 text.
        int room = std::max(0, width - fixed - barWidth);
        std::size_t cut = 0;
        while (cut < title.size() && room > 0) {
            ++cut;
            while (cut < title.size() && (static_cast<unsigned char>(title[cut]) & 0xC0) == 0x80) ++cut;
            --room;
        }
        title.resize(cut);
    }
    const int filled = static_cast<int>(share * barWidth);
    std::string out = title + " [" + std::string(static_cast<std::size_t>(filled), '#') +
                      std::string(static_cast<std::size_t>(barWidth - filled), '.') + "]" + tail;
    // Never wider than the terminal, or the line would wrap and not be redrawn in place.
    while (columns(out) > width) {
        while (!out.empty() && (static_cast<unsigned char>(out.back()) & 0xC0) == 0x80) out.pop_back();
        if (!out.empty()) out.pop_back();
    }
    return out;
}

TerminalProgressDisplay::TerminalProgressDisplay(std::FILE* out, bool forceTerminal)
    : out_(out), forceTerminal_(forceTerminal) {}

std::unique_ptr<ProgressWindow> TerminalProgressDisplay::open(const ProgressDesign& design) {
    if (!forceTerminal_ && isatty(fileno(out_)) == 0) return SilentProgressDisplay().open(design);
    return std::make_unique<TerminalWindow>(out_, design);
}

}  // namespace telvaro::posix

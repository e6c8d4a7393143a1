// A capture of the whole 1024 x 768 screen of a virtual X server (started
// here with Xvfb, as the tests do), through the frame as a caller makes it,
// against the direct way: one XGetImage of the screen and its pixels turned
// into 0xAARRGGBB by their masks.
#include <benchmark/benchmark.h>

#include <cstdlib>
#include <memory>
#include <vector>

#include "context/fun.h"
#include "forms/xvfb.h"
#include "frame/invoke.h"
#include "host/default_platform.h"

#include <X11/Xlib.h>
#include <X11/Xutil.h>

namespace telvaro {
namespace {

constexpr int kWidth = 1024, kHeight = 768;

// The server for the whole run, and $DISPLAY naming it.
const std::string& displayName() {
    static pid_t server = -1;
    static const std::string display = [] {
        const std::string name = testing::startXvfb(server);
        if (!name.empty()) ::setenv("DISPLAY", name.c_str(), 1);
        std::atexit([] { testing::stopXvfb(server); });
        return name;
    }();
    return display;
}

void captureLibrary(benchmark::State& state) {
    if (displayName().empty()) return state.SkipWithError("Xvfb did not start");
    Fun fun(defaultPlatform());
    for (auto _ : state) {
        std::vector<Variant> args = {Variant(std::int32_t{0}),           Variant(Boolean(false)),
                                     Variant(std::int32_t{0}),           Variant(std::int32_t{0}),
                                     Variant(std::int32_t{kWidth * 15}), Variant(std::int32_t{kHeight * 15})};
        Variant picture = invoke(fun, std::string_view("imgCaptureWindow"), args);
        benchmark::DoNotOptimize(picture);
    }
    state.SetItemsProcessed(state.iterations() * kWidth * kHeight);
}
BENCHMARK(captureLibrary)->Name("imgCaptureWindow screen/library")->Unit(benchmark::kMillisecond);

void captureDirect(benchmark::State& state) {
    if (displayName().empty()) return state.SkipWithError("Xvfb did not start");
    ::Display* d = XOpenDisplay(displayName().c_str());
    Visual* visual = DefaultVisual(d, DefaultScreen(d));
    for (auto _ : state) {
        XImage* image = XGetImage(d, DefaultRootWindow(d), 0, 0, kWidth, kHeight, AllPlanes, ZPixmap);
        std::vector<std::uint32_t> pixels(static_cast<std::size_t>(kWidth) * kHeight);
        for (int y = 0; y < kHeight; ++y)
            for (int x = 0; x < kWidth; ++x) {
                const unsigned long v = XGetPixel(image, x, y);
                pixels[static_cast<std::size_t>(y) * kWidth + static_cast<std::size_t>(x)] =
                    0xFF000000u |
                    static_cast<std::uint32_t>(v & (visual->red_mask | visual->green_mask | visual->blue_mask));
            }
        XDestroyImage(image);
        benchmark::DoNotOptimize(pixels.data());
    }
    XCloseDisplay(d);
    state.SetItemsProcessed(state.iterations() * kWidth * kHeight);
}
BENCHMARK(captureDirect)->Name("imgCaptureWindow screen/direct")->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace telvaro

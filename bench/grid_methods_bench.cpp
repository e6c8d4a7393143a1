// The grid methods over a 100,000-row grid of the library's own, called
// through the frame as a caller calls them, against a loop that makes the
// same member calls in the same order through the same Object interface.
#include <benchmark/benchmark.h>

#include "context/frm_dll.h"
#include "context/fun.h"
#include "frame/invoke.h"
#include "host/default_platform.h"
#include "objects/flex_grid.h"
#include "runtime/convert.h"
#include "runtime/text.h"

namespace telvaro {
namespace {

using objects::FlexGrid;

constexpr std::int32_t kRows = 100'000;
constexpr std::int32_t kWindowBackground = static_cast<std::int32_t>(0x80000005u);
constexpr std::int32_t kWindowText = static_cast<std::int32_t>(0x80000008u);

std::shared_ptr<FlexGrid> checkGrid() {
    auto grid = std::make_shared<FlexGrid>(u"grd", kRows, 3);
    for (std::int32_t r = 1; r < kRows; ++r) grid->setTextMatrix(r, 1, r % 2 ? u"1" : u"0");
    return grid;
}

void paintColumnLibrary(benchmark::State& state) {
    Fun fun(defaultPlatform());
    auto grid = std::make_shared<FlexGrid>(u"grd", kRows, 3);
    for (auto _ : state) {
        std::vector<Variant> args = {Variant(ObjectRef(grid)), Variant(std::int16_t{1})};
        invoke(fun, std::string_view("fn_PintaColumnaGrid"), args);
        state.PauseTiming();
        grid->clearCalls();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * (kRows - 1));
}
BENCHMARK(paintColumnLibrary)->Name("fn_PintaColumnaGrid/library")->Unit(benchmark::kMillisecond);

void paintColumnDirect(benchmark::State& state) {
    auto grid = std::make_shared<FlexGrid>(u"grd", kRows, 3);
    Object& object = *grid;
    for (auto _ : state) {
        const std::int32_t last = toLong(object.get(u"Rows")) - 1;
        const Variant col = toLong(object.get(u"Col"));
        const Variant row = toLong(object.get(u"Row"));
        object.put(u"Col", Variant(std::int16_t{1}));
        for (std::int32_t r = 1; r <= last; ++r) {
            object.put(u"Row", Variant(r));
            object.put(u"CellBackColor", Variant(kWindowBackground));
            object.put(u"CellForeColor", Variant(kWindowText));
        }
        object.put(u"Col", col);
        object.put(u"Row", row);
        state.PauseTiming();
        grid->clearCalls();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * (kRows - 1));
}
BENCHMARK(paintColumnDirect)->Name("fn_PintaColumnaGrid/direct")->Unit(benchmark::kMillisecond);

void checkColumnLibrary(benchmark::State& state) {
    Fun fun(defaultPlatform());
    auto grid = checkGrid();
    for (auto _ : state) {
        std::vector<Variant> args = {Variant(ObjectRef(grid)), Variant(std::int16_t{1})};
        invoke(fun, std::string_view("fn_PoneCheckColumnaGrid"), args);
        state.PauseTiming();
        grid->clearCalls();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * (kRows - 1));
}
BENCHMARK(checkColumnLibrary)->Name("fn_PoneCheckColumnaGrid/library")->Unit(benchmark::kMillisecond);

void checkColumnDirect(benchmark::State& state) {
    Fun fun(defaultPlatform());
    auto grid = checkGrid();
    Object& object = *grid;
    const Variant pictures[] = {
        frmDllPicture(fun, CheckBoxPicture::CheckedDisabled), frmDllPicture(fun, CheckBoxPicture::UncheckedDisabled),
        frmDllPicture(fun, CheckBoxPicture::Checked), frmDllPicture(fun, CheckBoxPicture::Unchecked)};
    const String values[] = {u"11", u"10", u"1", u"0"};
    for (auto _ : state) {
        const Variant col = toLong(object.get(u"Col"));
        const Variant row = toLong(object.get(u"Row"));
        object.put(u"Redraw", Variant(False));
        const std::int32_t last = toLong(object.get(u"Rows")) - 1;
        object.put(u"Col", Variant(std::int16_t{1}));
        for (std::int32_t r = 1; r <= last; ++r) {
            object.put(u"Row", Variant(r));
            object.put(u"CellForeColor", Variant(kWindowBackground));
            object.put(u"CellFontBold", Variant(False));
            object.put(u"CellFontName", Variant(u"Small Fonts"));
            object.put(u"CellFontSize", Variant(std::int16_t{1}));
            object.put(u"CellAlignment", Variant(std::int16_t{6}));
            for (int i = 0; i < 4; ++i) {
                if (textEquals(toString(object.get(u"TextMatrix", {Variant(r), Variant(std::int16_t{1})})),
                               values[i])) {
                    Variant set[] = {pictures[i]};
                    object.invoke(u"CellPicture", InvokeKind::PropertyPutRef, set);
                }
            }
            object.put(u"CellPictureAlignment", Variant(std::int16_t{4}));
        }
        object.put(u"Col", col);
        object.put(u"Row", row);
        object.put(u"Redraw", Variant(True));
        state.PauseTiming();
        grid->clearCalls();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * (kRows - 1));
}
BENCHMARK(checkColumnDirect)->Name("fn_PoneCheckColumnaGrid/direct")->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace telvaro

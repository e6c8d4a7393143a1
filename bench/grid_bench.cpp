// The flexible grid: painting a column's CellBackColor row by row through
// the late-bound members (as the grid methods do it) against the grid's own
// C++ calls; and the memory a large grid of short texts takes when 1% of
// its cells are formatted.
#include <benchmark/benchmark.h>
#include <malloc.h>

#include <string>

#include "objects/flex_grid.h"

namespace telvaro {
namespace {

using objects::FlexGrid;

constexpr std::int32_t kRows = 100'000;

void paintColumnByName(benchmark::State& state) {
    auto grid = std::make_shared<FlexGrid>(u"grd", kRows, 3);
    Object& object = *grid;
    std::int32_t color = 1;
    for (auto _ : state) {
        object.put(u"Col", Variant(std::int32_t(1)));
        for (std::int32_t r = 1; r < kRows; ++r) {
            object.put(u"Row", Variant(r));
            object.put(u"CellBackColor", Variant(color));
        }
        ++color;
        state.PauseTiming();
        grid->clearCalls();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * (kRows - 1));
}
BENCHMARK(paintColumnByName)->Name("grid CellBackColor column/library")->Unit(benchmark::kMillisecond);

void paintColumnDirect(benchmark::State& state) {
    FlexGrid grid(u"grd", kRows, 3);
    std::int32_t color = 1;
    for (auto _ : state) {
        grid.setCol(1);
        for (std::int32_t r = 1; r < kRows; ++r) {
            grid.setRow(r);
            grid.setCellBackColor(color);
        }
        ++color;
    }
    state.SetItemsProcessed(state.iterations() * (kRows - 1));
}
BENCHMARK(paintColumnDirect)->Name("grid CellBackColor column/direct")->Unit(benchmark::kMillisecond);

// Bytes in use on the heap, small blocks and mapped large ones.
std::size_t heapInUse() {
    const auto info = mallinfo2();
    return info.uordblks + info.hblkhd;
}

// A 100,000 x 10 grid of short texts ("R123C4"), one cell in a hundred with
// a back colour and bold letters: the heap it takes, per cell, beside a
// plain table of the same texts.
void gridMemory(benchmark::State& state) {
    constexpr std::int32_t cols = 10;
    double perCell = 0, plainPerCell = 0;
    for (auto _ : state) {
        const std::size_t before = heapInUse();
        {
            FlexGrid grid(u"grd", kRows, cols);
            for (std::int32_t r = 0; r < kRows; ++r)
                for (std::int32_t c = 0; c < cols; ++c) {
                    grid.setTextMatrix(r, c, u"R" + ascii(std::to_string(r % 1000)) + u"C" + ascii(std::to_string(c)));
                    if ((r * cols + c) % 100 == 7) {
                        grid.formatCell(r, c, [](objects::CellFormat& f) {
                            f.backColor = 0xC0C0C0;
                            f.fontBold = true;
                        });
                    }
                }
            perCell = static_cast<double>(heapInUse() - before) / (double(kRows) * cols);
            benchmark::DoNotOptimize(grid.rows());
        }
        const std::size_t plainBefore = heapInUse();
        {
            std::vector<String> plain(static_cast<std::size_t>(kRows) * cols);
            for (std::int32_t r = 0; r < kRows; ++r)
                for (std::int32_t c = 0; c < cols; ++c)
                    plain[static_cast<std::size_t>(r) * cols + static_cast<std::size_t>(c)] =
                        u"R" + ascii(std::to_string(r % 1000)) + u"C" + ascii(std::to_string(c));
            plainPerCell = static_cast<double>(heapInUse() - plainBefore) / (double(kRows) * cols);
            benchmark::DoNotOptimize(plain.data());
        }
    }
    state.counters["bytes_per_cell"] = perCell;
    state.counters["plain_texts_bytes_per_cell"] = plainPerCell;
}
BENCHMARK(gridMemory)->Name("grid 100000x10 1% formatted memory")->Iterations(1)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace telvaro

#include "objects/grid_cell_format.h"

#include <algorithm>

namespace telvaro::objects {

namespace {

template <typename Cells>
auto lowerBound(Cells& cells, std::int32_t col) {
    return std::lower_bound(cells.begin(), cells.end(), col,
                            [](const auto& cell, std::int32_t c) { return cell.first < c; });
}

}  // namespace

const CellFormat* RowFormats::find(std::int32_t col) const {
    auto it = lowerBound(cells, col);
    return it != cells.end() && it->first == col ? &it->second : nullptr;
}

CellFormat& RowFormats::obtain(std::int32_t col) {
    auto it = lowerBound(cells, col);
    if (it == cells.end() || it->first != col) it = cells.insert(it, {col, CellFormat{}});
    return it->second;
}

void RowFormats::erase(std::int32_t col) {
    auto it = lowerBound(cells, col);
    if (it != cells.end() && it->first == col) cells.erase(it);
}

void RowFormats::truncate(std::int32_t cols) { cells.erase(lowerBound(cells, cols), cells.end()); }

}  // namespace telvaro::objects

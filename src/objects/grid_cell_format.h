// The formatting of one grid cell: only what was set on it. A cell nobody
// formatted has no CellFormat at all, so a large grid of plain text costs
// its texts and nothing more.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "runtime/object.h"

namespace telvaro::objects {

struct CellFormat {
    std::optional<std::int32_t> backColor;  // 0 means the grid's own colour, as unset
    std::optional<std::int32_t> foreColor;
    std::optional<std::int16_t> alignment;
    std::optional<String> fontName;
    std::optional<double> fontSize;
    std::optional<bool> fontBold;
    std::optional<bool> fontItalic;
    std::optional<bool> fontUnderline;
    ObjectRef picture;
    std::optional<std::int16_t> pictureAlignment;

    bool empty() const {
        return !backColor && !foreColor && !alignment && !fontName && !fontSize && !fontBold && !fontItalic &&
               !fontUnderline && !picture && !pictureAlignment;
    }
};

// The formatted cells of one row, in column order.
struct RowFormats {
    std::vector<std::pair<std::int32_t, CellFormat>> cells;

    const CellFormat* find(std::int32_t col) const;
    CellFormat& obtain(std::int32_t col);
    void erase(std::int32_t col);
    // Drops the cells from column `cols` on.
    void truncate(std::int32_t cols);
};

}  // namespace telvaro::objects

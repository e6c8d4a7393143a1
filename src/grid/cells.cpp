#include "grid/cells.h"

#include "runtime/convert.h"
#include "runtime/text.h"

namespace telvaro::grid {

std::optional<String> comparableText(const Variant& value) {
    if (value.isNull()) return std::nullopt;
    return toString(value);
}

bool cellEquals(StringView cell, const std::optional<String>& value) { return value && textEquals(cell, *value); }

void applyHiddenTextStyle(const callers::FlexGrid& grid) {
    grid.setCellForeColor(kWindowBackground);
    grid.setCellFontBold(False);
    grid.setCellFontName(u"Small Fonts");
    grid.setCellFontSize(std::int16_t{1});
    grid.setCellAlignment(kRightTop);
}

}  // namespace telvaro::grid

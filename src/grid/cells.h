// What the grid methods share: the comparison of a cell with a caller's
// value, the open end of a range, and the hidden-text style of check-box
// and picture cells.
#pragma once

#include <cstdint>
#include <optional>

#include "callers/flex_grid.h"
#include "runtime/checked.h"
#include "runtime/variant.h"

namespace telvaro::grid {

// The system colours of window backgrounds and of window text.
inline constexpr std::int32_t kWindowBackground = static_cast<std::int32_t>(0x80000005u);
inline constexpr std::int32_t kWindowText = static_cast<std::int32_t>(0x80000008u);
// Alignment codes of the grid: centred both ways; right and top.
inline constexpr std::int16_t kCentreCentre = 4;
inline constexpr std::int16_t kRightTop = 6;

// A caller's value as a cell compares with it: its text form, or nothing
// for Null (a comparison with Null never holds).
std::optional<String> comparableText(const Variant& value);

// The cell's text equals the value, case-insensitively.
bool cellEquals(StringView cell, const std::optional<String>& value);
inline bool cellEquals(StringView cell, const Variant& value) { return cellEquals(cell, comparableText(value)); }

// The text of the current cell is painted in the colour of the background,
// plain, in a one-point "Small Fonts", in the top right corner: the value
// stays in the cell where it cannot be seen.
void applyHiddenTextStyle(const callers::FlexGrid& grid);

// The last row or column a range ends at: `end` itself, or count - 1 when it
// is negative.
inline std::int64_t openEnd(std::int64_t end, std::int32_t count) {
    return end < 0 ? std::int64_t{(Int32(count) - 1).value()} : end;
}

}  // namespace telvaro::grid

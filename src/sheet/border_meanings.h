// What the arguments of BorderAround mean: the spreadsheet's line styles
// (xlContinuous 1, xlDash -4115, xlDashDot 4, xlDashDotDot 5, xlDot -4118,
// xlDouble -4119, xlSlantDashDot 13, xlLineStyleNone -4142), weights
// (xlHairline 1, xlThin 2, xlMedium -4138, xlThick 4) and colour indexes
// into its standard 56-colour palette (xlColorIndexAutomatic -4105,
// xlColorIndexNone -4142), turned into the border styles and colours of
// the file format.
#pragma once

#include <cstdint>
#include <optional>

namespace telvaro::sheet {

namespace line_style {
inline constexpr std::int32_t Continuous = 1;
inline constexpr std::int32_t Dash = -4115;
inline constexpr std::int32_t DashDot = 4;
inline constexpr std::int32_t DashDotDot = 5;
inline constexpr std::int32_t Dot = -4118;
inline constexpr std::int32_t Double = -4119;
inline constexpr std::int32_t SlantDashDot = 13;
inline constexpr std::int32_t None = -4142;
}  // namespace line_style

namespace border_weight {
inline constexpr std::int32_t Hairline = 1;
inline constexpr std::int32_t Thin = 2;
inline constexpr std::int32_t Medium = -4138;
inline constexpr std::int32_t Thick = 4;
}  // namespace border_weight

namespace color_index {
inline constexpr std::int32_t Automatic = -4105;
inline constexpr std::int32_t None = -4142;
}  // namespace color_index

// A colour as 0xRRGGBB, or the sheet's automatic colour.
inline constexpr std::uint32_t kAutomaticColor = 0xFF000000u;

// One edge of a cell: a border style of the file format (0 none, 1 thin,
// 2 medium, 3 dashed, 4 dotted, 5 thick, 6 double, 7 hair, 8 medium
// dashed, 9 dash-dot, 10 medium dash-dot, 11 dash-dot-dot, 12 medium
// dash-dot-dot, 13 slant dash-dot) and its colour.
struct Edge {
    std::uint8_t style = 0;
    std::uint32_t color = kAutomaticColor;
    friend bool operator==(const Edge&, const Edge&) = default;
};

// The file's border style for a line style and weight; empty when either
// is not one of the spreadsheet's constants.
std::optional<std::uint8_t> borderStyle(std::int32_t lineStyle, std::int32_t weight);

// The colour of a palette index (1 to 56, or automatic/none); empty for
// any other number.
std::optional<std::uint32_t> paletteColor(std::int32_t index);

// The colour of an RGB value as the runtime's RGB() builds it (red in the
// low byte); empty outside 0 to 0xFFFFFF.
std::optional<std::uint32_t> rgbColor(std::int64_t value);

}  // namespace telvaro::sheet

#include "sheet/border_meanings.h"

#include <array>

namespace telvaro::sheet {

namespace {

// The spreadsheet's standard palette, index 1 first.
constexpr std::array<std::uint32_t, 56> kPalette = {
    0x000000, 0xFFFFFF, 0xFF0000, 0x00FF00, 0x0000FF, 0xFFFF00, 0xFF00FF, 0x00FFFF,  // 1-8
    0x800000, 0x008000, 0x000080, 0x808000, 0x800080, 0x008080, 0xC0C0C0, 0x808080,  // 9-16
    0x9999FF, 0x993366, 0xFFFFCC, 0xCCFFFF, 0x660066, 0xFF8080, 0x0066CC, 0xCCCCFF,  // 17-24
    0x000080, 0xFF00FF, 0xFFFF00, 0x00FFFF, 0x800080, 0x800000, 0x008080, 0x0000FF,  // 25-32
    0x00CCFF, 0xCCFFFF, 0xCCFFCC, 0xFFFF99, 0x99CCFF, 0xFF99CC, 0xCC99FF, 0xFFCC99,  // 33-40
    0x3366FF, 0x33CCCC, 0x99CC00, 0xFFCC00, 0xFF9900, 0xFF6600, 0x666699, 0x969696,  // 41-48
    0x003366, 0x339966, 0x003300, 0x333300, 0x993300, 0x993366, 0x333399, 0x333333,  // 49-56
};

// The four weights as 0 hairline, 1 thin, 2 medium, 3 thick.
std::optional<int> weightRank(std::int32_t weight) {
    switch (weight) {
        case border_weight::Hairline: return 0;
        case border_weight::Thin: return 1;
        case border_weight::Medium: return 2;
        case border_weight::Thick: return 3;
        default: return std::nullopt;
    }
}

}  // namespace

std::optional<std::uint8_t> borderStyle(std::int32_t lineStyle, std::int32_t weight) {
    auto rank = weightRank(weight);
    if (!rank) return std::nullopt;
    const bool heavy = *rank >= 2;
    switch (lineStyle) {
        case line_style::Continuous: {
            constexpr std::uint8_t byWeight[] = {7, 1, 2, 5};  // hair, thin, medium, thick
            return byWeight[*rank];
        }
        case line_style::Dash: return std::uint8_t(heavy ? 8 : 3);
        case line_style::DashDot: return std::uint8_t(heavy ? 10 : 9);
        case line_style::DashDotDot: return std::uint8_t(heavy ? 12 : 11);
        case line_style::Dot: return std::uint8_t(4);
        case line_style::Double: return std::uint8_t(6);
        case line_style::SlantDashDot: return std::uint8_t(13);
        case line_style::None: return std::uint8_t(0);
        default: return std::nullopt;
    }
}

std::optional<std::uint32_t> paletteColor(std::int32_t index) {
    if (index == color_index::Automatic || index == color_index::None) return kAutomaticColor;
    if (index < 1 || index > static_cast<std::int32_t>(kPalette.size())) return std::nullopt;
    return kPalette[index - 1];
}

std::optional<std::uint32_t> rgbColor(std::int64_t value) {
    if (value < 0 || value > 0xFFFFFF) return std::nullopt;
    const auto v = static_cast<std::uint32_t>(value);
    return ((v & 0xFF) << 16) | (v & 0xFF00) | ((v >> 16) & 0xFF);
}

}  // namespace telvaro::sheet

// The look of a cell: font weight and size, how its number shows, and its
// four edges. Styles are kept once in a table and cells hold their index,
// so a sheet of many alike cells stays small.
#pragma once

#include <cstdint>
#include <deque>
#include <unordered_map>

#include "sheet/border_meanings.h"

namespace telvaro::sheet {

inline constexpr double kDefaultFontSize = 11;
inline constexpr double kDefaultColumnWidth = 8.43;

enum class NumberShape : std::uint8_t { General, Date, DateTime };

struct CellStyle {
    bool bold = false;
    double fontSize = kDefaultFontSize;
    NumberShape shape = NumberShape::General;
    Edge top, bottom, left, right;
    friend bool operator==(const CellStyle&, const CellStyle&) = default;
};

using StyleId = std::uint32_t;
inline constexpr StyleId kDefaultStyle = 0;

class StyleTable {
public:
    StyleTable();
    // The index of an equal style, added when new.
    StyleId intern(const CellStyle& style);
    const CellStyle& operator[](StyleId id) const { return styles_[id]; }
    std::size_t size() const { return styles_.size(); }

private:
    struct Hash {
        std::size_t operator()(const CellStyle& s) const;
    };
    std::deque<CellStyle> styles_;  // a style's place never moves
    std::unordered_map<CellStyle, StyleId, Hash> ids_;
};

}  // namespace telvaro::sheet

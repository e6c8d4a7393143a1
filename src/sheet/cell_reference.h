// Cell addresses as the spreadsheet writes them: column letters ("A" to
// "XFD"), A1 references ("B5", "$B$5"), blocks ("B5:C9"), whole columns
// ("B:D") and whole rows ("4:4"). Rows and columns count from 1.
#pragma once

#include <cstdint>
#include <optional>

#include "runtime/ustring.h"

namespace telvaro::sheet {

inline constexpr std::int32_t kMaxRows = 1048576;
inline constexpr std::int32_t kMaxColumns = 16384;

// A rectangle of cells, corners included, always with first <= last.
struct CellBlock {
    std::int32_t firstRow = 1;
    std::int32_t firstColumn = 1;
    std::int32_t lastRow = 1;
    std::int32_t lastColumn = 1;

    static CellBlock cell(std::int32_t row, std::int32_t column) { return {row, column, row, column}; }
    static CellBlock columns(std::int32_t first, std::int32_t last) { return {1, first, kMaxRows, last}; }
    // The smallest block holding both, whatever corner each one names.
    static CellBlock spanning(const CellBlock& a, const CellBlock& b);

    std::int64_t rowCount() const { return std::int64_t{lastRow} - firstRow + 1; }
    std::int64_t columnCount() const { return std::int64_t{lastColumn} - firstColumn + 1; }
    std::int64_t area() const { return rowCount() * columnCount(); }
    bool wholeColumns() const { return firstRow == 1 && lastRow == kMaxRows; }
    friend bool operator==(const CellBlock&, const CellBlock&) = default;
};

bool validRow(std::int64_t row);
bool validColumn(std::int64_t column);

// "A" -> 1, "z" -> 26, "AA" -> 27, "XFD" -> 16384; empty when the text is
// not one to three letters naming a column of the sheet.
std::optional<std::int32_t> columnNumber(StringView letters);
// 1 -> "A", 28 -> "AB".
String columnLetters(std::int32_t column);

// "B5", "$b$5", "B5:C9", "B:D", "4:6"; empty when the text is not such a
// reference or names a cell outside the sheet.
std::optional<CellBlock> parseReference(StringView text);
// "B5" for one cell, "B5:C9" for a block.
String referenceText(const CellBlock& block);

}  // namespace telvaro::sheet

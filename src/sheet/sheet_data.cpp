#include "sheet/sheet_data.h"

#include <algorithm>
#include <limits>

#include "runtime/error.h"
#include "sheet/sheet_error.h"

namespace telvaro::sheet {

namespace {

// The styles one restyle turns into others, remembered for the call.
class StyleChanges {
public:
    StyleChanges(StyleTable& table, const std::function<void(CellStyle&)>& change) : table_(table), change_(change) {}
    StyleId operator()(StyleId from) {
        for (const auto& [old, now] : seen_)
            if (old == from) return now;
        CellStyle style = table_[from];
        change_(style);
        StyleId to = table_.intern(style);
        seen_.emplace_back(from, to);
        return to;
    }

private:
    StyleTable& table_;
    const std::function<void(CellStyle&)>& change_;
    std::vector<std::pair<StyleId, StyleId>> seen_;
};

void checkSize(const CellBlock& block) {
    if (block.area() > kMaxCellsPerAssignment) raise(err::OutOfMemory);
}

}  // namespace

StyleId SheetData::columnStyle(std::int32_t column) const {
    auto it = columns_.find(column);
    return it == columns_.end() ? kDefaultStyle : it->second.style;
}

Cell& SheetData::cellAt(std::int32_t row, std::int32_t column) {
    if (static_cast<std::size_t>(row) > rows_.size()) rows_.resize(row);
    Row& cells = rows_[row - 1];
    auto at = cells.end();
    if (!cells.empty() && cells.back().column >= column)
        at = std::lower_bound(cells.begin(), cells.end(), column,
                              [](const Cell& c, std::int32_t col) { return c.column < col; });
    if (at != cells.end() && at->column == column) return *at;
    Cell fresh;
    fresh.column = static_cast<std::uint16_t>(column);
    fresh.style = columnStyle(column);
    return *cells.insert(at, fresh);
}

const Cell* SheetData::findCell(std::int32_t row, std::int32_t column) const {
    if (row < 1 || static_cast<std::size_t>(row) > rows_.size()) return nullptr;
    const Row& cells = rows_[row - 1];
    auto at = std::lower_bound(cells.begin(), cells.end(), column,
                               [](const Cell& c, std::int32_t col) { return c.column < col; });
    return at != cells.end() && at->column == column ? &*at : nullptr;
}

void SheetData::store(Cell& cell, const CellValue& value) {
    if (value.kind == CellKind::Text) {
        std::string utf8 = toUtf8(value.text);
        if (texts_.size() + utf8.size() + 1 > std::numeric_limits<std::uint32_t>::max()) raise(err::OutOfMemory);
        cell.text.offset = static_cast<std::uint32_t>(texts_.size());
        cell.text.length = static_cast<std::uint32_t>(utf8.size());
        texts_ += utf8;
        texts_ += '\0';
    } else {
        cell.number = value.number;
    }
    cell.kind = value.kind;
    if (value.shape != NumberShape::General && styles_[cell.style].shape == NumberShape::General) {
        CellStyle dated = styles_[cell.style];
        dated.shape = value.shape;
        cell.style = styles_.intern(dated);
    }
}

void SheetData::setValue(std::int32_t row, std::int32_t column, const CellValue& value) {
    store(cellAt(row, column), value);
}

void SheetData::setValue(const CellBlock& block, const CellValue& value) {
    checkSize(block);
    for (std::int32_t r = block.firstRow; r <= block.lastRow; ++r)
        for (std::int32_t c = block.firstColumn; c <= block.lastColumn; ++c) setValue(r, c, value);
}

Variant SheetData::value(std::int32_t row, std::int32_t column) const {
    const Cell* cell = findCell(row, column);
    if (!cell) return {};
    switch (cell->kind) {
        case CellKind::Blank: return {};
        case CellKind::Text: return Variant(fromUtf8({text(*cell), cell->text.length}));
        case CellKind::Boolean: return Variant(Boolean(cell->number != 0));
        case CellKind::Number:
            if (styles_[cell->style].shape != NumberShape::General) return Variant(Date{cell->number});
            return Variant(cell->number);
    }
    return {};
}

const CellStyle& SheetData::style(std::int32_t row, std::int32_t column) const {
    const Cell* cell = findCell(row, column);
    return styles_[cell ? cell->style : columnStyle(column)];
}

void SheetData::restyle(const CellBlock& block, const std::function<void(CellStyle&)>& change) {
    StyleChanges changes(styles_, change);
    if (block.wholeColumns()) {
        // The columns take the style, and so do the cells they already hold.
        if (block.columnCount() > kMaxColumns) raise(err::OutOfMemory);
        for (std::int32_t c = block.firstColumn; c <= block.lastColumn; ++c) {
            ColumnInfo& info = columns_[c];
            info.style = changes(info.style);
        }
        for (Row& cells : rows_)
            for (Cell& cell : cells)
                if (cell.column >= block.firstColumn && cell.column <= block.lastColumn)
                    cell.style = changes(cell.style);
        return;
    }
    checkSize(block);
    for (std::int32_t r = block.firstRow; r <= block.lastRow; ++r)
        for (std::int32_t c = block.firstColumn; c <= block.lastColumn; ++c) {
            Cell& cell = cellAt(r, c);
            cell.style = changes(cell.style);
        }
}

void SheetData::setColumnWidth(std::int32_t column, double width) {
    ColumnInfo& info = columns_[column];
    info.width = width;
    info.widthSet = true;
}

double SheetData::columnWidth(std::int32_t column) const {
    auto it = columns_.find(column);
    return it == columns_.end() ? kDefaultColumnWidth : it->second.width;
}

std::size_t SheetData::memoryInUse() const {
    std::size_t bytes = rows_.capacity() * sizeof(Row) + texts_.capacity() + styles_.size() * sizeof(CellStyle) * 3;
    for (const Row& cells : rows_) bytes += cells.capacity() * sizeof(Cell);
    return bytes + columns_.size() * (sizeof(ColumnInfo) + 48);
}

}  // namespace telvaro::sheet

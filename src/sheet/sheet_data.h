// The contents of one worksheet, held until the workbook is written: only
// the cells that were given a value or a look, row by row, each row's cells
// in column order, so that the file can be written row after row. Texts
// live in one shared buffer; styles in a StyleTable.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "runtime/variant.h"
#include "sheet/cell_reference.h"
#include "sheet/cell_style.h"
#include "sheet/cell_value.h"

namespace telvaro::sheet {

struct Cell {
    std::uint16_t column = 0;
    CellKind kind = CellKind::Blank;
    StyleId style = kDefaultStyle;
    union {
        double number;
        struct {
            std::uint32_t offset;
            std::uint32_t length;
        } text;
    };
    Cell() : number(0) {}
};

// What a column carries besides its cells: a width and the style its new
// cells start with.
struct ColumnInfo {
    double width = kDefaultColumnWidth;
    bool widthSet = false;
    StyleId style = kDefaultStyle;
};

class SheetData {
public:
    using Row = std::vector<Cell>;

    void setValue(std::int32_t row, std::int32_t column, const CellValue& value);
    // Every cell of the block (error 7 beyond kMaxCellsPerAssignment).
    void setValue(const CellBlock& block, const CellValue& value);
    Variant value(std::int32_t row, std::int32_t column) const;
    const CellStyle& style(std::int32_t row, std::int32_t column) const;

    // Changes the style of every cell of the block (creating empty cells
    // for the look); for whole columns, also the columns' own style.
    void restyle(const CellBlock& block, const std::function<void(CellStyle&)>& change);

    void setColumnWidth(std::int32_t column, double width);
    double columnWidth(std::int32_t column) const;

    const std::vector<Row>& rows() const { return rows_; }
    const std::map<std::int32_t, ColumnInfo>& columns() const { return columns_; }
    const StyleTable& styles() const { return styles_; }
    // The UTF-8 text of a Text cell, ending in a NUL.
    const char* text(const Cell& cell) const { return texts_.data() + cell.text.offset; }
    // Bytes held by the buffered sheet.
    std::size_t memoryInUse() const;

private:
    Cell& cellAt(std::int32_t row, std::int32_t column);
    const Cell* findCell(std::int32_t row, std::int32_t column) const;
    void store(Cell& cell, const CellValue& value);
    StyleId columnStyle(std::int32_t column) const;

    std::vector<Row> rows_;
    std::map<std::int32_t, ColumnInfo> columns_;
    StyleTable styles_;
    std::string texts_;
};

}  // namespace telvaro::sheet

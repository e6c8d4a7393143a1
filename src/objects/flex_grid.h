// The flexible grid: rows and columns of text cells counted from 0, the
// first `FixedRows` rows and `FixedCols` columns being the fixed titles, a
// current cell (`Row`, `Col`) on which the Cell... members act, column
// widths and row heights in twips, and per-cell formatting kept only for
// the cells that have any.
//
// Errors, as the grid control raises them: a row or column index outside
// the grid (TextMatrix, ColWidth, RowHeight, ColAlignment, RemoveItem,
// AddItem, a current cell outside a grid without cells) is 381 "Subscript
// out of range"; moving the current cell outside the grid is 30009 "Invalid
// Row value" or 30010 "Invalid Col value"; removing the last non-fixed row
// is 30015 "Cannot remove last non-fixed row"; a negative count or size,
// or an unknown alignment code, is 380; a grid of more than 10,000,000
// cells is 7 (out of memory).
#pragma once

#include <functional>

#include "objects/control.h"
#include "objects/grid_cell_format.h"

namespace telvaro::objects {

class FlexGrid : public Control {
public:
    static constexpr std::int64_t kMaxCells = 10'000'000;
    static constexpr std::int32_t kDefaultColWidth = 960;
    static constexpr std::int32_t kDefaultRowHeight = 240;
    static constexpr std::int16_t kAlignGeneral = 9;

    explicit FlexGrid(String name = u"Grid", std::int32_t rows = 2, std::int32_t cols = 2);

    String typeName() const override { return u"MSFlexGrid"; }

    std::int32_t rows() const { return rows_; }
    std::int32_t cols() const { return cols_; }
    std::int32_t fixedRows() const { return fixedRows_; }
    std::int32_t fixedCols() const { return fixedCols_; }
    std::int32_t row() const { return row_; }
    std::int32_t col() const { return col_; }
    std::int32_t rowSel() const { return rowSel_; }
    std::int32_t colSel() const { return colSel_; }
    bool redraw() const { return redraw_; }

    void setRows(std::int32_t rows);
    void setCols(std::int32_t cols);
    void setFixedRows(std::int32_t n);
    void setFixedCols(std::int32_t n);
    void setRow(std::int32_t row);
    void setCol(std::int32_t col);
    void setRowSel(std::int32_t row);
    void setColSel(std::int32_t col);
    void setRedraw(bool on) { redraw_ = on; }

    const String& textMatrix(std::int32_t row, std::int32_t col) const;
    void setTextMatrix(std::int32_t row, std::int32_t col, String text);
    std::int32_t colWidth(std::int32_t col) const;
    void setColWidth(std::int32_t col, std::int32_t twips);  // -1: back to the default
    std::int32_t rowHeight(std::int32_t row) const;
    void setRowHeight(std::int32_t row, std::int32_t twips);
    std::int16_t colAlignment(std::int32_t col) const;
    void setColAlignment(std::int32_t col, std::int16_t alignment);

    void clear();
    void addItem(StringView item, std::optional<std::int32_t> index = std::nullopt);
    void removeItem(std::int32_t index);

    // The formatting of a cell, or nullptr when it has none.
    const CellFormat* cellFormat(std::int32_t row, std::int32_t col) const;
    // Changes the formatting of a cell, or of the current cell (error 381
    // outside the grid); a cell left without formatting costs nothing again.
    void formatCell(std::int32_t row, std::int32_t col, const std::function<void(CellFormat&)>& change);
    void formatCurrentCell(const std::function<void(CellFormat&)>& change) { formatCell(row_, col_, change); }
    void setCellBackColor(std::int32_t color);
    // Every formatted cell, row by row.
    void forEachFormattedCell(const std::function<void(std::int32_t, std::int32_t, const CellFormat&)>& visit) const;

protected:
    const MemberTable& members() const override;
    int defaultMember() const override;
    Variant dispatch(int id, const MemberCall& call) override;

private:
    std::size_t cellIndex(std::int32_t row, std::int32_t col) const;
    void checkCell(std::int32_t row, std::int32_t col) const;
    void checkRowIndex(const Variant& v, std::int32_t& row) const;
    void checkColIndex(const Variant& v, std::int32_t& col) const;
    void checkCurrentCell() const;
    void resize(std::int32_t rows, std::int32_t cols);
    Variant cellMember(int id, const MemberCall& call);

    std::int32_t rows_ = 0, cols_ = 0;
    std::int32_t fixedRows_ = 0, fixedCols_ = 0;
    std::int32_t row_ = 0, col_ = 0, rowSel_ = 0, colSel_ = 0;
    bool redraw_ = true;
    std::vector<String> texts_;                         // rows_ x cols_, row by row
    std::vector<std::unique_ptr<RowFormats>> formats_;  // one slot per row, empty when plain
    std::vector<std::int32_t> colWidths_;               // -1: default
    std::vector<std::int32_t> rowHeights_;
    std::vector<std::int16_t> colAlignments_;
};

}  // namespace telvaro::objects

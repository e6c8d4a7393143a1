#include "objects/flex_grid.h"

#include <algorithm>

#include "runtime/error.h"

namespace telvaro::objects {

namespace {

enum Member {
    Rows = 0,  // numbered after the common members, see members()
    Cols,
    FixedRows,
    FixedCols,
    Row,
    Col,
    RowSel,
    ColSel,
    Text,
    TextMatrix,
    CellText,
    ColWidth,
    RowHeight,
    ColAlignment,
    Redraw,
    Clear,
    AddItem,
    RemoveItem,
    CellBackColor,
    CellForeColor,
    CellAlignment,
    CellFontBold,
    CellFontName,
    CellFontSize,
    CellFontItalic,
    CellFontUnderline,
    CellPicture,
    CellPictureAlignment
};

[[noreturn]] void subscriptOutOfRange() { raise(381, u"Subscript out of range"); }
[[noreturn]] void invalidRow() { raise(30009, u"Invalid Row value"); }
[[noreturn]] void invalidCol() { raise(30010, u"Invalid Col value"); }

std::int16_t alignmentValue(const Variant& v, std::int16_t highest) {
    const auto a = integerValue(v);
    if (a < 0 || a > highest) raise(err::InvalidPropertyValue);
    return a;
}

// A width or height: -1 (the default) or a size in twips.
std::int32_t extentValue(const Variant& v) {
    const auto n = longValue(v);
    if (n < -1) raise(err::InvalidPropertyValue);
    return n;
}

}  // namespace

FlexGrid::FlexGrid(String name, std::int32_t rows, std::int32_t cols) : Control(std::move(name)) {
    resize(rows, cols);
    fixedRows_ = std::min(1, rows_);
    fixedCols_ = std::min(1, cols_);
    row_ = rowSel_ = std::min(fixedRows_, std::max(rows_ - 1, 0));
    col_ = colSel_ = std::min(fixedCols_, std::max(cols_ - 1, 0));
}

const MemberTable& FlexGrid::members() const {
    static const MemberTable table(commonMemberNames(), {u"Rows",
                                                         u"Cols",
                                                         u"FixedRows",
                                                         u"FixedCols",
                                                         u"Row",
                                                         u"Col",
                                                         u"RowSel",
                                                         u"ColSel",
                                                         u"Text",
                                                         u"TextMatrix",
                                                         u"CellText",
                                                         u"ColWidth",
                                                         u"RowHeight",
                                                         u"ColAlignment",
                                                         u"Redraw",
                                                         u"Clear",
                                                         u"AddItem",
                                                         u"RemoveItem",
                                                         u"CellBackColor",
                                                         u"CellForeColor",
                                                         u"CellAlignment",
                                                         u"CellFontBold",
                                                         u"CellFontName",
                                                         u"CellFontSize",
                                                         u"CellFontItalic",
                                                         u"CellFontUnderline",
                                                         u"CellPicture",
                                                         u"CellPictureAlignment"});
    return table;
}

int FlexGrid::defaultMember() const { return static_cast<int>(CommonMemberCount) + Text; }

std::size_t FlexGrid::cellIndex(std::int32_t row, std::int32_t col) const {
    return static_cast<std::size_t>(row) * static_cast<std::size_t>(cols_) + static_cast<std::size_t>(col);
}

void FlexGrid::checkCell(std::int32_t row, std::int32_t col) const {
    if (row < 0 || row >= rows_ || col < 0 || col >= cols_) subscriptOutOfRange();
}

void FlexGrid::checkCurrentCell() const { checkCell(row_, col_); }

void FlexGrid::checkRowIndex(const Variant& v, std::int32_t& row) const {
    row = longValue(v);
    if (row < 0 || row >= rows_) subscriptOutOfRange();
}

void FlexGrid::checkColIndex(const Variant& v, std::int32_t& col) const {
    col = longValue(v);
    if (col < 0 || col >= cols_) subscriptOutOfRange();
}

void FlexGrid::resize(std::int32_t rows, std::int32_t cols) {
    if (rows < 0 || cols < 0) raise(err::InvalidPropertyValue);
    if (static_cast<std::int64_t>(rows) * cols > kMaxCells) raise(err::OutOfMemory);
    if (cols != cols_) {
        std::vector<String> texts(static_cast<std::size_t>(rows) * static_cast<std::size_t>(cols));
        const std::int32_t keepRows = std::min(rows, rows_), keepCols = std::min(cols, cols_);
        for (std::int32_t r = 0; r < keepRows; ++r)
            for (std::int32_t c = 0; c < keepCols; ++c)
                texts[static_cast<std::size_t>(r) * static_cast<std::size_t>(cols) + static_cast<std::size_t>(c)] =
                    std::move(texts_[cellIndex(r, c)]);
        texts_ = std::move(texts);
        for (auto& f : formats_)
            if (f) {
                f->truncate(cols);
                if (f->cells.empty()) f.reset();
            }
        colWidths_.resize(static_cast<std::size_t>(cols), -1);
        colAlignments_.resize(static_cast<std::size_t>(cols), kAlignGeneral);
    } else {
        texts_.resize(static_cast<std::size_t>(rows) * static_cast<std::size_t>(cols));
    }
    formats_.resize(static_cast<std::size_t>(rows));
    rowHeights_.resize(static_cast<std::size_t>(rows), -1);
    rows_ = rows;
    cols_ = cols;
    fixedRows_ = std::min(fixedRows_, rows_);
    fixedCols_ = std::min(fixedCols_, cols_);
    row_ = std::min(row_, std::max(rows_ - 1, 0));
    rowSel_ = std::min(rowSel_, std::max(rows_ - 1, 0));
    col_ = std::min(col_, std::max(cols_ - 1, 0));
    colSel_ = std::min(colSel_, std::max(cols_ - 1, 0));
}

void FlexGrid::setRows(std::int32_t rows) { resize(rows, cols_); }
void FlexGrid::setCols(std::int32_t cols) { resize(rows_, cols); }

void FlexGrid::setFixedRows(std::int32_t n) {
    if (n < 0 || n > rows_) invalidRow();
    fixedRows_ = n;
}

void FlexGrid::setFixedCols(std::int32_t n) {
    if (n < 0 || n > cols_) invalidCol();
    fixedCols_ = n;
}

void FlexGrid::setRow(std::int32_t row) {
    if (row < 0 || row >= rows_) invalidRow();
    row_ = rowSel_ = row;
}

void FlexGrid::setCol(std::int32_t col) {
    if (col < 0 || col >= cols_) invalidCol();
    col_ = colSel_ = col;
}

void FlexGrid::setRowSel(std::int32_t row) {
    if (row < 0 || row >= rows_) invalidRow();
    rowSel_ = row;
}

void FlexGrid::setColSel(std::int32_t col) {
    if (col < 0 || col >= cols_) invalidCol();
    colSel_ = col;
}

const String& FlexGrid::textMatrix(std::int32_t row, std::int32_t col) const {
    checkCell(row, col);
    return texts_[cellIndex(row, col)];
}

void FlexGrid::setTextMatrix(std::int32_t row, std::int32_t col, String text) {
    checkCell(row, col);
    texts_[cellIndex(row, col)] = std::move(text);
}

std::int32_t FlexGrid::colWidth(std::int32_t col) const {
    if (col < 0 || col >= cols_) subscriptOutOfRange();
    const auto w = colWidths_[static_cast<std::size_t>(col)];
    return w < 0 ? kDefaultColWidth : w;
}

void FlexGrid::setColWidth(std::int32_t col, std::int32_t twips) {
    if (col < 0 || col >= cols_) subscriptOutOfRange();
    if (twips < -1) raise(err::InvalidPropertyValue);
    colWidths_[static_cast<std::size_t>(col)] = twips;
}

std::int32_t FlexGrid::rowHeight(std::int32_t row) const {
    if (row < 0 || row >= rows_) subscriptOutOfRange();
    const auto h = rowHeights_[static_cast<std::size_t>(row)];
    return h < 0 ? kDefaultRowHeight : h;
}

void FlexGrid::setRowHeight(std::int32_t row, std::int32_t twips) {
    if (row < 0 || row >= rows_) subscriptOutOfRange();
    if (twips < -1) raise(err::InvalidPropertyValue);
    rowHeights_[static_cast<std::size_t>(row)] = twips;
}

std::int16_t FlexGrid::colAlignment(std::int32_t col) const {
    if (col < 0 || col >= cols_) subscriptOutOfRange();
    return colAlignments_[static_cast<std::size_t>(col)];
}

void FlexGrid::setColAlignment(std::int32_t col, std::int16_t alignment) {
    if (col < 0 || col >= cols_) subscriptOutOfRange();
    if (alignment < 0 || alignment > kAlignGeneral) raise(err::InvalidPropertyValue);
    colAlignments_[static_cast<std::size_t>(col)] = alignment;
}

void FlexGrid::clear() {
    for (auto& t : texts_) t.clear();
    for (auto& f : formats_) f.reset();
}

void FlexGrid::addItem(StringView item, std::optional<std::int32_t> index) {
    const std::int32_t at = index.value_or(rows_);
    if (at < 0 || at > rows_) subscriptOutOfRange();
    if (static_cast<std::int64_t>(rows_ + std::int64_t{1}) * cols_ > kMaxCells || rows_ == INT32_MAX)
        raise(err::OutOfMemory);
    std::vector<String> cells(static_cast<std::size_t>(cols_));
    std::size_t c = 0, start = 0;
    for (std::size_t i = 0; i <= item.size() && c < cells.size(); ++i)
        if (i == item.size() || item[i] == u'\t') {
            cells[c++] = String(item.substr(start, i - start));
            start = i + 1;
        }
    const auto offset = static_cast<std::ptrdiff_t>(cellIndex(at, 0));
    texts_.insert(texts_.begin() + offset, std::make_move_iterator(cells.begin()),
                  std::make_move_iterator(cells.end()));
    formats_.insert(formats_.begin() + at, nullptr);
    rowHeights_.insert(rowHeights_.begin() + at, -1);
    ++rows_;
}

void FlexGrid::removeItem(std::int32_t index) {
    if (index < 0 || index >= rows_ || index < fixedRows_) subscriptOutOfRange();
    if (rows_ - fixedRows_ <= 1) raise(30015, u"Cannot remove last non-fixed row");
    const auto offset = static_cast<std::ptrdiff_t>(cellIndex(index, 0));
    texts_.erase(texts_.begin() + offset, texts_.begin() + offset + cols_);
    formats_.erase(formats_.begin() + index);
    rowHeights_.erase(rowHeights_.begin() + index);
    --rows_;
    row_ = std::min(row_, rows_ - 1);
    rowSel_ = std::min(rowSel_, rows_ - 1);
}

const CellFormat* FlexGrid::cellFormat(std::int32_t row, std::int32_t col) const {
    checkCell(row, col);
    const auto& f = formats_[static_cast<std::size_t>(row)];
    return f ? f->find(col) : nullptr;
}

void FlexGrid::formatCell(std::int32_t row, std::int32_t col, const std::function<void(CellFormat&)>& change) {
    checkCell(row, col);
    auto& f = formats_[static_cast<std::size_t>(row)];
    if (!f) f = std::make_unique<RowFormats>();
    CellFormat& cell = f->obtain(col);
    change(cell);
    if (cell.empty()) {
        f->erase(col);
        if (f->cells.empty()) f.reset();
    }
}

void FlexGrid::setCellBackColor(std::int32_t color) {
    formatCurrentCell([color](CellFormat& cell) {
        if (color == 0)
            cell.backColor.reset();
        else
            cell.backColor = color;
    });
}

void FlexGrid::forEachFormattedCell(
    const std::function<void(std::int32_t, std::int32_t, const CellFormat&)>& visit) const {
    for (std::int32_t r = 0; r < rows_; ++r)
        if (const auto& f = formats_[static_cast<std::size_t>(r)])
            for (const auto& [c, cell] : f->cells) visit(r, c, cell);
}

Variant FlexGrid::cellMember(int id, const MemberCall& call) {
    call.indices(0);
    checkCurrentCell();
    const CellFormat* cell = cellFormat(row_, col_);
    const FontDescription& font = this->font()->description();
    if (!call.isPut()) {
        switch (id) {
            case CellBackColor: return Variant(cell && cell->backColor ? *cell->backColor : 0);
            case CellForeColor: return Variant(cell && cell->foreColor ? *cell->foreColor : 0);
            case CellAlignment:
                return Variant(cell && cell->alignment ? *cell->alignment
                                                       : colAlignments_[static_cast<std::size_t>(col_)]);
            case CellFontBold: return Variant(Boolean(cell && cell->fontBold ? *cell->fontBold : font.bold));
            case CellFontName: return Variant(cell && cell->fontName ? *cell->fontName : font.name);
            case CellFontSize: return Variant(cell && cell->fontSize ? *cell->fontSize : font.size);
            case CellFontItalic: return Variant(Boolean(cell && cell->fontItalic ? *cell->fontItalic : font.italic));
            case CellFontUnderline:
                return Variant(Boolean(cell && cell->fontUnderline ? *cell->fontUnderline : font.underline));
            case CellPicture: return Variant(cell ? cell->picture : ObjectRef());
            case CellPictureAlignment:
                return Variant(cell && cell->pictureAlignment ? *cell->pictureAlignment : std::int16_t(0));
        }
    }
    const Variant& v = call.value();
    // Convert first, so that a bad value changes nothing.
    switch (id) {
        case CellBackColor: return setCellBackColor(longValue(v)), Variant();
        case CellForeColor: {
            const auto color = longValue(v);
            formatCurrentCell([&](CellFormat& c) {
                if (color == 0)
                    c.foreColor.reset();
                else
                    c.foreColor = color;
            });
            return {};
        }
        case CellAlignment: {
            const auto a = alignmentValue(v, kAlignGeneral);
            formatCurrentCell([&](CellFormat& c) { c.alignment = a; });
            return {};
        }
        case CellFontBold: {
            const bool b = booleanValue(v).isTrue();
            formatCurrentCell([&](CellFormat& c) { c.fontBold = b; });
            return {};
        }
        case CellFontName: {
            String name = textValue(v);
            formatCurrentCell([&](CellFormat& c) { c.fontName = std::move(name); });
            return {};
        }
        case CellFontSize: {
            const double size = doubleValue(v);
            if (!(size > 0 && size <= 2160)) raise(err::InvalidPropertyValue);
            formatCurrentCell([&](CellFormat& c) { c.fontSize = size; });
            return {};
        }
        case CellFontItalic: {
            const bool b = booleanValue(v).isTrue();
            formatCurrentCell([&](CellFormat& c) { c.fontItalic = b; });
            return {};
        }
        case CellFontUnderline: {
            const bool b = booleanValue(v).isTrue();
            formatCurrentCell([&](CellFormat& c) { c.fontUnderline = b; });
            return {};
        }
        case CellPicture: {
            ObjectRef picture = objectValue(v);
            formatCurrentCell([&](CellFormat& c) { c.picture = std::move(picture); });
            return {};
        }
        case CellPictureAlignment: {
            const auto a = alignmentValue(v, 8);
            formatCurrentCell([&](CellFormat& c) { c.pictureAlignment = a; });
            return {};
        }
    }
    raiseNoSuchMember();
}

Variant FlexGrid::dispatch(int id, const MemberCall& call) {
    if (id < CommonMemberCount) return dispatchCommon(id, call);
    const int own = id - CommonMemberCount;
    std::int32_t r = 0, c = 0;
    switch (own) {
        case Rows:
            return property(
                call, [&] { return Variant(rows_); }, [&](const Variant& v) { setRows(sizeValue(v)); });
        case Cols:
            return property(
                call, [&] { return Variant(cols_); }, [&](const Variant& v) { setCols(sizeValue(v)); });
        case FixedRows:
            return property(
                call, [&] { return Variant(fixedRows_); }, [&](const Variant& v) { setFixedRows(longValue(v)); });
        case FixedCols:
            return property(
                call, [&] { return Variant(fixedCols_); }, [&](const Variant& v) { setFixedCols(longValue(v)); });
        case Row:
            return property(
                call, [&] { return Variant(row_); }, [&](const Variant& v) { setRow(longValue(v)); });
        case Col:
            return property(
                call, [&] { return Variant(col_); }, [&](const Variant& v) { setCol(longValue(v)); });
        case RowSel:
            return property(
                call, [&] { return Variant(rowSel_); }, [&](const Variant& v) { setRowSel(longValue(v)); });
        case ColSel:
            return property(
                call, [&] { return Variant(colSel_); }, [&](const Variant& v) { setColSel(longValue(v)); });
        case Text:
        case CellText:
            return property(
                call, [&] { return Variant(textMatrix(row_, col_)); },
                [&](const Variant& v) { setTextMatrix(row_, col_, textValue(v)); });
        case TextMatrix: {
            auto at = call.indices(2);
            checkRowIndex(at[0], r);
            checkColIndex(at[1], c);
            if (call.isPut()) {
                setTextMatrix(r, c, textValue(call.value()));
                return {};
            }
            return Variant(textMatrix(r, c));
        }
        case ColWidth: {
            checkColIndex(call.indices(1)[0], c);
            if (call.isPut()) return setColWidth(c, extentValue(call.value())), Variant();
            return Variant(colWidth(c));
        }
        case RowHeight: {
            checkRowIndex(call.indices(1)[0], r);
            if (call.isPut()) return setRowHeight(r, extentValue(call.value())), Variant();
            return Variant(rowHeight(r));
        }
        case ColAlignment: {
            checkColIndex(call.indices(1)[0], c);
            if (call.isPut()) return setColAlignment(c, alignmentValue(call.value(), kAlignGeneral)), Variant();
            return Variant(colAlignment(c));
        }
        case Redraw:
            return property(
                call, [&] { return Variant(Boolean(redraw_)); },
                [&](const Variant& v) { redraw_ = booleanValue(v).isTrue(); });
        case Clear: call.arguments(0, 0); return clear(), Variant();
        case AddItem: {
            auto args = call.arguments(1, 2);
            String item = textValue(args[0]);
            if (args.size() == 2) return addItem(item, longValue(args[1])), Variant();
            return addItem(item), Variant();
        }
        case RemoveItem: return removeItem(longValue(call.arguments(1, 1)[0])), Variant();
        default: return cellMember(own, call);
    }
}

}  // namespace telvaro::objects

// The caller's flexible grid, in the words the grid methods use: its size,
// its fixed titles, the current cell and the members that act on it, the
// cells' texts, column widths and row heights, painting, and the rows added
// and removed. Every member is looked up by name when it is called, in the
// order the method calls it, so an object that lacks one fails at that step
// with its own error (438), and the grid's own errors (a row outside the
// grid) reach the method unchanged.
//
// Readers give the value as the method's variable holds it (a Long for
// sizes and positions, a String for texts); writers hand the value to the
// grid as given, and the grid converts it as its member declares.
#pragma once

#include <cstdint>

#include "callers/caller_object.h"
#include "runtime/convert.h"

namespace telvaro::callers {

class FlexGrid : public CallerObject {
public:
    using CallerObject::CallerObject;
    // The grid a method was given; error 91 when it is Nothing.
    explicit FlexGrid(const ObjectRef& grid) : CallerObject(Variant(grid)) {}

    // Size and fixed titles.
    std::int32_t rows() const { return toLong(get(u"Rows")); }
    void setRows(const Variant& n) const { put(u"Rows", n); }
    std::int32_t cols() const { return toLong(get(u"Cols")); }
    void setCols(const Variant& n) const { put(u"Cols", n); }
    std::int32_t fixedRows() const { return toLong(get(u"FixedRows")); }
    std::int32_t fixedCols() const { return toLong(get(u"FixedCols")); }

    // The current cell and the selection.
    std::int32_t row() const { return toLong(get(u"Row")); }
    void setRow(const Variant& row) const { put(u"Row", row); }
    std::int32_t col() const { return toLong(get(u"Col")); }
    void setCol(const Variant& col) const { put(u"Col", col); }
    std::int32_t rowSel() const { return toLong(get(u"RowSel")); }
    std::int32_t colSel() const { return toLong(get(u"ColSel")); }

    // Texts: the current cell's and any cell's.
    String text() const { return toString(get(u"Text")); }
    void setText(const Variant& text) const { put(u"Text", text); }
    String textMatrix(const Variant& row, const Variant& col) const { return toString(get(u"TextMatrix", {row, col})); }
    void setTextMatrix(const Variant& row, const Variant& col, const Variant& text) const {
        put(u"TextMatrix", {row, col}, text);
    }

    // Sizes of columns and rows, and the alignment of a whole column.
    void setColWidth(const Variant& col, const Variant& width) const { put(u"ColWidth", {col}, width); }
    Variant colWidth(const Variant& col) const { return get(u"ColWidth", {col}); }
    void setRowHeight(const Variant& row, const Variant& height) const { put(u"RowHeight", {row}, height); }
    Variant rowHeight(const Variant& row) const { return get(u"RowHeight", {row}); }
    void setColAlignment(const Variant& col, const Variant& alignment) const { put(u"ColAlignment", {col}, alignment); }

    // Painting.
    void setRedraw(const Variant& on) const { put(u"Redraw", on); }

    // Rows added and removed, the whole grid emptied.
    void removeItem(const Variant& row) const { call(u"RemoveItem", {row}); }
    void addItem(const Variant& item) const { call(u"AddItem", {item}); }
    void clear() const { call(u"Clear"); }

    // The members of the current cell.
    void setCellBackColor(const Variant& color) const { put(u"CellBackColor", color); }
    void setCellForeColor(const Variant& color) const { put(u"CellForeColor", color); }
    void setCellAlignment(const Variant& alignment) const { put(u"CellAlignment", alignment); }
    void setCellFontBold(const Variant& on) const { put(u"CellFontBold", on); }
    void setCellFontItalic(const Variant& on) const { put(u"CellFontItalic", on); }
    void setCellFontUnderline(const Variant& on) const { put(u"CellFontUnderline", on); }
    void setCellFontSize(const Variant& size) const { put(u"CellFontSize", size); }
    void setCellFontName(const Variant& name) const { put(u"CellFontName", name); }
    // A picture object, assigned by reference (Set).
    void setCellPicture(const Variant& picture) const {
        Variant args[] = {picture};
        object().invoke(u"CellPicture", InvokeKind::PropertyPutRef, args);
    }
    void setCellPictureAlignment(const Variant& alignment) const { put(u"CellPictureAlignment", alignment); }
    String cellText() const { return toString(get(u"CellText")); }

    // The grid's font (Font.Name, Font.Size) and whether the grid is seen.
    ObjectHandle font() const { return objectOf(get(u"Font")); }
    void setVisible(const Variant& on) const { put(u"Visible", on); }
};

}  // namespace telvaro::callers

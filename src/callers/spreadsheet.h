// The spreadsheet application the exports drive ("Excel.Application"), in
// the words of the export code: the application with its workbooks, the
// active sheet with its cells, columns and ranges, a range's font, width
// and border. Every member is looked up by name when it is called, so the
// same code drives the desktop application on Windows and the embedded
// sheet on Linux, and an application that refuses a step fails at that
// step with its own error.
#pragma once

#include <cstdint>

#include "callers/caller_object.h"

namespace telvaro::callers {

// A cell, a block of cells or whole columns.
class SheetRange : public CallerObject {
public:
    using CallerObject::CallerObject;

    void setValue(const Variant& value) const { put(u"Value", value); }
    void setFontBold(const Variant& on) const { font().put(u"Bold", on); }
    void setFontSize(const Variant& size) const { font().put(u"Size", size); }
    void setColumnWidth(const Variant& width) const { put(u"ColumnWidth", width); }
    // BorderAround(LineStyle, Weight, ColorIndex).
    void borderAround(std::int32_t lineStyle, std::int32_t weight, std::int32_t colorIndex) const {
        call(u"BorderAround", {Variant(lineStyle), Variant(weight), Variant(colorIndex)});
    }

private:
    ObjectHandle font() const { return objectOf(get(u"Font")); }
};

class Worksheet : public CallerObject {
public:
    using CallerObject::CallerObject;

    SheetRange cells(const Variant& row, const Variant& column) const {
        return SheetRange(get(u"Cells", {row, column}));
    }
    // Cells(row, column) = value: the value goes to the cell as typed.
    void setCell(const Variant& row, const Variant& column, Variant value) const {
        put(u"Cells", {row, column}, std::move(value));
    }
    // Columns("B").
    SheetRange columns(const Variant& letter) const { return SheetRange(get(u"Columns", {letter})); }
    // Range(cell1, cell2): the block between two corner cells.
    SheetRange range(const SheetRange& first, const SheetRange& last) const {
        return SheetRange(get(u"Range", {first.asVariant(), last.asVariant()}));
    }
};

class SpreadsheetApplication : public CallerObject {
public:
    using CallerObject::CallerObject;

    // Workbooks.Add: a new workbook, which becomes the active one.
    void addWorkbook() const { objectOf(get(u"Workbooks")).call(u"Add"); }
    Worksheet activeSheet() const { return Worksheet(get(u"ActiveSheet")); }
    void setVisible(const Variant& on) const { put(u"Visible", on); }
};

// The constants of BorderAround the exports use: a continuous, thin line
// in the palette's black.
inline constexpr std::int32_t kLineContinuous = 1;
inline constexpr std::int32_t kWeightThin = 2;
inline constexpr std::int32_t kColorIndexBlack = 1;

}  // namespace telvaro::callers

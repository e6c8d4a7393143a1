// A control of the caller's form as printing reads it: its kind, place and
// size, what it shows (caption, text, value, picture, a grid's cells with
// their formatting), its font and colours. Every member is looked up by
// name when it is called; printing runs each read as a statement of its
// own, so a control that lacks a member (a label has no Text) is printed
// with what it has.
#pragma once

#include <cstdint>

#include "callers/control.h"
#include "callers/flex_grid.h"

namespace telvaro::callers {

// A caller's font object (a control's Font, the Letra of the line cutting).
class FontObject : public CallerObject {
public:
    using CallerObject::CallerObject;

    String name() const { return toString(get(u"Name")); }
    double size() const { return toDouble(get(u"Size")); }
    bool bold() const { return toBoolean(get(u"Bold")).isTrue(); }
    bool italic() const { return toBoolean(get(u"Italic")).isTrue(); }
    bool underline() const { return toBoolean(get(u"Underline")).isTrue(); }
};

class PrintedControl : public Control {
public:
    using Control::Control;

    double left() const { return toDouble(get(u"Left")); }
    double top() const { return toDouble(get(u"Top")); }
    double width() const { return toDouble(get(u"Width")); }
    double height() const { return toDouble(get(u"Height")); }
    bool visible() const { return toBoolean(get(u"Visible")).isTrue(); }
    String caption() const { return toString(get(u"Caption")); }
    std::int16_t alignment() const { return toInteger(get(u"Alignment")); }
    std::int16_t value() const { return toInteger(get(u"Value")); }
    bool multiLine() const { return toBoolean(get(u"MultiLine")).isTrue(); }
    std::int32_t foreColor() const { return toLong(get(u"ForeColor")); }
    std::int32_t backColor() const { return toLong(get(u"BackColor")); }
    FontObject font() const { return FontObject(get(u"Font")); }
    Variant picture() const { return get(u"Picture"); }
    // A line control's ends.
    double x1() const { return toDouble(get(u"X1")); }
    double y1() const { return toDouble(get(u"Y1")); }
    double x2() const { return toDouble(get(u"X2")); }
    double y2() const { return toDouble(get(u"Y2")); }
};

// A grid's cells as printing reads them: each formatting member of the
// current cell.
class PrintedGrid : public FlexGrid {
public:
    using FlexGrid::FlexGrid;

    double colWidthValue(std::int32_t col) const { return toDouble(colWidth(Variant(col))); }
    double rowHeightValue(std::int32_t row) const { return toDouble(rowHeight(Variant(row))); }
    std::int16_t cellAlignment() const { return toInteger(get(u"CellAlignment")); }
    std::int32_t cellBackColor() const { return toLong(get(u"CellBackColor")); }
    std::int32_t cellForeColor() const { return toLong(get(u"CellForeColor")); }
    String cellFontName() const { return toString(get(u"CellFontName")); }
    double cellFontSize() const { return toDouble(get(u"CellFontSize")); }
    bool cellFontBold() const { return toBoolean(get(u"CellFontBold")).isTrue(); }
    bool cellFontItalic() const { return toBoolean(get(u"CellFontItalic")).isTrue(); }
    bool cellFontUnderline() const { return toBoolean(get(u"CellFontUnderline")).isTrue(); }
    Variant cellPicture() const { return get(u"CellPicture"); }
};

}  // namespace telvaro::callers

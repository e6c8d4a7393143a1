// How the sheet takes a value assigned to a cell. Numbers, Booleans and
// dates keep their type. Text is read the way the spreadsheet reads what
// the user types: text that reads as a number under the regional settings
// becomes that number, text that reads as a date becomes that date, text
// that starts with an apostrophe stays text (without the apostrophe), and
// an empty text empties the cell. Objects give their default value.
#pragma once

#include <cstdint>

#include "runtime/variant.h"
#include "sheet/cell_style.h"

namespace telvaro::sheet {

enum class CellKind : std::uint8_t { Blank, Number, Text, Boolean };

// The longest text a cell holds.
inline constexpr std::size_t kMaxCellText = 32767;

struct CellValue {
    CellKind kind = CellKind::Blank;
    double number = 0;                         // Number (a date's serial), Boolean (1 or 0)
    StringView text;                           // Text: a view of the assigned value's own text
    NumberShape shape = NumberShape::General;  // Date or DateTime for dates
};

// Error 13 for arrays and error values, error 1004 for a text longer than a
// cell holds, error 91 for Nothing. A text is viewed, not copied: the
// answer is good while `value` is.
CellValue cellValueOf(const Variant& value);

}  // namespace telvaro::sheet

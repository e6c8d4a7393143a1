// The column list of the grid loaders and its format codes. `Campos` is a
// list of entries separated by ",": a field name, or a field name, "|" and
// a format code ("Codigo, Nombre, Precio|N$, Alta|F"). Entry k goes to grid
// column ColInicio + k; names are compared trimmed and upper-cased.
//
// Codes, compared as text (case does not matter), kept as written (a blank
// after the "|" makes the code a pattern):
//
//   none, "x"  the value as text ("" for Null)
//   V          the value as text, then a check box on the cell
//   N          Format(value, NumDeci)             12.5 -> 12.50
//   N%         the value as text and "%", only when Val of that text > 0
//   N$         "$ " & Format(value, "##0.00")    12.5 -> $ 12.50
//   HL H HM HH times: 08:05:09, 08:05, 8h 05m, 08h
//   FC F FM    dates: 15/03/24, 15/03/2024, 15-mar-2024
//   FD FL FF   with the day: vie, 15-mar-2024; vie, 15 de marzo del 2024;
//              viernes, 15 de marzo del 2024
//   FT         15 de marzo del 2024
//   ;n;z;p;u   by the value: negative, zero, positive, Null; a section
//              starting with ":" is literal text, any other a pattern
//   any other  the code itself as the Format pattern
//
// A value a fixed code cannot take is error 13: text that is no number
// under N or N$, text that is no date under a time or date code.
#pragma once

#include <optional>
#include <vector>

#include "runtime/variant.h"

namespace telvaro {
class Fun;
}

namespace telvaro::db {

class ColumnFormat {
public:
    // `code` as written after the "|", "x" for an entry without one;
    // `numberPattern` is the pattern of code N (NumDeci).
    ColumnFormat(String code, const String& numberPattern);

    // A check-box column: the cell gets fn_PoneCheckGrid after its text.
    bool isCheckBox() const { return kind_ == Kind::CheckBox; }

    // The cell's new text for `value`, or nothing when the cell is left as
    // it was (N% of a value not above 0, a conditional code whose value is
    // neither Null nor a number).
    std::optional<String> cellText(Fun& fun, const Variant& value) const;

private:
    enum class Kind { Plain, CheckBox, Number, Percent, Money, Time, Date, Pattern, Conditional };
    struct Sections {
        String negative, zero, positive, null;
    };
    const Sections& sections(Fun& fun) const;

    Kind kind_ = Kind::Plain;
    String code_;
    String pattern_;                            // of Number, Money, Time, Date and Pattern
    String suffix_;                             // after the formatted value (HH)
    mutable std::optional<Sections> sections_;  // a conditional code, cut at its first use
};

// The entries of `Campos`: the names (trimmed, upper-cased) as the array
// that fn_BuscaEnVector searches, and one format per entry.
struct ColumnList {
    Variant names;
    std::vector<ColumnFormat> formats;
};
ColumnList readColumnList(Fun& fun, const String& Campos, const String& NumDeci);

}  // namespace telvaro::db

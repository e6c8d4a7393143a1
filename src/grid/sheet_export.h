// What the two spreadsheet exports share: the spreadsheet application made
// through the platform ("Excel.Application"), the column letter that
// advances one character code per exported column, and the progress steps
// on frmProg. Both exports run with errors ignored, so each helper is one
// statement that may fail and be skipped by the caller's SkipErrors.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>

#include "callers/progress_form.h"
#include "callers/spreadsheet.h"
#include "context/error_modes.h"
#include "runtime/checked.h"

namespace telvaro {
class Fun;
}

namespace telvaro::grid {

// CreateObject("Excel.Application").
callers::SpreadsheetApplication createSpreadsheet(Fun& fun);

// The object a statement needs; error 91 when an earlier statement that
// should have set it failed (an object variable never set).
template <typename T>
const T& needed(const std::optional<T>& object) {
    if (!object) raise(err::ObjectVariableNotSet);
    return *object;
}

// The one-character column letter of the exports: it starts at "B" and
// becomes the next character code per column. Only "A" to "Z" name a
// column here: the letters after "Z" ("[", "a", ...) are refused with 13 as
// an invalid column name, so the widths stop at column Z whatever the
// spreadsheet would make of them.
class ColumnLetter {
public:
    // The width statement: Columns(letter).ColumnWidth = width.
    void setWidth(const callers::Worksheet& sheet, const Variant& width) const;
    // letter = ChrW(AscW(letter) + 1): fails (5) past the last code unit.
    void advance();
    char16_t code() const { return static_cast<char16_t>(code_); }

private:
    std::int32_t code_ = u'B';
};

// frmProg while the rows are copied. When the form cannot be loaded every
// step is a statement that fails and is skipped, so the steps are left out
// altogether.
class ExportProgress {
public:
    ExportProgress(Fun& fun, SkipErrors& onError);
    // Max = maximum, Value = 0, Show modeless, ZOrder 0.
    void start(const Variant& maximum);
    // Value = Value + 1; Caption = "Progreso . . .      (" & Value & " de " & total & ")".
    void step(const std::function<Variant()>& total);
    // Unload frmProg.
    void finish();

private:
    SkipErrors& onError_;
    std::optional<callers::ProgressForm> form_;
    std::optional<std::int32_t> refused_;  // the value the bar last refused
};

}  // namespace telvaro::grid

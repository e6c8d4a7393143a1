// The error the spreadsheet raises for a member given values it cannot
// take: number 1004, "Application-defined or object-defined error".
#pragma once

#include "runtime/error.h"

namespace telvaro::sheet {

inline constexpr int kSheetError = 1004;

[[noreturn]] inline void raiseSheetError() { raise(kSheetError); }

// The most cells one assignment may touch cell by cell (a value, a font or
// a border on a block); beyond it the assignment raises error 7.
inline constexpr std::int64_t kMaxCellsPerAssignment = std::int64_t{1} << 20;

}  // namespace telvaro::sheet

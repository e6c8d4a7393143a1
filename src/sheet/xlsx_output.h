// Writes a buffered worksheet as an .xlsx file. The file is written under
// a temporary name in the destination folder and then given its final
// name, "<base><n>.xlsx" with the first n free, without ever replacing a
// file that exists: a reader never sees a half-written workbook, and a
// failed write leaves nothing behind.
#pragma once

#include <filesystem>
#include <string>

#include "sheet/sheet_data.h"

namespace telvaro::sheet {

inline constexpr const char* kSheetName = "Hoja1";

// The path written. Error 76 when the folder cannot be made, 75 when the
// file cannot be created or named, 57 when writing it fails.
std::filesystem::path writeXlsx(const SheetData& sheet, const std::filesystem::path& folder,
                                const std::string& baseName);

}  // namespace telvaro::sheet

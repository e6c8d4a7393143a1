// Reading a written workbook back for the tests: the python reader prints
// one line per cell (value, bold, size, number format, edges) and one per
// column width; widths come back about 0.71 wider than set and are kept
// apart so that they can be compared with a tolerance.
#pragma once

#include <cstdio>
#include <filesystem>
#include <map>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

namespace telvaro::sheet::testing {

struct SheetFile {
    std::vector<std::string> cells;
    std::map<std::string, double> widths;
    std::string sheetName;
    bool readable = false;
};

inline SheetFile readSheetFile(const std::filesystem::path& path) {
    SheetFile file;
    const std::string command =
        "/usr/bin/python3 " TELVARO_SOURCE_DIR "/tests/sheet/read_xlsx.py '" + path.string() + "' 2>&1";
    std::unique_ptr<FILE, int (*)(FILE*)> pipe(::popen(command.c_str(), "r"), ::pclose);
    if (!pipe) return file;
    std::string output;
    char buffer[4096];
    while (std::size_t n = std::fread(buffer, 1, sizeof buffer, pipe.get())) output.append(buffer, n);
    std::istringstream lines(output);
    for (std::string line; std::getline(lines, line);) {
        if (line.rfind("width ", 0) == 0) {
            std::istringstream parts(line.substr(6));
            std::string letter;
            double width = 0;
            parts >> letter >> width;
            file.widths[letter] = width;
        } else if (line.rfind("sheet ", 0) == 0) {
            file.sheetName = line.substr(6);
            file.readable = true;
        } else {
            file.cells.push_back(line);
        }
    }
    return file;
}

// What openpyxl reads back for a width set through ColumnWidth; the file
// keeps widths in whole pixels, so a width comes back within a tolerance.
inline double widthReadBack(double set) { return set + 0.71; }
inline constexpr double kWidthTolerance = 0.1;

}  // namespace telvaro::sheet::testing

#include "sheet/xlsx_output.h"

#include <xlsxwriter.h>

#include <memory>
#include <system_error>
#include <vector>

#include "runtime/error.h"
#include "sheet/workbook_file.h"

namespace telvaro::sheet {

namespace {

namespace fs = std::filesystem;

lxw_color_t fileColor(std::uint32_t color) { return color == 0 ? lxw_color_t{LXW_COLOR_BLACK} : lxw_color_t{color}; }

// The workbook's formats, one per style the cells use, made when first
// needed; the default style has none.
class Formats {
public:
    Formats(lxw_workbook* book, const StyleTable& styles)
        : book_(book), styles_(styles), made_(styles.size(), nullptr) {}

    lxw_format* operator[](StyleId id) {
        if (id == kDefaultStyle) return nullptr;
        // Looks folded from rules while writing are new to the table.
        if (id >= made_.size()) made_.resize(styles_.size(), nullptr);
        if (!made_[id]) made_[id] = make(styles_[id]);
        return made_[id];
    }

private:
    lxw_format* make(const CellStyle& style) {
        lxw_format* f = workbook_add_format(book_);
        if (!f) raise(err::OutOfMemory);
        if (style.bold) format_set_bold(f);
        if (style.fontSize != kDefaultFontSize) format_set_font_size(f, style.fontSize);
        if (style.shape == NumberShape::Date) format_set_num_format(f, "dd/mm/yyyy");
        if (style.shape == NumberShape::DateTime) format_set_num_format(f, "dd/mm/yyyy hh:mm:ss");
        edge(f, style.top, format_set_top, format_set_top_color);
        edge(f, style.bottom, format_set_bottom, format_set_bottom_color);
        edge(f, style.left, format_set_left, format_set_left_color);
        edge(f, style.right, format_set_right, format_set_right_color);
        return f;
    }

    static void edge(lxw_format* f, const Edge& e, void (*setStyle)(lxw_format*, uint8_t),
                     void (*setColor)(lxw_format*, lxw_color_t)) {
        if (e.style == 0) return;
        setStyle(f, e.style);
        if (e.color != kAutomaticColor) setColor(f, fileColor(e.color));
    }

    lxw_workbook* book_;
    const StyleTable& styles_;
    std::vector<lxw_format*> made_;
};

void check(lxw_error result) {
    if (result == LXW_NO_ERROR) return;
    if (result == LXW_ERROR_MEMORY_MALLOC_FAILED) raise(err::OutOfMemory);
    raise(err::DeviceIOError);
}

void writeCells(lxw_workbook* book, lxw_worksheet* page, const SheetData& sheet) {
    Formats formats(book, sheet.styles());
    for (const auto& [column, info] : sheet.columns()) {
        if (!info.widthSet && info.style == kDefaultStyle) continue;
        const auto c = static_cast<lxw_col_t>(column - 1);
        check(worksheet_set_column(page, c, c, info.width, formats[info.style]));
    }
    sheet.forEachCell([&](std::int32_t r, const Cell& cell, const char* text) {
        const auto row = static_cast<lxw_row_t>(r - 1);
        const auto col = static_cast<lxw_col_t>(cell.column - 1);
        lxw_format* format = formats[cell.style];
        switch (cell.kind) {
            case CellKind::Blank:
                if (format) check(worksheet_write_blank(page, row, col, format));
                break;
            case CellKind::Number: check(worksheet_write_number(page, row, col, cell.number, format)); break;
            case CellKind::Boolean: check(worksheet_write_boolean(page, row, col, cell.number != 0, format)); break;
            case CellKind::Text: check(worksheet_write_string(page, row, col, text, format)); break;
        }
    });
}

// Writes the whole file under `path`; the file is removed on failure.
void writeFile(const SheetData& sheet, const fs::path& path, const fs::path& folder) {
    std::string tmpdir = writerPath(folder);
    lxw_workbook_options options{};
    options.constant_memory = LXW_TRUE;
    options.tmpdir = tmpdir.data();
    lxw_workbook* book = workbook_new_opt(writerPath(path).c_str(), &options);
    if (!book) raise(err::PathFileAccessError);
    try {
        lxw_worksheet* page = workbook_add_worksheet(book, kSheetName);
        if (!page) raise(err::OutOfMemory);
        writeCells(book, page, sheet);
    } catch (...) {
        workbook_close(book);
        removeFile(path);
        throw;
    }
    if (workbook_close(book) != LXW_NO_ERROR) {
        removeFile(path);
        raise(err::DeviceIOError);
    }
}

}  // namespace

fs::path writeXlsx(const SheetData& sheet, const fs::path& folder, const std::string& baseName) {
    std::error_code ec;
    fs::create_directories(folder, ec);
    if (ec || !fs::is_directory(folder)) raise(err::PathNotFound);
    const fs::path temporary = reserveTemporary(folder);
    writeFile(sheet, temporary, folder);
    return publish(temporary, folder, baseName);
}

}  // namespace telvaro::sheet

// The direct way of writing the benchmarks' sheets: libxlsxwriter in
// constant-memory mode with the formats the exports give their boxes.
#pragma once

#include <xlsxwriter.h>

#include <string>

namespace telvaro::bench {

// A workbook whose temporary files go into `folder`.
inline lxw_workbook* openDirectWorkbook(const std::string& path, std::string& folder) {
    lxw_workbook_options options{};
    options.constant_memory = LXW_TRUE;
    options.tmpdir = folder.data();
    return workbook_new_opt(path.c_str(), &options);
}

// Thin black left and right edges, and the top and bottom ones when asked.
inline lxw_format* boxFormat(lxw_workbook* book, bool top, bool bottom, bool bold) {
    lxw_format* f = workbook_add_format(book);
    format_set_left(f, LXW_BORDER_THIN);
    format_set_right(f, LXW_BORDER_THIN);
    format_set_left_color(f, LXW_COLOR_BLACK);
    format_set_right_color(f, LXW_COLOR_BLACK);
    if (top) {
        format_set_top(f, LXW_BORDER_THIN);
        format_set_top_color(f, LXW_COLOR_BLACK);
    }
    if (bottom) {
        format_set_bottom(f, LXW_BORDER_THIN);
        format_set_bottom_color(f, LXW_COLOR_BLACK);
    }
    if (bold) format_set_bold(f);
    return f;
}

}  // namespace telvaro::bench

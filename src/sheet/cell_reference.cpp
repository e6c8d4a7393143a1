#include "sheet/cell_reference.h"

#include <algorithm>

namespace telvaro::sheet {

namespace {

bool isLetter(char16_t c) { return (c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z'); }
bool isDigit(char16_t c) { return c >= u'0' && c <= u'9'; }
int letterValue(char16_t c) { return (c >= u'a' ? c - u'a' : c - u'A') + 1; }

// One side of a reference: an optional column and an optional row, each
// possibly fixed with "$". Both absent is not a side.
struct Side {
    std::optional<std::int32_t> column;
    std::optional<std::int32_t> row;
};

std::optional<Side> parseSide(StringView text) {
    Side side;
    std::size_t i = 0;
    if (i < text.size() && text[i] == u'$') ++i;
    std::size_t letters = i;
    while (i < text.size() && isLetter(text[i])) ++i;
    if (i > letters) {
        side.column = columnNumber(text.substr(letters, i - letters));
        if (!side.column) return std::nullopt;
    } else if (letters > 0 && (i >= text.size() || !isDigit(text[i]))) {
        return std::nullopt;  // a "$" with nothing after it
    }
    if (i < text.size() && text[i] == u'$') {
        if (!side.column) return std::nullopt;
        ++i;
        if (i >= text.size()) return std::nullopt;
    }
    std::size_t digits = i;
    std::int64_t row = 0;
    while (i < text.size() && isDigit(text[i])) {
        row = row * 10 + (text[i] - u'0');
        if (row > kMaxRows) return std::nullopt;
        ++i;
    }
    if (i != text.size()) return std::nullopt;
    if (i > digits) {
        if (!validRow(row)) return std::nullopt;
        side.row = static_cast<std::int32_t>(row);
    }
    if (!side.column && !side.row) return std::nullopt;
    return side;
}

}  // namespace

CellBlock CellBlock::spanning(const CellBlock& a, const CellBlock& b) {
    return {std::min({a.firstRow, a.lastRow, b.firstRow, b.lastRow}),
            std::min({a.firstColumn, a.lastColumn, b.firstColumn, b.lastColumn}),
            std::max({a.firstRow, a.lastRow, b.firstRow, b.lastRow}),
            std::max({a.firstColumn, a.lastColumn, b.firstColumn, b.lastColumn})};
}

bool validRow(std::int64_t row) { return row >= 1 && row <= kMaxRows; }
bool validColumn(std::int64_t column) { return column >= 1 && column <= kMaxColumns; }

std::optional<std::int32_t> columnNumber(StringView letters) {
    if (letters.empty() || letters.size() > 3) return std::nullopt;
    std::int32_t n = 0;
    for (char16_t c : letters) {
        if (!isLetter(c)) return std::nullopt;
        n = n * 26 + letterValue(c);
    }
    if (!validColumn(n)) return std::nullopt;
    return n;
}

String columnLetters(std::int32_t column) {
    String letters;
    while (column > 0) {
        int digit = (column - 1) % 26;
        letters.insert(letters.begin(), static_cast<char16_t>(u'A' + digit));
        column = (column - 1) / 26;
    }
    return letters;
}

std::optional<CellBlock> parseReference(StringView text) {
    auto colon = text.find(u':');
    auto first = parseSide(text.substr(0, colon));
    if (!first) return std::nullopt;
    if (colon == StringView::npos) {
        // A lone side must name a cell: "B" or "5" alone is not a reference.
        if (!first->column || !first->row) return std::nullopt;
        return CellBlock::cell(*first->row, *first->column);
    }
    auto second = parseSide(text.substr(colon + 1));
    if (!second) return std::nullopt;
    const bool firstCell = first->column && first->row, secondCell = second->column && second->row;
    if (firstCell && secondCell)
        return CellBlock::spanning(CellBlock::cell(*first->row, *first->column),
                                   CellBlock::cell(*second->row, *second->column));
    if (!first->row && !second->row)  // "B:D"
        return CellBlock::spanning(CellBlock::columns(*first->column, *first->column),
                                   CellBlock::columns(*second->column, *second->column));
    if (!first->column && !second->column)  // "4:6"
        return CellBlock::spanning({*first->row, 1, *first->row, kMaxColumns},
                                   {*second->row, 1, *second->row, kMaxColumns});
    return std::nullopt;  // "B5:D" and the like
}

String referenceText(const CellBlock& block) {
    auto corner = [](std::int32_t row, std::int32_t column) {
        return columnLetters(column) + ascii(std::to_string(row));
    };
    String text = corner(block.firstRow, block.firstColumn);
    if (block.area() > 1) text += u":" + corner(block.lastRow, block.lastColumn);
    return text;
}

}  // namespace telvaro::sheet

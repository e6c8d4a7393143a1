// The contents of one worksheet, held until the workbook is written: only
// the cells that were given a value or a look, row by row, each row's cells
// in column order, so that the file can be written row after row. Texts
// live in shared text pages; styles in a StyleTable.
//
// A look given to a large block (a box drawn around a column of 100,000
// rows before its values arrive) is not spread over new empty cells: it is
// kept as a rule. The cells the block already holds take the look at once;
// a cell made later inside the block starts with the looks of the rules and
// column styles that cover it, applied in the order they were given, which
// is what the cell would have had if it had been there all along. Places a
// rule covers that never get a cell are written as empty cells with the
// look.
//
// A long sheet does not stay in memory: once more than a set number of cells
// are held, the oldest rows go to a scratch file in the workbooks' folder
// (SpillFile), each with the order number of the next change, and come back
// when one of their cells is changed. The changes given while a row is away
// are applied to it, in order, when it comes back or is written.
#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <limits>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "runtime/variant.h"
#include "sheet/cell_reference.h"
#include "sheet/cell_style.h"
#include "sheet/cell_value.h"
#include "sheet/spill_file.h"

namespace telvaro::sheet {

struct Cell {
    std::uint16_t column = 0;
    CellKind kind = CellKind::Blank;
    StyleId style = kDefaultStyle;
    union {
        double number;
        struct {
            std::uint32_t offset;
            std::uint32_t length;
        } text;
    };
    Cell() : number(0) {}
};

// A change of look. It is kept for cells made later, so it must own what it
// uses (capture by value).
using StyleChange = std::function<void(CellStyle&)>;

// What a column carries besides its cells: a width, the style its new cells
// start with, and the changes that made that style (ordered among the rules).
struct ColumnInfo {
    double width = kDefaultColumnWidth;
    bool widthSet = false;
    StyleId style = kDefaultStyle;
    std::vector<std::pair<std::uint32_t, StyleChange>> changes;  // (order, change)
};

class SheetData {
public:
    using Row = std::vector<Cell>;

    // At most about this many cells are held in memory; older rows go to a
    // scratch file in `folder`.
    static constexpr std::size_t kMostHeldCells = std::size_t{1} << 14;
    void spillInto(std::filesystem::path folder, std::size_t mostHeldCells = kMostHeldCells);

    void setValue(std::int32_t row, std::int32_t column, const CellValue& value);
    // Every cell of the block (error 7 beyond kMaxCellsPerAssignment).
    void setValue(const CellBlock& block, const CellValue& value);
    Variant value(std::int32_t row, std::int32_t column) const;
    const CellStyle& style(std::int32_t row, std::int32_t column) const;

    // Changes the look of every cell of the block (error 7 beyond
    // kMaxCellsPerAssignment); for whole columns, also the columns' own
    // style.
    void restyle(const CellBlock& block, const StyleChange& change);

    void setColumnWidth(std::int32_t column, double width);
    double columnWidth(std::int32_t column) const;

    // Every cell to write, row by row (1-based) and in column order within a
    // row: the cells held, and an empty cell wherever a rule gives a look to
    // a place without one; `text` is the UTF-8 text of a Text cell, ending in
    // a NUL.
    void forEachCell(const std::function<void(std::int32_t row, const Cell&, const char* text)>& visit) const;
    const std::map<std::int32_t, ColumnInfo>& columns() const { return columns_; }
    const StyleTable& styles() const { return styles_; }
    // Bytes held by the buffered sheet.
    std::size_t memoryInUse() const;

private:
    // Texts go into pages of 256 KiB that never move; a cell's offset is the
    // page number and the place in the page.
    static constexpr unsigned kPageBits = 18;
    static constexpr std::uint32_t kPageMask = (1u << kPageBits) - 1;
    // At most this many rules: a mask of the rules covering a place is one
    // 64-bit word. Later large blocks are spread over cells as small ones.
    static constexpr std::size_t kMostRules = 64;
    // A block of more cells than this becomes a rule.
    static constexpr std::int64_t kSmallBlock = 64;

    // The rows by number, in blocks of 1024 made when first used and freed
    // when none of their rows is held (a long sheet's rows are mostly in the
    // scratch file).
    class RowTable {
    public:
        static constexpr std::size_t kBlock = 1024;
        std::size_t size() const { return size_; }
        void growTo(std::size_t rows) {
            if (rows <= size_) return;
            size_ = rows;
            blocks_.resize((rows + kBlock - 1) / kBlock);
        }
        Row& operator[](std::size_t i) {
            auto& block = blocks_[i / kBlock];
            if (!block) block = std::make_unique<Block>();
            return (*block)[i % kBlock];
        }
        Row* find(std::size_t i) { return blocks_[i / kBlock] ? &(*blocks_[i / kBlock])[i % kBlock] : nullptr; }
        const Row* find(std::size_t i) const {
            return blocks_[i / kBlock] ? &(*blocks_[i / kBlock])[i % kBlock] : nullptr;
        }
        // Frees the block of row i when it holds no row any more.
        void freeIfEmpty(std::size_t i);
        std::size_t memoryInUse() const;

    private:
        using Block = std::array<Row, kBlock>;
        std::vector<std::unique_ptr<Block>> blocks_;
        std::size_t size_ = 0;
    };

    struct StyleRule {
        CellBlock block;
        std::uint32_t order;
        StyleChange change;
    };
    // Where a row that went to the scratch file is (its offset + 1, 0 while
    // it is held) and the order number of the first change it has not seen,
    // in one word per row.
    struct SpillEntry {
        std::uint64_t word = 0;
        static constexpr unsigned kOffsetBits = 40;
        static constexpr std::uint64_t kMostOffset = (std::uint64_t{1} << kOffsetBits) - 2;
        static constexpr std::uint32_t kMostOrder = (std::uint32_t{1} << (64 - kOffsetBits)) - 1;
        bool away() const { return word != 0; }
        std::uint64_t offset() const { return (word & ((std::uint64_t{1} << kOffsetBits) - 1)) - 1; }
        std::uint32_t since() const { return static_cast<std::uint32_t>(word >> kOffsetBits); }
        static SpillEntry at(std::uint64_t offset, std::uint32_t since) {
            return {(offset + 1) | (std::uint64_t{since} << kOffsetBits)};
        }
    };
    // A row as it stands, held or read back from the scratch file.
    struct RowView {
        const Cell* cells = nullptr;
        std::size_t count = 0;
        const char* texts = nullptr;  // a read-back row's own texts
        std::uint32_t since = 0;
    };

    Cell& cellAt(std::int32_t row, std::int32_t column);
    RowView rowView(std::int32_t row) const;
    const Cell* findCell(const RowView& view, std::int32_t column) const;
    const char* textOf(const RowView& view, const Cell& cell) const;
    void store(Cell& cell, const CellValue& value);
    std::string& pageWithRoom(std::size_t bytes);
    std::uint32_t storeText(std::string_view utf8);
    std::uint32_t storeText(StringView text, std::uint32_t& length);
    void releaseText(const Cell& cell);
    bool away(std::size_t row) const { return row <= spills_.size() && spills_[row - 1].away(); }
    void spillRows(std::int32_t keep);
    void bringBack(std::int32_t row);
    // A cell's style with the changes given since `since` that cover it.
    StyleId pendingStyle(StyleId style, std::int32_t row, std::int32_t column, std::uint32_t since) const;
    StyleId columnStyle(std::int32_t column) const;
    std::uint64_t rulesCovering(std::int32_t row, std::int32_t column) const;
    // The style a new cell at the place starts with.
    StyleId startingStyle(std::int32_t row, std::int32_t column) const;
    void restyleHeldCells(const CellBlock& block, const StyleChange& change);

    RowTable rows_;
    std::map<std::int32_t, ColumnInfo> columns_;
    std::vector<StyleRule> rules_;
    std::uint32_t nextOrder_ = 0;
    std::int32_t lastRuleRow_ = 0;
    // Interning never changes what a style id means, so looking a style up
    // may add it.
    mutable StyleTable styles_;
    std::vector<std::string> texts_;
    std::vector<std::uint32_t> pageLive_;  // text cells held per page
    std::string sparePage_;                // a freed page's memory, kept for the next page

    std::filesystem::path spillFolder_;
    std::unique_ptr<SpillFile> spillFile_;
    std::size_t mostHeldCells_ = 0;  // 0: rows never leave memory
    std::size_t heldCells_ = 0;
    std::size_t spillScan_ = 0;  // rows below are away or empty
    std::vector<SpillEntry> spills_;
    std::vector<char> spillBuffer_;  // the rows being sent, kept between sends
    using PendingKey = std::tuple<StyleId, std::int32_t, std::uint64_t, std::uint32_t>;
    mutable std::map<PendingKey, StyleId> pending_;
    mutable std::vector<std::pair<PendingKey, StyleId>> lastPending_;  // by column: the last answer
    struct StartingStyle {
        std::uint32_t order = std::numeric_limits<std::uint32_t>::max();  // nextOrder_ when it was found
        std::uint64_t rules = 0;
        StyleId style = kDefaultStyle;
    };
    mutable std::vector<StartingStyle> lastStarting_;  // by column: the last starting style found
    mutable std::vector<Cell> readCells_;
    mutable std::vector<char> readTexts_;
};

}  // namespace telvaro::sheet

#include "sheet/sheet_data.h"

#include <algorithm>
#include <cstring>
#include <limits>

#include "runtime/error.h"
#include "sheet/sheet_error.h"

namespace telvaro::sheet {

namespace {

// The styles one restyle turns into others, remembered for the call.
class StyleChanges {
public:
    StyleChanges(StyleTable& table, const StyleChange& change) : table_(table), change_(change) {}
    StyleId operator()(StyleId from) {
        for (const auto& [old, now] : seen_)
            if (old == from) return now;
        CellStyle style = table_[from];
        change_(style);
        StyleId to = table_.intern(style);
        seen_.emplace_back(from, to);
        return to;
    }

private:
    StyleTable& table_;
    const StyleChange& change_;
    std::vector<std::pair<StyleId, StyleId>> seen_;
};

void checkSize(const CellBlock& block) {
    if (block.area() > kMaxCellsPerAssignment) raise(err::OutOfMemory);
}

bool holds(const CellBlock& block, std::int32_t row, std::int32_t column) {
    return row >= block.firstRow && row <= block.lastRow && column >= block.firstColumn && column <= block.lastColumn;
}

template <typename Cells>
auto columnBound(Cells& cells, std::int32_t column) {
    return std::lower_bound(cells.begin(), cells.end(), column,
                            [](const Cell& c, std::int32_t col) { return c.column < col; });
}

}  // namespace

void SheetData::RowTable::freeIfEmpty(std::size_t i) {
    auto& block = blocks_[i / kBlock];
    if (block && std::all_of(block->begin(), block->end(), [](const Row& r) { return r.capacity() == 0; }))
        block.reset();
}

std::size_t SheetData::RowTable::memoryInUse() const {
    std::size_t bytes = blocks_.capacity() * sizeof(blocks_[0]);
    for (const auto& block : blocks_) {
        if (!block) continue;
        bytes += sizeof(Block);
        for (const Row& cells : *block) bytes += cells.capacity() * sizeof(Cell);
    }
    return bytes;
}

StyleId SheetData::columnStyle(std::int32_t column) const {
    auto it = columns_.find(column);
    return it == columns_.end() ? kDefaultStyle : it->second.style;
}

std::uint64_t SheetData::rulesCovering(std::int32_t row, std::int32_t column) const {
    std::uint64_t mask = 0;
    for (std::size_t i = 0; i < rules_.size(); ++i)
        if (holds(rules_[i].block, row, column)) mask |= std::uint64_t{1} << i;
    return mask;
}

// A place no rule covers starts with its column's style; one a rule covers,
// with every change that covers it, applied to the default look in order.
// Places of a column under the same rules start alike until the next
// change, so the answer is kept per column.
StyleId SheetData::startingStyle(std::int32_t row, std::int32_t column) const {
    if (rules_.empty()) return columnStyle(column);
    const std::uint64_t rules = rulesCovering(row, column);
    if (rules == 0) return columnStyle(column);
    const auto place = static_cast<std::size_t>(column);
    if (place < lastStarting_.size() && lastStarting_[place].order == nextOrder_ && lastStarting_[place].rules == rules)
        return lastStarting_[place].style;
    const StyleId style = pendingStyle(kDefaultStyle, row, column, 0);
    if (place >= lastStarting_.size()) lastStarting_.resize(place + 1);
    lastStarting_[place] = {nextOrder_, rules, style};
    return style;
}

Cell& SheetData::cellAt(std::int32_t row, std::int32_t column) {
    if (mostHeldCells_ != 0 && heldCells_ >= mostHeldCells_) spillRows(row);
    rows_.growTo(static_cast<std::size_t>(row));
    if (away(row)) bringBack(row);
    Row& cells = rows_[row - 1];
    // Rows are usually alike: room for as many cells as the row above.
    if (cells.capacity() == 0 && row > 1) {
        const Row* above = rows_.find(row - 2);
        cells.reserve(std::max<std::size_t>(1, above ? above->size() : 0));
    }
    auto at = cells.end();
    if (!cells.empty() && cells.back().column >= column) at = columnBound(cells, column);
    if (at != cells.end() && at->column == column) return *at;
    Cell fresh;
    fresh.column = static_cast<std::uint16_t>(column);
    fresh.style = startingStyle(row, column);
    ++heldCells_;
    return *cells.insert(at, fresh);
}

SheetData::RowView SheetData::rowView(std::int32_t row) const {
    if (row < 1 || static_cast<std::size_t>(row) > rows_.size()) return {};
    if (!away(row)) {
        const Row* cells = rows_.find(row - 1);
        if (!cells) return {nullptr, 0, nullptr, nextOrder_};
        return {cells->data(), cells->size(), nullptr, nextOrder_};
    }
    // Read back into scratch buffers, valid until the next read.
    const SpillEntry entry = spills_[row - 1];
    const char* record = spillFile_->read(entry.offset(), 8);
    std::uint32_t count = 0, textBytes = 0;
    std::memcpy(&count, record, sizeof count);
    std::memcpy(&textBytes, record + sizeof count, sizeof textBytes);
    record = spillFile_->read(entry.offset() + 8, static_cast<std::uint32_t>(count * sizeof(Cell) + textBytes));
    readCells_.resize(count);
    std::memcpy(static_cast<void*>(readCells_.data()), record, count * sizeof(Cell));
    readTexts_.assign(record + count * sizeof(Cell), record + count * sizeof(Cell) + textBytes);
    return {readCells_.data(), readCells_.size(), readTexts_.data(), entry.since()};
}

const Cell* SheetData::findCell(const RowView& view, std::int32_t column) const {
    const Cell* end = view.cells + view.count;
    const Cell* at =
        std::lower_bound(view.cells, end, column, [](const Cell& c, std::int32_t col) { return c.column < col; });
    return at != end && at->column == column ? at : nullptr;
}

const char* SheetData::textOf(const RowView& view, const Cell& cell) const {
    if (view.texts) return view.texts + cell.text.offset;
    return texts_[cell.text.offset >> kPageBits].data() + (cell.text.offset & kPageMask);
}

void SheetData::spillInto(std::filesystem::path folder, std::size_t mostHeldCells) {
    spillFolder_ = std::move(folder);
    mostHeldCells_ = std::max<std::size_t>(mostHeldCells, 2);
}

// Sends the oldest rows (the lowest held ones, but not `keep`) to the scratch
// file until half the allowance is held. When the file cannot be made or
// written, the rows stay and no row leaves memory any more.
void SheetData::spillRows(std::int32_t keep) {
    if (!spillFile_) {
        spillFile_ = SpillFile::create(spillFolder_);
        if (!spillFile_) {
            mostHeldCells_ = 0;
            return;
        }
    }
    std::vector<char>& bytes = spillBuffer_;
    bytes.clear();
    std::vector<std::pair<std::size_t, std::uint32_t>> sent;  // (row index, record size)
    std::size_t r = spillScan_;
    std::size_t left = heldCells_;
    for (; r < rows_.size() && left > mostHeldCells_ / 2; ++r) {
        const Row* held = rows_.find(r);
        if (!held || held->empty() || static_cast<std::int32_t>(r + 1) == keep) continue;
        const Row& cells = *held;
        const std::size_t start = bytes.size();
        std::uint32_t textBytes = 0;
        for (const Cell& cell : cells)
            if (cell.kind == CellKind::Text) textBytes += cell.text.length + 1;
        const auto count = static_cast<std::uint32_t>(cells.size());
        // The record: the counts, the cells (a text cell's offset now
        // counting in the record's texts), then the texts.
        const auto append = [&bytes](const void* from, std::size_t size) {
            const char* first = static_cast<const char*>(from);
            bytes.insert(bytes.end(), first, first + size);
        };
        append(&count, sizeof count);
        append(&textBytes, sizeof textBytes);
        std::uint32_t used = 0;
        for (Cell cell : cells) {
            if (cell.kind == CellKind::Text) {
                cell.text.offset = used;
                used += cell.text.length + 1;
            }
            append(&cell, sizeof cell);
        }
        for (const Cell& cell : cells)
            if (cell.kind == CellKind::Text) append(textOf(RowView{}, cell), cell.text.length + 1);
        sent.emplace_back(r, static_cast<std::uint32_t>(bytes.size() - start));
        left -= cells.size();
    }
    if (sent.empty()) return;
    const auto offset = spillFile_->append(bytes);
    if (!offset || *offset + bytes.size() > SpillEntry::kMostOffset || nextOrder_ > SpillEntry::kMostOrder) {
        mostHeldCells_ = 0;
        return;
    }
    if (spills_.size() < rows_.size()) spills_.resize(rows_.size());
    std::uint64_t at = *offset;
    for (const auto& [index, size] : sent) {
        spills_[index] = SpillEntry::at(at, nextOrder_);
        at += size;
        Row& cells = rows_[index];
        for (const Cell& cell : cells) releaseText(cell);
        heldCells_ -= cells.size();
        Row().swap(cells);
    }
    for (std::size_t i = 0; i < sent.size(); ++i)
        if (i + 1 == sent.size() || sent[i + 1].first / RowTable::kBlock != sent[i].first / RowTable::kBlock)
            rows_.freeIfEmpty(sent[i].first);
    spillScan_ = r;
}

// Brings a row back from the scratch file, with the changes it missed.
void SheetData::bringBack(std::int32_t row) {
    const RowView view = rowView(row);
    Row cells(view.cells, view.cells + view.count);
    for (Cell& cell : cells) {
        if (cell.kind == CellKind::Text)
            cell.text.offset = storeText({view.texts + cell.text.offset, cell.text.length});
        cell.style = pendingStyle(cell.style, row, cell.column, view.since);
    }
    heldCells_ += cells.size();
    rows_[row - 1] = std::move(cells);
    spills_[row - 1] = {};
    spillScan_ = std::min<std::size_t>(spillScan_, static_cast<std::size_t>(row - 1));
}

StyleId SheetData::pendingStyle(StyleId style, std::int32_t row, std::int32_t column, std::uint32_t since) const {
    if (since == nextOrder_) return style;
    std::uint64_t rules = 0;
    for (std::size_t i = 0; i < rules_.size(); ++i)
        if (rules_[i].order >= since && holds(rules_[i].block, row, column)) rules |= std::uint64_t{1} << i;
    const auto info = columns_.find(column);
    const bool columnChanged =
        info != columns_.end() && !info->second.changes.empty() && info->second.changes.back().first >= since;
    if (rules == 0 && !columnChanged) return style;
    const auto key = std::make_tuple(style, column, rules, since);
    // Cells made in order mostly ask what the cell above asked.
    const auto place = static_cast<std::size_t>(column);
    if (place < lastPending_.size() && lastPending_[place].first == key) return lastPending_[place].second;
    if (place >= lastPending_.size()) lastPending_.resize(place + 1, {std::make_tuple(kDefaultStyle, 0, 0, 0), 0});
    if (auto it = pending_.find(key); it != pending_.end()) {
        lastPending_[place] = {key, it->second};
        return it->second;
    }
    std::vector<std::pair<std::uint32_t, const StyleChange*>> changes;
    if (columnChanged)
        for (const auto& [order, change] : info->second.changes)
            if (order >= since) changes.emplace_back(order, &change);
    for (std::size_t i = 0; i < rules_.size(); ++i)
        if (rules & (std::uint64_t{1} << i)) changes.emplace_back(rules_[i].order, &rules_[i].change);
    std::sort(changes.begin(), changes.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
    CellStyle look = styles_[style];
    for (const auto& entry : changes) (*entry.second)(look);
    const StyleId id = styles_.intern(look);
    pending_.emplace(key, id);
    return id;
}

std::string& SheetData::pageWithRoom(std::size_t bytes) {
    constexpr std::size_t kPage = std::size_t{1} << kPageBits;
    if (texts_.empty() || texts_.back().size() + bytes > texts_.back().capacity()) {
        if (texts_.size() >= (std::size_t{1} << (32 - kPageBits))) raise(err::OutOfMemory);
        // A page let go of earlier is used again rather than fresh memory.
        std::string& fresh = texts_.emplace_back();
        if (sparePage_.capacity() >= bytes) fresh.swap(sparePage_);
        fresh.clear();
        fresh.reserve(std::max(kPage, bytes));
        pageLive_.push_back(0);
    }
    ++pageLive_.back();
    return texts_.back();
}

std::uint32_t SheetData::storeText(std::string_view utf8) {
    std::string& page = pageWithRoom(utf8.size() + 1);
    const auto offset = static_cast<std::uint32_t>(((texts_.size() - 1) << kPageBits) | page.size());
    page += utf8;
    page += '\0';
    return offset;
}

// Encoded straight into the page: a UTF-16 unit takes at most three bytes.
std::uint32_t SheetData::storeText(StringView text, std::uint32_t& length) {
    std::string& page = pageWithRoom(text.size() * 3 + 1);
    const std::size_t start = page.size();
    const auto offset = static_cast<std::uint32_t>(((texts_.size() - 1) << kPageBits) | start);
    appendUtf8(page, text);
    length = static_cast<std::uint32_t>(page.size() - start);
    page += '\0';
    return offset;
}

// A text cell lets go of its text; a full page no cell uses any more is freed.
void SheetData::releaseText(const Cell& cell) {
    if (cell.kind != CellKind::Text) return;
    const std::size_t page = cell.text.offset >> kPageBits;
    if (--pageLive_[page] == 0 && page + 1 < texts_.size()) {
        if (texts_[page].capacity() > sparePage_.capacity()) sparePage_.swap(texts_[page]);
        std::string().swap(texts_[page]);
    }
}

void SheetData::store(Cell& cell, const CellValue& value) {
    releaseText(cell);
    if (value.kind == CellKind::Text) {
        if (value.text.size() > std::numeric_limits<std::uint32_t>::max() / 6) raise(err::OutOfMemory);
        cell.text.offset = storeText(value.text, cell.text.length);
    } else {
        cell.number = value.number;
    }
    cell.kind = value.kind;
    if (value.shape != NumberShape::General && styles_[cell.style].shape == NumberShape::General) {
        CellStyle dated = styles_[cell.style];
        dated.shape = value.shape;
        cell.style = styles_.intern(dated);
    }
}

void SheetData::setValue(std::int32_t row, std::int32_t column, const CellValue& value) {
    store(cellAt(row, column), value);
}

void SheetData::setValue(const CellBlock& block, const CellValue& value) {
    checkSize(block);
    for (std::int32_t r = block.firstRow; r <= block.lastRow; ++r)
        for (std::int32_t c = block.firstColumn; c <= block.lastColumn; ++c) setValue(r, c, value);
}

Variant SheetData::value(std::int32_t row, std::int32_t column) const {
    const RowView view = rowView(row);
    const Cell* cell = findCell(view, column);
    if (!cell) return {};
    switch (cell->kind) {
        case CellKind::Blank: return {};
        case CellKind::Text: return Variant(fromUtf8({textOf(view, *cell), cell->text.length}));
        case CellKind::Boolean: return Variant(Boolean(cell->number != 0));
        case CellKind::Number:
            if (styles_[cell->style].shape != NumberShape::General) return Variant(Date{cell->number});
            return Variant(cell->number);
    }
    return {};
}

const CellStyle& SheetData::style(std::int32_t row, std::int32_t column) const {
    const RowView view = rowView(row);
    const Cell* cell = findCell(view, column);
    return styles_[cell ? pendingStyle(cell->style, row, column, view.since) : startingStyle(row, column)];
}

void SheetData::restyleHeldCells(const CellBlock& block, const StyleChange& change) {
    StyleChanges changes(styles_, change);
    const auto last = std::min<std::size_t>(rows_.size(), static_cast<std::size_t>(block.lastRow));
    for (std::size_t r = static_cast<std::size_t>(block.firstRow); r <= last; ++r) {
        Row* held = rows_.find(r - 1);
        if (!held) continue;
        Row& cells = *held;
        for (auto at = columnBound(cells, block.firstColumn); at != cells.end() && at->column <= block.lastColumn; ++at)
            at->style = changes(at->style);
    }
}

void SheetData::restyle(const CellBlock& block, const StyleChange& change) {
    if (block.wholeColumns()) {
        // The columns take the style, and so do the cells they already hold.
        if (block.columnCount() > kMaxColumns) raise(err::OutOfMemory);
        StyleChanges changes(styles_, change);
        const std::uint32_t order = nextOrder_++;
        for (std::int32_t c = block.firstColumn; c <= block.lastColumn; ++c) {
            ColumnInfo& info = columns_[c];
            info.style = changes(info.style);
            info.changes.emplace_back(order, change);
        }
        pending_.clear();
        lastPending_.clear();
        restyleHeldCells(block, change);
        return;
    }
    checkSize(block);
    if (block.area() > kSmallBlock && rules_.size() < kMostRules) {
        restyleHeldCells(block, change);
        rules_.push_back({block, nextOrder_++, change});
        lastRuleRow_ = std::max(lastRuleRow_, block.lastRow);
        return;
    }
    StyleChanges changes(styles_, change);
    for (std::int32_t r = block.firstRow; r <= block.lastRow; ++r)
        for (std::int32_t c = block.firstColumn; c <= block.lastColumn; ++c) {
            Cell& cell = cellAt(r, c);
            cell.style = changes(cell.style);
        }
}

void SheetData::setColumnWidth(std::int32_t column, double width) {
    ColumnInfo& info = columns_[column];
    info.width = width;
    info.widthSet = true;
}

double SheetData::columnWidth(std::int32_t column) const {
    auto it = columns_.find(column);
    return it == columns_.end() ? kDefaultColumnWidth : it->second.width;
}

void SheetData::forEachCell(const std::function<void(std::int32_t row, const Cell&, const char* text)>& visit) const {
    const auto lastRow = std::max<std::size_t>(rows_.size(), static_cast<std::size_t>(lastRuleRow_));
    Row merged;
    for (std::size_t r = 1; r <= lastRow; ++r) {
        const auto row = static_cast<std::int32_t>(r);
        const RowView view = rowView(row);
        merged.assign(view.cells, view.cells + view.count);
        if (view.since != nextOrder_)
            for (Cell& cell : merged) cell.style = pendingStyle(cell.style, row, cell.column, view.since);
        // The places of this row a rule covers that hold no cell.
        const std::size_t held = merged.size();
        for (const StyleRule& rule : rules_) {
            if (row < rule.block.firstRow || row > rule.block.lastRow) continue;
            for (std::int32_t c = rule.block.firstColumn; c <= rule.block.lastColumn; ++c) {
                if (findCell(view, c)) continue;
                Cell blank;
                blank.column = static_cast<std::uint16_t>(c);
                blank.style = startingStyle(row, c);
                merged.push_back(blank);
            }
        }
        if (merged.size() != held) {
            std::sort(merged.begin(), merged.end(), [](const Cell& a, const Cell& b) { return a.column < b.column; });
            merged.erase(std::unique(merged.begin(), merged.end(),
                                     [](const Cell& a, const Cell& b) { return a.column == b.column; }),
                         merged.end());
        }
        for (const Cell& cell : merged) visit(row, cell, cell.kind == CellKind::Text ? textOf(view, cell) : nullptr);
    }
}

std::size_t SheetData::memoryInUse() const {
    std::size_t bytes = rows_.memoryInUse() + styles_.size() * sizeof(CellStyle) * 3;
    for (const std::string& page : texts_) bytes += page.capacity();
    bytes += sparePage_.capacity() + spillBuffer_.capacity();
    bytes += spills_.capacity() * sizeof(SpillEntry) + readTexts_.capacity() + readCells_.capacity() * sizeof(Cell);
    bytes += rules_.size() * sizeof(StyleRule) + pending_.size() * 64;
    for (const auto& [column, info] : columns_) bytes += sizeof(ColumnInfo) + 48 + info.changes.size() * 48;
    return bytes;
}

}  // namespace telvaro::sheet

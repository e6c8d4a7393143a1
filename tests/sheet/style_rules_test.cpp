// The looks a sheet gives its cells, whatever mix of small blocks, large
// blocks kept as rules, whole columns and values made them: every place must
// show every change that covered it, applied in the order given, as if each
// place had been a cell from the start.
#include <gtest/gtest.h>

#include <map>
#include <random>
#include <set>

#include "runtime/convert.h"
#include "sheet/sheet_data.h"

namespace telvaro::sheet {
namespace {

struct Change {
    CellBlock block;
    int kind;  // 0 bold on, 1 bold off, 2 size, 3 top edge, 4 left edge
    int amount;
};

void apply(const Change& change, CellStyle& s) {
    switch (change.kind) {
        case 0: s.bold = true; break;
        case 1: s.bold = false; break;
        case 2: s.fontSize = change.amount; break;
        case 3: s.top = Edge{static_cast<std::uint8_t>(change.amount), 0}; break;
        default: s.left = Edge{static_cast<std::uint8_t>(change.amount), 0}; break;
    }
}

bool covers(const CellBlock& b, std::int32_t r, std::int32_t c) {
    return r >= b.firstRow && r <= b.lastRow && c >= b.firstColumn && c <= b.lastColumn;
}

// Held in memory, and with all but a few cells sent to the scratch file.
TEST(SheetLooks, EveryPlaceShowsItsChangesInOrder) {
    constexpr std::int32_t kRows = 300, kColumns = 8;
    for (unsigned seed = 1; seed <= 8; ++seed) {
        SCOPED_TRACE(seed);
        std::mt19937 random(seed);
        auto pick = [&](int low, int high) { return std::uniform_int_distribution<int>(low, high)(random); };
        SheetData sheet;
        if (seed % 2 == 0) sheet.spillInto(::testing::TempDir(), 24);
        std::vector<Change> changes;
        std::set<std::pair<int, int>> held;  // places given a value
        std::map<std::pair<int, int>, std::string> texts;
        // Enough large blocks to pass the number kept as rules.
        for (int step = 0; step < 140; ++step) {
            const int what = pick(0, 9);
            if (what <= 2) {
                const int r = pick(1, kRows), c = pick(1, kColumns);
                const String text = u"t" + String(static_cast<std::size_t>(r % 7), u'x') + u"ñ";
                CellValue value;
                value.kind = CellKind::Text;
                value.text = text;
                sheet.setValue(r, c, value);
                texts[{r, c}] = toUtf8(value.text);
                held.emplace(r, c);
                continue;
            }
            CellBlock block;
            if (what == 3) {
                const int c = pick(1, kColumns);
                block = CellBlock::columns(c, std::min(kColumns, c + pick(0, 2)));
            } else {
                const int r = pick(1, kRows), c = pick(1, kColumns);
                const int rows = what <= 5 ? pick(0, 3) : pick(20, 200);
                block = {r, c, std::min(kRows, r + rows), std::min(kColumns, c + pick(0, 3))};
            }
            const Change change{block, pick(0, 4), pick(1, 13)};
            changes.push_back(change);
            sheet.restyle(block, [change](CellStyle& s) { apply(change, s); });
        }
        std::map<std::pair<int, int>, StyleId> written;
        sheet.forEachCell([&](std::int32_t r, const Cell& cell, const char* text) {
            const auto place = std::make_pair(r, int(cell.column));
            EXPECT_TRUE(written.emplace(place, cell.style).second) << r;
            EXPECT_EQ(text ? std::string(text) : std::string(), texts.count(place) ? texts[place] : "") << r;
        });
        for (std::int32_t r = 1; r <= kRows; ++r)
            for (std::int32_t c = 1; c <= kColumns; ++c) {
                CellStyle expected;
                bool boxed = false;
                for (const Change& change : changes)
                    if (covers(change.block, r, c)) {
                        apply(change, expected);
                        boxed = boxed || !change.block.wholeColumns();
                    }
                ASSERT_EQ(sheet.style(r, c), expected) << r << "," << c;
                ASSERT_EQ(toString(sheet.value(r, c)), texts.count({r, c}) ? fromUtf8(texts[{r, c}]) : String())
                    << r << "," << c;
                auto w = written.find({r, c});
                const bool mustWrite = held.count({r, c}) || (boxed && !(expected == CellStyle{}));
                ASSERT_EQ(w != written.end() && (held.count({r, c}) || !(sheet.styles()[w->second] == CellStyle{})),
                          mustWrite)
                    << r << "," << c;
                if (w != written.end()) {
                    ASSERT_EQ(sheet.styles()[w->second], expected) << r << "," << c;
                }
            }
    }
}

}  // namespace
}  // namespace telvaro::sheet

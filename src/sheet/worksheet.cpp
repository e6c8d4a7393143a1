#include "sheet/worksheet.h"

#include "runtime/convert.h"
#include "sheet/member_name.h"
#include "sheet/range.h"
#include "sheet/sheet_error.h"

namespace telvaro::sheet {

namespace {

constexpr CellBlock kWholeSheet{1, 1, kMaxRows, kMaxColumns};

std::int32_t columnOf(const Variant& v) {
    if (v.isString()) {
        auto column = columnNumber(v.get<String>());
        if (!column) raiseSheetError();
        return *column;
    }
    const std::int32_t column = toLong(v);
    if (!validColumn(column)) raiseSheetError();
    return column;
}

// "B", "$B" or "B:D".
std::optional<CellBlock> lettersBlock(StringView text) {
    auto side = [](StringView s) {
        if (!s.empty() && s.front() == u'$') s.remove_prefix(1);
        return columnNumber(s);
    };
    auto colon = text.find(u':');
    auto first = side(text.substr(0, colon));
    auto last = colon == StringView::npos ? first : side(text.substr(colon + 1));
    if (!first || !last) return std::nullopt;
    return CellBlock::spanning(CellBlock::columns(*first, *first), CellBlock::columns(*last, *last));
}

}  // namespace

CellBlock Worksheet::cellsBlock(std::span<const Variant> args) {
    if (args.empty()) return kWholeSheet;
    if (args.size() > 2) raise(err::WrongNumberOfArguments);
    if (!given(args, 1)) {
        if (!given(args, 0)) return kWholeSheet;
        // Cells(n): the n-th cell counting along the rows.
        const std::int64_t n = toLong(args[0]);
        if (n < 1 || n > std::int64_t{kMaxRows} * kMaxColumns) raiseSheetError();
        return CellBlock::cell(static_cast<std::int32_t>((n - 1) / kMaxColumns + 1),
                               static_cast<std::int32_t>((n - 1) % kMaxColumns + 1));
    }
    if (!given(args, 0)) raise(err::ArgumentNotOptional);
    const std::int32_t row = toLong(args[0]);
    if (!validRow(row)) raiseSheetError();
    return CellBlock::cell(row, columnOf(args[1]));
}

CellBlock Worksheet::columnsBlock(std::span<const Variant> args) {
    if (args.size() > 1) raise(err::WrongNumberOfArguments);
    if (!given(args, 0)) return kWholeSheet;
    if (args[0].isString()) {
        auto block = lettersBlock(args[0].get<String>());
        if (!block) raise(err::TypeMismatch);
        return *block;
    }
    const std::int32_t column = toLong(args[0]);
    if (!validColumn(column)) raiseSheetError();
    return CellBlock::columns(column, column);
}

CellBlock Worksheet::blockOf(const WorkbookDocument* doc, const Variant& corner) const {
    if (corner.isObject()) {
        auto* range = dynamic_cast<const CellRange*>(objectOf(corner).ref().get());
        // A range of another sheet cannot be a corner of this one.
        if (!range || range->document() != doc) raiseSheetError();
        return range->block();
    }
    if (!corner.isString()) raise(err::TypeMismatch);
    auto block = parseReference(corner.get<String>());
    if (!block) raiseSheetError();
    return *block;
}

CellBlock Worksheet::rangeBlock(std::span<const Variant> args) const {
    if (args.size() > 2) raise(err::WrongNumberOfArguments);
    if (!given(args, 0)) raise(err::ArgumentNotOptional);
    CellBlock block = blockOf(doc_.get(), args[0]);
    if (given(args, 1)) block = CellBlock::spanning(block, blockOf(doc_.get(), args[1]));
    return block;
}

Variant Worksheet::invoke(StringView member, InvokeKind kind, std::span<Variant> args) {
    const bool putting = kind == InvokeKind::PropertyPut || kind == InvokeKind::PropertyPutRef;
    // For an assignment the last argument is the value, the others name the block.
    std::span<const Variant> indices = putting && !args.empty() ? args.first(args.size() - 1) : args;
    CellBlock block;
    if (isMember(member, u"Cells"))
        block = cellsBlock(indices);
    else if (isMember(member, u"Columns"))
        block = columnsBlock(indices);
    else if (isMember(member, u"Range"))
        block = rangeBlock(indices);
    else
        raiseNoSuchMember();
    if (!putting) return Variant(ObjectRef(std::make_shared<CellRange>(app_, doc_, block)));
    if (args.empty()) raise(err::ArgumentNotOptional);
    const CellValue value = cellValueOf(args.back());
    if (block.area() == 1)
        edit().setValue(block.firstRow, block.firstColumn, value);
    else
        edit().setValue(block, value);
    return {};
}

}  // namespace telvaro::sheet

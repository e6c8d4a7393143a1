#include "sheet/range.h"

#include "runtime/convert.h"
#include "sheet/font.h"
#include "sheet/member_name.h"
#include "sheet/sheet_error.h"

namespace telvaro::sheet {

namespace {

constexpr double kWidestColumn = 255;

bool reading(InvokeKind kind) { return kind == InvokeKind::Method || kind == InvokeKind::PropertyGet; }

}  // namespace

void CellRange::borderAround(std::span<const Variant> args) {
    if (args.size() > 4) raise(err::WrongNumberOfArguments);
    const std::int32_t lineStyle = given(args, 0) ? toLong(args[0]) : line_style::Continuous;
    const std::int32_t weight = given(args, 1) ? toLong(args[1]) : border_weight::Thin;
    auto style = borderStyle(lineStyle, weight);
    auto color = paletteColor(given(args, 2) ? toLong(args[2]) : color_index::Automatic);
    if (given(args, 3)) color = rgbColor(toLong(args[3]));
    if (!style || !color) raiseSheetError();
    const Edge edge{*style, *color};
    const CellBlock& b = block_;
    SheetData& data = edit();
    data.restyle({b.firstRow, b.firstColumn, b.firstRow, b.lastColumn}, [edge](CellStyle& s) { s.top = edge; });
    data.restyle({b.lastRow, b.firstColumn, b.lastRow, b.lastColumn}, [edge](CellStyle& s) { s.bottom = edge; });
    data.restyle({b.firstRow, b.firstColumn, b.lastRow, b.firstColumn}, [edge](CellStyle& s) { s.left = edge; });
    data.restyle({b.firstRow, b.lastColumn, b.lastRow, b.lastColumn}, [edge](CellStyle& s) { s.right = edge; });
}

Variant CellRange::columnWidth() const {
    const double first = sheet().columnWidth(block_.firstColumn);
    for (std::int32_t c = block_.firstColumn + 1; c <= block_.lastColumn; ++c)
        if (sheet().columnWidth(c) != first) return Variant(Null{});
    return Variant(first);
}

void CellRange::setColumnWidth(const Variant& value) {
    const double width = toDouble(value);
    if (!(width >= 0 && width <= kWidestColumn)) raiseSheetError();
    SheetData& data = edit();
    for (std::int32_t c = block_.firstColumn; c <= block_.lastColumn; ++c) data.setColumnWidth(c, width);
}

Variant CellRange::invoke(StringView member, InvokeKind kind, std::span<Variant> args) {
    const bool putting = kind == InvokeKind::PropertyPut || kind == InvokeKind::PropertyPutRef;
    if (member.empty() || isMember(member, u"Value")) {
        if (reading(kind) && args.empty()) return sheet().value(block_.firstRow, block_.firstColumn);
        if (putting && args.size() == 1) {
            const CellValue value = cellValueOf(args[0]);
            if (block_.area() == 1)
                edit().setValue(block_.firstRow, block_.firstColumn, value);
            else
                edit().setValue(block_, value);
            return {};
        }
        raise(err::WrongNumberOfArguments);
    }
    if (isMember(member, u"Font") && reading(kind) && args.empty())
        return Variant(ObjectRef(std::make_shared<Font>(app_, doc_, block_)));
    if (isMember(member, u"BorderAround") && !putting) {
        borderAround(args);
        return {};
    }
    if (isMember(member, u"ColumnWidth")) {
        if (reading(kind) && args.empty()) return columnWidth();
        if (putting && args.size() == 1) {
            setColumnWidth(args[0]);
            return {};
        }
        raise(err::WrongNumberOfArguments);
    }
    raiseNoSuchMember();
}

}  // namespace telvaro::sheet

#include "sheet/font.h"

#include "runtime/convert.h"
#include "sheet/member_name.h"
#include "sheet/sheet_error.h"

namespace telvaro::sheet {

namespace {
// The sizes the spreadsheet accepts, in points.
constexpr double kSmallestSize = 1;
constexpr double kLargestSize = 409;
}  // namespace

template <typename Read>
Variant Font::shared(Read read) const {
    const SheetData& data = sheet();
    const Variant first = read(data.style(block_.firstRow, block_.firstColumn));
    // A block too large to visit answers for its first cell.
    if (block_.area() > kMaxCellsPerAssignment) return first;
    for (std::int32_t r = block_.firstRow; r <= block_.lastRow; ++r)
        for (std::int32_t c = block_.firstColumn; c <= block_.lastColumn; ++c)
            if (!identical(read(data.style(r, c)), first)) return Variant(Null{});
    return first;
}

Variant Font::invoke(StringView member, InvokeKind kind, std::span<Variant> args) {
    const bool reading = kind == InvokeKind::Method || kind == InvokeKind::PropertyGet;
    const bool putting = kind == InvokeKind::PropertyPut || kind == InvokeKind::PropertyPutRef;
    if (isMember(member, u"Bold")) {
        if (reading && args.empty()) return shared([](const CellStyle& s) { return Variant(Boolean(s.bold)); });
        if (putting && args.size() == 1) {
            const bool bold = toBoolean(args[0]).isTrue();
            edit().restyle(block_, [bold](CellStyle& s) { s.bold = bold; });
            return {};
        }
        raise(err::WrongNumberOfArguments);
    }
    if (isMember(member, u"Size")) {
        if (reading && args.empty()) return shared([](const CellStyle& s) { return Variant(s.fontSize); });
        if (putting && args.size() == 1) {
            const double size = toDouble(args[0]);
            if (!(size >= kSmallestSize && size <= kLargestSize)) raiseSheetError();
            edit().restyle(block_, [size](CellStyle& s) { s.fontSize = size; });
            return {};
        }
        raise(err::WrongNumberOfArguments);
    }
    raiseNoSuchMember();
}

}  // namespace telvaro::sheet

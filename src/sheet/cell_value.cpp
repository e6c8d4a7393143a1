#include "sheet/cell_value.h"

#include <cmath>

#include "runtime/convert.h"
#include "runtime/datetime.h"
#include "runtime/error.h"
#include "runtime/object.h"
#include "runtime/regional.h"
#include "runtime/text.h"
#include "sheet/sheet_error.h"

namespace telvaro::sheet {

namespace {

// Longer texts are neither numbers nor dates; they are not read at all.
constexpr std::size_t kLongestReadableText = 64;

CellValue dateValue(double serial) {
    CellValue v;
    v.kind = CellKind::Number;
    v.number = serial;
    v.shape = serial == std::floor(serial) ? NumberShape::Date : NumberShape::DateTime;
    return v;
}

CellValue textValue(StringView text) {
    CellValue v;
    if (text.empty()) return v;
    if (text.size() > kMaxCellText) raiseSheetError();
    if (text.front() == u'\'') {
        if (text.size() == 1) return v;
        v.kind = CellKind::Text;
        v.text = text.substr(1);
        return v;
    }
    // The runtime's "&H" and "&O" numbers are not numbers to the sheet.
    const auto first = text.find_first_not_of(u' ');
    const bool radixPrefixed = first != StringView::npos && text[first] == u'&';
    if (text.size() <= kLongestReadableText && !radixPrefixed) {
        if (auto number = parseNumber(text)) {
            v.kind = CellKind::Number;
            v.number = *number;
            return v;
        }
        if (auto serial = parseDate(text, regional())) return dateValue(*serial);
    }
    v.kind = CellKind::Text;
    v.text = text;
    return v;
}

}  // namespace

CellValue cellValueOf(const Variant& value) {
    CellValue v;
    switch (value.type()) {
        case VarType::Empty:
        case VarType::Null: return v;
        case VarType::Boolean:
            v.kind = CellKind::Boolean;
            v.number = value.get<Boolean>().isTrue() ? 1 : 0;
            return v;
        case VarType::Byte:
        case VarType::Integer:
        case VarType::Long:
        case VarType::Double:
        case VarType::Currency:
        case VarType::Decimal:
            v.kind = CellKind::Number;
            v.number = toDouble(value);
            if (!std::isfinite(v.number)) raiseSheetError();
            return v;
        case VarType::Date: return dateValue(value.get<Date>().serial);
        case VarType::String: return textValue(value.get<String>());
        case VarType::Object: {
            Variant inner = objectOf(value).get(u"");
            if (inner.isObject()) raise(err::TypeMismatch);
            return cellValueOf(inner);
        }
        default: raise(err::TypeMismatch);
    }
}

}  // namespace telvaro::sheet

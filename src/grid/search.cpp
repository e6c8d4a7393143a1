#include "grid/search.h"

#include "grid/cells.h"
#include "runtime/convert.h"
#include "runtime/text.h"

namespace telvaro::grid {

using callers::FlexGrid;

std::int32_t fn_BuscaColGrid(Fun&, const ObjectRef& Grid, std::int16_t Columna, const Variant& Valor,
                             std::int32_t FilaInic, std::int32_t FilaFin) {
    const FlexGrid grid(Grid);
    std::int32_t found = -1;
    if (FilaFin < 0) FilaFin = Int32::of(openEnd(FilaFin, grid.rows()));
    const auto value = comparableText(Valor);
    forLoop(Int32(FilaInic), FilaFin, [&](Int32 row) {
        if (!cellEquals(grid.textMatrix(row.value(), Columna), value)) return true;
        found = row;
        return false;
    });
    return found;
}

std::int32_t fn_BuscaFilGrid(Fun&, const ObjectRef& Grid, std::int32_t Fila, const Variant& Valor, std::int16_t ColInic,
                             std::int16_t ColFin) {
    const FlexGrid grid(Grid);
    std::int32_t found = -1;
    if (ColFin < 0) ColFin = Int16::of(openEnd(ColFin, grid.cols()));
    const auto value = comparableText(Valor);
    forLoop(Int32(ColInic), ColFin, [&](Int32 col) {
        if (!cellEquals(grid.textMatrix(Fila, col.value()), value)) return true;
        found = col;
        return false;
    });
    return found;
}

namespace {

enum class Comparison { Equal, Greater, Less, GreaterOrEqual, LessOrEqual, None };

Comparison comparisonNamed(StringView operation) {
    if (textEquals(operation, u"=")) return Comparison::Equal;
    if (textEquals(operation, u">")) return Comparison::Greater;
    if (textEquals(operation, u"<")) return Comparison::Less;
    if (textEquals(operation, u">=")) return Comparison::GreaterOrEqual;
    if (textEquals(operation, u"<=")) return Comparison::LessOrEqual;
    return Comparison::None;
}

bool holds(Comparison comparison, StringView cell, const Variant& value) {
    if (comparison == Comparison::Equal) return cellEquals(cell, value);
    if (comparison == Comparison::None || cell.empty()) return false;
    const double a = val(cell);
    const double b = val(toString(value));  // Null: error 94, as Val(Null) raises it
    switch (comparison) {
        case Comparison::Greater: return a > b;
        case Comparison::Less: return a < b;
        case Comparison::GreaterOrEqual: return a >= b;
        case Comparison::LessOrEqual: return a <= b;
        default: return false;
    }
}

}  // namespace

std::int16_t fn_CuentaElementosColGrid(Fun&, const ObjectRef& Grid, std::int16_t Columna, const Variant& Valor,
                                       const String& Operacion, std::int16_t FilaInicio, std::int16_t FilaFin) {
    const FlexGrid grid(Grid);
    if (FilaFin < 0) FilaFin = Int16::of(openEnd(FilaFin, grid.rows()));
    const Comparison comparison = comparisonNamed(Operacion);
    Int16 count = 0;
    forLoop(Int16(FilaInicio), FilaFin, [&](Int16 row) {
        if (holds(comparison, grid.textMatrix(row.value(), Columna), Valor)) ++count;
    });
    return count;
}

}  // namespace telvaro::grid

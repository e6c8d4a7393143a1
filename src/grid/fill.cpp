#include "grid/fill.h"

#include <cmath>

#include "grid/cells.h"
#include "runtime/convert.h"

namespace telvaro::grid {

using callers::FlexGrid;

void fn_ReemplazaValorColumnaGrid(Fun&, const ObjectRef& Grid, std::int16_t Columna, const Variant& Que,
                                  const Variant& ConQue, std::int32_t FilInicio, std::int32_t FilFin) {
    const FlexGrid grid(Grid);
    if (FilFin < 0) FilFin = Int32::of(openEnd(FilFin, grid.rows()));
    const auto wanted = comparableText(Que);
    forLoop(Int32(FilInicio), FilFin, [&](Int32 row) {
        if (cellEquals(grid.textMatrix(row.value(), Columna), wanted)) grid.setTextMatrix(row.value(), Columna, ConQue);
    });
}

void fn_LimpiaFilaGrid(Fun&, const ObjectRef& Grid, std::int32_t Fila, const Variant& ValoraPoner,
                       std::int16_t ColInicio, std::int16_t ColFin) {
    const FlexGrid grid(Grid);
    if (ColFin < 0) ColFin = Int16::of(openEnd(ColFin, grid.cols()));
    forLoop(Int32(ColInicio), ColFin, [&](Int32 col) { grid.setTextMatrix(Fila, col.value(), ValoraPoner); });
}

void fn_LimpiaAreaGrid(Fun&, const ObjectRef& Grid, std::int16_t FilaIni, std::int16_t ColInic, std::int16_t FilaFin,
                       std::int16_t ColFin, const String& PonerEsto) {
    const FlexGrid grid(Grid);
    if (ColFin < 0) ColFin = Int16::of(openEnd(ColFin, grid.cols()));
    if (FilaFin < 0) FilaFin = Int16::of(openEnd(FilaFin, grid.rows()));
    const Variant text(PonerEsto);
    forLoop(Int16(FilaIni), FilaFin, [&](Int16 row) {
        forLoop(Int16(ColInic), ColFin, [&](Int16 col) { grid.setTextMatrix(row.value(), col.value(), text); });
    });
}

void fn_NumeraColumnaGrid(Fun&, const ObjectRef& Grid, std::int16_t Columna, std::int16_t FilaInicial,
                          std::int16_t FilaFin, double NumeroInicial, double Incremento, const String& SignoNumero) {
    const FlexGrid grid(Grid);
    if (FilaFin < 0) FilaFin = Int16::of(openEnd(FilaFin, grid.rows()));
    double number = NumeroInicial;
    forLoop(Int16(FilaInicial), FilaFin, [&](Int16 row) {
        grid.setTextMatrix(row.value(), Columna, toString(Variant(number)) + SignoNumero);
        number += Incremento;
        if (!std::isfinite(number)) raise(err::Overflow);
    });
}

}  // namespace telvaro::grid

#include "grid/formatting.h"

#include "context/enums.h"
#include "grid/cells.h"
#include "text/strings.h"

namespace telvaro::grid {

using callers::FlexGrid;

namespace {

// The current cell as the method found it, put back at the end.
struct SavedCell {
    Variant col, row;
    void restoreColThenRow(const FlexGrid& grid) const {
        grid.setCol(col);
        grid.setRow(row);
    }
    void restoreRowThenCol(const FlexGrid& grid) const {
        grid.setRow(row);
        grid.setCol(col);
    }
};

SavedCell saveCell(const FlexGrid& grid) {
    SavedCell saved;
    saved.col = grid.col();
    saved.row = grid.row();
    return saved;
}

// The centring methods keep Col in a Byte.
SavedCell saveCellWithByteCol(const FlexGrid& grid) {
    SavedCell saved;
    saved.col = toByte(grid.col());
    saved.row = grid.row();
    return saved;
}

}  // namespace

void fn_PintaFilaGrid(Fun&, const ObjectRef& Grid, std::int32_t Fila, std::int32_t Color, std::int32_t ColorLetra,
                      std::int16_t ColInicio, std::int16_t ColFin) {
    const FlexGrid grid(Grid);
    if (ColFin < 0) ColFin = Int16::of(openEnd(ColFin, grid.cols()));
    const SavedCell saved = saveCell(grid);
    grid.setRow(Fila);
    forLoop(Int32(ColInicio), ColFin, [&](Int32 col) {
        grid.setCol(col.value());
        grid.setCellBackColor(Color);
        grid.setCellForeColor(ColorLetra);
    });
    saved.restoreColThenRow(grid);
}

void fn_PintaColumnaGrid(Fun&, const ObjectRef& Grid, std::int16_t Columna, std::int32_t Color, std::int32_t ColorLetra,
                         std::int32_t FilInicio, std::int32_t FilFin) {
    const FlexGrid grid(Grid);
    if (FilFin < 0) FilFin = Int32::of(openEnd(FilFin, grid.rows()));
    const SavedCell saved = saveCell(grid);
    grid.setCol(Columna);
    const Variant back(Color), fore(ColorLetra);
    forLoop(Int32(FilInicio), FilFin, [&](Int32 row) {
        grid.setRow(row.value());
        grid.setCellBackColor(back);
        grid.setCellForeColor(fore);
    });
    saved.restoreColThenRow(grid);
}

void fn_CentraFilaGrid(Fun&, const ObjectRef& Grid, std::int32_t Fila, std::int16_t Alineamiento,
                       std::int16_t ColInicio, std::int16_t ColFin) {
    const FlexGrid grid(Grid);
    grid.setRedraw(False);
    if (ColFin < 0) ColFin = Int16::of(openEnd(ColFin, grid.cols()));
    const SavedCell saved = saveCellWithByteCol(grid);
    grid.setRow(Fila);
    forLoop(Int32(ColInicio), ColFin, [&](Int32 col) {
        grid.setCol(col.value());
        grid.setCellAlignment(Alineamiento);
    });
    saved.restoreColThenRow(grid);
    grid.setRedraw(True);
}

void fn_CentraColumGrid(Fun&, const ObjectRef& Grid, std::int16_t Columna, std::int16_t Alineamiento,
                        std::int32_t FilInicio, std::int32_t FilFin) {
    const FlexGrid grid(Grid);
    if (FilFin < 0) FilFin = Int32::of(openEnd(FilFin, grid.rows()));
    const SavedCell saved = saveCellWithByteCol(grid);
    grid.setRedraw(False);
    grid.setCol(Columna);
    forLoop(Int32(FilInicio), FilFin, [&](Int32 row) {
        grid.setRow(row.value());
        grid.setCellAlignment(Alineamiento);
    });
    saved.restoreColThenRow(grid);
    grid.setRedraw(True);
}

void fn_CambiaLetraFilaGrid(Fun&, const ObjectRef& Grid, std::int32_t Fila, double Tamanio, Boolean Negrita,
                            Boolean Cursiva, Boolean Subrayada, const String& NomLetra, std::int16_t ColInicio,
                            std::int16_t ColFin) {
    const FlexGrid grid(Grid);
    if (ColFin < 0) ColFin = Int16::of(openEnd(ColFin, grid.cols()));
    const SavedCell saved = saveCell(grid);
    grid.setRow(Fila);
    grid.setRedraw(False);
    forLoop(Int32(ColInicio), ColFin, [&](Int32 col) {
        grid.setCol(col.value());
        grid.setCellFontBold(Negrita);
        grid.setCellFontItalic(Cursiva);
        grid.setCellFontUnderline(Subrayada);
        grid.setCellFontSize(Tamanio);
        grid.setCellFontName(NomLetra);
    });
    saved.restoreRowThenCol(grid);
    grid.setRedraw(True);
}

void fn_CambiaAnchoColumnaGrid(Fun& fun, const ObjectRef& Grid, const String& Columnas, const String& Anchos) {
    const FlexGrid grid(Grid);
    grid.setRedraw(False);
    const Variant columns = text::fn_LlenaVector(fun, Columnas, TipoDato::Numero_, u",");
    const Variant widths = text::fn_LlenaVector(fun, Anchos, TipoDato::Numero_, u",");
    const Array& columnList = columns.array();
    const Array& widthList = widths.array();
    // For i = 0 To UBound(columns) with a Byte i: the end must fit a Byte,
    // and the step after 255 overflows.
    const std::uint8_t last = toByte(columnList.ubound());
    for (int i = 0; i <= last; ++i) grid.setColWidth(columnList.at(i), widthList.at(i));
    if (last == 255) raise(err::Overflow);
    grid.setRedraw(True);
}

}  // namespace telvaro::grid

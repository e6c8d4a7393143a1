#include "grid/export.h"

#include "callers/flex_grid.h"
#include "grid/sheet_export.h"
#include "runtime/convert.h"

namespace telvaro::grid {

using callers::SheetRange;
using callers::Worksheet;

namespace {

void boxIn(const SheetRange& range) {
    range.borderAround(callers::kLineContinuous, callers::kWeightThin, callers::kColorIndexBlack);
}

}  // namespace

void fn_ExportaExcelGrid(Fun& fun, const ObjectRef& Grid, std::int16_t FilaInicio, const String& Titulo,
                         const String& SubTitulo, std::int16_t ColInicio, std::int16_t& ColFin, std::int16_t& FilaFin,
                         Boolean PoneLineas) {
    // 1. Every failing statement is skipped.
    SkipErrors onError;
    auto grid = [&] { return callers::FlexGrid(Grid); };  // 91 for Nothing, at each use
    const bool lines = PoneLineas.bits == True.bits;      // only exactly True draws lines

    // 2.
    onError([&] {
        if (FilaFin < 0) FilaFin = Int16::of(std::int64_t{grid().rows()} - 1);
    });
    // 3. The application, a workbook, the end column, the sheet, shown.
    std::optional<callers::SpreadsheetApplication> app;
    std::optional<Worksheet> sheet;
    onError([&] { app = createSpreadsheet(fun); });
    onError([&] { needed(app).addWorkbook(); });
    onError([&] {
        if (ColFin < 0) ColFin = Int16::of(std::int64_t{grid().cols()} - 1);
    });
    onError([&] { sheet = needed(app).activeSheet(); });
    onError([&] { needed(app).setVisible(Variant(True)); });

    // 4. Title and subtitle, written even when empty.
    onError([&] { needed(sheet).setCell(Variant(1), Variant(2), Variant(Titulo)); });
    onError([&] { needed(sheet).cells(Variant(1), Variant(2)).setFontBold(Variant(True)); });
    onError([&] { needed(sheet).cells(Variant(1), Variant(2)).setFontSize(Variant(std::int32_t(12))); });
    onError([&] { needed(sheet).setCell(Variant(3), Variant(2), Variant(SubTitulo)); });
    onError([&] { needed(sheet).cells(Variant(3), Variant(2)).setFontBold(Variant(True)); });

    // 5. Header texts and column widths (the grid's width / 85).
    ColumnLetter letter;
    Int16 sheetCol = 2;
    const auto nextColumn = [&] { onError([&] { sheetCol = sheetCol + 1; }); };
    onError([&] {
        forLoop(Int32(ColInicio), ColFin, [&](Int32 col) {
            onError([&] {
                needed(sheet).setCell(Variant(4), Variant(sheetCol.value()),
                                      Variant(grid().textMatrix(Variant(FilaInicio), Variant(col.value()))));
            });
            onError(
                [&] { letter.setWidth(needed(sheet), Variant(toDouble(grid().colWidth(Variant(col.value()))) / 85)); });
            onError([&] { letter.advance(); });
            nextColumn();
        });
    });

    // 6. Progress: the maximum counts the header row too; the caption's
    // total is the number of data rows.
    ExportProgress progress(fun, onError);
    const auto maximum = [&] { return Int16(FilaFin) - FilaInicio + 1; };
    progress.start(onError.value([&] { return Variant(maximum().value()); }).value_or(Variant()));

    // 7. The data, one sheet row per grid row, every cell as its text.
    std::int32_t sheetRow = 5;
    onError([&] {
        forLoop(Int16(FilaInicio) + 1, FilaFin, [&](Int16 row) {
            sheetCol = 2;
            onError([&] {
                forLoop(Int32(ColInicio), ColFin, [&](Int32 col) {
                    onError([&] {
                        needed(sheet).setCell(Variant(sheetRow), Variant(sheetCol.value()),
                                              Variant(grid().textMatrix(Variant(row.value()), Variant(col.value()))));
                    });
                    nextColumn();
                });
            });
            onError([&] { sheetRow = Int32(sheetRow) + 1; });
            progress.step([&] { return Variant((maximum() - 1).value()); });
        });
    });

    // 8.
    progress.finish();

    // 9. Header cells bold, each boxed, and each column's data block boxed.
    Int16 lastRow = 0;
    onError([&] { lastRow = Int16(FilaFin) - FilaInicio + 4; });
    sheetCol = 2;
    onError([&] {
        forLoop(Int32(ColInicio), ColFin, [&](Int32) {
            if (lines) onError([&] { boxIn(needed(sheet).cells(Variant(4), Variant(sheetCol.value()))); });
            onError([&] { needed(sheet).cells(Variant(4), Variant(sheetCol.value())).setFontBold(Variant(True)); });
            if (lines)
                onError([&] {
                    const Worksheet& s = needed(sheet);
                    boxIn(s.range(s.cells(Variant(5), Variant(sheetCol.value())),
                                  s.cells(Variant(lastRow.value()), Variant(sheetCol.value()))));
                });
            nextColumn();
        });
    });
}

}  // namespace telvaro::grid

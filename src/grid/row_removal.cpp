#include "grid/row_removal.h"

#include "context/error_modes.h"
#include "grid/cells.h"
#include "runtime/text.h"

namespace telvaro::grid {

using callers::FlexGrid;

void fn_QuitaFilaGrid2(Fun&, const ObjectRef& Grid, std::int16_t Fila, Boolean Dejar1Fila) {
    const FlexGrid grid(Grid);
    if (grid.rows() > 2) {
        grid.removeItem(Fila);
    } else if (grid.fixedRows() > 0) {
        grid.setRows(std::int32_t{1});
        if (Dejar1Fila.isTrue()) grid.setRows(std::int32_t{2});
    } else if (grid.rows() > 1) {
        grid.removeItem(Fila);
    } else {
        grid.clear();
    }
}

// Statement by statement, each failure skipped. Three guards keep a grid
// that keeps failing from holding the caller for ever: a loop test that
// fails ends the loop, a removal that fails does not step back onto the
// same row, and a row counter that can go no further (32767) ends the loop.
void fn_QuitaFilasInvalidas(Fun& fun, const ObjectRef& Grid, std::int16_t ColumnaBuscar, const String& ValorNulo,
                            std::uint8_t FilasFixed) {
    SkipErrors onError;
    const auto grid = onError.value([&] { return FlexGrid(Grid); });
    if (!grid) return;
    Int16 row = FilasFixed;
    for (;;) {
        const auto more = onError.value([&] { return row.value() < grid->rows() && grid->rows() > 1; });
        if (!more || !*more) break;
        const auto invalid =
            onError.value([&] { return textEquals(grid->textMatrix(row.value(), ColumnaBuscar), ValorNulo); });
        if (invalid && *invalid) {
            bool removed = false;
            onError([&] {
                fn_QuitaFilaGrid2(fun, Grid, row, False);
                removed = true;
            });
            if (removed) --row;
        }
        bool stepped = false;
        onError([&] {
            ++row;
            stepped = true;
        });
        if (!stepped) break;
    }
    onError.clear();
}

}  // namespace telvaro::grid

#include "db/grid_loading.h"

#include <optional>
#include <vector>

#include "callers/flex_grid.h"
#include "callers/recordset.h"
#include "context/frm_prog.h"
#include "db/column_formats.h"
#include "db/new_recordset.h"
#include "db/query_helpers.h"
#include "grid/check_boxes.h"
#include "grid/formatting.h"
#include "runtime/checked.h"
#include "runtime/convert.h"
#include "runtime/text.h"
#include "text/strings.h"

namespace telvaro::db {

namespace {

constexpr std::int16_t kCentred = 4;
constexpr std::int16_t kLastColumn = -1;

// A field of the result that the column list names: the field object
// (which reads the recordset's current row), its grid column and its code.
struct PlacedField {
    ObjectHandle field;
    std::int32_t column;
    const ColumnFormat* format;
};

// Each field's upper-cased Name looked up in the list of names. The names do
// not change from row to row, so the lookup is made on the first row and
// its answer kept.
std::vector<PlacedField> placeFields(Fun& fun, const callers::Recordset& rs, const ColumnList& columns,
                                     std::int16_t ColInicio) {
    std::vector<PlacedField> placed;
    forLoop(Int32(0), toLong(rs.fieldCount()) - std::int64_t{1}, [&](Int32 j) {
        ObjectHandle field = objectOf(rs.fieldObject(Variant(j.value())));
        const Variant name(upperCase(toString(field.get(u"Name"))));
        const std::int32_t k = text::fn_BuscaEnVector(fun, columns.names, name);
        if (k >= 0)
            placed.push_back(
                {std::move(field), (Int32(ColInicio) + k).value(), &columns.formats[static_cast<std::size_t>(k)]});
    });
    return placed;
}

// Writes the cell (row, column) of one field by its code.
void writeCell(Fun& fun, const callers::FlexGrid& grid, const ObjectRef& Grid, std::int32_t row,
               const PlacedField& placed) {
    std::optional<String> text = placed.format->cellText(fun, placed.field.get(u"Value"));
    if (!text) return;
    grid.setTextMatrix(Variant(row), Variant(placed.column), Variant(std::move(*text)));
    if (placed.format->isCheckBox()) {
        // fn_PoneCheckGrid with its defaults; its column is an Integer.
        grid::fn_PoneCheckGrid(fun, Grid, row, toInt16(placed.column), Variant(std::int16_t(1)),
                               Variant(std::int16_t(0)), Variant(std::int16_t(11)), Variant(std::int16_t(10)), False, 0,
                               0);
    }
}

String progressCaption(const callers::ProgressForm& form) {
    return u"Progreso . . .      (" + toString(form.value()) + u" de " + toString(form.max()) + u")";
}

}  // namespace

String markEmptyNumericSearch(StringView sql) {
    if (inStr(sql, u"'%'") > 0) return replaceText(sql, u"'%'", u"'0.00000000'");
    if (inStr(sql, u"' %'") > 0) return replaceText(sql, u"' %'", u"'0.00000000'");
    return String(sql);
}

void RegLlenaGridRegSql(Fun& fun, const ObjectRef& Conexion, const ObjectRef& Grid, const String& SQL_,
                        const String& Campos, Boolean Limpiar, Boolean Dejar1Fila, std::int32_t FilInicio,
                        std::int16_t ColInicio, Boolean NegritaTit, const String& NumDeci, Boolean ProgresB) {
    // 1. The query, forward-only and read-only.
    const callers::Recordset rs = newRecordset(fun);
    rs.open(Variant(SQL_), Variant(Conexion), kOpenForwardOnly, kLockReadOnly, kUnspecified);
    const callers::FlexGrid grid(Grid);

    // 2. The data rows go; the title rows stay (FilInicio 0: everything).
    if (Limpiar.isTrue()) {
        if (FilInicio != 0) {
            grid.setRows(Variant(FilInicio));
            if (Dejar1Fila.isTrue()) grid.setRows(Variant((Int32(FilInicio) + 1).value()));
        } else {
            grid.clear();
            grid.setRows(Variant(std::int32_t(1)));
        }
    }

    // 3. Nothing to write without a count (none, or -1 from a server cursor).
    const std::int32_t count = toLong(rs.recordCount());
    if (count >= 1) {
        // 4. One grid row per record; the columns must be there already.
        grid.setRows(Variant((Int32(count) + FilInicio).value()));
        // 5.
        const ColumnList columns = readColumnList(fun, Campos, NumDeci);
        // 6. The progress form is shown only for ProgresB exactly True, but
        // any other non-zero ProgresB still counts the rows on it (loading
        // it unseen) and unloads it.
        rs.moveFirst();
        std::optional<callers::ProgressForm> progress;
        auto form = [&]() -> const callers::ProgressForm& {
            if (!progress) progress.emplace(frmProg(fun));
            return *progress;
        };
        if (ProgresB.bits == True.bits) {
            form().setValue(Variant(std::int32_t(0)));
            form().setMax(Variant(count));
            form().show();
        }
        // 7. Row by row from FilInicio.
        Int32 row = FilInicio;
        std::optional<std::vector<PlacedField>> placed;
        while (!toBoolean(rs.eof()).isTrue()) {
            if (ProgresB.isTrue()) {
                form().setValue(Variant(toDouble(form().value()) + 1));
                form().setCaption(Variant(progressCaption(form())));
            }
            if (!placed) placed = placeFields(fun, rs, columns, ColInicio);
            for (const PlacedField& p : *placed) writeCell(fun, grid, Grid, row.value(), p);
            rs.moveNext();
            ++row;
        }
        // 8.
        if (ProgresB.isTrue()) form().unload();
    }

    // 9.
    rs.close();

    // 10. The title rows, designed by the form, centred and bold on request
    // in the grid's own font.
    if (grid.fixedRows() > 0) {
        const String fontName = toString(grid.font().get(u"Name"));
        if (NegritaTit.isTrue()) {
            forLoop(Int32(0), std::int64_t{grid.fixedRows()} - 1, [&](Int32 r) {
                grid::fn_CentraFilaGrid(fun, Grid, r.value(), kCentred, 0, kLastColumn);
                grid::fn_CambiaLetraFilaGrid(fun, Grid, r.value(), toDouble(grid.font().get(u"Size")), True, False,
                                             False, fontName, 0, kLastColumn);
            });
        }
    }
}

void regLlenaGridLIKE(Fun& fun, const ObjectRef& Conexion, const String& SQL_, const ObjectRef& Grid,
                      const String& CamposC, std::int32_t FilaInic, std::int16_t ColInic, Boolean OcultaSiNo,
                      Boolean Deja1rafila) {
    const String statement = markEmptyNumericSearch(SQL_);
    RegLlenaGridRegSql(fun, Conexion, Grid, statement, CamposC, True, Deja1rafila, FilaInic, ColInic, False, u"##0.00",
                       False);
    if (!OcultaSiNo.isTrue() || FilaInic < 0) return;
    const callers::FlexGrid grid(Grid);
    const std::int32_t rows = grid.rows();
    if (rows > 1) {
        grid.setVisible(Variant(True));
    } else if (rows == 1) {
        // From row 0 a single row may be a record: shown when its last cell has text.
        const bool shown =
            FilaInic >= 1
                ? false
                : !grid.textMatrix(Variant(std::int32_t(0)), Variant((Int32(grid.cols()) - 1).value())).empty();
        grid.setVisible(Variant(Boolean(shown)));
    }
}

}  // namespace telvaro::db

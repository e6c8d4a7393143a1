#include "db/query_export.h"

#include "context/enums.h"
#include "db/new_recordset.h"
#include "db/query_helpers.h"
#include "grid/sheet_export.h"
#include "runtime/convert.h"
#include "text/strings.h"

namespace telvaro::db {

using callers::SheetRange;
using callers::Worksheet;
using grid::needed;

namespace {

// Element i of a zero-based array: error 9 outside it.
template <typename T>
const T& element(const std::vector<T>& items, std::int32_t i) {
    if (i < 0 || static_cast<std::size_t>(i) >= items.size()) raise(err::SubscriptOutOfRange);
    return items[static_cast<std::size_t>(i)];
}

void boxIn(const SheetRange& range) {
    range.borderAround(callers::kLineContinuous, callers::kWeightThin, callers::kColorIndexBlack);
}

}  // namespace

void ExportExcelReg(Fun& fun, const ObjectRef& Conexion, const String& Campos, const String& Anchos, const String& SQL_,
                    const String& Titulo) {
    // 1. n commas: the arrays run from 0 to n.
    const Int16 n = text::strCuentaCaracteres(fun, Campos, u",", 1);
    // 2.
    const Variant fields = text::fn_LlenaVector(fun, Campos, TipoDato::String_, u",");
    const Variant widths = text::fn_LlenaVector(fun, Anchos, TipoDato::Numero_, u",");
    // 3. Element i of each list; a shorter width list is error 9 here.
    std::vector<String> headers;
    std::vector<double> columnWidths;
    forLoop(Int32(0), n, [&](Int32 i) {
        headers.push_back(toString(fields.array().at(i)));
        columnWidths.push_back(toDouble(widths.array().at(i)));
    });
    // 4. Forward-only, read-only, command type unspecified.
    const callers::Recordset rs = newRecordset(fun);
    rs.open(Variant(SQL_), Variant(Conexion), kOpenForwardOnly, kLockReadOnly, kUnspecified);
    // 5. Borders are always drawn for a query.
    EscribeHojaRecordset(fun, rs, headers, columnWidths, Titulo, True);
    // 6.
    rs.close();
}

void EscribeHojaRecordset(Fun& fun, const callers::Recordset& Registro, const std::vector<String>& Encabezados,
                          const std::vector<double>& Anchos, const String& Titulo, Boolean PoneLineas) {
    // 1. Every failing statement is skipped.
    SkipErrors onError;
    const bool lines = PoneLineas.bits == True.bits;
    // 2.
    std::int32_t recordCount = 0;
    onError([&] { recordCount = toLong(Registro.recordCount()); });
    grid::ColumnLetter letter;
    const auto columns = static_cast<std::int32_t>(Encabezados.size());

    // 3. The application, a workbook, the sheet, shown.
    std::optional<callers::SpreadsheetApplication> app;
    std::optional<Worksheet> sheet;
    onError([&] { app = grid::createSpreadsheet(fun); });
    onError([&] { needed(app).addWorkbook(); });
    onError([&] { sheet = needed(app).activeSheet(); });
    onError([&] { needed(app).setVisible(Variant(True)); });

    // 4. A narrow margin column. 5. The title.
    onError([&] { needed(sheet).columns(Variant(u"A")).setColumnWidth(Variant(std::int32_t(6))); });
    onError([&] { needed(sheet).setCell(Variant(2), Variant(3), Variant(Titulo)); });
    onError([&] { needed(sheet).cells(Variant(2), Variant(3)).setFontBold(Variant(True)); });
    onError([&] { needed(sheet).cells(Variant(2), Variant(3)).setFontSize(Variant(std::int32_t(14))); });

    // 6. Headers, widths as given, and the boxes: the data box runs one row
    // past the last record.
    forLoop(Int32(1), columns, [&](Int32 i) {
        const Variant column(i.value() + 1);
        onError([&] { needed(sheet).setCell(Variant(4), column, Variant(element(Encabezados, i - 1))); });
        onError([&] { letter.setWidth(needed(sheet), Variant(element(Anchos, i - 1))); });
        if (lines) onError([&] { boxIn(needed(sheet).cells(Variant(4), column)); });
        onError([&] { needed(sheet).cells(Variant(4), column).setFontBold(Variant(True)); });
        if (lines)
            onError([&] {
                const Worksheet& s = needed(sheet);
                boxIn(s.range(s.cells(Variant(5), column), s.cells(Variant((Int32(recordCount) + 5).value()), column)));
            });
        onError([&] { letter.advance(); });
    });

    // 7.
    onError([&] { Registro.moveFirst(); });
    std::int32_t sheetRow = 5;
    grid::ExportProgress progress(fun, onError);
    progress.start(Variant(recordCount));

    // 8. One sheet row per record. A failing end test or move ends the walk:
    // with errors ignored it must still come to an end. The Fields
    // collection and its Field objects follow the current record, so each is
    // fetched once (again on a later record when fetching it failed).
    std::optional<callers::RecordFields> fields;
    std::vector<std::optional<callers::RecordField>> columnFields;
    while (!onError.value([&] { return toBoolean(Registro.eof()).isTrue(); }).value_or(true)) {
        if (!fields) onError([&] { fields = Registro.fields(); });
        const std::int32_t fieldCount = onError.value([&] { return toLong(needed(fields).count()); }).value_or(0);
        if (columnFields.size() < static_cast<std::size_t>(fieldCount))
            columnFields.resize(static_cast<std::size_t>(fieldCount));
        for (std::int32_t j = 0; j < fieldCount; ++j) {
            onError([&] {
                auto& field = columnFields[static_cast<std::size_t>(j)];
                if (!field) field = needed(fields).item(Variant(j));
                Variant value = field->value();
                // What reads as a date keeps the database's text.
                if (isDate(value)) value = Variant(u"'" + toString(value));
                needed(sheet).setCell(Variant(sheetRow), Variant(j + 2), std::move(value));
            });
        }
        bool moved = false;
        onError([&] {
            Registro.moveNext();
            moved = true;
        });
        onError([&] { sheetRow = (Int32(sheetRow) + 1).value(); });
        progress.step([&] { return Variant(recordCount); });
        if (!moved) break;
    }

    // 9.
    progress.finish();
}

}  // namespace telvaro::db

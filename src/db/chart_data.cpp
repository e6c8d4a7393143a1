#include "db/chart_data.h"

#include "callers/chart.h"
#include "callers/recordset.h"
#include "context/error_modes.h"
#include "context/fun.h"
#include "db/new_recordset.h"
#include "db/query_helpers.h"
#include "platform/message_box.h"
#include "runtime/checked.h"
#include "runtime/convert.h"

namespace telvaro::db {

namespace {

constexpr StringView kNoData = u"No existen datos para generar una gráfica estadística.";

// ReDim m(rows - 1, 1): Empty cells.
Array emptyMatrix(std::int32_t rows) { return Array::matrix(0, rows - 1, 0, 1); }

// The field's value joined with the suffix, as "&" joins them (Null as "").
String label(const Variant& value, const String& suffix) {
    return (value.isNull() ? String() : toString(value)) + suffix;
}

}  // namespace

Variant fn_MatrizParaEstadistica(Fun& fun, const ObjectRef& Conexion, const String& SQL, const String& SufijoX,
                                 Boolean ConMsgError, const ObjectRef& Chart) {
    const callers::Recordset rs = newRecordset(fun);
    rs.open(Variant(SQL), Variant(Conexion), kOpenForwardOnly, kLockReadOnly, kUnspecified);
    Variant result;
    Variant matrix;
    const std::int32_t count = toLong(rs.recordCount());
    if (count < 1) {
        if (ConMsgError.isTrue()) fun.showMessage(kNoData, msgbox::OkOnly | msgbox::Critical, u"");
        matrix = Variant(emptyMatrix(2));
        result = matrix;
    } else {
        Array cells = emptyMatrix(count > 1 ? count : 2);
        rs.moveFirst();
        forLoop(Int32(0), Int32(count) - 1, [&](Int32 i) {
            cells.at(i.value(), 1) = rs.fieldValue(Variant(std::int32_t(1)));
            cells.at(i.value(), 0) = Variant(label(rs.fieldValue(Variant(std::int32_t(0))), SufijoX));
            rs.moveNext();
        });
        matrix = Variant(std::move(cells));
    }
    rs.close();
    // From here on errors are ignored: the chart is given the matrix, and
    // the matrix is the result only when that worked.
    SkipErrors onError;
    onError([&] { callers::Chart{Variant(Chart)}.setChartData(matrix); });
    if (!onError.failed()) result = matrix;
    onError.clear();
    return result;
}

}  // namespace telvaro::db

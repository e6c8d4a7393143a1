#include "db/query_helpers.h"

#include "callers/recordset.h"
#include "context/fun.h"
#include "db/new_recordset.h"
#include "runtime/convert.h"
#include "runtime/error.h"
#include "runtime/text.h"
#include "text/strings.h"

namespace telvaro::db {

Variant regDevuelveDatoCampoSQL(Fun& fun, const ObjectRef& Conexion, const String& SQL) {
    const callers::Recordset rs = newRecordset(fun);
    rs.open(Variant(SQL), Variant(Conexion), kOpenForwardOnly, kLockReadOnly, kUnspecified);
    Variant result;
    // The count as the provider reports it: -1 (a server-side cursor that
    // cannot count) leaves the result Empty even when there are rows.
    if (toLong(rs.recordCount()) > 0) {
        rs.moveFirst();
        result = rs.fieldValue(Variant(std::int32_t(0)));
    }
    rs.close();
    return result;
}

std::int32_t regUltimoCodigo(Fun&, const ObjectRef& Conexion, const String& NomCampo, const String& NomTabla,
                             const String& CondicionSinWhere, std::int16_t Incremento) {
    const callers::Connection connection{Variant(Conexion)};
    // Plain concatenation; " WHERE " is always there.
    const String statement =
        u"SELECT MAX(" + NomCampo + u") AS UCodi FROM " + NomTabla + u" WHERE " + CondicionSinWhere;
    const callers::Recordset rs{connection.execute(Variant(statement), kUnspecified)};
    const Variant maximum = rs.fieldValue(Variant(String(u"UCodi")));
    const std::int64_t sum = (maximum.isNull() ? 0 : std::int64_t(toLong(maximum))) + Incremento;
    if (sum < INT32_MIN || sum > INT32_MAX) raise(err::Overflow);
    rs.close();
    return static_cast<std::int32_t>(sum);
}

String SQL_When(Fun& fun, const String& NomCampo, const String& When_, const String& Then_, TipoDato TipDato) {
    // Both lists are lists of text, whatever TipDato says.
    const Variant whens = text::fn_LlenaVector(fun, When_, TipoDato::String_, u",");
    const Variant thens = text::fn_LlenaVector(fun, Then_, TipoDato::String_, u",");
    const String quote = TipDato == TipoDato::String_ ? u"'" : u"";
    String sql = u" CASE " + NomCampo + u" ";
    const Array& whenItems = whens.array();
    const Array& thenItems = thens.array();
    for (std::int32_t i = 0; i <= whenItems.ubound(); ++i) {
        // A Then list shorter than the When list fails here with 9.
        const String then = toString(thenItems.at(i));
        sql += u" WHEN " + toString(whenItems.at(i)) + u" THEN " + quote + then + quote;
    }
    sql += u" END";
    return replaceText(sql, u"  ", u" ");
}

}  // namespace telvaro::db

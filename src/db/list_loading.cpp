#include "db/list_loading.h"

#include <optional>

#include "callers/list_control.h"
#include "callers/navigable_form.h"
#include "callers/recordset.h"
#include "context/error_modes.h"
#include "db/new_recordset.h"
#include "db/query_helpers.h"
#include "runtime/convert.h"
#include "runtime/text.h"

namespace telvaro::db {

namespace {

callers::ListControl listOf(const ObjectRef& list) { return callers::ListControl(Variant(list)); }

// The field of `rs` whose Name equals `name` (text comparison), the last
// one when several do; none when no field does.
std::optional<ObjectHandle> fieldNamed(SkipErrors& onError, const callers::Recordset& rs, StringView name) {
    std::optional<ObjectHandle> found;
    const std::int32_t count = onError.value([&] { return toLong(rs.fieldCount()); }).value_or(0);
    for (std::int32_t i = 0; i < count; ++i) {
        onError([&] {
            ObjectHandle field = objectOf(rs.fieldObject(Variant(i)));
            if (textEquals(toString(field.get(u"Name")), name)) found = std::move(field);
        });
    }
    return found;
}

// The rows of an open recordset, in order, each handed to `addRow`. A
// failing EOF test ends the walk, and so does a failing MoveNext: the walk
// runs with errors ignored and must still come to an end.
template <typename AddRow>
void eachRow(SkipErrors& onError, const callers::Recordset& rs, AddRow&& addRow) {
    onError([&] { rs.moveFirst(); });
    while (onError.value([&] { return toBoolean(rs.eof()).isTrue(); }).value_or(true) == false) {
        addRow();
        bool moved = false;
        onError([&] {
            rs.moveNext();
            moved = true;
        });
        if (!moved) break;
    }
}

bool hasRows(SkipErrors& onError, const callers::Recordset& rs) {
    return onError.value([&] { return toLong(rs.recordCount()) >= 1; }).value_or(false);
}

callers::Recordset openQuery(Fun& fun, const ObjectRef& connection, const String& sql) {
    callers::Recordset rs = newRecordset(fun);
    rs.open(Variant(sql), Variant(connection), kOpenForwardOnly, kLockReadOnly, kUnspecified);
    return rs;
}

}  // namespace

String markEmptySearch(StringView sql) {
    if (inStr(sql, u"'%'") > 0) return replaceText(sql, u"'%'", u"'x.x00x'");
    if (inStr(sql, u"' %'") > 0) return replaceText(sql, u"' %'", u"'x.x00x'");
    return String(sql);
}

void regCargaListaSQL(Fun& fun, const ObjectRef& Conexion, const String& SQL_, const ObjectRef& ListaText,
                      const String& CampoText, const ObjectRef& ListaCod, const String& CampoCod, Boolean Elige1erItem,
                      Boolean Limpiar1ro, const String& PrimerItemText, const String& PrimerItemCod) {
    // Opening is the one step whose error reaches the caller.
    const callers::Recordset rs = openQuery(fun, Conexion, SQL_);
    SkipErrors onError;
    if (Limpiar1ro.bits == True.bits) {
        onError([&] { listOf(ListaText).clear(); });
        onError([&] { listOf(ListaCod).clear(); });
    }
    if (!PrimerItemText.empty()) {
        onError([&] { listOf(ListaText).addItem(Variant(PrimerItemText)); });
        onError([&] { listOf(ListaCod).addItem(Variant(PrimerItemCod)); });
    }
    if (hasRows(onError, rs)) {
        const auto textField = fieldNamed(onError, rs, CampoText);
        const auto codeField = fieldNamed(onError, rs, CampoCod);
        // The lists are reached once; a missing one fails each of its calls.
        const auto texts = onError.value([&] { return listOf(ListaText); });
        const auto codes = onError.value([&] { return listOf(ListaCod); });
        // A missing list or field fails its AddItem on every row; the
        // error would be cleared before returning, so those calls are
        // simply not made.
        const bool loadTexts = texts && textField, loadCodes = codes && codeField;
        eachRow(onError, rs, [&] {
            if (loadTexts) onError([&] { texts->addItem(textField->get(u"Value")); });
            if (loadCodes) onError([&] { codes->addItem(codeField->get(u"Value")); });
        });
    }
    const bool hasItems = onError.value([&] { return toLong(listOf(ListaText).listCount()) > 0; }).value_or(false);
    // ListIndex is an Integer property: the first item is selected with one.
    if (hasItems && Elige1erItem.isTrue()) {
        onError([&] { listOf(ListaText).setListIndex(Variant(std::int16_t(0))); });
        onError([&] { listOf(ListaCod).setListIndex(Variant(std::int16_t(0))); });
    }
    onError.clear();
    onError([&] { rs.close(); });
}

void regCargaListaSQL2(Fun& fun, const ObjectRef& Conexion, const String& SQL_, const ObjectRef& ListaText,
                       const String& CampoText, const String& CampoCod, Boolean Elige1erItem, Boolean Limpiar1ro,
                       const String& PrimerItemText, std::int32_t PrimerItemCod) {
    const callers::Recordset rs = openQuery(fun, Conexion, SQL_);
    SkipErrors onError;
    const auto texts = onError.value([&] { return listOf(ListaText); });
    // Every statement on the list fails alike when there is no list.
    auto onList = [&](auto&& statement) {
        onError([&] {
            if (!texts) raise(err::ObjectVariableNotSet);
            statement(*texts);
        });
    };
    if (Limpiar1ro.bits == True.bits) onList([](const callers::ListControl& l) { l.clear(); });
    if (!PrimerItemText.empty()) {
        onList([&](const callers::ListControl& l) { l.addItem(Variant(PrimerItemText)); });
        onList([&](const callers::ListControl& l) { l.setItemData(l.newIndex(), Variant(PrimerItemCod)); });
    }
    if (hasRows(onError, rs)) {
        const auto textField = fieldNamed(onError, rs, CampoText);
        const auto codeField = fieldNamed(onError, rs, CampoCod);
        // As above, the calls that would fail on every row are not made.
        eachRow(onError, rs, [&] {
            if (!texts) return;
            if (textField) onError([&] { texts->addItem(textField->get(u"Value")); });
            if (codeField)
                onError([&] { texts->setItemData(texts->newIndex(), Variant(toLong(codeField->get(u"Value")))); });
        });
    }
    const bool hasItems = onError.value([&] { return texts && toLong(texts->listCount()) > 0; }).value_or(false);
    if (hasItems && Elige1erItem.isTrue())
        onList([](const callers::ListControl& l) { l.setListIndex(Variant(std::int16_t(0))); });
    onError.clear();
    onError([&] { rs.close(); });
}

void LlenaListLIKE(Fun& fun, const ObjectRef& Conexion, String SQL, const ObjectRef& Lista) {
    SQL = markEmptySearch(SQL);
    const callers::Recordset rs = openQuery(fun, Conexion, SQL);
    const callers::ListControl list = listOf(Lista);
    list.clear();
    // Any non-zero count shows the list, -1 included.
    const Variant count = rs.recordCount();
    list.setVisible(Variant(toBoolean(count)));
    if (toLong(count) != 0) {
        rs.moveFirst();
        const ObjectHandle text = objectOf(rs.fieldObject(Variant(std::int32_t(0))));
        const ObjectHandle code = objectOf(rs.fieldObject(Variant(std::int32_t(1))));
        while (!toBoolean(rs.eof()).isTrue()) {
            const Variant value = text.get(u"Value");
            list.addItem(Variant(value.isNull() ? String() : toString(value)));
            list.setItemData(list.newIndex(), Variant(toLong(code.get(u"Value"))));
            rs.moveNext();
        }
    }
    rs.close();
}

void regLlenaListaLIKE(Fun&, const ObjectRef& Tabla, const String& SQL, const ObjectRef& dGrid, Boolean OcultaSiNo) {
    const String statement = markEmptySearch(SQL);
    const callers::Recordset table{Variant(Tabla)};
    table.close();
    // The recordset keeps its own connection, cursor, lock and options.
    table.open(Variant(statement), Variant::missing(), kUnspecified, kUnspecified, kUnspecified);
    const callers::DataBoundGrid grid{Variant(dGrid)};
    grid.setDataSource(table.dataSource());
    grid.setDataMember(table.dataMember());
    grid.refresh();
    // A count of -1 hides the grid.
    if (OcultaSiNo.isTrue()) grid.setVisible(toLong(table.recordCount()) >= 1);
}

namespace {

// The index of the first item whose text equals ItemB (text comparison), or -1.
std::int32_t findItem(const ObjectRef& Lista, const Variant& ItemB) {
    const callers::ListControl list = listOf(Lista);
    const std::int32_t count = toLong(list.listCount());
    if (count <= 0) return -1;
    for (std::int32_t i = 0; i < count; ++i) {
        if (textEquals(toString(ItemB), toString(list.list(Variant(i))))) return i;
    }
    return -1;
}

}  // namespace

Boolean fn_ExisteItem(Fun&, const ObjectRef& Lista, const Variant& ItemB) {
    return Boolean(findItem(Lista, ItemB) >= 0);
}

std::int32_t fn_BuscaItem(Fun&, const ObjectRef& Lista, const Variant& ItemB) { return findItem(Lista, ItemB); }

std::int16_t fnBuscaIndex(Fun&, const ObjectRef& Lista, std::int32_t Que) {
    const callers::ListControl list = listOf(Lista);
    // The last index as an Integer: past 32767 it overflows (6).
    const std::int16_t last = toInteger(Variant(toLong(list.listCount()) - 1));
    for (std::int16_t i = 0; i <= last; ++i) {
        if (toLong(list.itemData(Variant(i))) == Que) return i;
        if (i == INT16_MAX) break;
    }
    return -1;
}

std::int32_t ItemD(Fun&, const ObjectRef& ControlLista) {
    const callers::ListControl list = listOf(ControlLista);
    return toLong(list.itemData(list.listIndex()));
}

}  // namespace telvaro::db

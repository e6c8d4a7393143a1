// Filling the caller's list and combo boxes (and a data-bound grid) from
// queries, and finding items in them again. The code of a row is kept
// either in a second, parallel list or in the list's own ItemData.
#pragma once

#include "runtime/object.h"

namespace telvaro {
class Fun;
}

namespace telvaro::db {

// Text list and optional parallel code list from a query; only the opening
// of the query can fail, every later error is ignored.
void regCargaListaSQL(Fun&, const ObjectRef& Conexion, const String& SQL_, const ObjectRef& ListaText,
                      const String& CampoText, const ObjectRef& ListaCod, const String& CampoCod, Boolean Elige1erItem,
                      Boolean Limpiar1ro, const String& PrimerItemText, const String& PrimerItemCod);
// The same with the code in ItemData of the one list.
void regCargaListaSQL2(Fun&, const ObjectRef& Conexion, const String& SQL_, const ObjectRef& ListaText,
                       const String& CampoText, const String& CampoCod, Boolean Elige1erItem, Boolean Limpiar1ro,
                       const String& PrimerItemText, std::int32_t PrimerItemCod);
// A list from a search statement: text from column 0, ItemData from column 1.
void LlenaListLIKE(Fun&, const ObjectRef& Conexion, String SQL, const ObjectRef& Lista);
// Re-runs the caller's recordset with a search statement and shows it in a
// data-bound grid.
void regLlenaListaLIKE(Fun&, const ObjectRef& Tabla, const String& SQL, const ObjectRef& dGrid, Boolean OcultaSiNo);

Boolean fn_ExisteItem(Fun&, const ObjectRef& Lista, const Variant& ItemB);
std::int32_t fn_BuscaItem(Fun&, const ObjectRef& Lista, const Variant& ItemB);
std::int16_t fnBuscaIndex(Fun&, const ObjectRef& Lista, std::int32_t Que);
std::int32_t ItemD(Fun&, const ObjectRef& ControlLista);

// The empty-search marker: a LIKE pattern that is only a wildcard ("'%'",
// else "' %'") becomes "'x.x00x'", which matches no stored value.
String markEmptySearch(StringView sql);

}  // namespace telvaro::db

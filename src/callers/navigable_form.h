// A caller's data-entry form as the record-moving methods reach it: the
// unsaved-edits flag, the form's own save and load, the recordset it moves
// through and, on an MDI parent, its active child. These members are the
// whole contract between the library and the form.
#pragma once

#include "callers/caller_object.h"
#include "callers/recordset.h"

namespace telvaro::callers {

class NavigableForm : public CallerObject {
public:
    using CallerObject::CallerObject;

    // The form a movement acts on: the active child of an MDI parent (any
    // form whose TypeName is "MDIForm"), else the form itself. The object
    // must be a form (13 otherwise); a parent without an active child is 91.
    static NavigableForm target(const ObjectRef& formulario);

    Variant changed() const { return get(u"Changed"); }
    void setChanged(bool value) const { put(u"Changed", Variant(Boolean(value))); }
    void guardaRegistro() const { call(u"GuardaRegistro"); }
    void cargaDatosRegistro(const Variant& key) const { call(u"CargaDatosRegistro", {key}); }
    Recordset lista() const { return Recordset(get(u"Lista")); }
    Variant activeForm() const { return get(u"ActiveForm"); }
};

// A caller's data-bound grid.
class DataBoundGrid : public CallerObject {
public:
    using CallerObject::CallerObject;

    // Set dGrid.DataSource = source (an object reference).
    void setDataSource(const Variant& source) const {
        Variant arg = source;
        object().invoke(u"DataSource", InvokeKind::PropertyPutRef, std::span<Variant>(&arg, 1));
    }
    void setDataMember(const Variant& member) const { put(u"DataMember", member); }
    void refresh() const { call(u"Refresh"); }
    void setVisible(bool visible) const { put(u"Visible", Variant(Boolean(visible))); }
};

}  // namespace telvaro::callers

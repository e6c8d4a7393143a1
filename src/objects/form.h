// The form: its Caption, ScaleMode (0 to 7; 1 twips), its controls (`Controls`, and each control by its
// name as a member of the form: `frmClientes.txtCodigo`), and the members
// of a data-entry form that moves through records:
//  - `Changed` (read/write Boolean): the form holds edits not yet stored;
//  - `GuardaRegistro`: stores the record; it succeeds or fails as the form
//    was told (`saveSucceeds`, one answer per call, the last one repeated),
//    and on success sets `Changed` to False;
//  - `CargaDatosRegistro(key)`: loads a record; the keys are kept in order
//    (an object's default value, as a field gives its value);
//  - `Lista`: the form's recordset (Nothing when it has none);
//  - `ActiveForm`: only on an MDI parent form, its active child (Nothing
//    when it has none).
// A form must be held by a shared_ptr before controls are added to it, so
// that they can name it as their Parent. TypeName is "Form", or "MDIForm"
// for an MDI parent.
#pragma once

#include "objects/control.h"

namespace telvaro::objects {

class Form : public Control {
public:
    explicit Form(String name = u"Form1", bool mdi = false);

    String typeName() const override { return mdi_ ? u"MDIForm" : u"Form"; }
    bool isMdi() const { return mdi_; }

    // Adds a control (error 13 for an object that is no control), inside
    // `container` (a frame or picture box of this form; the form itself
    // when null).
    void add(const ObjectRef& control, const ObjectRef& container = nullptr);
    const std::vector<std::shared_ptr<Control>>& controls() const { return controls_; }
    std::shared_ptr<Control> controlNamed(StringView name) const;

    String caption;
    std::int16_t scaleMode = 1;  // twips
    bool changed = false;
    std::vector<bool> saveSucceeds;  // answers of GuardaRegistro, in order
    std::int32_t saves() const { return saves_; }
    const std::vector<Variant>& loaded() const { return loaded_; }
    ObjectRef lista;
    ObjectRef activeForm;

protected:
    const MemberTable& members() const override;
    Variant dispatch(int id, const MemberCall& call) override;
    bool hasMember(int id) const override { return id != ContainerMember && id != ParentMember; }
    ObjectRef namedChild(StringView name) const override { return controlNamed(name); }

private:
    bool mdi_;
    std::vector<std::shared_ptr<Control>> controls_;
    std::int32_t saves_ = 0;
    std::vector<Variant> loaded_;
};

// A form's Controls: Count, Item(index from 0, or name) as the default
// member, and _NewEnum, which gives the controls as an array of objects for
// a For Each over them. Outside the controls, Item is error 9 for an index
// and 730 "Control 'name' not found" for a name.
class ControlCollection : public CallerObject {
public:
    explicit ControlCollection(std::shared_ptr<Form> form) : form_(std::move(form)) {}

    String typeName() const override { return u"Object"; }
    const std::vector<std::shared_ptr<Control>>& items() const { return form_->controls(); }

protected:
    const MemberTable& members() const override;
    int defaultMember() const override { return 1; }
    Variant dispatch(int id, const MemberCall& call) override;

private:
    std::shared_ptr<Form> form_;
};

}  // namespace telvaro::objects

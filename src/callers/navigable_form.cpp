#include "callers/navigable_form.h"

#include "runtime/error.h"

namespace telvaro::callers {

NavigableForm NavigableForm::target(const ObjectRef& formulario) {
    NavigableForm form{Variant(formulario)};
    if (form.typeName() != u"MDIForm") return form;
    // The active child, which must itself be an object (91 for Nothing, 13
    // for a value that is none).
    Variant child = form.activeForm();
    if (!child.isObject()) raise(err::TypeMismatch);
    return NavigableForm(child);
}

}  // namespace telvaro::callers

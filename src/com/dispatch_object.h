// A caller's object (its form, control, connection, error object ...) as
// the core's late-bound Object: members are looked up by name (through
// IDispatchEx when the object has it, else GetIDsOfNames) and called with
// Invoke, by-reference arguments are passed
// as by-reference VARIANTs and written back, and a failure of the object
// becomes the run-time error it reports (438 for a member it lacks).
// `_NewEnum` gives the items of the object's enumerator as an array, as a
// For Each over the object walks them.
#pragma once

#include <oaidl.h>

#include "com/com_handles.h"
#include "runtime/object.h"

namespace telvaro::com {

class DispatchObject : public Object {
public:
    explicit DispatchObject(ComPtr<IDispatch> dispatch) : dispatch_(std::move(dispatch)) {}

    Variant invoke(StringView member, InvokeKind kind, std::span<Variant> args) override;
    String typeName() const override;

    // The caller's IDispatch with a reference for whoever receives it.
    IDispatch* share() const {
        dispatch_->AddRef();
        return dispatch_.get();
    }

private:
    // The DISPID of a member by name, case-insensitively; error 438 when
    // the object has no such member.
    DISPID memberId(StringView member) const;
    // The items of a collection's enumerator (DISPID_NEWENUM, then
    // IEnumVARIANT), in order; 438 when the object has none.
    Variant enumerate() const;

    ComPtr<IDispatch> dispatch_;
};

}  // namespace telvaro::com

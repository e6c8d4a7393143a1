// The base of the library's own caller objects: one `invoke` that finds the
// member by name, records the call and hands it to the object's dispatch.
//
// Every object keeps the ordered list of the members called on it: a read
// or a method call is the member's name ("Rows", "RemoveItem"), an
// assignment its name followed by "=" ("Rows=", "CellBackColor="), so the
// order in which a method used the object can be checked afterwards. Only
// members the object has are recorded; an unknown member raises 438.
#pragma once

#include <cstdint>
#include <deque>
#include <span>
#include <vector>

#include "objects/member_call.h"
#include "objects/member_table.h"
#include "runtime/object.h"

namespace telvaro::objects {

class CallerObject : public Object {
public:
    Variant invoke(StringView member, InvokeKind kind, std::span<Variant> args) final;

    // The names of the members, in the object's own order (for a face that
    // maps names to numbers, and for tests that walk every member).
    std::vector<String> memberNames() const;

    // The calls made so far, oldest first, as "Name" or "Name=".
    std::vector<String> calls() const;
    std::size_t callCount() const { return calls_.size(); }
    void clearCalls() {
        calls_.clear();
        childCalls_.clear();
    }

protected:
    virtual const MemberTable& members() const = 0;
    // The member called when the caller names none (the default member),
    // or -1 when the object has none.
    virtual int defaultMember() const { return -1; }
    // False for a member of the table this kind of object lacks (a form
    // shares the controls' table but has no Container or Parent).
    virtual bool hasMember(int) const { return true; }
    // An object reached by a name that is no member (a form's controls are
    // reached by their names: `frmClientes.txtCodigo`), or nullptr.
    virtual ObjectRef namedChild(StringView) const { return nullptr; }
    // Carries out member `id` of members().
    virtual Variant dispatch(int id, const MemberCall& call) = 0;

private:
    struct Call {
        const String* name;
        bool assignment;
    };
    std::vector<Call> calls_;
    std::deque<String> childCalls_;  // the names of the children reached, as spelled
};

// A new window handle: a distinct non-zero Long for each control and form.
std::int32_t newWindowHandle();

}  // namespace telvaro::objects

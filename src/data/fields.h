// The Fields collection of a recordset and its Field objects. Fields(i)
// takes an ordinal (from 0) or a name (without regard to case); 3265 for
// neither. A Field reads the recordset's current record each time: its
// Value (the default member; Null for a database NULL; 3021 with no current
// record), Name, Type (the component's type code) and ActualSize (bytes).
#pragma once

#include <memory>

#include "data/recordset_state.h"
#include "runtime/object.h"

namespace telvaro::data {

class Fields : public Object {
public:
    explicit Fields(std::shared_ptr<RecordsetState> state) : state_(std::move(state)) {}
    Variant invoke(StringView member, InvokeKind kind, std::span<Variant> args) override;
    String typeName() const override { return u"Fields"; }

    // The Field for an ordinal or a name.
    static ObjectRef item(const std::shared_ptr<RecordsetState>& state, const Variant& index);

private:
    std::shared_ptr<RecordsetState> state_;
};

class Field : public Object {
public:
    Field(std::shared_ptr<RecordsetState> state, std::size_t column)
        : state_(std::move(state)), column_(column), opening_(state_->opening) {}
    Variant invoke(StringView member, InvokeKind kind, std::span<Variant> args) override;
    String typeName() const override { return u"Field"; }

    Variant value() const;

private:
    const RecordCursor& cursor() const;

    std::shared_ptr<RecordsetState> state_;
    std::size_t column_;
    std::uint64_t opening_;
};

}  // namespace telvaro::data

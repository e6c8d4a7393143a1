// The data-bound grid: it shows the rows of the recordset it is bound to.
// Here it records what is bound: DataSource (an object, assigned with
// Set), DataMember, and how many times Refresh was called; Visible and the
// other common members as every control has them.
#pragma once

#include "objects/control.h"

namespace telvaro::objects {

class DataGrid : public Control {
public:
    explicit DataGrid(String name = u"DataGrid1") : Control(std::move(name)) {}

    String typeName() const override { return u"DataGrid"; }

    ObjectRef dataSource;
    String dataMember;
    std::int32_t refreshes() const { return refreshes_; }

protected:
    const MemberTable& members() const override;
    Variant dispatch(int id, const MemberCall& call) override;

private:
    std::int32_t refreshes_ = 0;
};

}  // namespace telvaro::objects

// The chart control: it draws the data assigned to its ChartData, a one-
// or two-dimensional array whose first column may hold the labels of the
// rows. Here it keeps what was assigned: ChartData reads back the array
// last assigned (Empty until then); RowCount and ColumnCount give its
// size. Assigning anything but an array of one or two dimensions is error
// 13, and leaves the data as it was. Visible and the other common members
// as every control has them. TypeName is "MSChart".
#pragma once

#include "objects/control.h"

namespace telvaro::objects {

class Chart : public Control {
public:
    explicit Chart(String name = u"MSChart1") : Control(std::move(name)) {}

    String typeName() const override { return u"MSChart"; }

    const Variant& chartData() const { return chartData_; }
    // Rows and columns of the data (a one-dimensional array is one row).
    std::int32_t rowCount() const;
    std::int32_t columnCount() const;

protected:
    const MemberTable& members() const override;
    Variant dispatch(int id, const MemberCall& call) override;

private:
    Variant chartData_;
};

}  // namespace telvaro::objects

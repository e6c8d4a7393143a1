#include "objects/chart.h"

#include "runtime/error.h"

namespace telvaro::objects {

namespace {

enum Member { ChartData = 0, RowCount, ColumnCount };

std::int32_t extent(const Array& array, int dimension) { return array.ubound(dimension) - array.lbound(dimension) + 1; }

}  // namespace

std::int32_t Chart::rowCount() const {
    if (!chartData_.isArray()) return 0;
    const Array& a = chartData_.array();
    return a.dimensions() == 1 ? (a.size() > 0 ? 1 : 0) : extent(a, 1);
}

std::int32_t Chart::columnCount() const {
    if (!chartData_.isArray()) return 0;
    const Array& a = chartData_.array();
    return extent(a, a.dimensions() == 1 ? 1 : 2);
}

const MemberTable& Chart::members() const {
    static const MemberTable table(commonMemberNames(), {u"ChartData", u"RowCount", u"ColumnCount"});
    return table;
}

Variant Chart::dispatch(int id, const MemberCall& call) {
    if (id < CommonMemberCount) return dispatchCommon(id, call);
    switch (id - CommonMemberCount) {
        case ChartData:
            return property(
                call, [&] { return chartData_; },
                [&](const Variant& v) {
                    if (!v.isArray() || v.array().dimensions() < 1 || v.array().dimensions() > 2)
                        raise(err::TypeMismatch);
                    chartData_ = v;
                });
        case RowCount: return readOnlyProperty(call, [&] { return Variant(rowCount()); });
        case ColumnCount: return readOnlyProperty(call, [&] { return Variant(columnCount()); });
    }
    raiseNoSuchMember();
}

}  // namespace telvaro::objects

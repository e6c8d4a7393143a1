// The caller's chart control, with the member the chart-data method uses:
// ChartData, assigned the label/value matrix. Looked up by name when
// called; a chart that refuses the data raises its own error.
#pragma once

#include "callers/caller_object.h"

namespace telvaro::callers {

class Chart : public CallerObject {
public:
    using CallerObject::CallerObject;

    void setChartData(const Variant& data) const { put(u"ChartData", data); }
};

}  // namespace telvaro::callers

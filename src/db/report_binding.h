// Binding a data report to the recordset it prints: the report takes the
// recordset's DataSource and DataMember, and so do the text boxes of its
// detail section and the function fields of its report footer, so that
// each of them shows its field of the recordset's rows:
//
//     PreparaReportes DataReport1, rsVentas
//     DataReport1.Show
//
// Labels, lines, pictures and the other sections are left as designed.
// Nothing is trapped: a report without a detail section or a report
// footer, or a control without DataMember, raises the report's own error.
#pragma once

#include "runtime/object.h"

namespace telvaro {
class Fun;
}

namespace telvaro::db {

void PreparaReportes(Fun&, const ObjectRef& rptReport, const ObjectRef& Registro);

// The sections bound: the detail and the report footer, by position from 1.
inline constexpr std::int32_t kDetailSection = 3;
inline constexpr std::int32_t kReportFooterSection = 5;

}  // namespace telvaro::db

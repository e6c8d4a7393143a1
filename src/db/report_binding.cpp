#include "db/report_binding.h"

#include "callers/data_report.h"
#include "callers/recordset.h"

namespace telvaro::db {

void PreparaReportes(Fun&, const ObjectRef& rptReport, const ObjectRef& Registro) {
    const callers::DataReport report{Variant(rptReport)};
    const callers::Recordset rs{Variant(Registro)};
    report.setDataSource(rs.dataSource());
    report.setDataMember(rs.dataMember());
    // The recordset's DataMember is read again for every control it goes to.
    report.section(kDetailSection).forEachControl([&](const Variant& item) {
        const callers::ReportControl control{item};
        if (control.isTextBox()) control.setDataMember(rs.dataMember());
    });
    report.section(kReportFooterSection).forEachControl([&](const Variant& item) {
        const callers::ReportControl control{item};
        if (control.isFunction()) control.setDataMember(rs.dataMember());
    });
}

}  // namespace telvaro::db

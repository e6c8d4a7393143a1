#include "data/prepared.h"

#include "data/connection.h"
#include "data/errors.h"
#include "data/recordset.h"
#include "runtime/convert.h"

namespace telvaro::data {

ObjectRef openPreparedConnection(const ConnectionRequest& request, const DataServices& services) {
    auto connection = std::make_shared<Connection>(services);
    connection->setCursorLocation(request.cursorLocation);
    connection->open(request.database);
    for (const auto& statement : request.setup) connection->execute(statement);
    return connection;
}

ObjectRef openPreparedRecordset(const ObjectRef& connection, StringView source, std::int32_t cursorLocation,
                                std::int32_t position, const DataServices& services) {
    auto owner = std::dynamic_pointer_cast<Connection>(connection);
    if (!owner) raiseAdo(ado::InvalidConnection, u"ADODB.Recordset");
    auto recordset = std::make_shared<Recordset>(services);
    if (cursorLocation != 0) recordset->setCursorLocation(cursorLocation);
    recordset->open(owner, source);
    if (!recordset->isOpen()) return recordset;
    RecordCursor& cursor = recordset->state()->openCursor();
    if (position < 0) raiseAdo(ado::InvalidArgument, u"ADODB.Recordset");
    if (position == 0) {
        if (!cursor.bof()) cursor.movePrevious();
    } else if (cursor.loaded()) {
        cursor.setAbsolutePosition(position);
    } else {
        for (std::int32_t i = 1; i < position; ++i) {
            if (cursor.eof()) raiseAdo(ado::InvalidArgument, u"ADODB.Recordset");
            cursor.moveNext();
        }
        if (cursor.eof()) raiseAdo(ado::InvalidArgument, u"ADODB.Recordset");
    }
    return recordset;
}

RecordsetReport describeRecordset(Object& recordset) {
    RecordsetReport report;
    report.open = toLong(recordset.get(u"State")) != kStateClosed;
    if (!report.open) return report;
    report.position = toLong(recordset.get(u"AbsolutePosition"));
    report.recordCount = toLong(recordset.get(u"RecordCount"));
    report.bof = toBoolean(recordset.get(u"BOF")).isTrue();
    report.eof = toBoolean(recordset.get(u"EOF")).isTrue();
    if (report.bof || report.eof) return report;
    const Variant fields = recordset.get(u"Fields");
    const ObjectHandle collection = objectOf(fields);
    const std::int32_t count = toLong(collection.get(u"Count"));
    for (std::int32_t i = 0; i < count; ++i) {
        const Variant field = collection.get(u"Item", {Variant(i)});
        const ObjectHandle f = objectOf(field);
        report.fields.emplace_back(toString(f.get(u"Name")), f.get(u"Value"));
    }
    return report;
}

}  // namespace telvaro::data

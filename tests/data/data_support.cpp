#include "data_support.h"

#include "data/factory.h"
#include "runtime/error.h"

namespace telvaro::data::testing {

namespace fs = std::filesystem;

fs::path driveFile(StringView p) {
    if (p.size() < 3 || p[1] != u':' || (p[2] != u'\\' && p[2] != u'/')) raise(err::PathFileAccessError);
    fs::path file = fs::current_path() / "drives" / std::string(1, char(p[0] | 0x20));
    std::size_t start = 3;
    while (start <= p.size()) {
        std::size_t end = p.find_first_of(u"\\/", start);
        if (end == StringView::npos) end = p.size();
        const StringView part = p.substr(start, end - start);
        if (part == u"..") raise(err::PathFileAccessError);
        if (!part.empty() && part != u".") file /= toUtf8(part);
        start = end + 1;
    }
    return file;
}

DataServices homeServices() {
    return DataServices{[](StringView p) { return driveFile(p); }};
}

ObjectRef create(StringView progId) { return createDataObject(progId, homeServices()); }

ObjectRef memoryConnection(const std::vector<String>& setup, std::int32_t cursorLocation) {
    ObjectRef connection = create(u"ADODB.Connection");
    connection->put(u"CursorLocation", Variant(cursorLocation));
    connection->call(u"Open", {Variant(u":memory:")});
    for (const auto& statement : setup) connection->call(u"Execute", {Variant(statement)});
    return connection;
}

ObjectRef openRecordset(const ObjectRef& connection, StringView sql) {
    ObjectRef recordset = create(u"ADODB.Recordset");
    recordset->call(u"Open", {Variant(String(sql)), Variant(connection), Variant(0), Variant(1), Variant(-1)});
    return recordset;
}

}  // namespace telvaro::data::testing

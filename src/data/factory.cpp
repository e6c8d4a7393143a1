#include "data/factory.h"

#include "data/connection.h"
#include "data/names.h"
#include "data/recordset.h"
#include "data/stream.h"

namespace telvaro::data {

namespace {

// "ADODB.Recordset" or "ADODB.Recordset.<version>".
bool namesClass(StringView progId, StringView name) {
    if (!startsWithName(progId, name)) return false;
    const StringView rest = progId.substr(name.size());
    if (rest.empty()) return true;
    if (rest.front() != u'.' || rest.size() == 1) return false;
    for (char16_t c : rest.substr(1))
        if (c != u'.' && (c < u'0' || c > u'9')) return false;
    return true;
}

}  // namespace

ObjectRef createDataObject(StringView progId, const DataServices& services) {
    if (namesClass(progId, u"ADODB.Connection")) return std::make_shared<Connection>(services);
    if (namesClass(progId, u"ADODB.Recordset")) return std::make_shared<Recordset>(services);
    if (namesClass(progId, u"ADODB.Stream")) return std::make_shared<Stream>(services);
    return nullptr;
}

}  // namespace telvaro::data

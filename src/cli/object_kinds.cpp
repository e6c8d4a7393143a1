#include "cli/object_kinds.h"

#include <map>
#include <memory>

#include "cli/json_values.h"
#include "data/connection.h"
#include "data/prepared.h"
#include "data/recordset.h"
#include "platform/posix/home.h"
#include "runtime/error.h"

namespace telvaro::cli {

namespace {

// Database files named in a request open only through the strict mapping:
// the home folder and the mapped drives.
data::DataServices strictServices() {
    return {[](StringView windowsPath) { return posix::mapPath(windowsPath); }};
}

[[noreturn]] void badField(const char* field, const char* expected) {
    raise(err::InvalidProcedureCall, fromUtf8(std::string("\"") + field + "\" " + expected));
}

String textField(const Json& d, const char* field, const char* fallback) {
    const Json* value = d.contains(field) ? &d.at(field) : nullptr;
    if (!value) return fromUtf8(fallback);
    if (!value->is_string()) badField(field, "is a text");
    return fromUtf8(value->get<std::string>());
}

std::int32_t numberField(const Json& d, const char* field, std::int32_t fallback, std::int32_t low, std::int32_t high) {
    if (!d.contains(field)) return fallback;
    const Json& value = d.at(field);
    if (!value.is_number_integer() || value.get<std::int64_t>() < low || value.get<std::int64_t>() > high)
        badField(field, "is a whole number in range");
    return value.get<std::int32_t>();
}

// The connections of one request, one per distinct description.
class DataKinds {
public:
    ObjectRef build(const std::string& kind, const Json& d) {
        if (kind == "connection") return connection(d);
        if (kind == "recordset") return recordset(d);
        return nullptr;
    }

private:
    ObjectRef connection(const Json& d) {
        const std::string key = d.dump();
        if (auto it = connections_.find(key); it != connections_.end()) return it->second;
        data::ConnectionRequest request;
        request.database = textField(d, "database", ":memory:");
        if (d.contains("setup")) {
            if (!d.at("setup").is_array()) badField("setup", "is a list of statements");
            for (const auto& s : d.at("setup")) {
                if (!s.is_string()) badField("setup", "is a list of statements");
                request.setup.push_back(fromUtf8(s.get<std::string>()));
            }
        }
        request.cursorLocation = numberField(d, "cursorLocation", data::kUseServer, 2, 3);
        ObjectRef made = data::openPreparedConnection(request, strictServices());
        connections_.emplace(key, made);
        return made;
    }

    ObjectRef recordset(const Json& d) {
        if (!d.contains("connection") || !d.at("connection").is_object()) badField("connection", "is a connection");
        const ObjectRef on = connection(d.at("connection"));
        ObjectRef rs =
            data::openPreparedRecordset(on, textField(d, "source", ""), numberField(d, "cursorLocation", 0, 0, 3),
                                        numberField(d, "position", 0, 0, INT32_MAX), strictServices());
        // The name a bound report or grid shows the rows under.
        if (d.contains("dataMember")) rs->put(u"DataMember", Variant(textField(d, "dataMember", "")));
        return rs;
    }

    std::map<std::string, ObjectRef> connections_;
};

std::optional<Json> dataState(const Object& object) {
    if (const auto* rs = dynamic_cast<const data::Recordset*>(&object)) {
        const data::RecordsetReport report = data::describeRecordset(const_cast<data::Recordset&>(*rs));
        Json fields = Json::object();
        for (const auto& [name, value] : report.fields) fields[toUtf8(name)] = encodeValue(value);
        return Json{{"object", "recordset"},
                    {"open", report.open},
                    {"position", report.position},
                    {"recordCount", report.recordCount},
                    {"bof", report.bof},
                    {"eof", report.eof},
                    {"fields", fields}};
    }
    if (dynamic_cast<const data::Connection*>(&object)) {
        const Variant state = const_cast<Object&>(object).get(u"State");
        return Json{{"object", "connection"}, {"state", encodeValue(state)}};
    }
    return std::nullopt;
}

}  // namespace

ObjectKindHooks batchObjectHooks() {
    auto kinds = std::make_shared<DataKinds>();
    return {[kinds](const std::string& kind, const Json& d) { return kinds->build(kind, d); }, dataState};
}

}  // namespace telvaro::cli

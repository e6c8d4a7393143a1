#include "cli/json_values.h"

#include "cli/base64.h"
#include "cli/object_json.h"

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <limits>

#include "data/byte_array.h"
#include "runtime/checked.h"
#include "runtime/convert.h"
#include "runtime/datetime.h"
#include "runtime/error.h"

namespace telvaro::cli {

using json = nlohmann::ordered_json;

namespace {

const char* const kTypeNames = "Empty, Null, Integer, Long, Double, Currency, Date, String, Boolean, Byte or Decimal";

// An argument that cannot be decoded: error 5, naming the field and what it
// expects.
[[noreturn]] void undecodable(const std::string& field, const std::string& expected) {
    raise(err::InvalidProcedureCall, fromUtf8("the field \"" + field + "\" expects " + expected));
}

Decimal decimalFrom(const json& value, const std::string& type) {
    if (value.is_string() || value.is_number()) {
        std::string text = value.is_string() ? value.get<std::string>() : value.dump();
        if (auto d = Decimal::parse(fromUtf8(text), u'.', u'\0')) return *d;
    }
    undecodable("value", "a decimal number for a " + type + " (a text such as \"12.34\")");
}

double numberFrom(const json& value, const std::string& type) {
    if (value.is_number()) return value.get<double>();
    if (value.is_string()) {
        if (auto n = parseNumber(fromUtf8(value.get<std::string>()))) return *n;
    }
    undecodable("value", "a number for a " + type);
}

// A whole number within [low, high].
std::int64_t integerFrom(const json& value, const std::string& type, std::int64_t low, std::int64_t high) {
    double d = 0;
    try {
        d = numberFrom(value, type);
    } catch (const RuntimeError&) {
        d = 0.5;  // not a number at all: the same answer as a fraction
    }
    if (d != std::floor(d) || d < static_cast<double>(low) || d > static_cast<double>(high))
        undecodable("value", "a whole number from " + std::to_string(low) + " to " + std::to_string(high) + " for " +
                                 (type == "Integer" ? "an " : "a ") + type);
    return static_cast<std::int64_t>(d);
}

double dateFrom(const json& value, const std::string& field) {
    if (value.is_string()) {
        try {
            return parseIsoDate(value.get<std::string>());
        } catch (const MalformedRequest&) {
        }
    }
    undecodable(field, "a date as a text YYYY-MM-DD or YYYY-MM-DDTHH:MM:SS");
}

// {"type": T, "value": V}: exactly that Variant type.
Variant typedValue(const json& request) {
    const json& typeField = request.at("type");
    if (!typeField.is_string()) undecodable("type", std::string("one of ") + kTypeNames);
    const std::string type = typeField.get<std::string>();
    const json value = request.contains("value") ? request.at("value") : json();
    if (type == "Empty") return Variant();
    if (type == "Null") return Variant(Null{});
    if (type == "Integer") return Variant(static_cast<std::int16_t>(integerFrom(value, type, INT16_MIN, INT16_MAX)));
    if (type == "Long") return Variant(static_cast<std::int32_t>(integerFrom(value, type, INT32_MIN, INT32_MAX)));
    if (type == "Byte") return Variant(static_cast<std::uint8_t>(integerFrom(value, type, 0, 255)));
    if (type == "Double") return Variant(numberFrom(value, type));
    if (type == "Currency") {
        try {
            return Variant(Currency{decimalFrom(value, type).toCurrency()});
        } catch (const RuntimeError& e) {
            if (e.number() != err::Overflow) throw;
            undecodable("value", "an amount from -922337203685477.5808 to 922337203685477.5807 for a Currency");
        }
    }
    if (type == "Decimal") return Variant(decimalFrom(value, type));
    if (type == "Date") return Variant(Date{dateFrom(value, "value")});
    if (type == "String") {
        if (!value.is_string()) undecodable("value", "a text for a String");
        return Variant(fromUtf8(value.get<std::string>()));
    }
    if (type == "Boolean") {
        if (value.is_boolean()) return Variant(Boolean(value.get<bool>()));
        return Variant(Boolean::fromBits(static_cast<std::int16_t>(integerFrom(value, type, INT16_MIN, INT16_MAX))));
    }
    undecodable("type", std::string("one of ") + kTypeNames);
}

}  // namespace

Variant decodeValue(const json& value, ObjectBuilder* objects) {
    switch (value.type()) {
        case json::value_t::string: return Variant(fromUtf8(value.get<std::string>()));
        case json::value_t::boolean: return Variant(Boolean(value.get<bool>()));
        case json::value_t::null: return Variant(Null{});
        case json::value_t::number_integer:
        case json::value_t::number_unsigned: {
            // An integer literal is a Long when it fits, else a Double; the
            // dispatcher then coerces it to the declared type.
            if (value.is_number_unsigned() && value.get<std::uint64_t>() > 2147483647ull)
                return Variant(value.get<double>());
            std::int64_t n = value.get<std::int64_t>();
            if (n >= INT32_MIN && n <= INT32_MAX) return Variant(static_cast<std::int32_t>(n));
            return Variant(static_cast<double>(n));
        }
        case json::value_t::number_float: return Variant(value.get<double>());
        case json::value_t::array: {
            std::vector<Variant> items;
            for (const auto& item : value) items.push_back(decodeValue(item, objects));
            return Variant(Array::ofValues(std::move(items), 0));
        }
        case json::value_t::object: {
            if (value.contains("missing")) return Variant::missing();
            if (value.contains("empty")) return Variant();
            if (value.contains("date")) return Variant(Date{dateFrom(value.at("date"), "date")});
            if (value.contains("bytes")) {
                const json& text = value.at("bytes");
                auto bytes = text.is_string() ? decodeBase64(text.get<std::string>()) : std::nullopt;
                if (!bytes) undecodable("bytes", "binary data as base64 text");
                return data::byteArray(*bytes);
            }
            if (value.contains("type")) return typedValue(value);
            if (value.contains("object")) {
                const json& kind = value.at("object");
                if (!kind.is_string()) undecodable("object", "the kind of object as a text");
                if (objects) return Variant(objects->build(value));
                throw RuntimeError(err::ObjectDoesNotSupportAction,
                                   u"Object kind not supported yet: " + fromUtf8(kind.get<std::string>()));
            }
            raise(err::InvalidProcedureCall,
                  u"an object argument has one of the fields \"missing\", \"empty\", \"date\", \"bytes\", \"type\" "
                  u"or \"object\"");
        }
        default:
            raise(err::InvalidProcedureCall,
                  u"an argument is a text, a number, true, false, null, an array or an object");
    }
}

std::string formatIsoDate(double serial) {
    CivilDate d = civilDate(serial);
    TimeOfDay t = timeOfDay(serial);
    char buf[40];
    std::snprintf(buf, sizeof buf, "%04d-%02d-%02dT%02d:%02d:%02d", d.year, d.month, d.day, t.hour, t.minute, t.second);
    return buf;
}

double parseIsoDate(const std::string& text) {
    int y = 0, mo = 0, d = 0, h = 0, mi = 0, s = 0;
    int n = std::sscanf(text.c_str(), "%d-%d-%dT%d:%d:%d", &y, &mo, &d, &h, &mi, &s);
    if (n != 3 && n != 6) throw MalformedRequest("not a date (YYYY-MM-DDTHH:MM:SS): " + text);
    if (mo < 1 || mo > 12 || d < 1 || d > daysInMonth(y, mo) || y < 100 || y > 9999 || h > 23 || mi > 59 || s > 59 ||
        h < 0 || mi < 0 || s < 0)
        throw MalformedRequest("not a valid date: " + text);
    double day = dateSerial(y, mo, d);
    double time = timeSerial(h, mi, s);
    return day < 0 ? day - time : day + time;
}

json encodeValue(const Variant& v, const ObjectKindHooks* hooks) {
    json out;
    out["type"] = varTypeName(v.type());
    switch (v.type()) {
        case VarType::Empty:
        case VarType::Null: break;
        case VarType::Error: out["value"] = v.get<ErrorCode>().scode; break;
        case VarType::Boolean: out["value"] = v.get<Boolean>().bits; break;
        case VarType::Byte: out["value"] = v.get<std::uint8_t>(); break;
        case VarType::Integer: out["value"] = v.get<std::int16_t>(); break;
        case VarType::Long: out["value"] = v.get<std::int32_t>(); break;
        case VarType::Double: out["value"] = v.get<double>(); break;
        case VarType::Currency:
            out["value"] = toUtf8(Decimal::fromCurrency(v.get<Currency>().scaled).toString(u'.'));
            break;
        case VarType::Decimal: out["value"] = toUtf8(v.get<Decimal>().toString(u'.')); break;
        case VarType::Date: out["value"] = formatIsoDate(v.get<Date>().serial); break;
        case VarType::String: out["value"] = toUtf8(v.get<String>()); break;
        case VarType::Object: {
            const ObjectRef& o = v.get<ObjectRef>();
            out["value"] = o ? objectState(*o, hooks ? *hooks : ObjectKindHooks{}) : json();
            break;
        }
        case VarType::Array: {
            const Array& a = v.array();
            // Binary data (a one-dimensional Byte array) as base64 text.
            if (a.elementType() == VarType::Byte && a.dimensions() == 1) {
                out["type"] = "Bytes";
                out["value"] = encodeBase64(data::bytesOf(v));
                break;
            }
            json items = json::array();
            if (a.dimensions() == 2) {
                for (std::int32_t i = a.lbound(1); i <= a.ubound(1); ++i) {
                    json row = json::array();
                    for (std::int32_t j = a.lbound(2); j <= a.ubound(2); ++j)
                        row.push_back(encodeValue(a.at(i, j), hooks));
                    items.push_back(row);
                }
            } else {
                for (const auto& item : a.elements()) items.push_back(encodeValue(item, hooks));
            }
            out["value"] = items;
            break;
        }
        default: break;
    }
    return out;
}

}  // namespace telvaro::cli

// Typed values of the batch protocol: JSON to Variant for arguments, and
// Variant to {"type": T, "value": V} for results and by-reference values.
#pragma once

#include <nlohmann/json.hpp>
#include <stdexcept>

#include "runtime/variant.h"

namespace telvaro::cli {

// A request that cannot be decoded (the batch answers error -1 and goes on).
class MalformedRequest : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

class ObjectBuilder;
struct ObjectKindHooks;

// An argument's Variant; error 5 naming the field and what it expects for
// a value that cannot be decoded. Caller objects ({"object": KIND, ...})
// are built by `objects`; without a builder they are error 445.
Variant decodeValue(const nlohmann::ordered_json& value, ObjectBuilder* objects = nullptr);
// An object's value is its state after the call (`hooks` describe the
// kinds the objects layer does not know); Nothing is null.
nlohmann::ordered_json encodeValue(const Variant& value, const ObjectKindHooks* hooks = nullptr);

// "YYYY-MM-DDTHH:MM:SS" <-> a date serial.
std::string formatIsoDate(double serial);
double parseIsoDate(const std::string& text);

}  // namespace telvaro::cli

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

// An argument's Variant; error 5 naming the field and what it expects for
// a value that cannot be decoded.
Variant decodeValue(const nlohmann::ordered_json& value);
nlohmann::ordered_json encodeValue(const Variant& value);

// "YYYY-MM-DDTHH:MM:SS" <-> a date serial.
std::string formatIsoDate(double serial);
double parseIsoDate(const std::string& text);

}  // namespace telvaro::cli

// Binary data as the automation runtime hands it over: a one-dimensional
// Byte array with lower bound 0, held compactly (Array::bytes).
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "runtime/variant.h"

namespace telvaro::data {

Variant byteArray(std::span<const std::uint8_t> bytes);

// The bytes of a Byte array (any lower bound); error 13 for any other
// value, an array of another element type included.
std::vector<std::uint8_t> bytesOf(const Variant& value);

}  // namespace telvaro::data

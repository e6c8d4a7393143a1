#include "data/byte_array.h"

#include "runtime/error.h"

namespace telvaro::data {

Variant byteArray(std::span<const std::uint8_t> bytes) {
    return Variant(Array::bytes(std::vector<std::uint8_t>(bytes.begin(), bytes.end())));
}

std::vector<std::uint8_t> bytesOf(const Variant& value) {
    if (!value.isArray()) raise(err::TypeMismatch);
    const Array& array = value.array();
    if (array.elementType() != VarType::Byte || array.dimensions() > 1) raise(err::TypeMismatch);
    if (const auto* compact = array.compactBytes()) return *compact;
    std::vector<std::uint8_t> bytes;
    bytes.reserve(array.size());
    for (const auto& item : array.elements()) {
        if (!item.holds<std::uint8_t>()) raise(err::TypeMismatch);
        bytes.push_back(item.get<std::uint8_t>());
    }
    return bytes;
}

}  // namespace telvaro::data

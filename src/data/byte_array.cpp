#include "data/byte_array.h"

#include "runtime/error.h"

namespace telvaro::data {

Variant byteArray(std::span<const std::uint8_t> bytes) {
    if (bytes.empty()) return Variant(Array::vector(0, -1, VarType::Byte));
    Array array = Array::vector(0, static_cast<std::int32_t>(bytes.size()) - 1, VarType::Byte);
    auto& items = array.elements();
    for (std::size_t i = 0; i < bytes.size(); ++i) items[i] = Variant(bytes[i]);
    return Variant(std::move(array));
}

std::vector<std::uint8_t> bytesOf(const Variant& value) {
    if (!value.isArray()) raise(err::TypeMismatch);
    const Array& array = value.array();
    if (array.elementType() != VarType::Byte || array.dimensions() > 1) raise(err::TypeMismatch);
    std::vector<std::uint8_t> bytes;
    bytes.reserve(array.size());
    for (const auto& item : array.elements()) {
        if (!item.holds<std::uint8_t>()) raise(err::TypeMismatch);
        bytes.push_back(item.get<std::uint8_t>());
    }
    return bytes;
}

}  // namespace telvaro::data

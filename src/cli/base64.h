// Binary values in the batch protocol's JSON: base64 text (RFC 4648, with
// "=" padding, no line breaks).
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace telvaro::cli {

std::string encodeBase64(std::span<const std::uint8_t> bytes);
// Nothing when the text is not base64: a character outside the alphabet,
// a length that is not a multiple of 4, padding anywhere but at the end.
std::optional<std::vector<std::uint8_t>> decodeBase64(std::string_view text);

}  // namespace telvaro::cli

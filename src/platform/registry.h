// The registry as the library uses it: keys under the four predefined roots
// (0 classes, 1 current user, 2 local machine, 3 users), created or opened
// by path, text (type 1) and 32-bit number (type 4) values. Key handles are
// non-zero 32-bit numbers; 0 means the call failed. No call raises.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "runtime/ustring.h"

namespace telvaro {

namespace regtype {
inline constexpr std::uint32_t Text = 1;    // REG_SZ: ANSI text ended by a zero byte
inline constexpr std::uint32_t Number = 4;  // REG_DWORD: 4 bytes, little-endian
}  // namespace regtype

class Registry {
public:
    struct Value {
        std::uint32_t type = 0;
        std::string data;  // the bytes as stored
    };

    virtual ~Registry() = default;

    // Creates the key (and the missing keys above it) or opens it; 0 when
    // the root is not one of the four or the key cannot be created.
    virtual std::int32_t createKey(std::int32_t root, StringView path) = 0;
    // Opens an existing key; 0 when it does not exist.
    virtual std::int32_t openKey(std::int32_t root, StringView path) = 0;
    virtual void closeKey(std::int32_t key) = 0;
    // False when the handle is not an open key or the store cannot be written.
    virtual bool setValue(std::int32_t key, StringView name, std::uint32_t type, std::string_view data) = 0;
    virtual std::optional<Value> queryValue(std::int32_t key, StringView name) = 0;
};

}  // namespace telvaro

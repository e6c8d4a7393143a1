// The keys and values of one registry root, kept as text in the layout of a
// registry export:
//
//     Windows Registry Editor Version 5.00
//
//     [HKEY_CURRENT_USER\Software\Contable]
//     "Servidor"="srv01"
//     "Puerto"=dword:00000599
//     @="the key's default value"
//
// Text values are written with "\" and quotes escaped; 32-bit numbers as
// dword:<8 hex digits>; any other type as hex(<type>):<bytes>. Key paths and
// value names are compared without regard to case and keep the case they
// were created with. Every key is listed, parents included.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "runtime/ustring.h"

namespace telvaro {

class RegistryDocument {
public:
    struct Value {
        String name;  // empty for the key's default value
        std::uint32_t type = 0;
        std::string data;  // the bytes: ANSI text and its ending zero, or 4 bytes
    };

    // `root` is the root's name, such as "HKEY_CURRENT_USER". Lines that do
    // not parse are dropped.
    RegistryDocument(String root, std::string_view utf8Text = {});

    bool hasKey(StringView path) const;
    // Adds the key and the missing keys above it.
    void addKey(StringView path);
    // Sets a value, adding its key when missing.
    void setValue(StringView path, Value value);
    std::optional<Value> value(StringView path, StringView name) const;

    std::string text() const;

private:
    struct Key {
        String path;
        std::vector<Value> values;
    };
    Key* findKey(StringView path);
    const Key* findKey(StringView path) const;
    void parseLine(std::string_view line, Key*& current);

    String root_;
    std::vector<Key> keys_;
};

// A key path as the registry accepts it: "a\b\c" with no empty part and no
// leading "\" (a trailing "\" is dropped; "" is the root itself). Nothing
// when the path is not valid.
std::optional<String> normalizedKeyPath(StringView path);

}  // namespace telvaro

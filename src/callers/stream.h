// The ADO Stream the binary-field methods make for themselves: a binary
// buffer between a field's value and a file. Every member is looked up by
// name when it is called, in the order the method calls it.
#pragma once

#include <cstdint>

#include "callers/caller_object.h"

namespace telvaro::callers {

class Stream : public CallerObject {
public:
    using CallerObject::CallerObject;

    static constexpr std::int32_t kTypeBinary = 1;
    static constexpr std::int32_t kReadAll = -1;
    static constexpr std::int32_t kSaveCreateOverWrite = 2;

    void setType(std::int32_t type) const { put(u"Type", Variant(type)); }
    // Open with no source: mode 0 (unknown), options -1 (unspecified), an
    // empty user name and password.
    void openEmpty() const {
        call(u"Open", {Variant::missing(), Variant(std::int32_t(0)), Variant(std::int32_t(-1)), Variant(String()),
                       Variant(String())});
    }
    void write(const Variant& buffer) const { call(u"Write", {buffer}); }
    Variant read(std::int32_t count) const { return call(u"Read", {Variant(count)}); }
    void saveToFile(const String& file, std::int32_t options) const {
        call(u"SaveToFile", {Variant(file), Variant(options)});
    }
    void loadFromFile(const String& file) const { call(u"LoadFromFile", {Variant(file)}); }
    void close() const { call(u"Close"); }
};

}  // namespace telvaro::callers

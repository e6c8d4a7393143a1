// Profile (INI) files as the Windows profile functions read and write them:
// sections and keys compared without regard to case, blanks around keys and
// values ignored, surrounding quotes removed on reading, file, section and
// key created on writing, every other line kept as it was.
#pragma once

#include <cstddef>

#include "runtime/ustring.h"

namespace telvaro {

class ProfileFiles {
public:
    virtual ~ProfileFiles() = default;

    // What a buffer of `bufferSize` characters receives: the value of the
    // key, or the default (trailing blanks removed) when the file, section or
    // key is missing, cut to bufferSize - 1 characters.
    virtual String getString(StringView file, StringView section, StringView key, StringView defaultText,
                             std::size_t bufferSize) = 0;
    // Writes key=value into the section; false when the file cannot be written.
    virtual bool writeString(StringView file, StringView section, StringView key, StringView value) = 0;
};

}  // namespace telvaro

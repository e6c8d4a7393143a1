// The text of a profile (INI) file, read and changed the way the Windows
// profile functions do it. Each line keeps its own ending, so lines that are
// not changed are written back exactly as they were read.
#pragma once

#include <optional>
#include <vector>

#include "runtime/ustring.h"

namespace telvaro {

class IniDocument {
public:
    explicit IniDocument(StringView text = {});

    // The value of the first matching key of the first matching section:
    // blanks around it removed, and one pair of matching quotes.
    std::optional<String> value(StringView section, StringView key) const;
    // Sets key=value, adding the section at the end and the key at the end
    // of its section when they are missing.
    void set(StringView section, StringView key, StringView value);

    String text() const;

private:
    struct Line {
        String content;
        String ending;
    };
    std::optional<std::size_t> findSection(StringView section) const;
    std::size_t sectionEnd(std::size_t header) const;

    std::vector<Line> lines_;
};

}  // namespace telvaro

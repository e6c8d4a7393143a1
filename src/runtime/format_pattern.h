// The Format engine's pattern reader: a pattern cut into sections of
// characters, escaped and quoted ones marked, and each section's kind.
// Internal to the runtime's Format engine.
#pragma once

#include <string>
#include <vector>

#include "runtime/ustring.h"

namespace telvaro::formatting {

// One character of a pattern. `literal` marks a character that came from a
// backslash escape or from double-quoted text: it is always shown as is and
// never starts a placeholder.
struct PatternChar {
    char16_t c = 0;
    bool literal = false;
};
using Section = std::vector<PatternChar>;

// The pattern cut at its unescaped, unquoted ";" (one to any number of
// sections; only the first four are used).
std::vector<Section> splitSections(StringView pattern);

// Which formatter a section needs, decided by its first placeholder: a digit
// placeholder makes a number section (later letters are plain text), a date
// or time letter a date section, one of @ & < > ! a text section. A section
// without placeholders is a number section that shows only its text.
enum class SectionKind { Number, Date, Text };
SectionKind classify(const Section& section);

// The characters of the section that are shown as text when the section is
// used for Null: escaped and quoted characters and any character that is
// not a number placeholder.
String literalText(const Section& section);

// True when `s` holds `word` at `pos` in unescaped characters, compared
// without regard to ASCII case.
bool matchesAt(const Section& s, std::size_t pos, std::string_view word);

}  // namespace telvaro::formatting

// Case mappings and the Spanish order from ICU.
#include <unicode/coll.h>
#include <unicode/locid.h>
#include <unicode/uchar.h>

#include <cstdint>
#include <memory>

#include "runtime/unicode.h"

namespace telvaro::unicode {

namespace {

bool isSurrogate(char16_t c) { return c >= 0xD800 && c <= 0xDFFF; }

char16_t mapped(char16_t c, UChar32 (*mapping)(UChar32)) {
    if (isSurrogate(c)) return c;
    const UChar32 u = mapping(c);
    return u <= 0xFFFF ? static_cast<char16_t>(u) : c;
}

UChar32 simpleFold(UChar32 c) { return u_foldCase(c, U_FOLD_CASE_DEFAULT); }

// A Spanish collator at secondary strength. ICU collators are not safe for
// concurrent use, so each thread keeps its own; without ICU's data there is
// none and the caller decides the order.
icu::Collator* collator() {
    thread_local const std::unique_ptr<icu::Collator> instance = [] {
        UErrorCode status = U_ZERO_ERROR;
        std::unique_ptr<icu::Collator> made(icu::Collator::createInstance(icu::Locale("es"), status));
        if (U_FAILURE(status)) return std::unique_ptr<icu::Collator>();
        made->setStrength(icu::Collator::SECONDARY);
        return made;
    }();
    return instance.get();
}

const UChar* icuText(StringView s) { return reinterpret_cast<const UChar*>(s.data()); }

}  // namespace

char16_t foldCase(char16_t c) { return mapped(c, simpleFold); }
char16_t toUpper(char16_t c) { return mapped(c, u_toupper); }
char16_t toLower(char16_t c) { return mapped(c, u_tolower); }

int collate(StringView a, StringView b) {
    icu::Collator* c = collator();
    if (c == nullptr) return 0;
    UErrorCode status = U_ZERO_ERROR;
    const UCollationResult r = c->compare(icuText(a), static_cast<std::int32_t>(a.size()), icuText(b),
                                          static_cast<std::int32_t>(b.size()), status);
    if (U_FAILURE(status) || r == UCOL_EQUAL) return 0;
    return r == UCOL_LESS ? -1 : 1;
}

}  // namespace telvaro::unicode

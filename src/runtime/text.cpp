// The runtime's text comparison and string functions.
//
// Equality, search and replacement fold each UTF-16 unit with the
// platform's simple case folding, so "A" equals "a" and "Á" equals "á" while
// "á" and "a" stay different letters. Searches fold their pattern once and the searched text unit by unit
// as they go (Knuth-Morris-Pratt), so every call is linear in the text and
// stops at the first match: callers run them in loops over long texts.
#include "runtime/text.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <new>
#include <utility>
#include <vector>

#include "runtime/error.h"
#include "runtime/limits.h"
#include "runtime/unicode.h"

namespace telvaro {

namespace {

constexpr int kInvalidPatternString = 93;

char16_t fold(char16_t c) {
    if (c < 0x80) return (c >= u'A' && c <= u'Z') ? static_cast<char16_t>(c + 32) : c;
    return unicode::foldCase(c);
}

String folded(StringView s) {
    String out(s);
    for (auto& c : out) c = fold(c);
    return out;
}

std::int32_t position(std::size_t index) { return static_cast<std::int32_t>(index + 1); }

// A search pattern folded once, with the border table of Knuth-Morris-Pratt
// so that a scan never reads a unit of the text twice. The text is reached
// through `at(i)`, which lets the same scan run forwards or backwards.
class Pattern {
public:
    explicit Pattern(StringView find, bool reversed = false) : units_(folded(find)) {
        if (reversed) std::reverse(units_.begin(), units_.end());
        const std::size_t m = units_.size();
        if (m < 2) return;
        border_.assign(m, 0);
        std::size_t k = 0;
        for (std::size_t q = 1; q < m; ++q) {
            while (k > 0 && units_[q] != units_[k]) k = border_[k - 1];
            if (units_[q] == units_[k]) ++k;
            border_[q] = k;
        }
    }

    std::size_t size() const { return units_.size(); }

    // Calls onMatch(start) for each occurrence in the units at(from) ..
    // at(length - 1), left to right, until onMatch returns false. With
    // `overlapping` an occurrence may begin inside the previous one;
    // otherwise the scan goes on after it.
    template <typename At, typename OnMatch>
    void scan(std::size_t from, std::size_t length, At at, bool overlapping, OnMatch onMatch) const {
        const std::size_t m = units_.size();
        if (m == 0 || length < m) return;
        if (m == 1) {
            const char16_t wanted = units_[0];
            for (std::size_t i = from; i < length; ++i)
                if (fold(at(i)) == wanted && !onMatch(i)) return;
            return;
        }
        std::size_t q = 0;
        for (std::size_t i = from; i < length; ++i) {
            const char16_t c = fold(at(i));
            while (q > 0 && units_[q] != c) q = border_[q - 1];
            if (units_[q] == c) ++q;
            if (q == m) {
                if (!onMatch(i + 1 - m)) return;
                q = overlapping ? border_[m - 1] : 0;
            }
        }
    }

    // Index of the first occurrence at or after `from`, npos when none.
    std::size_t firstIn(StringView s, std::size_t from) const {
        std::size_t found = StringView::npos;
        scan(
            from, s.size(), [&](std::size_t i) { return s[i]; }, false,
            [&](std::size_t i) {
                found = i;
                return false;
            });
        return found;
    }

private:
    String units_;
    std::vector<std::size_t> border_;
};

}  // namespace

char16_t foldCase(char16_t c) { return fold(c); }

// Maps each UTF-16 unit through a simple case mapping of the platform.
static String mapCase(StringView s, char16_t (*mapping)(char16_t)) {
    String out(s);
    for (auto& c : out) c = mapping(c);
    return out;
}

String upperCase(StringView s) { return mapCase(s, unicode::toUpper); }
String lowerCase(StringView s) { return mapCase(s, unicode::toLower); }

bool textEquals(StringView a, StringView b) {
    if (a.size() != b.size()) return false;
    for (std::size_t i = 0; i < a.size(); ++i)
        if (a[i] != b[i] && fold(a[i]) != fold(b[i])) return false;
    return true;
}

std::int32_t inStr(std::int32_t start, StringView s, StringView find) {
    if (start < 1) raise(err::InvalidProcedureCall);
    const auto n = static_cast<std::int64_t>(s.size());
    // An empty text is tested first: nothing is found in it, not even "".
    if (n == 0 || start > n + 1) return 0;
    if (find.empty()) return start;
    const std::size_t found = Pattern(find).firstIn(s, static_cast<std::size_t>(start - 1));
    return found == StringView::npos ? 0 : position(found);
}

std::int32_t inStrRev(StringView s, StringView find, std::int32_t start) {
    if (start == 0 || start < -1) raise(err::InvalidProcedureCall);
    const auto n = static_cast<std::int64_t>(s.size());
    if (start == -1) start = static_cast<std::int32_t>(n);
    if (start > n) return 0;
    if (find.empty()) return start;
    // The occurrence must lie within the first `start` units: scan them
    // from the right with the pattern reversed; the first hit is the last one.
    const auto end = static_cast<std::size_t>(start);
    const Pattern reversed(find, true);
    std::size_t found = StringView::npos;
    reversed.scan(
        0, end, [&](std::size_t j) { return s[end - 1 - j]; }, false,
        [&](std::size_t j) {
            found = end - j - reversed.size();
            return false;
        });
    return found == StringView::npos ? 0 : position(found);
}

std::vector<std::int32_t> textOccurrences(StringView s, StringView find) {
    std::vector<std::int32_t> positions;
    Pattern(find).scan(
        0, s.size(), [&](std::size_t i) { return s[i]; }, true,
        [&](std::size_t i) {
            positions.push_back(position(i));
            return true;
        });
    return positions;
}

String replaceText(StringView s, StringView find, StringView with) {
    if (find.empty() || s.empty()) return String(s);
    String out;
    out.reserve(s.size());
    std::size_t copied = 0;
    Pattern(find).scan(
        0, s.size(), [&](std::size_t i) { return s[i]; }, false,
        [&](std::size_t i) {
            out.append(s.substr(copied, i - copied));
            out.append(with);
            copied = i + find.size();
            return true;
        });
    out.append(s.substr(copied));
    return out;
}

String mid(StringView s, std::int32_t start) {
    if (start < 1) raise(err::InvalidProcedureCall);
    if (static_cast<std::size_t>(start) > s.size()) return {};
    return String(s.substr(static_cast<std::size_t>(start - 1)));
}

String mid(StringView s, std::int32_t start, std::int32_t length) {
    if (start < 1 || length < 0) raise(err::InvalidProcedureCall);
    if (static_cast<std::size_t>(start) > s.size()) return {};
    return String(s.substr(static_cast<std::size_t>(start - 1), static_cast<std::size_t>(length)));
}

String left(StringView s, std::int32_t length) {
    if (length < 0) raise(err::InvalidProcedureCall);
    return String(s.substr(0, static_cast<std::size_t>(length)));
}

String right(StringView s, std::int32_t length) {
    if (length < 0) raise(err::InvalidProcedureCall);
    const auto n = static_cast<std::size_t>(length);
    return n >= s.size() ? String(s) : String(s.substr(s.size() - n));
}

String ltrim(StringView s) {
    const auto b = s.find_first_not_of(u' ');
    return b == StringView::npos ? String() : String(s.substr(b));
}

String rtrim(StringView s) {
    const auto e = s.find_last_not_of(u' ');
    return e == StringView::npos ? String() : String(s.substr(0, e + 1));
}

String trim(StringView s) {
    const auto b = s.find_first_not_of(u' ');
    if (b == StringView::npos) return {};
    return String(s.substr(b, s.find_last_not_of(u' ') - b + 1));
}

String space(std::int32_t n) { return repeatChar(n, u' '); }

String repeatChar(std::int32_t n, char16_t c) {
    if (n < 0) raise(err::InvalidProcedureCall);
    if (n > kMaxBuiltTextLength) raise(err::OutOfStringSpace);
    try {
        return String(static_cast<std::size_t>(n), c);
    } catch (const std::bad_alloc&) {
        raise(err::OutOfMemory);
    }
}

}  // namespace telvaro

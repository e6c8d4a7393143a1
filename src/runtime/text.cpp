#include "runtime/text.h"

#include <unicode/coll.h>
#include <unicode/locid.h>
#include <unicode/uchar.h>

#include <memory>
#include <cstdint>
#include <vector>

#include "runtime/error.h"

namespace telvaro {

char16_t foldCase(char16_t c) {
    if (c < 0x80) return (c >= u'A' && c <= u'Z') ? char16_t(c + 32) : c;
    if (c >= 0xD800 && c <= 0xDFFF) return c;
    UChar32 f = u_foldCase(c, U_FOLD_CASE_DEFAULT);
    return f <= 0xFFFF ? static_cast<char16_t>(f) : c;
}

static String folded(StringView s) {
    String out(s);
    for (auto& c : out) c = foldCase(c);
    return out;
}

// Maps each UTF-16 unit through a simple case mapping; surrogates and
// mappings outside the basic plane are left as they are.
static String mapCase(StringView s, UChar32 (*mapping)(UChar32)) {
    String out(s);
    for (auto& c : out) {
        if (c >= 0xD800 && c <= 0xDFFF) continue;
        UChar32 u = mapping(c);
        if (u <= 0xFFFF) c = static_cast<char16_t>(u);
    }
    return out;
}

String upperCase(StringView s) { return mapCase(s, u_toupper); }
String lowerCase(StringView s) { return mapCase(s, u_tolower); }

bool textEquals(StringView a, StringView b) {
    if (a.size() != b.size()) return false;
    for (std::size_t i = 0; i < a.size(); ++i)
        if (a[i] != b[i] && foldCase(a[i]) != foldCase(b[i])) return false;
    return true;
}

namespace {

// A Spanish collator that ignores case but not accents. ICU collators are
// not safe for concurrent use, so each thread keeps its own.
icu::Collator* collator() {
    thread_local std::unique_ptr<icu::Collator> c = [] {
        UErrorCode status = U_ZERO_ERROR;
        std::unique_ptr<icu::Collator> made(icu::Collator::createInstance(icu::Locale("es"), status));
        if (U_FAILURE(status)) made.reset();
        if (made) made->setStrength(icu::Collator::SECONDARY);
        return made;
    }();
    return c.get();
}

}  // namespace

int textCompare(StringView a, StringView b) {
    if (textEquals(a, b)) return 0;
    if (icu::Collator* c = collator()) {
        UErrorCode status = U_ZERO_ERROR;
        auto r = c->compare(reinterpret_cast<const UChar*>(a.data()), static_cast<int32_t>(a.size()),
                            reinterpret_cast<const UChar*>(b.data()), static_cast<int32_t>(b.size()), status);
        if (U_SUCCESS(status) && r != UCOL_EQUAL) return r == UCOL_LESS ? -1 : 1;
    }
    // Equal under the collator but not as folded text: order by folded units.
    String fa = folded(a), fb = folded(b);
    return fa < fb ? -1 : 1;
}

std::int32_t inStr(std::int32_t start, StringView s, StringView find) {
    if (start < 1) raise(err::InvalidProcedureCall);
    auto n = static_cast<std::int64_t>(s.size());
    if (start > n + 1) return 0;
    if (find.empty()) return start;
    String fs = folded(s), ff = folded(find);
    auto pos = fs.find(ff, static_cast<std::size_t>(start - 1));
    return pos == String::npos ? 0 : static_cast<std::int32_t>(pos + 1);
}

std::int32_t inStrRev(StringView s, StringView find, std::int32_t start) {
    if (start == 0 || start < -1) raise(err::InvalidProcedureCall);
    auto n = static_cast<std::int64_t>(s.size());
    if (start == -1) start = static_cast<std::int32_t>(n);
    if (start > n) return 0;
    if (find.empty()) return start;
    if (static_cast<std::int64_t>(find.size()) > start) return 0;
    String fs = folded(s.substr(0, static_cast<std::size_t>(start))), ff = folded(find);
    auto pos = fs.rfind(ff);
    return pos == String::npos ? 0 : static_cast<std::int32_t>(pos + 1);
}

String replaceText(StringView s, StringView find, StringView with) {
    if (find.empty() || s.empty()) return String(s);
    String fs = folded(s), ff = folded(find);
    String out;
    out.reserve(s.size());
    std::size_t from = 0;
    for (;;) {
        auto pos = fs.find(ff, from);
        if (pos == String::npos) break;
        out.append(s.substr(from, pos - from));
        out.append(with);
        from = pos + find.size();
    }
    out.append(s.substr(from));
    return out;
}

namespace {

// One element of a Like pattern.
struct LikeToken {
    enum Kind { Literal, AnyOne, AnyMany, Digit, Set } kind = Literal;
    explicit LikeToken(Kind k) : kind(k) {}
    char16_t ch = 0;
    bool negated = false;
    std::vector<std::pair<char16_t, char16_t>> ranges;

    bool matches(char16_t c) const {
        switch (kind) {
            case Literal: return foldCase(c) == ch;
            case AnyOne: return true;
            case Digit: return c >= u'0' && c <= u'9';
            case Set: {
                char16_t fc = foldCase(c);
                bool in = false;
                for (auto [lo, hi] : ranges)
                    if (fc >= lo && fc <= hi) in = true;
                return in != negated;
            }
            case AnyMany: break;
        }
        return false;
    }
};

std::vector<LikeToken> parseLike(StringView p) {
    std::vector<LikeToken> tokens;
    for (std::size_t i = 0; i < p.size(); ++i) {
        char16_t c = p[i];
        if (c == u'?') {
            tokens.emplace_back(LikeToken::AnyOne);
        } else if (c == u'*') {
            if (tokens.empty() || tokens.back().kind != LikeToken::AnyMany) tokens.emplace_back(LikeToken::AnyMany);
        } else if (c == u'#') {
            tokens.emplace_back(LikeToken::Digit);
        } else if (c == u'[') {
            auto close = p.find(u']', i + 1);
            if (close == StringView::npos) raise(93);
            LikeToken t(LikeToken::Set);
            std::size_t k = i + 1;
            if (k < close && p[k] == u'!') {
                t.negated = true;
                ++k;
            }
            if (k == close && !t.negated) {  // "[]" matches the empty string: drop it
                i = close;
                continue;
            }
            while (k < close) {
                char16_t lo = foldCase(p[k]), hi = lo;
                if (k + 2 < close && p[k + 1] == u'-') {
                    hi = foldCase(p[k + 2]);
                    if (hi < lo) raise(93);
                    k += 3;
                } else {
                    ++k;
                }
                t.ranges.emplace_back(lo, hi);
            }
            tokens.push_back(std::move(t));
            i = close;
        } else {
            LikeToken t(LikeToken::Literal);
            t.ch = foldCase(c);
            tokens.push_back(t);
        }
    }
    return tokens;
}

}  // namespace

bool likeText(StringView s, StringView pattern) {
    const auto tokens = parseLike(pattern);
    // Greedy matching with backtracking to the last "*" (linear in practice).
    std::size_t si = 0, ti = 0, starToken = SIZE_MAX, starText = 0;
    while (si < s.size()) {
        if (ti < tokens.size() && tokens[ti].kind == LikeToken::AnyMany) {
            starToken = ti++;
            starText = si;
        } else if (ti < tokens.size() && tokens[ti].matches(s[si])) {
            ++ti;
            ++si;
        } else if (starToken != SIZE_MAX) {
            ti = starToken + 1;
            si = ++starText;
        } else {
            return false;
        }
    }
    while (ti < tokens.size() && tokens[ti].kind == LikeToken::AnyMany) ++ti;
    return ti == tokens.size();
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
    auto n = static_cast<std::size_t>(length);
    return n >= s.size() ? String(s) : String(s.substr(s.size() - n));
}

String ltrim(StringView s) {
    auto b = s.find_first_not_of(u' ');
    return b == StringView::npos ? String() : String(s.substr(b));
}

String rtrim(StringView s) {
    auto e = s.find_last_not_of(u' ');
    return e == StringView::npos ? String() : String(s.substr(0, e + 1));
}

String trim(StringView s) { return ltrim(rtrim(s)); }

String space(std::int32_t n) { return repeatChar(n, u' '); }

String repeatChar(std::int32_t n, char16_t c) {
    if (n < 0) raise(err::InvalidProcedureCall);
    return String(static_cast<std::size_t>(n), c);
}

}  // namespace telvaro

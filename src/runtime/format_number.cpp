// Number sections of Format: digit placeholders, the decimal point,
// thousands grouping and scaling commas, percent, scientific notation and
// literal text; and the general number text used without a pattern.
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>

#include "runtime/error.h"
#include "runtime/format_number.h"

namespace telvaro::formatting {

// ---------------------------------------------------------------------------
// Digits

void Digits::normalize() {
    std::size_t lead = 0;
    while (lead < digits.size() && digits[lead] == '0') ++lead;
    if (lead > 0) {
        digits.erase(0, lead);
        point -= static_cast<int>(lead);
    }
    while (!digits.empty() && digits.back() == '0') digits.pop_back();
    if (digits.empty()) point = 0;
}

Digits Digits::fromDouble(double d) {
    if (!std::isfinite(d)) raise(err::Overflow);
    Digits r;
    r.exact = false;
    if (d == 0) return r;
    r.negative = d < 0;
    // 15 significant digits, as the runtime reads a Double before writing it.
    char buf[48];
    std::snprintf(buf, sizeof buf, "%.14e", std::fabs(d));
    std::size_t i = 0;
    for (; buf[i] != '\0' && buf[i] != 'e'; ++i) {
        if (buf[i] >= '0' && buf[i] <= '9') r.digits.push_back(buf[i]);
    }
    int exponent = buf[i] == 'e' ? static_cast<int>(std::strtol(buf + i + 1, nullptr, 10)) : 0;
    r.point = exponent + 1;
    r.normalize();
    return r;
}

Digits Digits::fromInteger(std::int64_t v) {
    Digits r;
    r.negative = v < 0;
    std::uint64_t magnitude = v < 0 ? std::uint64_t{0} - static_cast<std::uint64_t>(v) : static_cast<std::uint64_t>(v);
    r.digits = std::to_string(magnitude);
    r.point = static_cast<int>(r.digits.size());
    r.normalize();
    return r;
}

Digits Digits::fromCurrency(std::int64_t scaled) {
    Digits r = fromInteger(scaled);
    r.shift(-4);
    return r;
}

Digits Digits::fromDecimal(const Decimal& d) {
    Digits r;
    String text = d.toString(u'.');
    bool seenPoint = false;
    int before = 0;
    for (char16_t c : text) {
        if (c == u'-') {
            r.negative = true;
        } else if (c == u'.') {
            seenPoint = true;
        } else if (c >= u'0' && c <= u'9') {
            r.digits.push_back(static_cast<char>(c));
            if (!seenPoint) ++before;
        }
    }
    r.point = before;
    r.normalize();
    if (r.isZero()) r.negative = false;
    return r;
}

void Digits::shift(int power) {
    if (!isZero()) point += power;
}

void Digits::roundTo(int decimals) {
    if (isZero()) return;
    long long cut = static_cast<long long>(point) + decimals;
    if (cut < 0) {
        digits.clear();
        point = 0;
        return;
    }
    if (cut >= static_cast<long long>(digits.size())) return;
    auto keep = static_cast<std::size_t>(cut);
    bool up = digits[keep] >= '5';
    digits.resize(keep);
    if (up) {
        std::size_t i = keep;
        while (i > 0 && digits[i - 1] == '9') {
            digits[i - 1] = '0';
            --i;
        }
        if (i == 0) {
            digits.insert(digits.begin(), '1');
            ++point;
        } else {
            ++digits[i - 1];
        }
    }
    normalize();
}

std::string Digits::integerPart() const {
    if (point <= 0) return {};
    auto wanted = static_cast<std::size_t>(point);
    std::string out = digits.substr(0, std::min(wanted, digits.size()));
    if (wanted > out.size()) out.append(wanted - out.size(), '0');
    return out;
}

std::string Digits::fractionPart(int count) const {
    std::string out;
    out.reserve(static_cast<std::size_t>(std::max(count, 0)));
    for (int k = 0; k < count; ++k) {
        long long index = static_cast<long long>(point) + k;
        bool inside = index >= 0 && index < static_cast<long long>(digits.size());
        out.push_back(inside ? digits[static_cast<std::size_t>(index)] : '0');
    }
    return out;
}

// ---------------------------------------------------------------------------
// Number sections

namespace {

struct NumberElement {
    enum class Kind { Text, IntDigit, Point, FracDigit, Exponent, ExpDigit };
    Kind kind = Kind::Text;
    String text;            // Text; for Exponent the "E" or "e" as written
    bool plusSign = false;  // Exponent: "E+" shows the sign always, "E-" only when negative
};

struct NumberPattern {
    std::vector<NumberElement> elements;
    int intDigits = 0;     // placeholders left of the point (of the mantissa)
    int intRequired = 0;   // digits always shown: from the leftmost "0" to the point
    int fracDigits = 0;    // placeholders right of the point
    int fracRequired = 0;  // digits always shown: up to the rightmost "0"
    int expRequired = 0;   // "0" placeholders of the exponent
    bool grouping = false;
    bool hasExponent = false;
    int scale = 0;  // power of ten applied before rounding (% and scaling commas)
};

NumberPattern parseNumberPattern(const Section& section) {
    using Kind = NumberElement::Kind;
    NumberPattern p;
    enum class Part { Integer, Fraction, Exponent } part = Part::Integer;
    std::vector<int> intCommas;  // for each comma: the integer placeholders before it
    int pendingFracCommas = 0;   // commas after the point not followed by a placeholder
    int leftmostZero = -1;
    int rightmostFracZero = -1;

    auto addText = [&](char16_t c) {
        if (p.elements.empty() || p.elements.back().kind != Kind::Text) p.elements.push_back({Kind::Text, {}, false});
        p.elements.back().text.push_back(c);
    };

    for (std::size_t i = 0; i < section.size(); ++i) {
        const PatternChar& pc = section[i];
        if (pc.literal) {
            addText(pc.c);
            continue;
        }
        char16_t c = pc.c;
        if (c == u'0' || c == u'#') {
            bool zero = c == u'0';
            if (part == Part::Integer) {
                if (zero && leftmostZero < 0) leftmostZero = p.intDigits;
                ++p.intDigits;
                p.elements.push_back({Kind::IntDigit, {}, false});
            } else if (part == Part::Fraction) {
                if (zero) rightmostFracZero = p.fracDigits;
                ++p.fracDigits;
                pendingFracCommas = 0;
                p.elements.push_back({Kind::FracDigit, {}, false});
            } else {
                if (zero) ++p.expRequired;
                p.elements.push_back({Kind::ExpDigit, {}, false});
            }
        } else if (c == u'.' && part == Part::Integer) {
            p.elements.push_back({Kind::Point, {}, false});
            part = Part::Fraction;
        } else if (c == u',') {
            if (part == Part::Integer) intCommas.push_back(p.intDigits);
            if (part == Part::Fraction) ++pendingFracCommas;
        } else if (c == u'%') {
            addText(c);
            p.scale += 2;
        } else if ((c == u'E' || c == u'e') && part != Part::Exponent && i + 1 < section.size() &&
                   !section[i + 1].literal && (section[i + 1].c == u'+' || section[i + 1].c == u'-')) {
            p.elements.push_back({Kind::Exponent, String(1, c), section[i + 1].c == u'+'});
            p.hasExponent = true;
            part = Part::Exponent;
            ++i;
        } else {
            addText(c);
        }
    }

    // Commas between integer placeholders turn on grouping; commas with no
    // placeholder after them (before the point or at the end) divide by 1000
    // each, and so does every extra comma of an adjacent pair.
    for (std::size_t k = 0; k < intCommas.size();) {
        std::size_t run = 1;
        while (k + run < intCommas.size() && intCommas[k + run] == intCommas[k]) ++run;
        if (intCommas[k] == p.intDigits) {
            if (intCommas[k] > 0) p.scale -= 3 * static_cast<int>(run);
        } else {
            p.grouping = true;
            p.scale -= 3 * static_cast<int>(run - 1);
        }
        k += run;
    }
    p.scale -= 3 * pendingFracCommas;
    p.intRequired = leftmostZero < 0 ? 0 : p.intDigits - leftmostZero;
    p.fracRequired = rightmostFracZero + 1;
    return p;
}

String separatorOr(const String& configured, char16_t fallback) {
    return configured.empty() ? String(1, fallback) : configured;
}

}  // namespace

String formatNumberSection(const Section& section, Digits d, bool minus, const RegionalSettings& settings) {
    using Kind = NumberElement::Kind;
    NumberPattern p = parseNumberPattern(section);
    d.negative = false;
    d.shift(p.scale);

    int exponent = 0;
    if (p.hasExponent) {
        if (!d.isZero()) {
            exponent = d.point - p.intDigits;
            d.point = p.intDigits;
            d.roundTo(p.fracDigits);
            if (d.point > p.intDigits) {  // rounding carried into a new digit: 9.99 -> 10.0
                exponent += d.point - p.intDigits;
                d.point = p.intDigits;
            }
        }
    } else {
        d.roundTo(p.fracDigits);
    }

    std::string whole = d.integerPart();
    if (whole.size() < static_cast<std::size_t>(p.intRequired))
        whole.insert(0, static_cast<std::size_t>(p.intRequired) - whole.size(), '0');
    std::string fraction = d.fractionPart(p.fracDigits);
    while (fraction.size() > static_cast<std::size_t>(p.fracRequired) && fraction.back() == '0') fraction.pop_back();

    const String decimalMark = separatorOr(settings.decimalSeparator, u'.');
    const String& thousandsMark = settings.thousandSeparator;
    const long long len = static_cast<long long>(whole.size());

    String out;
    if (minus) out.push_back(u'-');
    auto emitWhole = [&](long long from, long long to) {  // digits from..to of `whole`, inclusive
        for (long long j = std::max(from, 0LL); j <= to; ++j) {
            out.push_back(static_cast<char16_t>(whole[static_cast<std::size_t>(j)]));
            long long fromRight = len - 1 - j;
            if (p.grouping && fromRight > 0 && fromRight % 3 == 0) out += thousandsMark;
        }
    };

    int intIndex = 0;
    std::size_t fracIndex = 0;
    for (const NumberElement& e : p.elements) {
        switch (e.kind) {
            case Kind::Text: out += e.text; break;
            case Kind::IntDigit: {
                // Digits fill the placeholders from the right; the leftmost
                // placeholder also takes every digit that has no placeholder.
                long long fromRight = p.intDigits - 1 - intIndex;
                long long at = len - 1 - fromRight;
                emitWhole(intIndex == 0 ? 0 : at, at);
                ++intIndex;
                break;
            }
            case Kind::Point:
                if (p.intDigits == 0) emitWhole(0, len - 1);
                out += decimalMark;
                break;
            case Kind::FracDigit:
                if (fracIndex < fraction.size()) out.push_back(static_cast<char16_t>(fraction[fracIndex]));
                ++fracIndex;
                break;
            case Kind::Exponent: {
                out += e.text;
                if (exponent < 0)
                    out.push_back(u'-');
                else if (e.plusSign)
                    out.push_back(u'+');
                std::string digits = std::to_string(exponent < 0 ? -static_cast<long long>(exponent) : exponent);
                auto width = static_cast<std::size_t>(std::max(p.expRequired, 1));
                if (digits.size() < width) digits.insert(0, width - digits.size(), '0');
                out += ascii(digits);
                break;
            }
            case Kind::ExpDigit: break;  // the exponent's digits are written with the "E"
        }
    }
    return out;
}

// ---------------------------------------------------------------------------
// General number

String generalNumber(const Digits& n, const RegionalSettings& settings) {
    if (n.isZero()) return u"0";
    const String decimalMark = separatorOr(settings.decimalSeparator, u'.');
    const long long len = static_cast<long long>(n.digits.size());
    String out;
    if (n.negative) out.push_back(u'-');
    // A Double is written plainly while its digits fit in 15 places on
    // either side of the point; beyond that in exponent form.
    bool plain = n.exact || (n.point <= 15 && len - n.point <= 15);
    if (plain) {
        std::string whole = n.integerPart();
        out += whole.empty() ? String(u"0") : ascii(whole);
        if (len > n.point) {
            out += decimalMark;
            out += ascii(n.fractionPart(static_cast<int>(len - n.point)));
        }
        return out;
    }
    out.push_back(static_cast<char16_t>(n.digits[0]));
    if (len > 1) {
        out += decimalMark;
        out += ascii(n.digits.substr(1));
    }
    int exponent = n.point - 1;
    out += exponent < 0 ? u"E-" : u"E+";
    std::string e = std::to_string(exponent < 0 ? -exponent : exponent);
    if (e.size() < 2) e.insert(0, 1, '0');
    out += ascii(e);
    return out;
}

}  // namespace telvaro::formatting

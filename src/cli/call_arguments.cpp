#include "cli/call_arguments.h"

#include <cctype>
#include <charconv>
#include <cstdint>
#include <limits>
#include <optional>

#include "runtime/error.h"
#include "runtime/text.h"

namespace telvaro::cli {

namespace {

constexpr int kNamedArgumentNotFound = 448;

bool isDigit(char c) { return c >= '0' && c <= '9'; }

// A decimal literal: sign, digits with at most one ".", an optional
// exponent; at least one digit before the exponent.
bool isDecimalLiteral(const std::string& t) {
    std::size_t i = 0;
    if (i < t.size() && (t[i] == '+' || t[i] == '-')) ++i;
    std::size_t digits = 0;
    bool point = false;
    for (; i < t.size(); ++i) {
        if (isDigit(t[i]))
            ++digits;
        else if (t[i] == '.' && !point)
            point = true;
        else
            break;
    }
    if (digits == 0) return false;
    if (i < t.size() && (t[i] == 'e' || t[i] == 'E')) {
        ++i;
        if (i < t.size() && (t[i] == '+' || t[i] == '-')) ++i;
        std::size_t expDigits = 0;
        for (; i < t.size() && isDigit(t[i]); ++i) ++expDigits;
        if (expDigits == 0) return false;
    }
    return i == t.size();
}

bool isWhole(const std::string& t) { return t.find_first_of(".eE") == std::string::npos; }

// A whole number as a literal types it: Integer, Long, else Double.
Variant wholeValue(double value) {
    if (value >= std::numeric_limits<std::int16_t>::min() && value <= std::numeric_limits<std::int16_t>::max())
        return Variant(static_cast<std::int16_t>(value));
    if (value >= std::numeric_limits<std::int32_t>::min() && value <= std::numeric_limits<std::int32_t>::max())
        return Variant(static_cast<std::int32_t>(value));
    return Variant(value);
}

// &H1F, &O17: Integer when four hex digits fit, else Long (two's complement,
// as a script's hex literal).
std::optional<Variant> radixLiteral(const std::string& t) {
    if (t.size() < 3 || t[0] != '&') return std::nullopt;
    const char kind = static_cast<char>(std::toupper(static_cast<unsigned char>(t[1])));
    const int base = kind == 'H' ? 16 : kind == 'O' ? 8 : 0;
    if (base == 0) return std::nullopt;
    std::uint64_t value = 0;
    const char* first = t.data() + 2;
    const char* last = t.data() + t.size();
    auto [end, ec] = std::from_chars(first, last, value, base);
    if (ec != std::errc() || end != last || value > 0xFFFFFFFFull) return std::nullopt;
    if (value <= 0xFFFF) return Variant(static_cast<std::int16_t>(static_cast<std::uint16_t>(value)));
    return Variant(static_cast<std::int32_t>(static_cast<std::uint32_t>(value)));
}

// "text" with "" for a quote inside.
std::optional<std::string> quotedText(const std::string& t) {
    if (t.size() < 2 || t.front() != '"' || t.back() != '"') return std::nullopt;
    std::string inner;
    for (std::size_t i = 1; i + 1 < t.size(); ++i) {
        if (t[i] == '"') {
            if (i + 2 < t.size() && t[i + 1] == '"')
                ++i;
            else
                return std::nullopt;
        }
        inner.push_back(t[i]);
    }
    return inner;
}

std::optional<Variant> enumerationMember(const std::string& token, const ParamInfo& param) {
    for (const auto& e : enumerations()) {
        if (e.name != param.typeName) continue;
        for (const auto& m : e.members)
            if (textEquals(fromUtf8(token), fromUtf8(std::string(m.name)))) return Variant(m.value);
    }
    return std::nullopt;
}

}  // namespace

Variant literalValue(const std::string& token, const ParamInfo* param, bool asText) {
    if (asText) return Variant(fromUtf8(token));
    if (auto text = quotedText(token)) return Variant(fromUtf8(*text));
    if (isDecimalLiteral(token)) {
        double value = 0;  // "." always, whatever the process's locale
        const char* first = token.data() + (token[0] == '+' ? 1 : 0);
        const auto [end, ec] = std::from_chars(first, token.data() + token.size(), value);
        if (ec == std::errc::result_out_of_range) throw RuntimeError(err::Overflow);
        if (isWhole(token) && value == static_cast<double>(static_cast<std::int64_t>(value))) return wholeValue(value);
        return Variant(value);
    }
    if (auto radix = radixLiteral(token)) return *radix;
    if (param) {
        if (auto member = enumerationMember(token, *param)) return *member;
    }
    return Variant(fromUtf8(token));
}

std::vector<Variant> callArguments(const MethodInfo& method, const std::vector<std::string>& tokens, bool asText) {
    std::vector<Variant> args;
    std::vector<bool> given;
    auto place = [&](std::size_t index, Variant value) {
        if (index >= method.params.size()) throw RuntimeError(err::WrongNumberOfArguments);
        if (args.size() <= index) {
            args.resize(index + 1, Variant::missing());
            given.resize(index + 1, false);
        }
        if (given[index]) throw RuntimeError(err::InvalidProcedureCall);
        args[index] = std::move(value);
        given[index] = true;
    };

    std::size_t next = 0;
    for (const auto& token : tokens) {
        if (token == "--text") {
            asText = true;  // the arguments after it
            continue;
        }
        if (token.size() > 2 && token.compare(0, 2, "--") == 0 && token.find('=') != std::string::npos) {
            const std::string name = token.substr(2, token.find('=') - 2);
            const std::string value = token.substr(token.find('=') + 1);
            std::size_t index = method.params.size();
            for (std::size_t i = 0; i < method.params.size(); ++i)
                if (textEquals(fromUtf8(name), fromUtf8(std::string(method.params[i].name)))) index = i;
            if (index == method.params.size())
                throw RuntimeError(kNamedArgumentNotFound, u"Named argument not found: " + fromUtf8(name));
            place(index, literalValue(value, &method.params[index], asText));
            next = index + 1;
            continue;
        }
        place(next, literalValue(token, next < method.params.size() ? &method.params[next] : nullptr, asText));
        ++next;
    }
    return args;
}

}  // namespace telvaro::cli

#include "text/formula.h"

#include <cmath>

#include "context/error_modes.h"
#include "context/fun.h"
#include "context/thread_state.h"
#include "runtime/checked.h"
#include "runtime/convert.h"
#include "runtime/error.h"
#include "runtime/format.h"
#include "runtime/text.h"

namespace telvaro::text {

namespace {

const StringView kOperators = u"%^*/\\+-";
const StringView kBoundaries = u"%^*/\\+-()";

// Rewriting some formulas copies text at every level of recursion; the
// runtime the evaluator was written for ran out of stack there. These bounds
// raise that error before the host's stack or memory are at risk.
constexpr int kMaxDepth = 200;
constexpr std::size_t kMaxText = 1 << 16;
// Each step of the rewriting and of the final reading goes over the whole
// remaining text, so a long run of operators costs the square of its
// length. The characters gone over by one evaluation are counted, and past
// this many the evaluation stops with the same error: milliseconds at most,
// where ordinary formulas go over a few thousand.
constexpr std::size_t kMaxWork = std::size_t(1) << 20;

thread_local std::size_t workDone = 0;

void spend(std::size_t characters) {
    workDone += characters;
    if (workDone > kMaxWork) raise(err::OutOfStackSpace);
}

// 10^n is read from the text "1" followed by n zeros; from 309 zeros on
// that number is past the largest Double and reading it overflows. Past
// this many the overflow is raised without writing the zeros out.
constexpr std::int32_t kZerosWrittenOut = 400;

bool isOneOf(char16_t c, StringView set) { return set.find(c) != StringView::npos; }

// The character at a 1-based position ("" past either end).
char16_t at(const String& s, std::int32_t i) {
    return i >= 1 && i <= static_cast<std::int32_t>(s.size()) ? s[static_cast<std::size_t>(i - 1)] : u'\0';
}

// s[i..j], 1-based and inclusive; empty when j < i.
String slice(const String& s, std::int32_t i, std::int32_t j) {
    if (i < 1) i = 1;
    if (j > static_cast<std::int32_t>(s.size())) j = static_cast<std::int32_t>(s.size());
    if (j < i) return {};
    return s.substr(static_cast<std::size_t>(i - 1), static_cast<std::size_t>(j - i + 1));
}
String from(const String& s, std::int32_t i) { return slice(s, i, static_cast<std::int32_t>(s.size())); }

// The earliest occurrence, at or after `start`, of any token of the
// blank-separated list; on a tie the token listed first wins.
std::int32_t BuscaPrimerOperador(const String& text, StringView tokens, String& found, std::int32_t start) {
    if (start > static_cast<std::int32_t>(text.size())) return 0;
    String list = trim(tokens) + u" ";
    std::int32_t kept = 0;
    std::size_t from0 = 0;
    while (from0 < list.size()) {
        std::size_t blank = list.find(u' ', from0);
        String token = list.substr(from0, blank - from0);
        from0 = blank + 1;
        if (token.empty()) continue;
        std::int32_t p = inStr(start, text, token);
        if (p > 0 && (kept == 0 || p < kept)) {
            kept = p;
            found = token;
        }
        if (kept == start) break;
    }
    return kept;
}

// The last occurrence of `wanted` that ends at or before `limit`.
std::int32_t PosicionInversa(std::int32_t limit, const String& text, const String& wanted) {
    const auto n = static_cast<std::int32_t>(wanted.size());
    if (limit > static_cast<std::int32_t>(text.size())) limit = static_cast<std::int32_t>(text.size());
    const StringView whole(text);
    for (std::int32_t i = limit - n + 1; i >= 1; --i)
        if (textEquals(whole.substr(static_cast<std::size_t>(i - 1), static_cast<std::size_t>(n)), wanted)) return i;
    return 0;
}

bool HayVariosOperadores(StringView set, const String& text) {
    int count = 0;
    for (char16_t c : text)
        if (isOneOf(c, set) && ++count >= 2) return true;
    return false;
}

String NormalizaDecimal(String number, String& decimal, String& thousands) {
    if (inStr(format(Variant(25.5), u"#.#"), u".") > 0) {
        decimal = u".";
        thousands = u",";
    } else {
        decimal = u",";
        thousands = u".";
    }
    number = trim(number);
    if (!number.empty() && number[0] == thousands[0]) number[0] = decimal[0];
    std::vector<std::size_t> marks;
    for (std::size_t i = 0; i < number.size(); ++i)
        if (number[i] == thousands[0]) marks.push_back(i);
    if (marks.size() != 1) {
        for (std::size_t k = 0; k < marks.size(); ++k) number[marks[k]] = k + 1 < marks.size() ? u' ' : decimal[0];
    } else {
        number[marks[0]] = inStr(number, decimal) > 0 ? u' ' : decimal[0];
    }
    String out;
    for (char16_t c : number)
        if (c != u' ') out += c;
    return out;
}

// Consumes one leading number of `rest` into `number` (as locale-aware
// text). Errors are skipped statement by statement; `number` keeps its
// value when the statement that sets it fails.
void ExtraeNumero(String& rest, String& number) {
    SkipErrors onError;
    onError([&] { rest = ltrim(rest); });
    if (!rest.empty() && rest[0] == u'"') return;
    double sign = 1;
    onError([&] {
        if (!rest.empty() && rest[0] == u'-') {
            sign = -1;
            rest = from(rest, 2);
        }
    });
    std::size_t taken = 0;
    while (taken < rest.size() && isOneOf(rest[taken], u"0123456789., ")) ++taken;
    if (taken > 0) {
        onError([&] {
            String decimal, thousands;
            const String digits = NormalizaDecimal(rest.substr(0, taken), decimal, thousands);
            number = toString(Variant(toDouble(Variant(digits)) * sign));
        });
    } else {
        number.clear();
    }
    onError([&] { rest = ltrim(from(rest, static_cast<std::int32_t>(taken) + 1)); });
    if (!rest.empty() && foldCase(rest[0]) == u'e') {
        onError([&] {
            const std::int32_t n = Int32::ofDouble(val(from(rest, 3))).value();
            const char16_t expSign = at(rest, 2);
            if (n > kZerosWrittenOut) raise(err::Overflow);  // as reading the digits would
            const String power = u"1" + repeatChar(n, u'0');
            const double scale = toDouble(Variant(power));
            const double value = toDouble(Variant(number));
            number = toString(Variant(expSign != u'-' ? value * scale : value / scale));
        });
        onError([&] { rest = from(rest, 5); });
    }
}

// Step 2: fences the operators of high priority with parentheses, from the
// right, in the order % ^ * / \ (tightest first).
String fence(String G) {
    std::int32_t S = static_cast<std::int32_t>(G.size());
    for (const char16_t* op : {u"%", u"^", u"*", u"/", u"\\"}) {
        const String oper = op;
        for (;;) {
            const std::int32_t P = PosicionInversa(S, G, oper);
            if (P == 0) break;
            spend(G.size());
            std::int32_t L = 0;
            for (std::int32_t j = P - 1; j >= 1; --j)
                if (isOneOf(at(G, j), kBoundaries)) {
                    L = j;
                    break;
                }
            if (L != 0 && at(G, L) != u')') {
                std::int32_t R = 0;
                for (std::int32_t j = P + 1; j <= static_cast<std::int32_t>(G.size()); ++j)
                    if (isOneOf(at(G, j), kBoundaries)) {
                        R = j;
                        break;
                    }
                String found;
                if (R == 0) {
                    G = slice(G, 1, L) + u"(" + from(G, L + 1) + u")";
                } else if (const std::int32_t Q = BuscaPrimerOperador(G, u"*- /- \\- ", found, 1); Q > 0) {
                    G = slice(G, 1, L) + u"(" + slice(G, L + 1, R - 2) + u")" + from(G, Q);
                } else if (at(G, R - 1) == u'*' && at(G, R) == u'(') {
                    G = slice(G, 1, L) + u"(" + slice(G, L + 1, R - 2) + from(G, R - 1) + u")";
                } else {
                    G = slice(G, 1, L) + u"(" + slice(G, L + 1, R - 1) + u")" + from(G, R);
                }
                if (G.size() > kMaxText) raise(err::OutOfStackSpace);
            }
            S = PosicionInversa(S, G, oper) - 1;
        }
    }
    return G;
}

Decimal operandOf(const String& text) { return text.empty() ? Decimal() : toDecimal(Variant(text)); }

String evaluate(String F, int depth);

// Step 3: each innermost group is replaced by the text of its value.
String replaceGroups(String F, int depth) {
    while (inStr(F, u"(") > 0) {
        spend(F.size());
        const std::int32_t C = inStr(F, u")");
        if (C == 0) {
            F += u")";
            continue;
        }
        std::int32_t O = 0;
        for (std::int32_t j = C; j >= 1; --j)
            if (at(F, j) == u'(') {
                O = j;
                break;
            }
        if (O == 0) continue;  // a ")" before every "(": the loop never ends, as the design has it
        F = slice(F, 1, O - 1) + evaluate(slice(F, O + 1, C - 1), depth + 1) + from(F, C + 1);
        if (F.size() > kMaxText) raise(err::OutOfStackSpace);
    }
    return F;
}

// Step 6: what remains is read strictly from left to right.
String leftToRight(String F) {
    String A, B;
    Variant accumulator;
    for (;;) {
        if (F.empty()) return toString(accumulator);
        spend(F.size());
        if (A.empty()) ExtraeNumero(F, A);
        const String op = slice(F, 1, 1);
        F = from(F, 2);
        ExtraeNumero(F, B);
        const Decimal left = operandOf(A), right = operandOf(B);
        if (op == u"+") {
            accumulator = left + right;
        } else if (op == u"-") {
            accumulator = left - right;
        } else if (op == u"*") {
            accumulator = left * right;
        } else if (op == u"/") {
            accumulator = right.isZero() ? Decimal() : left / right;
        } else if (op == u"\\") {
            if (right.isZero()) {
                accumulator = Decimal();
            } else {
                // Both operands become Longs, the left one first, before
                // the divisor is tested.
                const std::int32_t dividend = toLong(Variant(left));
                const std::int32_t divisor = toLong(Variant(right));
                if (divisor == 0) raise(err::DivisionByZero);
                accumulator = Int32::of(std::int64_t(dividend) / divisor).value();
            }
        } else if (op == u"^") {
            const double base = left.toDouble(), exponent = right.toDouble();
            // A negative base with a fractional exponent, and zero to a
            // negative power, are invalid calls of the power operator.
            if (base < 0 && exponent != std::floor(exponent)) raise(err::InvalidProcedureCall);
            if (base == 0 && exponent < 0) raise(err::InvalidProcedureCall);
            const double power = std::pow(base, exponent);
            if (std::isinf(power) || std::isnan(power)) raise(err::Overflow);
            accumulator = power;
        } else if (op == u"%") {
            accumulator = left * (right / Decimal::fromInt64(100));
        } else if (op == u"\"") {
            return toString(accumulator);
        } else if (!(A.empty() && B.empty())) {
            accumulator = operandOf(A.empty() ? String(u"0") : A) + operandOf(B.empty() ? String(u"0") : B);
        } else {
            accumulator = Decimal();
        }
        A = toString(accumulator);
        if (op.empty()) return A;
    }
}

String evaluate(String F, int depth) {
    if (depth > kMaxDepth) raise(err::OutOfStackSpace);
    F = trim(F);
    String found;
    if (BuscaPrimerOperador(F, u"% ^ * / \\ ", found, 1) > 0) F = fence(F);
    F = replaceGroups(F, depth);
    if (BuscaPrimerOperador(F, u"% ^ * / \\ + - ", found, 1) == 0) {
        if (!F.empty() && F[0] == u'"') return F;
        String kept;
        for (char16_t c : F)
            if (isOneOf(foldCase(c), u"0123456789,.abcdef")) kept += c;
        return kept;
    }
    String& memo = threadState().lastFormula;
    if (HayVariosOperadores(kOperators, F)) {
        if (memo.empty()) memo = F;
        if (!textEquals(F, memo)) F = evaluate(F, depth + 1);
        memo.clear();
    }
    return leftToRight(F);
}

}  // namespace

String EvaluaExpresion(const String& formula) {
    workDone = 0;
    return evaluate(formula, 0);
}

double numCalculaFormula(Fun&, String Formula) { return val(EvaluaExpresion(Formula)); }

}  // namespace telvaro::text

// The formula evaluator behind quantity and price fields that accept small
// arithmetic ("2*3+1", "150 % 12"). It rewrites the formula text rather than
// parsing it: high-priority operators are fenced with parentheses, groups
// are replaced by the text of their value, innermost first, and what remains
// is read from left to right. Values travel as text between steps and are
// computed as Decimals ("^" as a Double, "\" as a Long).
//
//     numCalculaFormula("2*3+1")   -> 7
//     numCalculaFormula("2^3^2")   -> 512   (fenced from the right: 2^(3^2))
//     numCalculaFormula("150 % 12") -> 18   (12 per cent of 150)
#pragma once

#include "runtime/variant.h"

namespace telvaro {
class Fun;
}

namespace telvaro::text {

double numCalculaFormula(Fun&, String Formula);

// The recursive core: the formula's value as text.
String EvaluaExpresion(const String& formula);

}  // namespace telvaro::text

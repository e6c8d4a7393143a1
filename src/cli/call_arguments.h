// The arguments of `telvaro call`, read the way a script reads its literals,
// whatever the regional settings:
//   - a number literal (1234.56, -5, 1e3, &H1F) is a number: Integer or Long
//     when whole and in range, else Double;
//   - a member name of the parameter's enumeration (String_, Numero_) is
//     that member's value;
//   - anything else is text, converted by the method under the regional
//     settings; a text in double quotes ("1234.56", "" for a quote inside)
//     or any argument after --text stays text;
//   - --Name=value gives the parameter Name (case-insensitive); the
//     optional parameters left out before it are omitted, as a script's
//     empty place between two commas omits one.
#pragma once

#include <string>
#include <vector>

#include "frame/catalogue.h"
#include "runtime/variant.h"

namespace telvaro::cli {

// One argument as a script literal would be read; `asText` forces text.
Variant literalValue(const std::string& token, const ParamInfo* param, bool asText = false);

// The arguments in parameter order, omitted ones as the missing marker.
// Error 448 for a name that is no parameter of the method, 450 for more
// arguments than parameters, 5 for a parameter given twice.
std::vector<Variant> callArguments(const MethodInfo& method, const std::vector<std::string>& tokens, bool asText);

}  // namespace telvaro::cli

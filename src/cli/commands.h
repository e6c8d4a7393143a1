// The sub-commands of the telvaro program.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "frame/catalogue.h"

namespace telvaro::cli {

// The catalogue, one row per method; with `missingOnly`, only the names of
// the methods not built yet.
void listMethods(std::ostream& out, bool missingOnly);

// A parameter as declared: "ByVal Cadena As String", "[PosInicio As Integer = 1]".
std::string parameterText(const ParamInfo& p);
// "strCuentaCaracteres(Cadena As String, ...) As Integer".
std::string signatureText(const MethodInfo& m);

// The method reference in Markdown (docs/methods.md is this text).
void writeMethodReference(std::ostream& out);

// One late-bound call; the arguments are read as script literals
// (cli/call_arguments.h), all as text with `asText`. Prints the result or
// the error. Returns the exit status: 0, 1 when the method raised, 2 for a
// name that is no method (with the closest names).
int callMethod(const std::string& method, const std::vector<std::string>& args, std::ostream& out, std::ostream& err,
               bool asText = false);

// The names of every method, in catalogue order.
std::vector<std::string> methodNames();

// `telvaro help METHOD`: the signature, what the method does and an
// example; 2 and the closest names for an unknown method.
int helpMethod(const std::string& method, std::ostream& out, std::ostream& err);

// The catalogue as JSON: every method with its parameters, types,
// by-reference flags, optional defaults, whether it is built, its note.
void listMethodsJson(std::ostream& out);

// The guided tour, in a temporary home folder unless TELVARO_HOME is set.
void runDemo(std::ostream& out);

}  // namespace telvaro::cli

// The sub-commands of the telvaro program.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace telvaro::cli {

// The catalogue, one row per method; with `missingOnly`, only the names of
// the methods not built yet.
void listMethods(std::ostream& out, bool missingOnly);

// One late-bound call with text arguments; prints the result or the error.
// Returns the exit status (0, or 1 when the method raised).
int callMethod(const std::string& method, const std::vector<std::string>& args, std::ostream& out, std::ostream& err);

// The guided tour.
void runDemo(std::ostream& out);

}  // namespace telvaro::cli

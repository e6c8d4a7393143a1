// Sections of the guided tour that live in files of their own.
#pragma once

#include <ostream>

#include "context/fun.h"

namespace telvaro::cli {

// The shop's database: a table on the embedded engine, a list and a grid
// filled from it, the next code, a value, the grid exported to a workbook
// and the form printed.
void shopSection(std::ostream& out, Fun& fun);

}  // namespace telvaro::cli

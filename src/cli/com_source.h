// The sources of the Windows automation server that follow from the
// catalogue, written out so that the two faces of the library cannot
// drift apart: the interface description (IDL) that builds the type
// library, and the C++ declaration of the _Fun v-table; and the
// enumerations and records as C++ types for method code (context/enums.h).
#pragma once

#include <iosfwd>

namespace telvaro::cli {

void writeInterfaceDescription(std::ostream& out);
void writeVtableDeclaration(std::ostream& out);
void writeEnumerationHeader(std::ostream& out);

}  // namespace telvaro::cli

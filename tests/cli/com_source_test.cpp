// The Windows server's IDL and v-table declaration are made from the
// catalogue, like the C++ enumerations; the committed copies must be what
// the catalogue makes now (tests/wine reads the DISPIDs and the defaults
// back from the type library).
#include <gtest/gtest.h>

#include "cli/com_source.h"
#include "cli/program_run.h"

namespace telvaro::cli {
namespace {

std::string sourceText(const std::string& name) { return fileText(std::string(TELVARO_SOURCE_DIR) + "/src/" + name); }

TEST(ComSource, CommittedCopiesAreCurrent) {
    std::ostringstream idl, vtable, enums;
    writeInterfaceDescription(idl);
    writeVtableDeclaration(vtable);
    writeEnumerationHeader(enums);
    EXPECT_EQ(sourceText("com/telvaro.idl"), idl.str()) << "run: telvaro com-source idl > src/com/telvaro.idl";
    EXPECT_EQ(sourceText("com/fun_interface.h"), vtable.str())
        << "run: telvaro com-source vtable > src/com/fun_interface.h";
    EXPECT_EQ(sourceText("context/enums.h"), enums.str()) << "run: telvaro com-source enums > src/context/enums.h";
}

}  // namespace
}  // namespace telvaro::cli

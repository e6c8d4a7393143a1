// The Windows server's IDL and v-table declaration are made from the
// catalogue, like the C++ enumerations; the committed copies must be what
// the catalogue makes now (tests/wine reads the DISPIDs and the defaults
// back from the type library).
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <string>

#include "cli/com_source.h"

namespace telvaro::cli {
namespace {

std::string fileText(const std::string& name) {
    std::ifstream in(std::string(TELVARO_SOURCE_DIR) + "/src/" + name, std::ios::binary);
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

TEST(ComSource, CommittedCopiesAreCurrent) {
    std::ostringstream idl, vtable, enums;
    writeInterfaceDescription(idl);
    writeVtableDeclaration(vtable);
    writeEnumerationHeader(enums);
    EXPECT_EQ(fileText("com/telvaro.idl"), idl.str()) << "run: telvaro com-source idl > src/com/telvaro.idl";
    EXPECT_EQ(fileText("com/fun_interface.h"), vtable.str())
        << "run: telvaro com-source vtable > src/com/fun_interface.h";
    EXPECT_EQ(fileText("context/enums.h"), enums.str()) << "run: telvaro com-source enums > src/context/enums.h";
}

}  // namespace
}  // namespace telvaro::cli

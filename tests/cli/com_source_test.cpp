// The Windows server's IDL and v-table declaration are made from the
// catalogue, like the C++ enumerations; the committed copies must be what
// the catalogue makes now,
// and the IDL must declare every method with its DISPID in v-table order.
#include <gtest/gtest.h>

#include <fstream>
#include <regex>
#include <sstream>
#include <string>

#include "cli/com_source.h"
#include "frame/catalogue.h"

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

TEST(ComSource, EveryMethodInOrderWithItsDispid) {
    std::ostringstream idl;
    writeInterfaceDescription(idl);
    const std::string text = idl.str();
    const std::regex declaration(R"(\[id\((0x[0-9A-F]{8})\), helpstring\("(?:[^"\\]|\\.)+"\)\]\s+HRESULT (\w+)\()");
    std::size_t index = 0;
    for (auto it = std::sregex_iterator(text.begin(), text.end(), declaration); it != std::sregex_iterator(); ++it) {
        ASSERT_LT(index, catalogue().size());
        const MethodInfo& m = catalogue()[index++];
        EXPECT_EQ((*it)[2].str(), m.name) << "method " << index;
        EXPECT_EQ(std::stoul((*it)[1].str(), nullptr, 16), static_cast<unsigned long>(m.dispid)) << m.name;
    }
    EXPECT_EQ(index, catalogue().size());
}

TEST(ComSource, DefaultsTheMinGWLibraryCannotHoldAreMarked) {
    struct Case {
        std::string_view method, param;
        StoredDefault expected;
    };
    const Case cases[] = {
        {"strCuentaCaracteres", "PosInicio", StoredDefault::Everywhere},    // Integer
        {"Numero2Letra", "sMoneda", StoredDefault::Everywhere},             // by-value String
        {"regCargaListaSQL", "CampoCod", StoredDefault::OutsideWidl},       // by-reference String
        {"regCargaListaSQL", "ListaCod", StoredDefault::None},              // object: Nothing
        {"fn_CambiaLetraFilaGrid", "Tamanio", StoredDefault::OutsideWidl},  // Double
        {"INI_LeerIni", "vDefault", StoredDefault::None},                   // no default
        {"fn_CuentaElementosColGrid", "Grid", StoredDefault::None},         // required
    };
    for (const auto& c : cases) {
        const MethodInfo* m = findMethod(c.method);
        ASSERT_NE(m, nullptr) << c.method;
        const auto p =
            std::find_if(m->params.begin(), m->params.end(), [&](const ParamInfo& x) { return x.name == c.param; });
        ASSERT_NE(p, m->params.end()) << c.param;
        EXPECT_EQ(storedDefault(*p), c.expected) << c.method << "." << c.param;
    }
}

}  // namespace
}  // namespace telvaro::cli

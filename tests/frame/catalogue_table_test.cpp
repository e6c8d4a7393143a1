// The published interface: 119 methods in fixed v-table order with fixed
// DISPIDs, their parameters and defaults, the enumerations and records.
#include <gtest/gtest.h>

#include <map>
#include <set>

#include "frame/catalogue.h"
#include "support/support.h"

namespace telvaro {
namespace {

TEST(Catalogue, OrderAndDispids) {
    const auto& methods = catalogue();
    ASSERT_EQ(methods.size(), 119u);
    std::set<std::int32_t> dispids;
    std::set<std::string_view> names;
    for (std::size_t i = 0; i < methods.size(); ++i) {
        const auto& m = methods[i];
        EXPECT_EQ(m.order, static_cast<int>(i) + 1) << m.name;
        EXPECT_EQ(m.dispid & 0xFFFF0000, 0x60030000) << m.name;
        EXPECT_TRUE(dispids.insert(m.dispid).second) << m.name;
        EXPECT_TRUE(names.insert(m.name).second) << m.name;
        // Declaration order gives increasing DISPIDs, except for the four
        // methods appended at the end of the v-table by later builds.
        if (i > 0 && i < 115) {
            EXPECT_GT(m.dispid, methods[i - 1].dispid) << m.name;
        }
    }
    const std::pair<int, std::int32_t> appended[] = {
        {116, 0x60030087}, {117, 0x60030088}, {118, 0x60030092}, {119, 0x60030093}};
    for (auto [order, dispid] : appended) EXPECT_EQ(methods[static_cast<std::size_t>(order - 1)].dispid, dispid);
}

TEST(Catalogue, SpotChecksOfSignatures) {
    struct Case {
        const char* name;
        int order;
        std::int32_t dispid;
        ArgType result;
        std::size_t params;
        std::size_t required;
    };
    const Case cases[] = {
        {"strCuentaCaracteres", 1, 0x60030000, ArgType::Integer, 3, 2},
        {"Numero2Letra", 13, 0x6003000F, ArgType::String, 7, 1},
        {"fecUltimoDiaMes", 16, 0x60030016, ArgType::Byte, 2, 2},
        {"regCargaListaSQL", 19, 0x60030019, ArgType::None, 10, 4},
        {"RegLlenaGridRegSql", 29, 0x60030023, ArgType::None, 11, 4},
        {"imgCaptureScreen", 33, 0x60030027, ArgType::Object, 0, 0},
        {"MsgHayCambios", 40, 0x6003002E, ArgType::Boolean, 2, 1},
        {"fn_LlenaVector", 56, 0x6003003F, ArgType::Variant, 3, 2},
        {"fn_BuscaEnVector", 71, 0x6003004F, ArgType::Long, 2, 2},
        {"fn_PoneCheckColumnaGrid", 78, 0x60030056, ArgType::None, 11, 2},
        {"FechaPrimerDia", 86, 0x6003005E, ArgType::Date, 1, 0},
        {"INI_LeerIni", 94, 0x60030066, ArgType::String, 4, 3},
        {"REG_PoneValor", 97, 0x60030069, ArgType::Long, 6, 4},
        {"numCalculaFormula", 103, 0x60030071, ArgType::Double, 1, 1},
        {"ImprimeForm", 112, 0x6003007A, ArgType::None, 12, 2},
        {"LlenaListLIKE", 115, 0x6003007D, ArgType::None, 3, 3},
        {"fn_ValidaCedula3", 118, 0x60030092, ArgType::Integer, 2, 2},
    };
    for (const auto& c : cases) {
        const MethodInfo* m = findMethod(std::string_view(c.name));
        ASSERT_NE(m, nullptr) << c.name;
        EXPECT_EQ(m->order, c.order) << c.name;
        EXPECT_EQ(m->dispid, c.dispid) << c.name;
        EXPECT_EQ(m->result, c.result) << c.name;
        EXPECT_EQ(m->params.size(), c.params) << c.name;
        EXPECT_EQ(m->requiredCount(), c.required) << c.name;
    }
}

TEST(Catalogue, DefaultsAndPassingModes) {
    struct Case {
        const char* method;
        std::size_t index;
        const char* param;
        bool byRef;
        Variant def;
    };
    const Case cases[] = {
        {"strCuentaCaracteres", 2, "PosInicio", true, Variant(std::int16_t(1))},
        {"StockResta", 0, "CantActual", false, Variant()},
        {"Numero2Letra", 5, "SexoMoneda", false, Variant(std::int32_t(0))},
        {"Numero2Letra", 6, "SexoCentimos", false, Variant(std::int32_t(1))},
        {"fn_BuscaFilGrid", 4, "ColFin", true, Variant(std::int16_t(-1))},
        {"fn_PintaFilaGrid", 2, "Color", true, Variant(std::int32_t(-2147483643))},
        {"fn_PoneCheckGrid", 5, "DeshabSI", true, Variant(std::int16_t(11))},
        {"fn_CambiaLetraFilaGrid", 2, "Tamanio", true, Variant(10.0)},
        {"fn_CambiaLetraFilaGrid", 3, "Negrita", true, Variant(True)},
        {"fn_CambiaLetraFilaGrid", 6, "NomLetra", true, Variant(u"MS Sans Serif")},
        {"fn_QuitaFilasInvalidas", 3, "FilasFixed", true, Variant(std::uint8_t(1))},
        {"EjecutaArchivo", 2, "Directorio", true, Variant(u"C:\\")},
        {"MsgGuardarRegistro", 0, "Msg", true,
         Variant(u"Los datos del registro actual no han sido guardados. Desea guardarlos ahora ?")},
        {"MsgEliminarRegistro", 0, "Msg", true, Variant(u"Está seguro que desea eliminar los datos del registro actual ?")},
        {"RegistroFinal", 2, "MsgIgnora", true,
         Variant(u"El registro no ha podido ser guardado. Desea ignorar esto y pasar al último registro de todas formas?")},
        {"REG_PoneValor", 5, "Nota", true, Variant(u"Nota: tipos String=1; tipos DWORD=4")},
        {"regLlenaGridLIKE", 4, "FilaInic", false, Variant(std::int32_t(0))},
        {"numCalculaFormula", 0, "Formula", false, Variant()},
    };
    for (const auto& c : cases) {
        const MethodInfo* m = findMethod(std::string_view(c.method));
        ASSERT_NE(m, nullptr) << c.method;
        ASSERT_LT(c.index, m->params.size()) << c.method;
        const ParamInfo& p = m->params[c.index];
        EXPECT_EQ(p.name, c.param) << c.method;
        EXPECT_EQ(p.byRef, c.byRef) << c.method << "." << c.param;
        EXPECT_EQ(p.optional, !c.def.isEmpty()) << c.method << "." << c.param;
        EXPECT_TRUE(identical(p.defaultValue, c.def)) << c.method << "." << c.param << " = " << describe(p.defaultValue);
    }
    EXPECT_TRUE(findMethod(std::string_view("INI_LeerIni"))->params[3].defaultValue.isMissing());
    const auto& chart = findMethod(std::string_view("fn_MatrizParaEstadistica"))->params[4];
    EXPECT_TRUE(chart.optional && chart.defaultValue.isObject()) << "an optional object defaults to Nothing";
}

TEST(Catalogue, RequiredParametersComeFirst) {
    for (const auto& m : catalogue()) {
        bool optionalSeen = false;
        for (const auto& p : m.params) {
            if (p.optional) optionalSeen = true;
            EXPECT_FALSE(optionalSeen && !p.optional) << m.name << "." << p.name;
        }
    }
}

TEST(Catalogue, LookupByNameIsCaseInsensitiveAndByDispid) {
    EXPECT_EQ(findMethod(std::string_view("FN_VALIDACEDULA2")), findMethod(std::int32_t(0x60030087)));
    EXPECT_EQ(findMethod(StringView(u"fn_validacedula2"))->order, 116);
    EXPECT_EQ(findMethod(std::string_view("NoExiste")), nullptr);
    EXPECT_EQ(findMethod(StringView(u"ñ")), nullptr);
    EXPECT_EQ(findMethod(std::int32_t(0x60030001)), nullptr) << "DISPIDs have gaps";
}

TEST(Catalogue, EnumerationsAndRecords) {
    const auto& enums = enumerations();
    ASSERT_EQ(enums.size(), 13u);
    std::map<std::string_view, std::size_t> counts;
    for (const auto& e : enums) counts[e.name] = e.members.size();
    EXPECT_EQ(counts["PermisosShareFolder"], 10u);
    EXPECT_EQ(counts["enMouseEvent"], 8u);
    EXPECT_EQ(counts["TipoDato"], 3u);
    EXPECT_EQ(enums[0].members[8].name, "pWNTYPE_DRIVE");
    EXPECT_EQ(enums[0].members[8].value, 1);
    EXPECT_EQ(enums[0].members[9].value, -1);
    EXPECT_EQ(enums[6].members[7].value, -32768);
    const auto& recs = records();
    ASSERT_EQ(recs.size(), 3u);
    EXPECT_EQ(recs[1].fields.size(), 4u);
    EXPECT_EQ(recs[2].fields[0].typeName, "Variant");
}

}  // namespace
}  // namespace telvaro

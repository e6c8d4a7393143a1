// The catalogue of methods, enumerations and records as published; every bound C++ method against its entry.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <iterator>
#include <set>
#include <string>

#include "context/enums.h"
#include "frame/bind.h"
#include "frame/catalogue.h"
#include "support/support.h"

namespace telvaro {
namespace {

const ParamInfo* paramOf(const MethodInfo& m, std::string_view name) {
    auto it = std::ranges::find(m.params, name, &ParamInfo::name);
    return it == m.params.end() ? nullptr : &*it;
}

const EnumInfo* enumerationNamed(std::string_view name) {
    auto it = std::ranges::find(enumerations(), name, &EnumInfo::name);
    return it == enumerations().end() ? nullptr : &*it;
}

TEST(MethodCatalogue, SlotsAndDispids) {
    const auto& methods = catalogue();
    ASSERT_EQ(methods.size(), 119u);
    for (std::size_t i = 0; i < methods.size(); ++i) {
        const MethodInfo& m = methods[i];
        EXPECT_EQ(m.order, static_cast<int>(i) + 1) << m.name;
        EXPECT_EQ(m.dispid & ~0xFFFF, 0x60030000) << m.name;
        // Declaration order gives increasing DISPIDs up to LlenaListLIKE.
        if (i > 0 && i < 115) {
            EXPECT_GT(m.dispid, methods[i - 1].dispid) << m.name;
        }
    }
    // The four methods appended by later builds keep their DISPIDs, above their neighbours'.
    const std::pair<std::size_t, std::int32_t> appended[] = {
        {116, 0x60030087}, {117, 0x60030088}, {118, 0x60030092}, {119, 0x60030093}};
    for (auto [order, dispid] : appended) EXPECT_EQ(methods[order - 1].dispid, dispid) << "slot " << order;
}

// Names, declared types and passing modes callers depend on: a by-reference parameter is written back.
TEST(MethodCatalogue, ParameterNamesTypesAndPassingModes) {
    struct Case {
        const char* method;
        std::size_t index;
        const char* name;
        const char* typeName;
        bool byRef;
    };
    // clang-format off
    const Case cases[] = {
        {"strCadenaEntrePosicion", 1, "posIni", "Integer", true}, {"StockSuma", 0, "CantActual", "Double", false},
        {"Numero2Letra", 5, "SexoMoneda", "eSexo", false}, {"regUltimoCodigo", 0, "Conexion", "Connection", true},
        {"fn_LogErrores", 0, "Objeto", "Variant", true}, {"EscribeGrid", 1, "KEyAsci", "Integer", true},
    };
    // clang-format on
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.method) + " parameter " + std::to_string(c.index));
        const MethodInfo* m = findMethod(std::string_view(c.method));
        ASSERT_TRUE(m && c.index < m->params.size());
        const ParamInfo& p = m->params[c.index];
        EXPECT_EQ(p.name, c.name);
        EXPECT_EQ(p.typeName, c.typeName);
        EXPECT_EQ(p.byRef, c.byRef);
    }
}

// Defaults no test of a method's behaviour shows, one per declared type.
TEST(MethodCatalogue, DefaultValues) {
    // clang-format off
    const std::tuple<const char*, const char*, Variant> cases[] = {
        {"VerificaNumero", "Longitud", Variant(std::int16_t(100))}, {"VerificaNumero", "ConSigno", Variant(False)},
        {"Numero2Letra", "SexoMoneda", Variant(std::int32_t(0))}, {"RegLlenaGridRegSql", "NumDeci", Variant(u"##0.00")},
        {"fn_QuitaFilasInvalidas", "FilasFixed", Variant(std::uint8_t(1))},
        {"fn_CambiaLetraFilaGrid", "Tamanio", Variant(10.0)},
        {"RegistroInicial", "MsgError", Variant(u"El registro actual no ha sido guardado. Desea guardarlo ahora?")},
    };
    // clang-format on
    for (const auto& [method, param, expected] : cases) {
        const MethodInfo* m = findMethod(std::string_view(method));
        const ParamInfo* p = m ? paramOf(*m, param) : nullptr;
        ASSERT_TRUE(p && p->optional) << method << "." << param;
        EXPECT_TRUE(identical(p->defaultValue, expected)) << method << "." << param;
    }
}

TEST(MethodCatalogue, DefaultsWithoutAValue) {
    // True is all bits set, as callers compare it with -1.
    const Variant& negrita = paramOf(*findMethod(std::string_view("fn_CambiaLetraFilaGrid")), "Negrita")->defaultValue;
    EXPECT_TRUE(negrita.holds<Boolean>() && negrita.get<Boolean>().bits == -1) << describe(negrita);
    // An optional Variant without a default arrives as the missing marker.
    const ParamInfo* vDefault = paramOf(*findMethod(std::string_view("INI_LeerIni")), "vDefault");
    ASSERT_TRUE(vDefault && vDefault->optional);
    EXPECT_TRUE(vDefault->defaultValue.isMissing()) << describe(vDefault->defaultValue);
    // An optional object without a default arrives as Nothing.
    const ParamInfo* chart = paramOf(*findMethod(std::string_view("fn_MatrizParaEstadistica")), "Chart");
    ASSERT_TRUE(chart && chart->optional && chart->type == ArgType::Object);
    EXPECT_TRUE(chart->defaultValue.isObject() && chart->defaultValue.object() == nullptr)
        << describe(chart->defaultValue);
}

// Rules that hold for every row of the catalogue.
TEST(MethodCatalogue, EveryParameterIsWellFormed) {
    for (const auto& m : catalogue()) {
        std::set<std::string_view> names;
        bool optionalSeen = false;
        for (const auto& p : m.params) {
            const std::string where = std::string(m.name) + "." + std::string(p.name);
            EXPECT_TRUE(names.insert(p.name).second) << where << " appears twice";
            EXPECT_NE(p.type, ArgType::None) << where << " has an unknown type " << p.typeName;
            // A type named otherwise than its base type is an enumeration (passed as Long) or a kind of object.
            if (p.type == ArgType::Long && p.typeName != "Long") {
                EXPECT_NE(enumerationNamed(p.typeName), nullptr) << where << " As " << p.typeName;
            } else if (p.type != ArgType::Object) {
                EXPECT_EQ(p.typeName, argTypeName(p.type)) << where;
            }
            // Callers may leave out trailing optional parameters only.
            EXPECT_FALSE(optionalSeen && !p.optional) << where << " is required after an optional one";
            optionalSeen = optionalSeen || p.optional;
            if (!p.optional) {
                EXPECT_TRUE(p.defaultValue.isEmpty()) << where << " is required but has a default";
            } else if (p.defaultValue.isMissing()) {
                EXPECT_EQ(p.type, ArgType::Variant) << where << ": only a Variant may arrive missing";
            } else if (p.type != ArgType::Variant) {
                // The default has the declared type, so dispatch hands it over unchanged.
                EXPECT_EQ(p.defaultValue.type(), varTypeOf(p.type)) << where << " = " << describe(p.defaultValue);
            } else {
                EXPECT_FALSE(p.defaultValue.isEmpty()) << where << " is an optional Variant without a value";
            }
        }
        if (m.result == ArgType::Object) {
            EXPECT_EQ(m.resultName, "Picture") << m.name;
        } else {
            EXPECT_EQ(m.resultName, argTypeName(m.result)) << m.name;  // "none" for a procedure
        }
    }
}

TEST(MethodCatalogue, LookupByNameAndByDispid) {
    // The order of the method found, 0 for none.
    const std::pair<const char*, int> byName[] = {
        {"fn_ValidaCedula2", 116}, {"FN_VALIDACEDULA2", 116}, {"strcuentacaracteres", 1}, {"NoExiste", 0}, {"", 0},
        {"fn_ValidaCedula2 ", 0},  {"fn_ValidaCedula", 66},
    };
    for (auto [name, order] : byName) {
        const MethodInfo* m = findMethod(std::string_view(name));
        EXPECT_EQ(m ? m->order : 0, order) << "\"" << name << "\"";
        EXPECT_EQ(findMethod(StringView(String(name, name + std::strlen(name)))), m) << name << " as UTF-16";
    }
    EXPECT_EQ(findMethod(StringView(u"fn_ValidaCédula")), nullptr);

    const std::pair<std::int32_t, int> byDispid[] = {
        {0x60030000, 1}, {0x60030001, 0}, {0x6003006C, 0}, {0x60030094, 0}, {0x00030000, 0}, {0, 0},
    };
    for (auto [dispid, order] : byDispid) {
        const MethodInfo* m = findMethod(dispid);
        EXPECT_EQ(m ? m->order : 0, order) << std::hex << "0x" << dispid;
    }
    // Every method found by its DISPID and its name: no DISPID and no name, ignoring case, used twice.
    for (const auto& m : catalogue()) {
        EXPECT_EQ(findMethod(m.dispid), &m) << m.name;
        EXPECT_EQ(findMethod(m.name), &m) << m.name;
    }
}

// The published values agree with the C++ declarations that method code uses.
TEST(PublishedEnumerations, ValuesMatchTheCppDeclarations) {
    struct Case {
        const char* enumeration;
        std::size_t index;
        const char* member;
        std::int32_t value;
    };
    auto v = [](auto e) { return static_cast<std::int32_t>(e); };
    ASSERT_EQ(enumerations().size(), 13u);
    // clang-format off
    const Case cases[] = {
        {"PermisosShareFolder", 0, "pACCESS_READ", v(PermisosShareFolder::pACCESS_READ)},
        {"PermisosShareFolder", 8, "pWNTYPE_DRIVE", v(PermisosShareFolder::pWNTYPE_DRIVE)},
        {"PermisosShareFolder", 9, "pSHI_USES_UNLIMITED", v(PermisosShareFolder::pSHI_USES_UNLIMITED)},
        {"enMouseEvent", 7, "Absolute", v(enMouseEvent::Absolute)}, {"eSexo", 1, "Masculino", v(eSexo::Masculino)},
        {"TipoDato", 2, "Fecha_", v(TipoDato::Fecha_)},
    };
    // clang-format on
    for (const auto& c : cases) {
        const EnumInfo* e = enumerationNamed(c.enumeration);
        ASSERT_TRUE(e && c.index < e->members.size()) << c.enumeration;
        EXPECT_EQ(e->members[c.index].name, c.member) << c.enumeration << " member " << c.index;
        EXPECT_EQ(e->members[c.index].value, c.value) << c.enumeration << "." << c.member;
    }
    // Kept as published: a second member worth 1, one worth -1, Absolute below zero.
    EXPECT_EQ(std::tuple(v(PermisosShareFolder::pWNTYPE_DRIVE), v(PermisosShareFolder::pSHI_USES_UNLIMITED),
                         v(enMouseEvent::Absolute)),
              std::tuple(1, -1, -32768));
}

TEST(PublishedRecords, FieldsInOrder) {
    std::string published;
    for (const auto& r : records()) {
        published += std::string(r.name) + ":";
        for (const auto& f : r.fields) published += " " + std::string(f.name) + " As " + std::string(f.typeName);
        published += ";";
    }
    EXPECT_EQ(published,
              "POINTAPI: x As Long y As Long;RECT: Left As Long Top As Long Right As Long Bottom As Long;"
              "CoordenadasMouse: x As Variant y As Variant;");
}

TEST(Bindings, AgreeWithTheCatalogueEachBoundOnce) {
    std::set<std::string_view> seen;
    for (const auto& b : bindings()) {
        SCOPED_TRACE(std::string(b.name));
        EXPECT_TRUE(seen.insert(b.name).second) << "bound twice";
        const MethodInfo* m = findMethod(b.name);
        ASSERT_NE(m, nullptr) << "bound method missing from the catalogue";
        EXPECT_EQ(m->name, b.name) << "exact spelling";
        EXPECT_EQ(argTypeName(b.result), std::string(argTypeName(m->result)));
        ASSERT_EQ(b.params.size(), m->params.size());
        for (std::size_t i = 0; i < b.params.size(); ++i) {
            SCOPED_TRACE(std::string(m->params[i].name));
            EXPECT_EQ(argTypeName(b.params[i]), std::string(argTypeName(m->params[i].type)));
            if (b.byRef[i]) {
                EXPECT_TRUE(m->params[i].byRef) << "written back but declared by value";
            }
        }
    }
}

}  // namespace
}  // namespace telvaro

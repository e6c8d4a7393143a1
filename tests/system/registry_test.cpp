// The registry methods on the file-backed store under the test's home, the
// store's text layout, and processes sharing it.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include "context/fun.h"
#include "frame/invoke.h"
#include "host/default_platform.h"
#include "platform/posix/atomic_file.h"
#include "platform/posix/home.h"
#include "platform/posix/posix_registry.h"
#include "platform/registry_document.h"
#include "support/support.h"

namespace telvaro {
namespace {

constexpr std::int32_t kCurrentUser = 1;

Variant call(const char* method, std::vector<Variant> args) {
    Fun fun(defaultPlatform());
    return invoke(fun, method, args);
}

TEST(Registry, ValuesWrittenAndReadBack) {
    const String key = u"Software\\Telvaro\\Prueba";
    call("REG_PoneValor", {kCurrentUser, key, u"Empresa", u"Fábrica ACME"});
    call("REG_PoneValor", {kCurrentUser, key, u"Puerto", u"12", 4});
    call("REG_PoneValor", {kCurrentUser, key, u"Negativo", -1.5, 4});
    call("REG_PoneValor", {kCurrentUser, key, u"Fecha", Variant(Date{45487}), 1});
    call("REG_PoneValor", {kCurrentUser, key, u"Binario", u"x", 2});
    call("REG_PoneValor", {2, u"Software\\Telvaro", u"", u"por omisión"});
    struct Case {
        std::int32_t root;
        String key, name;
        Variant expected;
    };
    // -1.5 rounds half to even; type 2 writes nothing; 7 is not a root.
    // clang-format off
    const Case cases[] = {
        {kCurrentUser, u"SOFTWARE\\telvaro\\PRUEBA", u"EMPRESA", Variant(u"Fábrica ACME")},
        {kCurrentUser, key, u"Binario", Variant()}, {kCurrentUser, key, u"Negativo", Variant(std::int32_t(-2))},
        {kCurrentUser, u"Software\\NoExiste", u"Empresa", Variant()}, {7, key, u"Empresa", Variant()},
        {kCurrentUser, key, u"Puerto", Variant(std::int32_t(12))},
        {kCurrentUser, key, u"Fecha", Variant(u"14/07/2024")},
        {2, u"Software\\Telvaro", u"", Variant(u"por omisión")}};
    // clang-format on
    for (const auto& c : cases)
        EXPECT_TRUE(identical(call("REG_BuscaRegistro", {c.root, c.key, c.name}), c.expected))
            << c.root << " " << toUtf8(c.key) << " " << toUtf8(c.name);
}

TEST(Registry, HandlesAreNonZeroExceptWhenCreationFails) {
    const Variant created = call("REG_CreaClave", {kCurrentUser, u"Software\\Telvaro\\Claves"});
    EXPECT_TRUE(created.type() == VarType::Long && created.get<std::int32_t>() != 0);
    EXPECT_NE(call("REG_CreaClave", {kCurrentUser, u"Software\\Telvaro\\Claves", True}).get<std::int32_t>(), 0);
    EXPECT_NE(call("REG_PoneValor", {kCurrentUser, u"Software\\Telvaro\\Claves", u"x", u"1", 2}).get<std::int32_t>(),
              0);
    for (const auto& [root, key] : std::vector<std::pair<std::int32_t, String>>{
             {7, u"Software\\X"}, {kCurrentUser, u"\\Software"}, {kCurrentUser, u"a\\\\b"}}) {
        EXPECT_TRUE(identical(call("REG_CreaClave", {root, key}), Variant(std::int32_t(0)))) << root << toUtf8(key);
        EXPECT_TRUE(identical(call("REG_PoneValor", {root, key, u"v", u"1"}), Variant(std::int32_t(0))));
    }
    // A value that is not a number for a number value: the runtime's error.
    const std::vector<Variant> notANumber{kCurrentUser, u"Software\\X", u"n", u"abc", 4};
    EXPECT_EQ(errorNumberOf([&] { call("REG_PoneValor", notANumber); }), err::TypeMismatch);
}

TEST(Registry, StoreIsReadableTextThatSurvivesTheProcess) {
    call("REG_PoneValor", {kCurrentUser, u"Software\\Texto", u"Ruta", u"C:\\Datos \"Central\""});
    call("REG_PoneValor", {kCurrentUser, u"Software\\Texto", u"Copias", 3, 4});
    const auto text = posix::readBytes(posix::homeFolder() / "registry" / "HKEY_CURRENT_USER.reg");
    ASSERT_TRUE(text);
    EXPECT_NE(text->find("[HKEY_CURRENT_USER\\Software]\n"), std::string::npos);
    EXPECT_NE(text->find("[HKEY_CURRENT_USER\\Software\\Texto]\n\"Ruta\"=\"C:\\\\Datos \\\"Central\\\"\"\n"
                         "\"Copias\"=dword:00000003\n"),
              std::string::npos)
        << *text;
    // A new store (another process) reads the same values.
    posix::PosixRegistry other;
    const auto key = other.openKey(kCurrentUser, u"software\\texto");
    ASSERT_NE(key, 0);
    EXPECT_EQ(other.queryValue(key, u"ruta")->data, std::string("C:\\Datos \"Central\"") + '\0');
}

TEST(RegistryDocument, BadLinesOfAHandEditedStoreAreDropped) {
    RegistryDocument damaged(u"HKEY_USERS",
                             "[HKEY_USERS\\A]\n\"s\"=dword:zz\n\"t\"=\"ok\"\nbasura\n[OTRA\\X]\n\"u\"=\"no\"\n");
    EXPECT_FALSE(damaged.value(u"A", u"s"));
    EXPECT_EQ(damaged.value(u"A", u"t")->data, std::string("ok") + '\0');
    EXPECT_FALSE(damaged.hasKey(u"X"));
}

TEST(Registry, TwoProcessesWritingAtOnceLoseNothing) {
    constexpr int kWrites = 20;
    const pid_t child = ::fork();
    ASSERT_GE(child, 0);
    const String prefix = child == 0 ? u"hijo" : u"padre";
    for (int i = 0; i < kWrites; ++i)
        call("REG_PoneValor", {kCurrentUser, u"Software\\Compartida", prefix + fromUtf8(std::to_string(i)), i, 4});
    if (child == 0) ::_exit(0);
    ::waitpid(child, nullptr, 0);
    for (const String who : {u"hijo", u"padre"})
        for (int i = 0; i < kWrites; ++i)
            EXPECT_TRUE(identical(
                call("REG_BuscaRegistro", {kCurrentUser, u"Software\\Compartida", who + fromUtf8(std::to_string(i))}),
                Variant(std::int32_t(i))))
                << toUtf8(who) << i;
}

}  // namespace
}  // namespace telvaro

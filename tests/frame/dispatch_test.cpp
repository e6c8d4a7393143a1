// Late-bound dispatch: coercion, defaults, by-reference write-back, errors.
#include <gtest/gtest.h>

#include "context/fun.h"
#include "frame/bind.h"
#include "frame/invoke.h"
#include "host/default_platform.h"
#include "runtime/error.h"
#include "support/support.h"

namespace telvaro {
namespace {

ParamInfo param(ArgType type, bool optional = false, Variant def = {}) {
    ParamInfo p;
    p.name = "P";
    p.type = type;
    p.typeName = argTypeName(type);
    p.optional = optional;
    p.defaultValue = std::move(def);
    return p;
}

// The identity method of each declared type: it returns its argument as the method received it.
template <typename T>
T same(Fun&, T value) {
    return value;
}

Variant coerced(ArgType type, const Variant& input) {
    Binding b;
    switch (type) {
        case ArgType::Integer: b = bind<&same<std::int16_t>>("same"); break;
        case ArgType::String: b = bind<&same<String>>("same"); break;
        case ArgType::Object: b = bind<&same<ObjectRef>>("same"); break;
        default: b = bind<&same<Variant>>("same"); break;
    }
    MethodInfo m;
    m.params = {param(type)};
    Fun fun(defaultPlatform());
    std::vector<Variant> args{input};
    return b.entry(fun, m, args);
}

// One row or more per declared type (label, type, input, result, error: an error leaves the result Empty); the
// runtime's conversion tables hold the rest.
TEST(Dispatch, CoercesArgumentsAsALateBoundCallDoes) {
    // clang-format off
    const std::tuple<const char*, ArgType, Variant, Variant, int> cases[] = {
        {"text to Integer", ArgType::Integer, Variant(u"12"), Variant(std::int16_t(12)), 0},
        {"Double 2.5 to Integer rounds half to even", ArgType::Integer, Variant(2.5), Variant(std::int16_t(2)), 0},
        {"Long past 32767 to Integer", ArgType::Integer, Variant(std::int32_t(32768)), Variant(), err::Overflow},
        {"Null to String", ArgType::String, Variant(Null{}), Variant(), err::TypeMismatch},
        {"Null to Variant stays Null", ArgType::Variant, Variant(Null{}), Variant(Null{}), 0},
        {"text to Object", ArgType::Object, Variant(u"x"), Variant(), err::TypeMismatch},
    };
    // clang-format on
    for (const auto& [label, type, input, expected, error] : cases) {
        Variant got;
        EXPECT_EQ(errorNumberOf([&] { got = coerced(type, input); }), error) << label;
        EXPECT_TRUE(identical(got, expected)) << label << ": " << describe(got);
    }
}

// What a three-parameter method received: its text, its Integer and whether its Variant was given.
String received(Fun&, const String& text, std::int16_t number, const Variant& extra) {
    return text + u"|" + toString(Variant(number)) + u"|" + (extra.isMissing() ? u"missing" : u"given");
}

MethodInfo threeParamMethod() {
    MethodInfo m;
    m.name = "Prueba";
    m.params = {param(ArgType::String), param(ArgType::Integer, true, Variant(std::int16_t(-1))),
                param(ArgType::Variant, true, Variant::missing())};
    return m;
}

Variant callReceived(std::vector<Variant> args) {
    Fun fun(defaultPlatform());
    return bind<&received>("received").entry(fun, threeParamMethod(), args);
}

TEST(Dispatch, OmittedOptionalArgumentsTakeTheirDefaultsMissingRequiredOrTooManyAreErrors) {
    const Variant a(u"a"), missing = Variant::missing();
    for (const auto& args : {std::vector<Variant>{a}, {a, missing}, {a, missing, missing}})
        EXPECT_TRUE(identical(callReceived(args), Variant(u"a|-1|missing")));
    EXPECT_EQ(errorNumberOf([&] { callReceived({Variant::missing()}); }), err::ArgumentNotOptional);
    EXPECT_EQ(errorNumberOf([&] { callReceived(std::vector<Variant>(4, Variant(u"x"))); }),
              err::WrongNumberOfArguments);
    // Arguments are taken in order: the first bad one decides.
    EXPECT_EQ(errorNumberOf([&] { callReceived({Variant(Null{}), Variant(u"x")}); }), err::TypeMismatch);
}

// A method that writes its by-reference argument and then fails: the caller's variable keeps what was written.
std::int16_t doubleAndFail(Fun&, std::int16_t& value, const String& fail) {
    value = static_cast<std::int16_t>(value * 2);
    if (fail == u"yes") raise(err::InvalidProcedureCall);
    return value;
}

TEST(Binding, WritesBackByReferenceArgumentsEvenOnFailure) {
    Binding b = bind<&doubleAndFail>("doubleAndFail");
    EXPECT_EQ(b.result, ArgType::Integer);
    EXPECT_EQ(b.params, (std::vector<ArgType>{ArgType::Integer, ArgType::String}));
    EXPECT_EQ(b.byRef, (std::vector<bool>{true, false}));

    Fun fun(defaultPlatform());
    MethodInfo m;
    m.params = {param(ArgType::Integer), param(ArgType::String)};
    std::vector<Variant> ok{Variant(std::int16_t(4)), Variant(u"no")};
    EXPECT_TRUE(identical(b.entry(fun, m, ok), Variant(std::int16_t(8))));
    EXPECT_TRUE(identical(ok[0], Variant(std::int16_t(8))));

    std::vector<Variant> failing{Variant(std::int16_t(5)), Variant(u"yes")};
    EXPECT_EQ(errorNumberOf([&] { b.entry(fun, m, failing); }), err::InvalidProcedureCall);
    EXPECT_TRUE(identical(failing[0], Variant(std::int16_t(10))));
}

TEST(Fun, NamesInAnyCaseAndDispidsReachTheSameMethodUnknownOnesAre438ErrorsCarryTheSource) {
    Fun fun(defaultPlatform());
    auto count = [&](auto method) {
        std::vector<Variant> args{Variant(u"aaaa"), Variant(u"aa")};
        return invoke(fun, method, args);
    };
    EXPECT_TRUE(identical(count("strCuentaCaracteres"), Variant(std::int16_t(3))));
    EXPECT_TRUE(identical(count(std::int32_t(0x60030000)), Variant(std::int16_t(3))));
    EXPECT_EQ(errorNumberOf([&] { count("NoExisteEsteMetodo"); }), err::ObjectDoesNotSupport);
    EXPECT_EQ(errorNumberOf([&] { count(std::int32_t(0x60030001)); }), err::ObjectDoesNotSupport);
    // Errors carry the library as their source.
    std::vector<Variant> args{Variant(u"abc"), Variant(u"b"), Variant(u"x")};
    try {
        invoke(fun, "strCuentaCaracteres", args);
        FAIL() << "expected a type mismatch";
    } catch (const RuntimeError& e) {
        EXPECT_EQ(e.number(), err::TypeMismatch);
        EXPECT_EQ(e.source(), u"Telvaro.Fun");
    }
}

}  // namespace
}  // namespace telvaro

// Late-bound dispatch: coercion of arguments to the declared types,
// defaults of omitted optional arguments, by-reference write-back, and the
// errors a late-bound caller sees (13, 6, 449, 450, 438).
#include <gtest/gtest.h>

#include "frame/bind.h"
#include "frame/dispatch.h"
#include "frame/fun.h"
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

struct CoercionCase {
    const char* label;
    ArgType type;
    Variant input;
    Variant expected;  // Empty when an error is expected
    int error;
};

TEST(Dispatch, CoercesArgumentsAsALateBoundCallDoes) {
    const CoercionCase cases[] = {
        {"text to Integer", ArgType::Integer, Variant(u"12"), Variant(std::int16_t(12)), 0},
        {"Double 2.5 to Integer rounds to even", ArgType::Integer, Variant(2.5), Variant(std::int16_t(2)), 0},
        {"Double 3.5 to Integer rounds to even", ArgType::Integer, Variant(3.5), Variant(std::int16_t(4)), 0},
        {"Long past 32767 to Integer", ArgType::Integer, Variant(std::int32_t(32768)), Variant(), err::Overflow},
        {"letters to Integer", ArgType::Integer, Variant(u"abc"), Variant(), err::TypeMismatch},
        {"Long to String", ArgType::String, Variant(std::int32_t(7)), Variant(u"7"), 0},
        {"Double to String", ArgType::String, Variant(0.5), Variant(u"0.5"), 0},
        {"Boolean to String", ArgType::String, Variant(True), Variant(u"True"), 0},
        {"Empty to String", ArgType::String, Variant(), Variant(u""), 0},
        {"Empty to Long", ArgType::Long, Variant(), Variant(std::int32_t(0)), 0},
        {"Null to String", ArgType::String, Variant(Null{}), Variant(), err::TypeMismatch},
        {"Null to Variant stays Null", ArgType::Variant, Variant(Null{}), Variant(Null{}), 0},
        {"array to Long", ArgType::Long, Variant(Array::vector(0, 1)), Variant(), err::TypeMismatch},
        {"text to Object", ArgType::Object, Variant(u"x"), Variant(), err::TypeMismatch},
        {"text True to Boolean", ArgType::Boolean, Variant(u"True"), Variant(True), 0},
        {"number to Boolean", ArgType::Boolean, Variant(std::int32_t(5)), Variant(True), 0},
        {"300 to Byte", ArgType::Byte, Variant(std::int32_t(300)), Variant(), err::Overflow},
        {"Integer to Double", ArgType::Double, Variant(std::int16_t(3)), Variant(3.0), 0},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.label);
        if (c.error) {
            EXPECT_EQ(errorNumberOf([&] { coerceArgument(c.input, param(c.type)); }), c.error);
        } else {
            Variant got = coerceArgument(c.input, param(c.type));
            EXPECT_TRUE(identical(got, c.expected)) << describe(got);
        }
    }
}

MethodInfo twoParamMethod() {
    MethodInfo m;
    m.name = "Prueba";
    m.params = {param(ArgType::String), param(ArgType::Integer, true, Variant(std::int16_t(-1))),
                param(ArgType::Variant, true, Variant::missing())};
    return m;
}

TEST(Dispatch, OmittedOptionalArgumentsTakeTheirDefaults) {
    MethodInfo m = twoParamMethod();
    for (std::vector<Variant> args : {std::vector<Variant>{Variant(u"a")},
                                      std::vector<Variant>{Variant(u"a"), Variant::missing()},
                                      std::vector<Variant>{Variant(u"a"), Variant::missing(), Variant::missing()}}) {
        auto prepared = prepareArguments(m, args);
        ASSERT_EQ(prepared.size(), 3u);
        EXPECT_TRUE(identical(prepared[1], Variant(std::int16_t(-1))));
        EXPECT_TRUE(prepared[2].isMissing());
    }
}

TEST(Dispatch, MissingRequiredOrTooManyArgumentsAreErrors) {
    MethodInfo m = twoParamMethod();
    EXPECT_EQ(errorNumberOf([&] { prepareArguments(m, {}); }), err::ArgumentNotOptional);
    EXPECT_EQ(errorNumberOf([&] { prepareArguments(m, {Variant::missing()}); }), err::ArgumentNotOptional);
    std::vector<Variant> four(4, Variant(u"x"));
    EXPECT_EQ(errorNumberOf([&] { prepareArguments(m, four); }), err::WrongNumberOfArguments);
}

// A method that writes its by-reference argument and then fails: the
// caller's variable keeps what was written.
std::int16_t doubleAndFail(Fun&, std::int16_t& value, const String& fail) {
    value = static_cast<std::int16_t>(value * 2);
    if (fail == u"yes") raise(err::InvalidProcedureCall);
    return value;
}

TEST(Binding, WritesBackByReferenceArgumentsEvenOnFailure) {
    Binding b = bind<&doubleAndFail>("doubleAndFail");
    EXPECT_EQ(b.result, ArgType::Integer);
    ASSERT_EQ(b.params.size(), 2u);
    EXPECT_EQ(b.params[0], ArgType::Integer);
    EXPECT_TRUE(b.byRef[0]);
    EXPECT_FALSE(b.byRef[1]);

    Fun fun;
    std::vector<Variant> ok{Variant(std::int16_t(4)), Variant(u"no")};
    Variant r = b.entry(fun, ok);
    EXPECT_TRUE(identical(r, Variant(std::int16_t(8))));
    EXPECT_TRUE(identical(ok[0], Variant(std::int16_t(8))));

    std::vector<Variant> failing{Variant(std::int16_t(5)), Variant(u"yes")};
    EXPECT_EQ(errorNumberOf([&] { b.entry(fun, failing); }), err::InvalidProcedureCall);
    EXPECT_TRUE(identical(failing[0], Variant(std::int16_t(10))));
}

TEST(Fun, UnknownNamesAndDispidsAreError438) {
    Fun fun;
    std::vector<Variant> args;
    EXPECT_EQ(errorNumberOf([&] { fun.invoke("NoExisteEsteMetodo", args); }), err::ObjectDoesNotSupport);
    EXPECT_EQ(errorNumberOf([&] { fun.invoke(std::int32_t(0x60030001), args); }), err::ObjectDoesNotSupport);
}

TEST(Fun, NamesAreCaseInsensitiveAndDispidsReachTheSameMethod) {
    Fun fun;
    std::vector<Variant> byName{Variant(u"aaaa"), Variant(u"aa")};
    std::vector<Variant> byOtherCase{Variant(u"aaaa"), Variant(u"aa")};
    std::vector<Variant> byDispid{Variant(u"aaaa"), Variant(u"aa")};
    Variant a = fun.invoke("strCuentaCaracteres", byName);
    Variant b = fun.invoke("STRCUENTACARACTERES", byOtherCase);
    Variant c = fun.invoke(std::int32_t(0x60030000), byDispid);
    EXPECT_TRUE(identical(a, Variant(std::int16_t(3))));
    EXPECT_TRUE(identical(b, a));
    EXPECT_TRUE(identical(c, a));
}

TEST(Fun, ErrorsCarryTheLibraryAsSource) {
    Fun fun;
    std::vector<Variant> args{Variant(u"abc"), Variant(u"b"), Variant(u"x")};
    try {
        fun.invoke("strCuentaCaracteres", args);
        FAIL() << "expected a type mismatch";
    } catch (const RuntimeError& e) {
        EXPECT_EQ(e.number(), err::TypeMismatch);
        EXPECT_EQ(e.source(), u"Telvaro.Fun");
    }
}

TEST(Fun, MethodsNotBuiltYetSayNotImplemented) {
    Fun fun;
    for (const auto& m : catalogue()) {
        if (findBinding(m.name)) continue;
        std::vector<Variant> args;
        try {
            fun.invoke(m, args);
            ADD_FAILURE() << m.name << " returned without a binding";
        } catch (const RuntimeError& e) {
            EXPECT_NE(toUtf8(e.description()).find("Not implemented"), std::string::npos) << m.name;
        }
    }
}

}  // namespace
}  // namespace telvaro

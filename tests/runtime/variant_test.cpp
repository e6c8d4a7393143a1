// The value model: types, arrays, compact Byte arrays, checked arithmetic, UTF-16 text.
#include <gtest/gtest.h>

#include "runtime/checked.h"
#include "runtime/object.h"
#include "runtime/variant.h"
#include "support/support.h"

namespace telvaro {
namespace {

TEST(Variant, EachAlternativeHasItsOwnType) {
    // clang-format off
    const std::tuple<Variant, VarType, const char*> cases[] = {
        {Variant(), VarType::Empty, "Empty"}, {Variant(Null{}), VarType::Null, "Null"},
        {Variant::missing(), VarType::Error, "Error"}, {Variant(True), VarType::Boolean, "Boolean"},
        {Variant(std::uint8_t(7)), VarType::Byte, "Byte"}, {Variant(std::int16_t(7)), VarType::Integer, "Integer"},
        {Variant(std::int32_t(7)), VarType::Long, "Long"}, {Variant(Currency{70000}), VarType::Currency, "Currency"},
        {Variant(Decimal::fromInt64(7)), VarType::Decimal, "Decimal"}, {Variant(7.0), VarType::Double, "Double"},
        {Variant(Date{7.0}), VarType::Date, "Date"}, {Variant(u"7"), VarType::String, "String"},
        {Variant(ObjectRef()), VarType::Object, "Object"}, {Variant(Array::vector(0, 1)), VarType::Array, "Array"},
    };
    // clang-format on
    for (const auto& [value, type, name] : cases) {
        EXPECT_EQ(value.type(), type) << name;
        EXPECT_STREQ(varTypeName(value.type()), name);
    }
    EXPECT_FALSE(identical(Variant(std::int16_t(7)), Variant(std::int32_t(7)))) << "Integer is not Long";
    EXPECT_FALSE(identical(Variant(7.0), Variant(Date{7.0}))) << "Double is not Date";
    EXPECT_TRUE(Variant::missing().isMissing());
    EXPECT_FALSE(Variant(ErrorCode{5}).isMissing());
}

TEST(Array, BoundsAndSubscripts) {
    Array v = Array::vector(1, 3);
    EXPECT_EQ(std::pair(v.lbound(), v.ubound()), std::pair(1, 3));
    v.at(3) = Variant(u"c");
    EXPECT_TRUE(identical(v.at(3), Variant(u"c")));
    EXPECT_EQ(errorNumberOf([&] { v.at(0); }), err::SubscriptOutOfRange);
    EXPECT_EQ(errorNumberOf([&] { v.at(4); }), err::SubscriptOutOfRange);
    EXPECT_EQ(errorNumberOf([&] { v.ubound(2); }), err::SubscriptOutOfRange);
    EXPECT_EQ(errorNumberOf([&] { v.at(1, 1); }), err::SubscriptOutOfRange);

    Array m = Array::matrix(0, 1, 5, 7);
    EXPECT_EQ(std::pair(m.dimensions(), m.size()), std::pair(2, std::size_t(6)));
    EXPECT_EQ(std::pair(m.lbound(2), m.ubound(2)), std::pair(5, 7));
    m.at(1, 6) = Variant(std::int32_t(16));
    // Column-major storage, the first subscript varying fastest.
    EXPECT_TRUE(identical(m.elements()[1 + (6 - 5) * 2], Variant(std::int32_t(16))));
    EXPECT_EQ(errorNumberOf([&] { m.at(2, 5); }), err::SubscriptOutOfRange);

    Array empty = Array::vector(0, -1);
    EXPECT_EQ(empty.size(), 0u);
    EXPECT_EQ(errorNumberOf([] { Array::vector(0, -2); }), err::SubscriptOutOfRange);
}

TEST(Array, CopiesDoNotShareElements) {
    Variant a(Array::vector(0, 0));
    Variant b = a;
    b.mutableArray().at(0) = Variant(u"changed");
    EXPECT_TRUE(a.array().at(0).isEmpty());
    EXPECT_TRUE(identical(b.array().at(0), Variant(u"changed")));
    EXPECT_EQ(errorNumberOf([] { Variant(u"x").array(); }), err::TypeMismatch);
}

TEST(Checked, SixteenAndThirtyTwoBitArithmeticOverflowsWithError6) {
    Int16 i = 32766;
    ++i;
    EXPECT_EQ(i.value(), 32767);
    EXPECT_EQ(errorNumberOf([&] { ++i; }), err::Overflow);
    EXPECT_EQ(errorNumberOf([] { -Int16(-32768); }), err::Overflow);
    EXPECT_EQ(errorNumberOf([] { Int16(200) * Int16(200); }), err::Overflow);
    EXPECT_EQ(errorNumberOf([] { Int32(2147483647) + Int32(1); }), err::Overflow);
    EXPECT_EQ((Int32(-2147483647) - Int32(1)).value(), -2147483647 - 1);
    EXPECT_EQ(errorNumberOf([] { toByte(256); }), err::Overflow);
}

TEST(Text, Utf8RoundTripsAndCountsUtf16Units) {
    String s = fromUtf8("año €𝄞");
    EXPECT_EQ(s.size(), 7u) << "the clef is a surrogate pair";
    EXPECT_EQ(toUtf8(s), "año €𝄞");
    EXPECT_EQ(fromUtf8("a\xff!"), u"a\uFFFD!");
    EXPECT_EQ(toUtf8(String(1, char16_t(0xD800))), "\xEF\xBF\xBD");
}

TEST(RuntimeError, CarriesTheStandardDescriptions) {
    const std::pair<int, const char16_t*> cases[] = {{13, u"Type mismatch"},
                                                     {6, u"Overflow"},
                                                     {438, u"Object doesn't support this property or method"},
                                                     {449, u"Argument not optional"}};
    for (auto [number, text] : cases) EXPECT_EQ(RuntimeError(number).description(), text) << number;
    EXPECT_STREQ(RuntimeError(9).what(), "Error 9: Subscript out of range");
}

class Recorder : public Object {
public:
    Variant invoke(StringView member, InvokeKind kind, std::span<Variant> args) override {
        log.push_back(String(member) + (kind == InvokeKind::PropertyPut ? u"=" : u""));
        if (member == u"Name") return Variant(u"txtCodigo");
        if (kind == InvokeKind::PropertyPut) return Variant(static_cast<std::int32_t>(args.size()));
        raiseNoSuchMember();
    }
    std::vector<String> log;
};

TEST(Object, LateBoundAccessByName) {
    auto r = std::make_shared<Recorder>();
    Variant v{ObjectRef(r)};
    EXPECT_TRUE(identical(objectOf(v).get(u"Name"), Variant(u"txtCodigo")));
    objectOf(v).put(u"Text", Variant(u"12"));
    EXPECT_EQ(errorNumberOf([&] { objectOf(v).call(u"Refresh"); }), err::ObjectDoesNotSupport);
    EXPECT_EQ(r->log, (std::vector<String>{u"Name", u"Text=", u"Refresh"}));
    EXPECT_EQ(errorNumberOf([] { objectOf(Variant(ObjectRef())); }), err::ObjectVariableNotSet);
    EXPECT_EQ(errorNumberOf([] { objectOf(Variant(u"x")); }), err::ObjectRequired);
}

Array looseBytes(const std::vector<std::uint8_t>& data, std::int32_t lower = 0) {
    Array a = Array::vector(lower, lower + static_cast<std::int32_t>(data.size()) - 1, VarType::Byte);
    for (std::size_t i = 0; i < data.size(); ++i) a.elements()[i] = Variant(data[i]);
    return a;
}

// A compact Byte array reads like one made element by element, and a changed element makes a copy loose.
TEST(CompactBytes, ReadLikeAnArrayMadeElementByElement) {
    for (const auto& [data, lower] : {std::pair(std::vector<std::uint8_t>{}, 0), {{0, 255, 7}, 0}, {{9, 8}, 1}}) {
        const Variant compact(Array::bytes(data, lower));
        EXPECT_EQ(typeName(compact), u"Byte()");
        EXPECT_TRUE(identical(compact, Variant(looseBytes(data, lower))) &&
                    identical(Variant(looseBytes(data, lower)), compact));
        const Array& a = compact.array();
        EXPECT_EQ(std::pair(a.lbound(), a.ubound()), std::pair(lower, lower + std::int32_t(data.size()) - 1));
        for (std::size_t i = 0; i < data.size(); ++i)
            EXPECT_TRUE(identical(a.at(lower + static_cast<std::int32_t>(i)), Variant(data[i])));
        EXPECT_EQ(errorNumberOf([&] { a.at(lower - 1); }), 9);
        ASSERT_NE(a.compactBytes(), nullptr);  // still compact after the reads
        EXPECT_EQ(*a.compactBytes(), data);
    }
    EXPECT_FALSE(identical(Variant(Array::bytes({1, 2})), Variant(Array::bytes({1, 3}))));
    EXPECT_FALSE(identical(Variant(Array::bytes({1, 2})), Variant(Array::bytes({1, 2}, 1))));
    Variant original(Array::bytes({1, 2, 3})), copy = original;
    copy.mutableArray().at(1) = Variant(std::uint8_t(42));
    EXPECT_TRUE(identical(copy, Variant(looseBytes({1, 42, 3}))));
    EXPECT_EQ(copy.array().compactBytes(), nullptr);
    EXPECT_EQ(*original.array().compactBytes(), (std::vector<std::uint8_t>{1, 2, 3}));
}

}  // namespace
}  // namespace telvaro

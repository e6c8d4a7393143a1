// Compact Byte arrays: the same array to every reader as one made element by
// element, without a Variant per byte until an element is reached.
#include <gtest/gtest.h>

#include "runtime/variant.h"
#include "support/support.h"

namespace telvaro {
namespace {

Array looseBytes(const std::vector<std::uint8_t>& data, std::int32_t lower = 0) {
    Array a = Array::vector(lower, lower + static_cast<std::int32_t>(data.size()) - 1, VarType::Byte);
    for (std::size_t i = 0; i < data.size(); ++i) a.elements()[i] = Variant(data[i]);
    return a;
}

TEST(CompactBytes, ReadLikeAnArrayMadeElementByElement) {
    struct Case {
        const char* what;
        std::vector<std::uint8_t> data;
        std::int32_t lower;
    };
    for (const auto& c : std::vector<Case>{
             {"no bytes", {}, 0}, {"one 0 byte", {0}, 0}, {"three", {0, 255, 7}, 0}, {"lower bound 1", {9, 8}, 1}}) {
        SCOPED_TRACE(c.what);
        const Variant compact(Array::bytes(c.data, c.lower));
        const Variant loose(looseBytes(c.data, c.lower));
        EXPECT_EQ(typeName(compact), u"Byte()");
        EXPECT_TRUE(identical(compact, loose));
        EXPECT_TRUE(identical(loose, compact));
        const Array& a = compact.array();
        EXPECT_EQ(a.size(), c.data.size());
        EXPECT_EQ(a.lbound(), c.lower);
        EXPECT_EQ(a.ubound(), c.lower + static_cast<std::int32_t>(c.data.size()) - 1);
        ASSERT_NE(a.compactBytes(), nullptr);
        EXPECT_EQ(*a.compactBytes(), c.data);
        for (std::size_t i = 0; i < c.data.size(); ++i)
            EXPECT_TRUE(identical(a.at(c.lower + static_cast<std::int32_t>(i)), Variant(c.data[i])));
        EXPECT_EQ(errorNumberOf([&] { a.at(c.lower - 1); }), 9);
        // Reading elements one by one leaves it compact.
        EXPECT_NE(a.compactBytes(), nullptr);
        EXPECT_EQ(a.elements().size(), c.data.size());
    }
    EXPECT_FALSE(identical(Variant(Array::bytes({1, 2})), Variant(Array::bytes({1, 3}))));
    EXPECT_FALSE(identical(Variant(Array::bytes({1, 2})), Variant(Array::bytes({1, 2}, 1))));
}

TEST(CompactBytes, AChangedElementIsKeptAndTheCopyIsNotChanged) {
    Variant original(Array::bytes({1, 2, 3}));
    Variant copy = original;
    copy.mutableArray().at(1) = Variant(std::uint8_t(42));
    EXPECT_TRUE(identical(copy, Variant(looseBytes({1, 42, 3}))));
    EXPECT_EQ(copy.array().compactBytes(), nullptr) << "changed: no longer the bytes it was made of";
    EXPECT_TRUE(identical(original, Variant(Array::bytes({1, 2, 3}))));
    ASSERT_NE(original.array().compactBytes(), nullptr);
    EXPECT_EQ(*original.array().compactBytes(), (std::vector<std::uint8_t>{1, 2, 3}));
}

}  // namespace
}  // namespace telvaro

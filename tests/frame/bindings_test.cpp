// Every bound C++ method agrees with its catalogue entry: same parameter
// count, same declared types, same result type, and a parameter the C++
// code writes back is by reference in the catalogue.
#include <gtest/gtest.h>

#include <set>

#include "frame/bind.h"
#include "frame/catalogue.h"

namespace telvaro {
namespace {

TEST(Bindings, AgreeWithTheCatalogue) {
    for (const auto& b : bindings()) {
        SCOPED_TRACE(std::string(b.name));
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

TEST(Bindings, EachMethodIsBoundOnce) {
    std::set<std::string_view> seen;
    for (const auto& b : bindings()) EXPECT_TRUE(seen.insert(b.name).second) << b.name;
}

}  // namespace
}  // namespace telvaro

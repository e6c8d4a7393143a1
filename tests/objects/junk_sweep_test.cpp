// Every member of a few kinds of object, read, assigned and called with
// nothing, one or two junk values: only values or run-time errors may come back.
#include <gtest/gtest.h>

#include <cmath>
#include <functional>

#include "objects/flex_grid.h"
#include "objects/form.h"
#include "objects/list_control.h"
#include "objects/text_box.h"
#include "support/support.h"

namespace telvaro::objects {
namespace {

TEST(JunkSweep, OnlyValuesOrRunTimeErrors) {
    // clang-format off
    const std::vector<Variant> junk = {Variant(Null{}), Variant::missing(), Variant(ObjectRef()), Variant(u"abc"),
        Variant(std::int32_t(-1)), Variant(2147483647), Variant(std::nan("")), Variant(-1e300)};
    const std::function<std::shared_ptr<CallerObject>()> makers[] = {
        [] { auto g = std::make_shared<FlexGrid>(u"grd", 4, 3); g->setTextMatrix(1, 1, u"x"); return g; },
        [] { auto c = std::make_shared<ListControl>(ListControl::Kind::ComboBox, u"cbo"); c->addItem(u"a"); return c; },
        [] { auto f = std::make_shared<Form>(u"frm"); f->add(std::make_shared<TextBox>(u"txt")); return f; }};
    // clang-format on
    std::vector<std::vector<Variant>> argumentLists{{}};
    for (const auto& a : junk) {
        argumentLists.push_back({a});
        for (const auto& b : junk) argumentLists.push_back({a, b});
    }
    for (const auto& make : makers)
        for (const auto& name : make()->memberNames())
            for (InvokeKind kind : {InvokeKind::PropertyGet, InvokeKind::PropertyPut, InvokeKind::Method}) {
                auto object = make();
                for (auto args : argumentLists) {
                    try {
                        object->invoke(name, kind, args);
                    } catch (const RuntimeError&) {
                    }
                }
            }
}

}  // namespace
}  // namespace telvaro::objects

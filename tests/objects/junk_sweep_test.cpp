// Every member of every kind of object, read, assigned and called with
// junk (nothing, Null, Nothing, wrong kinds, huge and negative numbers,
// too many arguments): only values or run-time errors may come back.
#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>

#include "objects/chart.h"
#include "objects/check_box.h"
#include "objects/check_box_pictures.h"
#include "objects/data_grid.h"
#include "objects/data_report.h"
#include "objects/flex_grid.h"
#include "objects/form.h"
#include "objects/frame.h"
#include "objects/label.h"
#include "objects/list_control.h"
#include "objects/option_button.h"
#include "objects/picture_box.h"
#include "objects/text_box.h"
#include "support/support.h"

namespace telvaro::objects {
namespace {

// clang-format off
std::vector<Variant> junkValues() {
    return {Variant(), Variant(Null{}), Variant::missing(), Variant(ObjectRef()), Variant(ObjectRef(std::make_shared<Font>())),
            Variant(u"abc"), Variant(u""), Variant(u"1e400"), Variant(std::int32_t(-1)), Variant(std::int32_t(0)),
            Variant(std::int32_t(1)), Variant(std::numeric_limits<std::int32_t>::max()),
            Variant(std::numeric_limits<std::int32_t>::min()), Variant(std::int16_t(-32768)), Variant(1e300),
            Variant(-1e300), Variant(std::nan("")), Variant(std::numeric_limits<double>::infinity()),
            Variant(Boolean(true)), Variant(Array::ofValues({Variant(1), Variant(2)}))};
}
// clang-format on

// A fresh object of each kind, in a state with something in it.
// clang-format off
std::vector<std::function<std::shared_ptr<CallerObject>()>> makers() {
    return {
        [] { auto g = std::make_shared<FlexGrid>(u"grd", 4, 3); g->setTextMatrix(1, 1, u"x"); return g; },
        [] { auto l = std::make_shared<ListControl>(ListControl::Kind::ListBox, u"lst"); l->addItem(u"a"); return l; },
        [] { auto c = std::make_shared<ListControl>(ListControl::Kind::ComboBox, u"cbo"); c->setStyle(2); c->addItem(u"a"); return c; },
        [] { return std::make_shared<TextBox>(u"txt"); },
        [] { return std::make_shared<CheckBox>(u"chk"); },
        [] { return std::make_shared<OptionButton>(u"opt"); },
        [] { return std::make_shared<Label>(u"lbl"); },
        [] { return std::make_shared<Frame>(u"fra"); },
        [] { return std::make_shared<PictureBox>(u"pic"); },
        [] { auto f = std::make_shared<Form>(u"frm"); f->add(std::make_shared<TextBox>(u"txt")); return f; },
        [] { return std::make_shared<Form>(u"mdi", true); },
        [] { return std::make_shared<DataGrid>(u"dg"); },
        [] { return std::make_shared<Chart>(u"cht"); },
        [] {
            auto r = std::make_shared<DataReport>();
            r->sections()[2]->add(std::make_shared<ReportControl>(ReportControl::Kind::TextBox, u"txt"));
            return r;
        },
        [] { return std::make_shared<ReportControl>(ReportControl::Kind::Function, u"fn"); },
        [] { return std::make_shared<Font>(); },
        [] { return makeCheckBoxPicture(CheckBoxPicture::Checked); },
        [] {
            auto f = std::make_shared<Form>(u"frm");
            f->add(std::make_shared<Label>(u"lbl"));
            return std::dynamic_pointer_cast<CallerObject>(f->get(u"Controls").get<ObjectRef>());
        },
    };
}
// clang-format on

// The values tried in pairs (indices and a value, two indices): Null,
// missing, a text, -1, the largest Long and an infinite Double.
constexpr std::size_t kPairs[] = {1, 2, 5, 8, 11, 17};

TEST(JunkSweep, OnlyValuesOrRunTimeErrors) {
    const auto junk = junkValues();
    std::size_t calls = 0, errors = 0;
    for (const auto& make : makers()) {
        auto probe = make();
        std::vector<String> names = probe->memberNames();
        names.push_back(u"");  // the default member
        names.push_back(u"NoExiste");
        for (const auto& name : names)
            for (InvokeKind kind :
                 {InvokeKind::PropertyGet, InvokeKind::PropertyPut, InvokeKind::PropertyPutRef, InvokeKind::Method}) {
                auto object = make();
                auto attempt = [&](std::vector<Variant> args) {
                    ++calls;
                    try {
                        object->invoke(name, kind, args);
                    } catch (const RuntimeError&) {
                        ++errors;
                    }
                };
                attempt({});
                for (const auto& a : junk) attempt({a});
                for (std::size_t a : kPairs)
                    for (std::size_t b : kPairs) attempt({junk[a], junk[b]});
                attempt({junk[8], junk[8], junk[8]});
                attempt({junk[1], junk[2], junk[3], junk[4]});
            }
        // Whatever the junk did, the object still answers and describes its calls.
        EXPECT_GT(probe->memberNames().size(), 0u);
    }
    EXPECT_GT(calls, 50000u);
    EXPECT_GT(errors, 0u);
    EXPECT_LT(errors, calls);
}

}  // namespace
}  // namespace telvaro::objects

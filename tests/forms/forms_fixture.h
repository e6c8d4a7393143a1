// A Fun whose window calls are kept in memory, and the library's own
// controls to hand it.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "context/fun.h"
#include "frame/invoke.h"
#include "objects/flex_grid.h"
#include "objects/form.h"
#include "objects/list_control.h"
#include "objects/text_box.h"
#include "platform/posix/window_effects.h"
#include "support/support.h"
#include "support/test_platform.h"

namespace telvaro {

class FormsTest : public ::testing::Test {
protected:
    FormsTest() { platform_.use(std::shared_ptr<Windows>(windows_)); }

    Variant call(const char* method, std::vector<Variant> args) { return invoke(fun_, method, args); }
    int errorOf(const char* method, std::vector<Variant> args) {
        return errorNumberOf([&] { call(method, std::move(args)); });
    }
    static std::shared_ptr<objects::TextBox> textBox(String text, String name = u"txt") {
        auto box = std::make_shared<objects::TextBox>(std::move(name));
        box->setText(std::move(text));
        return box;
    }

    std::shared_ptr<posix::WindowEffects> windows_ = std::make_shared<posix::WindowEffects>();
    fakes::TestPlatform platform_;
    Fun fun_{platform_};
};

}  // namespace telvaro

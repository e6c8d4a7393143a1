// Message boxes: the buttons and default answer of each style, and the
// terminal box reading an answer or falling back to the default.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <optional>
#include <string>
#include <tuple>

#include "platform/message_box.h"
#include "platform/posix/terminal_message_box.h"

namespace telvaro {
namespace {

// Every button set; the icon bits ignored; the second and third button as
// the default, and one past the set falling back to the first.
TEST(MessageBox, StylesGiveButtonsAndDefaults) {
    const int cases[][3] = {{0, 1, msgbox::Ok},           {1, 2, msgbox::Ok},       {2 + 768, 3, msgbox::Abort},
                            {3 + 512, 3, msgbox::Cancel}, {4 + 256, 2, msgbox::No}, {36, 2, msgbox::Yes},
                            {5, 2, msgbox::Retry},        {4 + 512, 2, msgbox::Yes}};
    for (const auto& [style, count, defaultAnswer] : cases) {
        EXPECT_EQ(buttonsOf(style).count, count) << style;
        EXPECT_EQ(buttonsOf(style).defaultAnswer, defaultAnswer) << style;
    }
}

// A box on a terminal given `typed`; `shown` is what it wrote.
struct Terminal {
    explicit Terminal(std::string typed, bool interactive) : input(std::move(typed) + '\0') {
        in = fmemopen(input.data(), std::max<std::size_t>(input.size() - 1, 1), "r");
        out = open_memstream(&written, &length);
        box.emplace(in, out, interactive);
    }
    ~Terminal() {
        std::fclose(in);
        std::fclose(out);
        std::free(written);
    }
    std::string shown() {
        std::fflush(out);
        return std::string(written, length);
    }
    std::string input;
    std::FILE *in, *out;
    char* written = nullptr;
    std::size_t length = 0;
    std::optional<posix::TerminalMessageBox> box;
};

// A number, a label in other letters, the default on an empty line, a
// number past the buttons asked again, the default at the end of input.
TEST(TerminalMessageBox, ReadsTheAnswerByNumberOrLabel) {
    const std::tuple<const char*, int, int> cases[] = {{"2\n", 36, msgbox::No},
                                                       {"SÍ\n", 52, msgbox::Yes},
                                                       {"\n", 36, msgbox::Yes},
                                                       {"3\n2\n", 36, msgbox::No},
                                                       {"", 4 + 256, msgbox::No}};
    for (const auto& [typed, style, answer] : cases) {
        Terminal t(typed, true);
        EXPECT_EQ(t.box->show(u"¿Guardar?", style, u"Confirme"), answer) << typed;
        EXPECT_NE(t.shown().find("Confirme"), std::string::npos);
    }
}

// Nothing is read; the box and the answer taken are told on the output.
TEST(TerminalMessageBox, AnswersTheDefaultWhenNotInteractiveAndSaysSo) {
    const std::tuple<int, int, const char*> cases[] = {
        {52, msgbox::Yes, "Sí"}, {4 + 256, msgbox::No, "No"}, {64, msgbox::Ok, "Aceptar"}};
    for (const auto& [style, answer, label] : cases) {
        Terminal t("2\n", false);  // a memory stream is not a terminal
        EXPECT_EQ(t.box->show(u"x", style, u"t"), answer) << style;
        EXPECT_EQ(t.shown(), std::string("== t ==\nx\n(no terminal: answered ") + label + ")\n") << style;
    }
}

}  // namespace
}  // namespace telvaro

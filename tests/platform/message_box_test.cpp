// Message boxes: the buttons and default answer of each style, and the
// terminal box reading an answer or falling back to the default.
#include <gtest/gtest.h>

#include <cstdio>
#include <optional>
#include <string>
#include <tuple>

#include "platform/message_box.h"
#include "platform/posix/terminal_message_box.h"

namespace telvaro {
namespace {

using namespace msgbox;

// Every button set; the icon bits ignored; the second and third button as
// the default, and one past the set falling back to the first.
TEST(MessageBox, StylesGiveButtonsAndDefaults) {
    const int cases[][3] = {{0, 1, Ok},       {1, 2, Ok},   {2 + 768, 3, Abort}, {3 + 512, 3, Cancel},
                            {4 + 256, 2, No}, {36, 2, Yes}, {5, 2, Retry},       {4 + 512, 2, Yes}};
    for (const auto& [style, count, defaultAnswer] : cases) {
        EXPECT_EQ(buttonsOf(style).count, count) << style;
        EXPECT_EQ(buttonsOf(style).defaultAnswer, defaultAnswer) << style;
    }
}

// A box on a terminal given `typed`; `shown` is what it wrote.
struct Terminal {
    Terminal(const char* typed, bool interactive) {
        std::fputs(typed, in);
        std::rewind(in);
        box.emplace(in, out, interactive);
    }
    ~Terminal() {
        std::fclose(in);
        std::fclose(out);
    }
    std::string shown() {
        std::string text(4096, '\0');
        std::rewind(out);
        return text.substr(0, std::fread(text.data(), 1, text.size(), out));
    }
    std::FILE *in = std::tmpfile(), *out = std::tmpfile();
    std::optional<posix::TerminalMessageBox> box;
};

// A number, a label in other letters, the default on an empty line, a
// number past the buttons asked again, the default at the end of input.
TEST(TerminalMessageBox, ReadsTheAnswerByNumberOrLabel) {
    const std::tuple<const char*, int, int> cases[] = {
        {"2\n", 36, No}, {"SÍ\n", 52, Yes}, {"\n", 36, Yes}, {"3\n2\n", 36, No}, {"", 4 + 256, No}};
    for (const auto& [typed, style, answer] : cases) {
        Terminal t(typed, true);
        EXPECT_EQ(t.box->show(u"¿Guardar?", style, u"Confirme"), answer) << typed;
        EXPECT_NE(t.shown().find("Confirme"), std::string::npos);
    }
}

// Nothing is read; the box and the answer taken are told on the output.
TEST(TerminalMessageBox, AnswersTheDefaultWhenNotInteractiveAndSaysSo) {
    const std::tuple<int, int, const char*> cases[] = {{52, Yes, "Sí"}, {4 + 256, No, "No"}, {64, Ok, "Aceptar"}};
    for (const auto& [style, answer, label] : cases) {
        Terminal t("2\n", false);  // a file is not a terminal
        EXPECT_EQ(t.box->show(u"x", style, u"t"), answer) << style;
        EXPECT_EQ(t.shown(), std::string("== t ==\nx\n(no terminal: answered ") + label + ")\n") << style;
    }
}

}  // namespace
}  // namespace telvaro

// Message boxes: the buttons and default answer of each style, and the
// terminal box reading an answer or falling back to the default.
#include <gtest/gtest.h>

#include <cstdio>
#include <cstring>

#include "platform/message_box.h"
#include "platform/posix/terminal_message_box.h"

namespace telvaro {
namespace {

TEST(MessageBox, StylesGiveButtonsAndDefaults) {
    struct Case {
        int style;
        int count;
        int defaultAnswer;
    };
    const Case cases[] = {
        {0, 1, msgbox::Ok},   {16, 1, msgbox::Ok},      {64, 1, msgbox::Ok},         {36, 2, msgbox::Yes},
        {52, 2, msgbox::Yes}, {4 + 256, 2, msgbox::No}, {3, 3, msgbox::Yes},         {3 + 512, 3, msgbox::Cancel},
        {1, 2, msgbox::Ok},   {5, 2, msgbox::Retry},    {2 + 768, 3, msgbox::Abort},  // no fourth button: the first is
                                                                                      // the default
    };
    for (const auto& c : cases) {
        ButtonSet b = buttonsOf(c.style);
        EXPECT_EQ(b.count, c.count) << c.style;
        EXPECT_EQ(b.defaultAnswer, c.defaultAnswer) << c.style;
    }
}

struct Terminal {
    explicit Terminal(const char* typed) {
        std::strncpy(input, typed, sizeof input - 1);
        in = fmemopen(input, std::strlen(input) ? std::strlen(input) : 1, "r");
        out = open_memstream(&outBuf, &outLen);
    }
    ~Terminal() {
        std::fclose(in);
        std::fclose(out);
        std::free(outBuf);
    }
    std::string shown() {
        std::fflush(out);
        return std::string(outBuf, outLen);
    }
    char input[64] = {};
    std::FILE* in;
    std::FILE* out;
    char* outBuf = nullptr;
    std::size_t outLen = 0;
};

TEST(TerminalMessageBox, ReadsTheAnswerByNumberOrLabel) {
    struct Case {
        const char* typed;
        int style;
        int answer;
    };
    const Case cases[] = {
        {"2\n", 36, msgbox::No}, {"1\n", 36, msgbox::Yes},   {"no\n", 52, msgbox::No},  {"SÍ\n", 52, msgbox::Yes},
        {"\n", 36, msgbox::Yes}, {"9\n2\n", 36, msgbox::No}, {"", 4 + 256, msgbox::No},  // end of input: the default
                                                                                         // button
    };
    for (const auto& c : cases) {
        Terminal t(c.typed);
        posix::TerminalMessageBox box(t.in, t.out, true);
        EXPECT_EQ(box.show(u"¿Guardar?", c.style, u"Confirme"), c.answer) << c.typed;
        EXPECT_NE(t.shown().find("Confirme"), std::string::npos);
    }
}

// Nothing is read; the box and the answer taken are told on the output.
TEST(TerminalMessageBox, AnswersTheDefaultWhenNotInteractiveAndSaysSo) {
    struct Case {
        int style;
        int answer;
        const char* shown;
    };
    const Case cases[] = {
        {52, msgbox::Yes, "== t ==\nx\n(no terminal: answered Sí)\n"},
        {4 + 256, msgbox::No, "== t ==\nx\n(no terminal: answered No)\n"},
        {64, msgbox::Ok, "== t ==\nx\n(no terminal: answered Aceptar)\n"},
    };
    for (const auto& c : cases) {
        Terminal t("2\n");
        posix::TerminalMessageBox box(t.in, t.out, false);  // a memory stream is not a terminal
        EXPECT_EQ(box.show(u"x", c.style, u"t"), c.answer) << c.style;
        EXPECT_EQ(t.shown(), c.shown) << c.style;
    }
}

}  // namespace
}  // namespace telvaro

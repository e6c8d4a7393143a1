// The progress form on a terminal: the line drawn, and nothing at all when
// stderr is no terminal.
#include <gtest/gtest.h>

#include <cstdio>
#include <string>
#include <tuple>
#include <vector>

#include "platform/posix/terminal_progress.h"

namespace telvaro::posix {
namespace {

TEST(TerminalProgress, TheLine) {
    // clang-format off
    const std::vector<std::tuple<const char*, ProgressLine, std::string>> cases = {
        {"half way, 100 a second", {u"Progreso . . .      (500 de 1000)", 0, 1000, 500, 5, 0, 80},
         "Progreso . . . [############............]  50%  500 de 1000  100/s  quedan 0:05"},
        {"just shown: no rate yet", {u" Progreso . . .", 0, 3, 0, 0, 0, 80},
         "Progreso . . . [..............................]   0%  0 de 3  0/s  quedan --:--"},
        {"slow, an hour left: hours shown, the rate gives way", {u"Progreso", 0, 10000, 1000, 400, 0, 60},
         "Progreso [#...........]  10%  1000 de 10000  quedan 1:00:00"},
        {"a narrow terminal keeps the count, cuts the title", {u"Un título muy largo para la línea", 0, 4, 2, 2, 0, 40},
         "Un título muy [#####.....]  50%  2 de 4"},
        {"the rate counts from the value when shown", {u"P", 0, 100, 60, 2, 40, 80},
         "P [########################................]  60%  60 de 100  10/s  quedan 0:04"}};
    // clang-format on
    for (const auto& [what, line, expected] : cases) EXPECT_EQ(progressLineText(line), expected) << what;
}

std::string drawnOn(bool forceTerminal) {
    std::FILE* out = std::tmpfile();
    TerminalProgressDisplay display(out, forceTerminal);
    {
        ProgressDesign design;
        design.caption = u" Progreso . . .";
        auto window = display.open(design);
        window->setBarMax(2);
        window->show();
        window->setBarValue(2);  // the last step is drawn whatever the time
    }
    char text[4096];
    std::rewind(out);
    const std::string drawn(text, std::fread(text, 1, sizeof text, out));
    std::fclose(out);
    return drawn;
}

TEST(TerminalProgress, DrawnOnlyOnATerminal) {
    const std::string drawn = drawnOn(true);
    EXPECT_EQ(drawn.rfind("\rProgreso . . . [", 0), 0u) << drawn;
    EXPECT_NE(drawn.find("100%  2 de 2"), std::string::npos) << drawn;
    EXPECT_TRUE(drawn.ends_with("\r\033[K")) << drawn;  // unloading erases the line
    EXPECT_EQ(drawnOn(false), "");                      // a file is no terminal
}

}  // namespace
}  // namespace telvaro::posix

// SeparaEnLineasImprimir and LimitaTamTexto: text cut by its width in the
// font. DejaVu Sans at 10 points: "i" is 569/2048 of the size wide (55.6
// twips), "M" 1767/2048 (172.6 twips), the blank 651/2048 (31.8 twips).
#include "printing/printing_fixture.h"

namespace telvaro {
namespace {

std::vector<std::string> linesOf(const Variant& result) {
    std::vector<std::string> lines;
    const Array& a = result.array();
    for (std::int32_t i = a.lbound(); i <= a.ubound(); ++i) lines.push_back(toUtf8(toString(a.at(i))));
    return lines;
}

using LineCutting = PrintingTest;

TEST_F(LineCutting, LimitaTamTextoKeepsTheStartThatFits) {
    struct Case {
        const char* label;
        const char16_t* text;
        double width;
        const char16_t* expected;
    };
    const Case cases[] = {
        {"five narrow letters in 300 twips", u"iiiiiiiiii", 300, u"iiiii"},
        {"a text that fits stays whole", u"Pérez Ñandú", 10000, u"Pérez Ñandú"},
        {"no width keeps nothing", u"abc", 0, u""},
        {"the first line only", u"uno\r\ndos", 10000, u"uno"},
        {"a letter outside the basic plane is not split", u"ii\U0001F600", 120, u"ii"},
    };
    for (const auto& c : cases) {
        const Variant r = call("LimitaTamTexto", {Variant(String(c.text)), Variant(c.width), Variant(font())});
        EXPECT_EQ(toUtf8(toString(r)), toUtf8(c.expected)) << c.label;
    }
}

TEST_F(LineCutting, SeparaEnLineasImprimirBreaksBetweenWordsAndInsideLongOnes) {
    struct Case {
        const char* label;
        const char16_t* text;
        double width;
        std::vector<std::string> expected;
    };
    const Case cases[] = {
        {"empty text is one empty line", u"", 1000, {""}},
        {"the third word goes down", u"iii iii iii", 400, {"iii iii", "iii"}},
        {"one long word is cut where the width ends", u"iiiiiiiiiii", 300, {"iiiii", "iiiii", "i"}},
        {"line breaks of every kind", u"a\nb\r\nc\rd", 10000, {"a", "b", "c", "d"}},
        {"an empty line between two", u"a\r\n\r\nb", 10000, {"a", "", "b"}},
        {"a width under one letter still moves on", u"MMM", 10, {"M", "M", "M"}},
    };
    for (const auto& c : cases) {
        std::vector<Variant> args{Variant(std::int16_t(0)), Variant(String(c.text)), Variant(c.width), Variant(font())};
        const Variant r = invoke(fun_, "SeparaEnLineasImprimir", args);
        EXPECT_EQ(linesOf(r), c.expected) << c.label;
        EXPECT_EQ(toLong(args[0]), static_cast<std::int32_t>(c.expected.size())) << c.label << ": Indices";
        EXPECT_EQ(r.array().lbound(), 0) << c.label;
    }
}

TEST_F(LineCutting, BadArgumentsAnswerRuntimeErrors) {
    struct Case {
        const char* label;
        const char* method;
        double width;
        Variant letra;
        int error;
    };
    const Case cases[] = {
        {"negative width", "LimitaTamTexto", -1, Variant(font()), 5},
        {"negative width", "SeparaEnLineasImprimir", -1, Variant(font()), 5},
        {"no font", "LimitaTamTexto", 100, Variant(ObjectRef()), 91},
        {"a picture is no font", "LimitaTamTexto", 100, Variant(ObjectRef(std::make_shared<objects::Picture>())), 438},
        {"the default font", "LimitaTamTexto", 100, Variant(ObjectRef(std::make_shared<objects::Font>())), 0},
    };
    for (const auto& c : cases) {
        std::vector<Variant> args{Variant(String(u"abc")), Variant(c.width), c.letra};
        if (std::string(c.method) == "SeparaEnLineasImprimir") args.insert(args.begin(), Variant(std::int16_t(0)));
        EXPECT_EQ(errorNumberOf([&] { invoke(fun_, c.method, args); }), c.error) << c.label << " " << c.method;
    }
}

}  // namespace
}  // namespace telvaro

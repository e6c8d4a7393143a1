// A Fun whose printing is a fresh PDF printing (no printer chosen yet) that
// keeps its deliveries, fonts pinned to DejaVu Sans so that widths are the
// same on every machine, and readers of the PDFs it leaves (pdftotext,
// pdfinfo).
#pragma once

#include <gtest/gtest.h>

#include <cstdio>
#include <regex>
#include <string>
#include <vector>

#include "context/fun.h"
#include "frame/invoke.h"
#include "objects/font.h"
#include "objects/picture.h"
#include "platform/posix/pdf_printing.h"
#include "support/support.h"
#include "support/test_platform.h"

namespace telvaro {

inline std::string commandOutput(const std::string& command) {
    std::string out;
    if (FILE* pipe = ::popen(command.c_str(), "r")) {
        char buffer[4096];
        while (std::size_t n = std::fread(buffer, 1, sizeof buffer, pipe)) out.append(buffer, n);
        ::pclose(pipe);
    }
    return out;
}

// One word of a PDF page as pdftotext places it, in points from the top left.
struct PdfWord {
    double xMin, yMin, xMax, yMax;
    std::string text;
};

inline std::vector<PdfWord> pdfWords(const std::string& path) {
    const std::string xml = commandOutput("pdftotext -bbox '" + path + "' - 2>/dev/null");
    static const std::regex word(
        R"re(<word xMin="([-\d.]+)" yMin="([-\d.]+)" xMax="([-\d.]+)" yMax="([-\d.]+)">([^<]*)</word>)re");
    std::vector<PdfWord> words;
    for (std::sregex_iterator i(xml.begin(), xml.end(), word), end; i != end; ++i)
        words.push_back(
            {std::stod(i->str(1)), std::stod(i->str(2)), std::stod(i->str(3)), std::stod(i->str(4)), i->str(5)});
    return words;
}

inline std::string pdfInfo(const std::string& path, const std::string& field) {
    const std::string info = commandOutput("pdfinfo '" + path + "' 2>/dev/null");
    const std::regex line("(^|\n)" + field + ":\\s*([^\n]*)");
    std::smatch m;
    return std::regex_search(info, m, line) ? m.str(2) : std::string();
}

inline posix::PixelReader testPixels() {
    return [](const Variant& v) -> std::optional<posix::PrintPixels> {
        if (!v.isObject()) return std::nullopt;
        const auto* picture = dynamic_cast<const objects::Picture*>(v.object().get());
        if (!picture || picture->isEmpty()) return std::nullopt;
        return posix::PrintPixels{picture->width(), picture->height(), picture->pixels()};
    };
}

class PrintingTest : public ::testing::Test {
protected:
    // No CUPS server answers unless a test starts one: documents stay as files.
    static void SetUpTestSuite() { ::setenv("CUPS_SERVER", "/nonexistent/telvaro-cups.sock", 1); }

    PrintingTest() { platform_.use(std::shared_ptr<Printing>(printing_)); }

    Variant call(const char* method, std::vector<Variant> args) { return invoke(fun_, method, args); }
    int errorOf(const char* method, std::vector<Variant> args) {
        return errorNumberOf([&] { call(method, std::move(args)); });
    }

    static ObjectRef font() { return std::make_shared<objects::Font>(objects::FontDescription{u"DejaVu Sans", 10}); }

    // The file of the only document printed.
    std::string printedFile() const {
        EXPECT_EQ(printing_->deliveries().size(), 1u);
        return printing_->deliveries().empty() ? std::string() : toUtf8(printing_->deliveries().back().file);
    }

    std::shared_ptr<RecordingPrinting> printing_ =
        std::make_shared<RecordingPrinting>(std::make_shared<posix::PdfPrinting>(testPixels()));
    fakes::TestPlatform platform_;
    Fun fun_{platform_};
};

}  // namespace telvaro

// A Fun whose printing is a fresh PDF printing (no printer chosen yet) that
// keeps its deliveries, fonts pinned to DejaVu Sans so that widths are the
// same on every machine, and readers of the PDFs it leaves (pdftotext,
// pdfinfo, pdftoppm).
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
    int page;
    double xMin, yMin, xMax, yMax;
    std::string text;
};

inline std::vector<PdfWord> pdfWords(const std::string& path) {
    const std::string xml = commandOutput("pdftotext -bbox '" + path + "' - 2>/dev/null");
    std::vector<PdfWord> words;
    int page = 0;
    static const std::regex token(
        R"re(<page |<word xMin="([-\d.]+)" yMin="([-\d.]+)" xMax="([-\d.]+)" yMax="([-\d.]+)">([^<]*)</word>)re");
    for (std::sregex_iterator i(xml.begin(), xml.end(), token), end; i != end; ++i) {
        const auto& m = *i;
        if (m.str(0) == "<page ") {
            ++page;
            continue;
        }
        words.push_back(
            {page, std::stod(m.str(1)), std::stod(m.str(2)), std::stod(m.str(3)), std::stod(m.str(4)), m.str(5)});
    }
    return words;
}

inline std::string pdfInfo(const std::string& path, const std::string& field) {
    const std::string info = commandOutput("pdfinfo '" + path + "' 2>/dev/null");
    const std::regex line("(^|\n)" + field + ":\\s*([^\n]*)");
    std::smatch m;
    return std::regex_search(info, m, line) ? m.str(2) : std::string();
}

// The colour of one pixel of the first page drawn at 72 pixels an inch (one
// pixel a point), as 0xRRGGBB; 0xFFFFFFFF when there is none.
inline std::uint32_t pdfPixel(const std::string& path, int x, int y) {
    const std::string ppm = commandOutput("pdftoppm -r 72 -f 1 -l 1 -x " + std::to_string(x) + " -y " +
                                          std::to_string(y) + " -W 1 -H 1 '" + path + "' 2>/dev/null");
    const std::string header = "P6\n1 1\n255\n";  // one pixel: three bytes after the header
    if (ppm.size() != header.size() + 3 || ppm.compare(0, header.size(), header) != 0) return 0xFFFFFFFF;
    auto byte = [&](std::size_t i) { return static_cast<std::uint32_t>(static_cast<unsigned char>(ppm[i])); };
    return byte(header.size()) << 16 | byte(header.size() + 1) << 8 | byte(header.size() + 2);
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

    static ObjectRef font(String name = u"DejaVu Sans", double size = 10, bool bold = false) {
        objects::FontDescription d;
        d.name = std::move(name);
        d.size = size;
        d.bold = bold;
        return std::make_shared<objects::Font>(d);
    }

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

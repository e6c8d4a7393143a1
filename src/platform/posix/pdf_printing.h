// Printing on Linux: pages drawn with cairo and pango into a PDF, handed to
// the current CUPS printer, or, when CUPS has no printer, left under
// <home>/prints/ with the path in the delivery. The PDF is written under a
// temporary name and renamed when it is complete, so a file in prints/ is
// always a whole document.
//
// The printers are CUPS's destinations; a printer's port is its device URI.
// The CUPS server is the one the environment names when the call is made
// (CUPS_SERVER, the client configuration), as the CUPS tools find it.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

#include "platform/printing.h"

namespace telvaro::posix {

// The pixels of a caller's picture (0xAARRGGBB, row by row from the top),
// read by the host, which knows the picture objects.
struct PrintPixels {
    std::int32_t width = 0, height = 0;
    std::vector<std::uint32_t> pixels;
};
using PixelReader = std::function<std::optional<PrintPixels>(const Variant& picture)>;

class PdfPrinting : public Printing {
public:
    explicit PdfPrinting(PixelReader readPixels) : readPixels_(std::move(readPixels)) {}

    std::vector<PrinterInfo> printers() override;
    String currentPrinter() override;
    void setCurrentPrinter(StringView name) override { chosen_ = String(name); }
    bool choosePrinter() override { return true; }
    std::pair<double, double> pageSize() override;
    double textWidth(StringView text, const PrintFont& font) override;
    double lineHeight(const PrintFont& font) override;
    std::size_t fittingLength(StringView text, double width, const PrintFont& font) override;
    std::vector<String> splitLines(StringView text, double width, const PrintFont& font) override;
    std::unique_ptr<PrintDocument> startDocument(StringView title, double pageWidth, double pageHeight) override;

private:
    PixelReader readPixels_;
    std::optional<String> chosen_;
};

}  // namespace telvaro::posix

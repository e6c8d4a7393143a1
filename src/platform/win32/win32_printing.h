// Printing on Windows with GDI: the installed printers from EnumPrinters,
// the current one (the one chosen last, else the user's default), text
// measured with GetTextExtentPoint32W in a font made at its size in twips,
// and documents drawn on the printer's device context between StartDoc and
// EndDoc, mapped to twips from the top left corner of the paper.
#pragma once

#include <optional>

#include "platform/printing.h"

namespace telvaro::win32 {

class Win32Printing : public Printing {
public:
    std::vector<PrinterInfo> printers() override;
    String currentPrinter() override;
    void setCurrentPrinter(StringView name) override { chosen_ = String(name); }
    bool choosePrinter() override;
    std::pair<double, double> pageSize() override;
    double textWidth(StringView text, const PrintFont& font) override;
    double lineHeight(const PrintFont& font) override;
    std::size_t fittingLength(StringView text, double width, const PrintFont& font) override;
    std::vector<String> splitLines(StringView text, double width, const PrintFont& font) override;
    std::unique_ptr<PrintDocument> startDocument(StringView title, double pageWidth, double pageHeight) override;

private:
    std::optional<String> chosen_;
};

}  // namespace telvaro::win32

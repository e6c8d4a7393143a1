// Printing as the platform offers it: the installed printers and the
// current one, the page the current printer prints on, text measured in a
// font exactly as the printer will draw it, and documents drawn page by
// page. Every length is in twips (1/1440 inch) from the top left corner of
// the page; every size of a font in points; colours are the automation's
// 0x00BBGGRR.
//
// On Linux the pages are drawn with cairo and pango into a PDF, which goes
// to the current CUPS printer, or, when there is none, stays as a file
// under <home>/prints/. On Windows they are drawn with GDI on the printer's
// device context.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "runtime/variant.h"

namespace telvaro {

// The runtime's printer error, with what went wrong after its description.
inline constexpr int kPrinterError = 482;
[[noreturn]] void printerError(StringView detail);

struct PrintFont {
    String name = u"MS Sans Serif";
    double size = 8.25;  // points
    bool bold = false;
    bool italic = false;
    bool underline = false;
};

struct PrinterInfo {
    String name;
    String port;  // Windows: the printer's port ("LPT1:"); CUPS: its device URI
};

// Where a finished document went: the printer and its job, or the file.
struct PrintDelivery {
    String printer;        // empty when the document stayed as a file
    std::int32_t job = 0;  // the printer's job number
    String file;           // the PDF left under <home>/prints/, when no printer took it
    std::int32_t pages = 0;
};

// A document being drawn. Pages are drawn one at a time; `finish` ends the
// last page and hands the document over. A document dropped without
// `finish` is abandoned: nothing reaches the printer and no file is left.
class PrintDocument {
public:
    virtual ~PrintDocument() = default;

    // Ends the current page (when anything was drawn on it or it was
    // started) and starts a new one.
    virtual void newPage() = 0;
    // One line of text whose top left corner is at (x, y), clipped to
    // `clipWidth` when it is positive.
    virtual void text(double x, double y, StringView text, const PrintFont& font, std::int32_t color,
                      double clipWidth = 0) = 0;
    virtual void line(double x1, double y1, double x2, double y2, std::int32_t color) = 0;
    // A rectangle filled with `fill` when given, outlined with `outline`
    // when given.
    virtual void rectangle(double x, double y, double width, double height, std::optional<std::int32_t> fill,
                           std::optional<std::int32_t> outline) = 0;
    // A caller's picture object stretched into the rectangle; a picture the
    // platform cannot read (the empty picture, Nothing) draws nothing.
    virtual void picture(const Variant& picture, double x, double y, double width, double height) = 0;
    // Error 482 (printer error) when the document cannot be handed over.
    virtual PrintDelivery finish() = 0;
};

class Printing {
public:
    virtual ~Printing() = default;

    // The installed printers, in the system's order.
    virtual std::vector<PrinterInfo> printers() = 0;
    // The current printer's name: the one chosen last, else the system's
    // default; empty when there is none.
    virtual String currentPrinter() = 0;
    virtual void setCurrentPrinter(StringView name) = 0;
    // Lets the user choose the printer (Windows: the print dialog); false
    // when the user cancelled. Without a dialog the current one stays.
    virtual bool choosePrinter() = 0;
    // The width and height of the current printer's page.
    virtual std::pair<double, double> pageSize() = 0;

    // The width of one line of text in the font, and the height of a line.
    virtual double textWidth(StringView text, const PrintFont& font) = 0;
    virtual double lineHeight(const PrintFont& font) = 0;
    // How many UTF-16 units from the start of `text` fit in `width` on one
    // line (never in the middle of a surrogate pair).
    virtual std::size_t fittingLength(StringView text, double width, const PrintFont& font) = 0;
    // The text broken into lines no wider than `width`: at line breaks
    // (CR LF, CR, LF), between words, and inside a word wider than the
    // line; each line without its trailing blanks. At least one character
    // goes on each line, so the cutting always ends.
    virtual std::vector<String> splitLines(StringView text, double width, const PrintFont& font) = 0;

    // A new document of pages of the given size, printed on the current
    // printer; `title` names the job (and the file when it stays one).
    virtual std::unique_ptr<PrintDocument> startDocument(StringView title, double pageWidth, double pageHeight) = 0;
};

// A printing service that passes everything on and keeps the deliveries,
// so that the command line can say where each document went.
class RecordingPrinting : public Printing {
public:
    explicit RecordingPrinting(std::shared_ptr<Printing> inner) : inner_(std::move(inner)) {}

    const std::vector<PrintDelivery>& deliveries() const { return deliveries_; }

    std::vector<PrinterInfo> printers() override { return inner_->printers(); }
    String currentPrinter() override { return inner_->currentPrinter(); }
    void setCurrentPrinter(StringView name) override { inner_->setCurrentPrinter(name); }
    bool choosePrinter() override { return inner_->choosePrinter(); }
    std::pair<double, double> pageSize() override { return inner_->pageSize(); }
    double textWidth(StringView text, const PrintFont& font) override { return inner_->textWidth(text, font); }
    double lineHeight(const PrintFont& font) override { return inner_->lineHeight(font); }
    std::size_t fittingLength(StringView text, double width, const PrintFont& font) override {
        return inner_->fittingLength(text, width, font);
    }
    std::vector<String> splitLines(StringView text, double width, const PrintFont& font) override {
        return inner_->splitLines(text, width, font);
    }
    std::unique_ptr<PrintDocument> startDocument(StringView title, double pageWidth, double pageHeight) override;

private:
    std::shared_ptr<Printing> inner_;
    std::vector<PrintDelivery> deliveries_;
};

}  // namespace telvaro

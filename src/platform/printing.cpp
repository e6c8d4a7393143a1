#include "platform/printing.h"

#include "platform/platform.h"
#include "runtime/error.h"

namespace telvaro {

namespace {

// A document that notes where it went once it is handed over.
class RecordedDocument : public PrintDocument {
public:
    RecordedDocument(std::unique_ptr<PrintDocument> inner, std::vector<PrintDelivery>& deliveries)
        : inner_(std::move(inner)), deliveries_(deliveries) {}

    void newPage() override { inner_->newPage(); }
    void text(double x, double y, StringView text, const PrintFont& font, std::int32_t color,
              double clipWidth) override {
        inner_->text(x, y, text, font, color, clipWidth);
    }
    void line(double x1, double y1, double x2, double y2, std::int32_t color) override {
        inner_->line(x1, y1, x2, y2, color);
    }
    void rectangle(double x, double y, double width, double height, std::optional<std::int32_t> fill,
                   std::optional<std::int32_t> outline) override {
        inner_->rectangle(x, y, width, height, fill, outline);
    }
    void picture(const Variant& picture, double x, double y, double width, double height) override {
        inner_->picture(picture, x, y, width, height);
    }
    PrintDelivery finish() override {
        PrintDelivery delivery = inner_->finish();
        deliveries_.push_back(delivery);
        return delivery;
    }

private:
    std::unique_ptr<PrintDocument> inner_;
    std::vector<PrintDelivery>& deliveries_;
};

}  // namespace

void printerError(StringView detail) {
    String description = u"Printer error";
    if (!detail.empty()) description += u": " + String(detail);
    raise(kPrinterError, std::move(description));
}

Printing& Platform::printing() const {
    if (!printing_) printerError(u"no printing on this platform");
    return *printing_;
}

std::unique_ptr<PrintDocument> RecordingPrinting::startDocument(StringView title, double pageWidth, double pageHeight) {
    return std::make_unique<RecordedDocument>(inner_->startDocument(title, pageWidth, pageHeight), deliveries_);
}

}  // namespace telvaro

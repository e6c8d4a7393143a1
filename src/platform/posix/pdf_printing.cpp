#include "platform/posix/pdf_printing.h"

#include <cairo-pdf.h>
#include <cups/cups.h>
#include <cups/pwg.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cmath>
#include <ctime>
#include <filesystem>
#include <span>
#include <system_error>

#include "platform/posix/home.h"
#include "platform/posix/pango_text.h"

namespace telvaro::posix {

namespace fs = std::filesystem;

namespace {

constexpr double kTwipsPerPoint = 20;
// An A4 page, when the printer does not say its paper.
constexpr double kA4Width = 11906, kA4Height = 16838;
constexpr double kTwipsPerHundredthMm = 1440.0 / 2540.0;

double points(double twips) { return std::isfinite(twips) ? twips / kTwipsPerPoint : 0; }

// The destinations of the CUPS server the environment names now.
class Destinations {
public:
    Destinations() {
        cupsSetServer(nullptr);  // read CUPS_SERVER and the client configuration again
        count_ = cupsGetDests2(CUPS_HTTP_DEFAULT, &dests_);
    }
    ~Destinations() { cupsFreeDests(count_, dests_); }
    Destinations(const Destinations&) = delete;
    Destinations& operator=(const Destinations&) = delete;

    std::span<cups_dest_t> all() const { return {dests_, static_cast<std::size_t>(count_)}; }
    cups_dest_t* named(const std::string& name) const {
        return name.empty() ? nullptr : cupsGetDest(name.c_str(), nullptr, count_, dests_);
    }
    cups_dest_t* byDefault() const { return cupsGetDest(nullptr, nullptr, count_, dests_); }

private:
    int count_ = 0;
    cups_dest_t* dests_ = nullptr;
};

// An automation colour (0x00BBGGRR) as red, green and blue from 0 to 1; the
// system colours (high bit set) as the usual window text and face colours.
void setColor(cairo_t* cr, std::int32_t color) {
    auto c = static_cast<std::uint32_t>(color);
    if (c & 0x80000000u) {
        switch (c & 0xFFu) {
            case 5: c = 0xFFFFFF; break;  // window background
            case 15:
            case 4: c = 0xF0F0F0; break;   // button face, menu
            case 16: c = 0xA0A0A0; break;  // button shadow
            default: c = 0x000000; break;  // the texts
        }
    }
    cairo_set_source_rgb(cr, (c & 0xFF) / 255.0, ((c >> 8) & 0xFF) / 255.0, ((c >> 16) & 0xFF) / 255.0);
}

std::string safeName(StringView title) {
    std::string name;
    for (char16_t c : title) {
        if (name.size() >= 60) break;
        const bool plain =
            (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z') || (c >= u'0' && c <= u'9') || c == u'-' || c == u'_';
        name.push_back(plain ? static_cast<char>(c) : '_');
    }
    return name.empty() ? std::string("impresion") : name;
}

std::string timestamp() {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    char text[32];
    std::strftime(text, sizeof text, "%Y%m%d-%H%M%S", &local);
    return text;
}

class PdfDocument : public PrintDocument {
public:
    PdfDocument(StringView title, double pageWidth, double pageHeight, String printer, const PixelReader& readPixels)
        : title_(title), printer_(std::move(printer)), readPixels_(readPixels) {
        folder_ = homeFolder() / "prints";
        std::error_code ec;
        fs::create_directories(folder_, ec);
        std::string pattern = (folder_ / ("." + safeName(title_) + ".pdf.telvaro-tmp-XXXXXX")).string();
        const int fd = ::mkstemp(pattern.data());
        if (fd < 0) printerError(u"the document cannot be written in " + fromUtf8(folder_.string()));
        ::fchmod(fd, 0644);  // readable as any other document the user keeps
        ::close(fd);
        temporary_ = pattern;
        surface_ = cairo_pdf_surface_create(temporary_.c_str(), std::max(points(pageWidth), 1.0),
                                            std::max(points(pageHeight), 1.0));
        cr_ = cairo_create(surface_);
        if (cairo_status(cr_) != CAIRO_STATUS_SUCCESS) {
            discard();
            printerError(u"the document cannot be drawn");
        }
        cairo_pdf_surface_set_metadata(surface_, CAIRO_PDF_METADATA_TITLE, toUtf8(title_).c_str());
        cairo_pdf_surface_set_metadata(surface_, CAIRO_PDF_METADATA_CREATOR, "Telvaro");
    }
    ~PdfDocument() override { discard(); }

    void newPage() override {
        cairo_show_page(cr_);
        ++pages_;
    }

    void text(double x, double y, StringView text, const PrintFont& font, std::int32_t color,
              double clipWidth) override {
        if (text.empty()) return;
        const auto layout = makeLayout(toUtf8(text), font);
        cairo_save(cr_);
        if (clipWidth > 0) {
            cairo_rectangle(cr_, points(x), points(y) - 1000, points(clipWidth), 1e5);
            cairo_clip(cr_);
        }
        setColor(cr_, color);
        cairo_move_to(cr_, points(x), points(y));
        pango_cairo_show_layout(cr_, layout.get());
        cairo_restore(cr_);
    }

    void line(double x1, double y1, double x2, double y2, std::int32_t color) override {
        cairo_save(cr_);
        setColor(cr_, color);
        cairo_set_line_width(cr_, 0.75);
        cairo_move_to(cr_, points(x1), points(y1));
        cairo_line_to(cr_, points(x2), points(y2));
        cairo_stroke(cr_);
        cairo_restore(cr_);
    }

    void rectangle(double x, double y, double width, double height, std::optional<std::int32_t> fill,
                   std::optional<std::int32_t> outline) override {
        cairo_save(cr_);
        cairo_rectangle(cr_, points(x), points(y), points(width), points(height));
        if (fill) {
            setColor(cr_, *fill);
            cairo_fill_preserve(cr_);
        }
        if (outline) {
            setColor(cr_, *outline);
            cairo_set_line_width(cr_, 0.75);
            cairo_stroke_preserve(cr_);
        }
        cairo_new_path(cr_);
        cairo_restore(cr_);
    }

    void picture(const Variant& picture, double x, double y, double width, double height) override {
        if (!readPixels_ || !(width > 0) || !(height > 0)) return;
        const auto pixels = readPixels_(picture);
        if (!pixels || pixels->width <= 0 || pixels->height <= 0) return;
        cairo_surface_t* image = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, pixels->width, pixels->height);
        if (cairo_surface_status(image) != CAIRO_STATUS_SUCCESS) {
            cairo_surface_destroy(image);
            return;
        }
        cairo_surface_flush(image);
        auto* data = cairo_image_surface_get_data(image);
        const int stride = cairo_image_surface_get_stride(image);
        for (std::int32_t r = 0; r < pixels->height; ++r) {
            auto* row = reinterpret_cast<std::uint32_t*>(data + static_cast<std::ptrdiff_t>(r) * stride);
            for (std::int32_t c = 0; c < pixels->width; ++c) {
                const std::uint32_t p = pixels->pixels[static_cast<std::size_t>(r) * pixels->width + c];
                const std::uint32_t a = p >> 24;
                auto scale = [a](std::uint32_t v) { return (v * a + 127) / 255; };
                row[c] = (a << 24) | (scale((p >> 16) & 0xFF) << 16) | (scale((p >> 8) & 0xFF) << 8) | scale(p & 0xFF);
            }
        }
        cairo_surface_mark_dirty(image);
        cairo_save(cr_);
        cairo_translate(cr_, points(x), points(y));
        cairo_scale(cr_, points(width) / pixels->width, points(height) / pixels->height);
        cairo_set_source_surface(cr_, image, 0, 0);
        cairo_paint(cr_);
        cairo_restore(cr_);
        cairo_surface_destroy(image);
    }

    PrintDelivery finish() override {
        cairo_show_page(cr_);
        ++pages_;
        cairo_destroy(cr_);
        cr_ = nullptr;
        cairo_surface_finish(surface_);
        const bool drawn = cairo_surface_status(surface_) == CAIRO_STATUS_SUCCESS;
        cairo_surface_destroy(surface_);
        surface_ = nullptr;
        if (!drawn) {
            discard();
            printerError(u"the document cannot be written in " + fromUtf8(folder_.string()));
        }
        PrintDelivery delivery;
        delivery.pages = pages_;
        if (!printer_.empty()) {
            const std::string name = toUtf8(printer_);
            const int job =
                cupsPrintFile2(CUPS_HTTP_DEFAULT, name.c_str(), temporary_.c_str(), toUtf8(title_).c_str(), 0, nullptr);
            discard();
            if (job <= 0) printerError(printer_ + u": " + fromUtf8(cupsLastErrorString()));
            delivery.printer = printer_;
            delivery.job = job;
            return delivery;
        }
        delivery.file = fromUtf8(keep().string());
        return delivery;
    }

private:
    // Gives the finished file its name in prints/, never replacing another.
    fs::path keep() {
        const std::string stem = safeName(title_) + "-" + timestamp();
        for (int n = 1; n < 1000; ++n) {
            const fs::path target = folder_ / (n == 1 ? stem + ".pdf" : stem + "-" + std::to_string(n) + ".pdf");
            if (::link(temporary_.c_str(), target.c_str()) == 0) {
                discard();
                return target;
            }
            // A file system without hard links: a rename, after looking.
            if ((errno == EPERM || errno == EOPNOTSUPP) && !fs::exists(target) &&
                ::rename(temporary_.c_str(), target.c_str()) == 0) {
                temporary_.clear();
                discard();
                return target;
            }
            if (errno != EEXIST && !fs::exists(target)) break;
        }
        discard();
        printerError(u"the document cannot be kept in " + fromUtf8(folder_.string()));
    }

    void discard() {
        if (cr_) cairo_destroy(cr_);
        cr_ = nullptr;
        if (surface_) {
            cairo_surface_finish(surface_);
            cairo_surface_destroy(surface_);
        }
        surface_ = nullptr;
        if (!temporary_.empty()) ::unlink(temporary_.c_str());
        temporary_.clear();
    }

    String title_;
    String printer_;
    PixelReader readPixels_;
    fs::path folder_;
    std::string temporary_;
    cairo_surface_t* surface_ = nullptr;
    cairo_t* cr_ = nullptr;
    std::int32_t pages_ = 0;
};

}  // namespace

std::vector<PrinterInfo> PdfPrinting::printers() {
    Destinations dests;
    std::vector<PrinterInfo> all;
    for (const auto& d : dests.all()) {
        if (d.instance) continue;  // instances share their printer's queue and port
        const char* uri = cupsGetOption("device-uri", d.num_options, d.options);
        all.push_back({fromUtf8(d.name), fromUtf8(uri ? uri : "")});
    }
    return all;
}

String PdfPrinting::currentPrinter() {
    if (chosen_) return *chosen_;
    Destinations dests;
    const cups_dest_t* d = dests.byDefault();
    if (!d && !dests.all().empty()) d = &dests.all().front();
    return d ? fromUtf8(d->name) : String();
}

std::pair<double, double> PdfPrinting::pageSize() {
    Destinations dests;
    const cups_dest_t* d = dests.named(toUtf8(currentPrinter()));
    const char* media = d ? cupsGetOption("media", d->num_options, d->options) : nullptr;
    if (media) {
        pwg_media_t* size = pwgMediaForPWG(media);
        if (!size) size = pwgMediaForLegacy(media);
        if (size && size->width > 0 && size->length > 0)
            return {std::round(size->width * kTwipsPerHundredthMm), std::round(size->length * kTwipsPerHundredthMm)};
    }
    return {kA4Width, kA4Height};
}

double PdfPrinting::textWidth(StringView text, const PrintFont& font) {
    return textWidthPoints(text, font) * kTwipsPerPoint;
}

double PdfPrinting::lineHeight(const PrintFont& font) { return lineHeightPoints(font) * kTwipsPerPoint; }

std::size_t PdfPrinting::fittingLength(StringView text, double width, const PrintFont& font) {
    return fittingLengthPoints(text, width / kTwipsPerPoint, font);
}

std::vector<String> PdfPrinting::splitLines(StringView text, double width, const PrintFont& font) {
    return splitLinesPoints(text, width / kTwipsPerPoint, font);
}

std::unique_ptr<PrintDocument> PdfPrinting::startDocument(StringView title, double pageWidth, double pageHeight) {
    return std::make_unique<PdfDocument>(title, pageWidth, pageHeight, currentPrinter(), readPixels_);
}

}  // namespace telvaro::posix

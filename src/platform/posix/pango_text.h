// Text measured with pango in the font it will be printed in. One pango
// context per thread serves both the measuring and the drawing of the PDF
// pages (pdf_printing), at 72 units an inch with metrics unhinted, so a line
// cut to fit measures exactly as it is drawn. Sizes are in points.
#pragma once

#include <pango/pangocairo.h>

#include <memory>
#include <vector>

#include "platform/printing.h"

namespace telvaro::posix {

struct LayoutDeleter {
    void operator()(PangoLayout* layout) const { g_object_unref(layout); }
};
using LayoutPtr = std::unique_ptr<PangoLayout, LayoutDeleter>;

// The calling thread's context.
PangoContext* printContext();
// A layout of `utf8` in the font, on the thread's context, unwrapped.
LayoutPtr makeLayout(const std::string& utf8, const PrintFont& font);

// Widths in points.
double textWidthPoints(StringView text, const PrintFont& font);
double lineHeightPoints(const PrintFont& font);
std::size_t fittingLengthPoints(StringView text, double width, const PrintFont& font);
std::vector<String> splitLinesPoints(StringView text, double width, const PrintFont& font);

}  // namespace telvaro::posix

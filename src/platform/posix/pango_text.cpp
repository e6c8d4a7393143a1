#include "platform/posix/pango_text.h"

#include <cmath>

namespace telvaro::posix {

namespace {

struct ContextDeleter {
    void operator()(PangoContext* context) const { g_object_unref(context); }
};

std::unique_ptr<PangoContext, ContextDeleter> newContext() {
    // The default font map is per thread already; its contexts are not
    // shared between threads.
    PangoFontMap* fontMap = pango_cairo_font_map_get_default();
    PangoContext* context = pango_font_map_create_context(fontMap);
    pango_cairo_context_set_resolution(context, 72.0);
    // Glyphs at their true advances, not rounded to whole points.
    pango_context_set_round_glyph_positions(context, FALSE);
    cairo_font_options_t* options = cairo_font_options_create();
    cairo_font_options_set_hint_metrics(options, CAIRO_HINT_METRICS_OFF);
    cairo_font_options_set_hint_style(options, CAIRO_HINT_STYLE_NONE);
    pango_cairo_context_set_font_options(context, options);
    cairo_font_options_destroy(options);
    return std::unique_ptr<PangoContext, ContextDeleter>(context);
}

int pangoUnits(double points) {
    const double units = points * PANGO_SCALE;
    if (!(units > 1)) return 1;  // NaN, zero and negative widths: one character a line
    if (units > 1e9) return 1000000000;
    return static_cast<int>(std::floor(units));
}

// The text up to its first line break.
StringView firstLine(StringView text) {
    const auto end = text.find_first_of(u"\r\n");
    return end == StringView::npos ? text : text.substr(0, end);
}

std::size_t utf16Length(const char* utf8, std::size_t bytes) {
    std::size_t units = 0;
    for (std::size_t i = 0; i < bytes; ++i) {
        const auto c = static_cast<unsigned char>(utf8[i]);
        if ((c & 0xC0) != 0x80) units += c >= 0xF0 ? 2 : 1;
    }
    return units;
}

}  // namespace

PangoContext* printContext() {
    thread_local const auto context = newContext();
    return context.get();
}

LayoutPtr makeLayout(const std::string& utf8, const PrintFont& font) {
    LayoutPtr layout(pango_layout_new(printContext()));
    PangoFontDescription* description = pango_font_description_new();
    const std::string family = toUtf8(font.name);
    pango_font_description_set_family(description, family.c_str());
    const double size = std::isfinite(font.size) && font.size > 0 ? std::min(font.size, 2160.0) : 8.25;
    pango_font_description_set_size(description, static_cast<gint>(std::lround(size * PANGO_SCALE)));
    pango_font_description_set_weight(description, font.bold ? PANGO_WEIGHT_BOLD : PANGO_WEIGHT_NORMAL);
    pango_font_description_set_style(description, font.italic ? PANGO_STYLE_ITALIC : PANGO_STYLE_NORMAL);
    pango_layout_set_font_description(layout.get(), description);
    pango_font_description_free(description);
    PangoAttrList* attributes = pango_attr_list_new();
    // A word cut at the end of a line is cut, not hyphenated.
    pango_attr_list_insert(attributes, pango_attr_insert_hyphens_new(FALSE));
    if (font.underline) pango_attr_list_insert(attributes, pango_attr_underline_new(PANGO_UNDERLINE_SINGLE));
    pango_layout_set_attributes(layout.get(), attributes);
    pango_attr_list_unref(attributes);
    pango_layout_set_text(layout.get(), utf8.data(), static_cast<int>(utf8.size()));
    return layout;
}

double textWidthPoints(StringView text, const PrintFont& font) {
    const auto layout = makeLayout(toUtf8(firstLine(text)), font);
    PangoRectangle logical;
    pango_layout_get_extents(layout.get(), nullptr, &logical);
    return static_cast<double>(logical.width) / PANGO_SCALE;
}

double lineHeightPoints(const PrintFont& font) {
    const auto layout = makeLayout("\xC3\x81g", font);
    PangoRectangle logical;
    pango_layout_get_extents(layout.get(), nullptr, &logical);
    return static_cast<double>(logical.height) / PANGO_SCALE;
}

std::size_t fittingLengthPoints(StringView text, double width, const PrintFont& font) {
    const StringView line = firstLine(text);
    const std::string utf8 = toUtf8(line);
    const auto layout = makeLayout(utf8, font);
    PangoRectangle logical;
    pango_layout_get_extents(layout.get(), nullptr, &logical);
    if (logical.width <= pangoUnits(width) && width > 0) return line.size();
    if (!(width > 0)) return 0;
    int index = 0, trailing = 0;
    PangoLayoutLine* first = pango_layout_get_line_readonly(layout.get(), 0);
    pango_layout_line_x_to_index(first, pangoUnits(width), &index, &trailing);
    // The character under the edge does not fit unless the edge is its end.
    if (index < 0) index = 0;
    return utf16Length(utf8.data(), std::min(static_cast<std::size_t>(index), utf8.size()));
}

std::vector<String> splitLinesPoints(StringView text, double width, const PrintFont& font) {
    const std::string utf8 = toUtf8(text);
    const auto layout = makeLayout(utf8, font);
    pango_layout_set_width(layout.get(), pangoUnits(width));
    pango_layout_set_wrap(layout.get(), PANGO_WRAP_WORD_CHAR);
    std::vector<String> lines;
    lines.reserve(static_cast<std::size_t>(pango_layout_get_line_count(layout.get())));
    for (GSList* l = pango_layout_get_lines_readonly(layout.get()); l; l = l->next) {
        const auto* line = static_cast<const PangoLayoutLine*>(l->data);
        std::size_t start = static_cast<std::size_t>(line->start_index);
        std::size_t end = start + static_cast<std::size_t>(line->length);
        // Line breaks end a paragraph; blanks at the end of a line are dropped.
        while (end > start &&
               (utf8[end - 1] == ' ' || utf8[end - 1] == '\t' || utf8[end - 1] == '\r' || utf8[end - 1] == '\n'))
            --end;
        lines.push_back(fromUtf8(std::string_view(utf8).substr(start, end - start)));
    }
    if (lines.empty()) lines.emplace_back();
    return lines;
}

}  // namespace telvaro::posix

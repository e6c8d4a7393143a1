// SeparaEnLineasImprimir over a 100 KB text, called by name with a font
// object, against one pango layout of the same text at the same width in
// the same font, its lines read off directly.
#include <benchmark/benchmark.h>
#include <pango/pangocairo.h>

#include "context/fun.h"
#include "frame/invoke.h"
#include "host/default_platform.h"
#include "objects/font.h"

namespace telvaro {
namespace {

constexpr double kWidth = 7200;  // twips: five inches
constexpr double kPoints = 10;

String hundredKilobytes() {
    const String sentence =
        u"El cliente cancela la factura número 001-002-000123456 por servicios de mantenimiento y repuestos. ";
    String text;
    while (text.size() < 100000) text += sentence;
    text.resize(100000);
    return text;
}

void splitLibrary(benchmark::State& state) {
    Fun fun(defaultPlatform());
    const String text = hundredKilobytes();
    objects::FontDescription d;
    d.name = u"DejaVu Sans";
    d.size = kPoints;
    const Variant font(ObjectRef(std::make_shared<objects::Font>(d)));
    std::size_t lines = 0;
    for (auto _ : state) {
        std::vector<Variant> args{Variant(std::int16_t(0)), Variant(text), Variant(kWidth), font};
        const Variant r = invoke(fun, "SeparaEnLineasImprimir", args);
        lines = r.array().size();
        benchmark::DoNotOptimize(lines);
    }
    state.counters["lines"] = static_cast<double>(lines);
}
BENCHMARK(splitLibrary)->Name("SeparaEnLineasImprimir 100 KB/library")->Unit(benchmark::kMillisecond);

void splitDirect(benchmark::State& state) {
    const std::string text = toUtf8(hundredKilobytes());
    PangoContext* context = pango_font_map_create_context(pango_cairo_font_map_get_default());
    pango_cairo_context_set_resolution(context, 72);
    pango_context_set_round_glyph_positions(context, FALSE);  // as the library measures
    std::size_t lines = 0;
    for (auto _ : state) {
        PangoLayout* layout = pango_layout_new(context);
        PangoFontDescription* description = pango_font_description_from_string("DejaVu Sans 10");
        pango_layout_set_font_description(layout, description);
        pango_font_description_free(description);
        pango_layout_set_text(layout, text.data(), static_cast<int>(text.size()));
        pango_layout_set_width(layout, static_cast<int>(kWidth / 20 * PANGO_SCALE));
        pango_layout_set_wrap(layout, PANGO_WRAP_WORD_CHAR);
        std::vector<std::string> found;
        for (GSList* l = pango_layout_get_lines_readonly(layout); l; l = l->next) {
            const auto* line = static_cast<const PangoLayoutLine*>(l->data);
            found.emplace_back(text, static_cast<std::size_t>(line->start_index),
                               static_cast<std::size_t>(line->length));
        }
        lines = found.size();
        benchmark::DoNotOptimize(lines);
        g_object_unref(layout);
    }
    g_object_unref(context);
    state.counters["lines"] = static_cast<double>(lines);
}
BENCHMARK(splitDirect)->Name("SeparaEnLineasImprimir 100 KB/direct")->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace telvaro

#include "forms/printing.h"

#include <algorithm>
#include <cmath>
#include <functional>

#include "callers/printed_control.h"
#include "context/error_modes.h"
#include "context/fun.h"
#include "runtime/checked.h"
#include "runtime/error.h"
#include "runtime/text.h"

namespace telvaro::forms {

namespace {

// What a printed form is made of, measured once and drawn once per copy.
constexpr double kPad = 30;           // twips between a cell's or box's edge and its text
constexpr double kBoxSide = 195;      // the square of a check box or option button
constexpr double kBoxGap = 60;        // between that square and the caption
constexpr double kLinePitch = 240;    // one line of continuous-form paper (1/6 inch)
constexpr int kContainerLevels = 16;  // how far up a control's containers are followed
constexpr std::int32_t kBlack = 0;
constexpr std::int32_t kGridLines = 0x808080;
constexpr std::int32_t kFixedCells = 0xE0E0E0;
constexpr std::int32_t kWhite = 0xFFFFFF;

using Drawing = std::function<void(PrintDocument&, double dx, double dy)>;

struct Item {
    int layer;  // frames first, so that what they hold is drawn over them
    Drawing draw;
};

PrintFont fontOf(const callers::FontObject& font) {
    PrintFont f;
    f.name = font.name();
    f.size = font.size();
    f.bold = font.bold();
    f.italic = font.italic();
    f.underline = font.underline();
    return f;
}

// The tags listed in NoEstosTags: separated by commas, semicolons or "|",
// blanks around them ignored.
std::vector<String> tagList(StringView tags) {
    std::vector<String> list;
    std::size_t start = 0;
    while (start <= tags.size()) {
        auto end = tags.find_first_of(u",;|", start);
        if (end == StringView::npos) end = tags.size();
        String tag = trim(tags.substr(start, end - start));
        if (!tag.empty()) list.push_back(std::move(tag));
        start = end + 1;
    }
    return list;
}

bool listed(const std::vector<String>& tags, StringView tag) {
    const String t = trim(tag);
    if (t.empty()) return false;
    return std::any_of(tags.begin(), tags.end(), [&](const String& x) { return textEquals(x, t); });
}

bool isForm(const callers::Control& c) {
    const String kind = c.typeName();
    return kind == u"Form" || kind == u"MDIForm";
}

// Text placed in a box: horizontal alignment 0 left, 1 right, 2 centre;
// vertical 0 top, 1 centre, 2 bottom.
struct TextBlock {
    std::vector<String> lines;
    std::vector<double> widths;
    PrintFont font;
    std::int32_t color = kBlack;
    double lineHeight = 0;
    int horizontal = 0;
    int vertical = 0;
};

TextBlock block(Printing& printing, std::vector<String> lines, PrintFont font, std::int32_t color, int horizontal,
                int vertical) {
    TextBlock b;
    b.lineHeight = printing.lineHeight(font);
    if (horizontal != 0)
        for (const auto& l : lines) b.widths.push_back(printing.textWidth(l, font));
    b.lines = std::move(lines);
    b.font = std::move(font);
    b.color = color;
    b.horizontal = horizontal;
    b.vertical = vertical;
    return b;
}

void drawBlock(PrintDocument& doc, const TextBlock& b, double x, double y, double width, double height) {
    const std::size_t fit =
        b.lineHeight > 0 ? std::max<std::size_t>(1, static_cast<std::size_t>(std::max(height, 0.0) / b.lineHeight))
                         : b.lines.size();
    const std::size_t shown = std::min(fit, b.lines.size());
    const double used = static_cast<double>(shown) * b.lineHeight;
    double top = y;
    if (b.vertical == 1) top = y + std::max(0.0, (height - used) / 2);
    if (b.vertical == 2) top = y + std::max(0.0, height - used);
    for (std::size_t i = 0; i < shown; ++i) {
        double left = x;
        if (b.horizontal == 1) left = x + std::max(0.0, width - b.widths[i]);
        if (b.horizontal == 2) left = x + std::max(0.0, (width - b.widths[i]) / 2);
        doc.text(left, top + static_cast<double>(i) * b.lineHeight, b.lines[i], b.font, b.color, width);
    }
}

// A text on one line, cut to the width.
std::vector<String> cutLine(Printing& printing, StringView text, double width, const PrintFont& font) {
    const StringView line = text.substr(0, std::min(text.find_first_of(u"\r\n"), text.size()));
    return {String(line.substr(0, printing.fittingLength(line, width, font)))};
}

bool looksNumeric(StringView text) {
    const String t = trim(text);
    if (t.empty()) return false;
    bool digit = false;
    for (char16_t c : t) {
        if (c >= u'0' && c <= u'9')
            digit = true;
        else if (c != u'.' && c != u',' && c != u'-' && c != u'+' && c != u'$' && c != u'%' && c != u'(' && c != u')' &&
                 c != u' ')
            return false;
    }
    return digit;
}

// Reads and measures the controls; each read is a statement of its own.
class FormReader {
public:
    FormReader(Printing& printing, SkipErrors& onError) : printing_(printing), onError_(onError) {}

    std::vector<Item> items;
    double bottom = 0;  // the lowest edge of anything printed, from the top of the form or container

    void read(const callers::Control& form, const String& tags, StringView container) {
        const auto excluded = tagList(tags);
        form.forEachControl(
            [&](const Variant& v) { onError_([&] { readControl(callers::PrintedControl{v}, excluded, container); }); });
        std::stable_sort(items.begin(), items.end(), [](const Item& a, const Item& b) { return a.layer < b.layer; });
    }

private:
    template <typename F, typename T>
    auto orElse(F&& read, T fallback) {
        return onError_.value(std::forward<F>(read)).value_or(std::move(fallback));
    }

    PrintFont fontOf(const callers::PrintedControl& c) {
        return orElse([&] { return forms::fontOf(c.font()); }, PrintFont{});
    }

    void readControl(const callers::PrintedControl& c, const std::vector<String>& excluded, StringView container) {
        if (listed(excluded, orElse([&] { return c.tag(); }, String()))) return;
        if (!orElse([&] { return c.visible(); }, true)) return;
        // Where the control's container sits: the sum of the places of the
        // containers between it and the form, or the named container.
        double offsetX = 0, offsetY = 0;
        bool inside = container.empty();
        callers::Control outer = c.container();
        for (int level = 0; level < kContainerLevels && !isForm(outer); ++level) {
            if (!container.empty() && textEquals(outer.name(), container)) {
                inside = true;
                break;
            }
            const callers::PrintedControl box{outer.asVariant()};
            offsetX += box.left();
            offsetY += box.top();
            outer = outer.container();
        }
        if (!inside) return;
        const String kind = c.typeName();
        if (kind == u"Line") return addLine(c, offsetX, offsetY);
        const double x = offsetX + c.left(), y = offsetY + c.top();
        const double w = std::max(0.0, c.width()), h = std::max(0.0, c.height());
        bottom = std::max(bottom, y + h);
        if (kind == u"Label") {
            const PrintFont font = fontOf(c);
            const std::int16_t align = orElse([&] { return c.alignment(); }, std::int16_t(0));
            add(1, block(printing_, printing_.splitLines(c.caption(), w, font), font, foreColor(c), align, 0), x, y, w,
                h);
        } else if (kind == u"TextBox" || kind == u"ComboBox") {
            const PrintFont font = fontOf(c);
            const std::int16_t align = orElse([&] { return c.alignment(); }, std::int16_t(0));
            const String text = c.text();
            const bool several = orElse([&] { return c.multiLine(); }, false);
            auto lines =
                several ? printing_.splitLines(text, w - 2 * kPad, font) : cutLine(printing_, text, w - 2 * kPad, font);
            add(1, block(printing_, std::move(lines), font, foreColor(c), align, several ? 0 : 1), x + kPad, y,
                w - 2 * kPad, h);
        } else if (kind == u"CheckBox" || kind == u"OptionButton") {
            addChoice(c, kind == u"CheckBox", x, y, w, h);
        } else if (kind == u"Frame") {
            addFrame(c, x, y, w, h);
        } else if (kind == u"PictureBox" || kind == u"Image") {
            const Variant picture = c.picture();
            items.push_back({1, [picture, x, y, w, h](PrintDocument& doc, double dx, double dy) {
                                 doc.picture(picture, x + dx, y + dy, w, h);
                             }});
        } else if (kind == u"MSFlexGrid" || kind == u"MSHFlexGrid") {
            addGrid(callers::PrintedGrid{c.asVariant()}, fontOf(c), x, y, w, h);
        }
    }

    std::int32_t foreColor(const callers::PrintedControl& c) {
        return orElse([&] { return c.foreColor(); }, kBlack);
    }

    void add(int layer, TextBlock b, double x, double y, double w, double h) {
        items.push_back({layer, [b = std::move(b), x, y, w, h](PrintDocument& doc, double dx, double dy) {
                             drawBlock(doc, b, x + dx, y + dy, w, h);
                         }});
    }

    void addLine(const callers::PrintedControl& c, double offsetX, double offsetY) {
        const double x1 = offsetX + c.x1(), y1 = offsetY + c.y1(), x2 = offsetX + c.x2(), y2 = offsetY + c.y2();
        bottom = std::max({bottom, y1, y2});
        const std::int32_t color = orElse([&] { return toLong(c.object().get(u"BorderColor")); }, kBlack);
        items.push_back({1, [=](PrintDocument& doc, double dx, double dy) {
                             doc.line(x1 + dx, y1 + dy, x2 + dx, y2 + dy, color);
                         }});
    }

    void addChoice(const callers::PrintedControl& c, bool checkBox, double x, double y, double w, double h) {
        const PrintFont font = fontOf(c);
        const std::int16_t value = orElse([&] { return c.value(); }, std::int16_t(0));
        const double boxY = y + std::max(0.0, (h - kBoxSide) / 2);
        const double textX = x + kBoxSide + kBoxGap, textW = std::max(0.0, w - kBoxSide - kBoxGap);
        TextBlock caption = block(printing_, cutLine(printing_, c.caption(), textW, font), font, foreColor(c), 0, 1);
        items.push_back({1, [=, caption = std::move(caption)](PrintDocument& doc, double dx, double dy) {
                             const double bx = x + dx, by = boxY + dy;
                             doc.rectangle(bx, by, kBoxSide, kBoxSide, kWhite, kBlack);
                             if (checkBox && value != 0) {
                                 // A check mark; grey for the third state.
                                 const std::int32_t mark = value == 2 ? kGridLines : kBlack;
                                 doc.line(bx + 40, by + 100, bx + 80, by + 150, mark);
                                 doc.line(bx + 80, by + 150, bx + 155, by + 45, mark);
                             } else if (!checkBox && value != 0) {
                                 doc.rectangle(bx + 55, by + 55, kBoxSide - 110, kBoxSide - 110, kBlack, std::nullopt);
                             }
                             drawBlock(doc, caption, textX + dx, y + dy, textW, h);
                         }});
    }

    void addFrame(const callers::PrintedControl& c, double x, double y, double w, double h) {
        const PrintFont font = fontOf(c);
        const String caption = orElse([&] { return c.caption(); }, String());
        const double lineH = printing_.lineHeight(font);
        const double textW = std::max(0.0, w - 4 * kPad);
        TextBlock title = block(printing_, cutLine(printing_, caption, textW, font), font, foreColor(c), 0, 0);
        const double titleW = caption.empty() ? 0 : printing_.textWidth(title.lines.front(), font);
        items.push_back({0, [=, title = std::move(title)](PrintDocument& doc, double dx, double dy) {
                             const double top = y + dy + lineH / 2;
                             doc.rectangle(x + dx, top, w, std::max(0.0, h - lineH / 2), std::nullopt, kGridLines);
                             if (titleW > 0) {
                                 doc.rectangle(x + dx + 2 * kPad - kPad / 2, y + dy, titleW + kPad, lineH, kWhite,
                                               std::nullopt);
                                 drawBlock(doc, title, x + dx + 2 * kPad, y + dy, textW, lineH);
                             }
                         }});
    }

    struct Cell {
        double x, y, w, h;
        std::optional<std::int32_t> fill;
        TextBlock text;
        Variant picture;
    };

    void addGrid(const callers::PrintedGrid& grid, const PrintFont& gridFont, double x, double y, double w, double h) {
        const std::int32_t rows = grid.rows(), cols = grid.cols();
        const std::int32_t fixedRows = orElse([&] { return grid.fixedRows(); }, 0);
        const std::int32_t fixedCols = orElse([&] { return grid.fixedCols(); }, 0);
        const std::int32_t savedRow = grid.row(), savedCol = grid.col();
        std::vector<Cell> cells;
        double cy = y;
        for (std::int32_t r = 0; r < rows && cy < y + h; ++r) {
            const double rh = std::min(std::max(0.0, grid.rowHeightValue(r)), y + h - cy);
            double cx = x;
            for (std::int32_t c = 0; c < cols && cx < x + w; ++c) {
                const double cw = std::min(std::max(0.0, grid.colWidthValue(c)), x + w - cx);
                if (cw > 0 && rh > 0)
                    onError_([&] {
                        cells.push_back(readCell(grid, r, c, r < fixedRows || c < fixedCols, gridFont, cx, cy, cw, rh));
                    });
                cx += cw;
            }
            cy += rh;
        }
        onError_([&] { grid.setRow(Variant(savedRow)); });
        onError_([&] { grid.setCol(Variant(savedCol)); });
        items.push_back({1, [cells = std::move(cells)](PrintDocument& doc, double dx, double dy) {
                             for (const auto& cell : cells) {
                                 doc.rectangle(cell.x + dx, cell.y + dy, cell.w, cell.h, cell.fill, kGridLines);
                                 if (cell.picture.isObject()) {
                                     const double side = std::max(0.0, std::min(cell.w, cell.h) - 2 * kPad);
                                     doc.picture(cell.picture, cell.x + dx + (cell.w - side) / 2,
                                                 cell.y + dy + (cell.h - side) / 2, side, side);
                                 }
                                 drawBlock(doc, cell.text, cell.x + dx + kPad, cell.y + dy, cell.w - 2 * kPad, cell.h);
                             }
                         }});
    }

    Cell readCell(const callers::PrintedGrid& grid, std::int32_t r, std::int32_t c, bool fixed,
                  const PrintFont& gridFont, double x, double y, double w, double h) {
        grid.setRow(Variant(r));
        grid.setCol(Variant(c));
        const String text = grid.textMatrix(Variant(r), Variant(c));
        PrintFont font = gridFont;
        font.name = orElse([&] { return grid.cellFontName(); }, font.name);
        font.size = orElse([&] { return grid.cellFontSize(); }, font.size);
        font.bold = orElse([&] { return grid.cellFontBold(); }, font.bold);
        font.italic = orElse([&] { return grid.cellFontItalic(); }, font.italic);
        font.underline = orElse([&] { return grid.cellFontUnderline(); }, font.underline);
        const std::int32_t back = orElse([&] { return grid.cellBackColor(); }, 0);
        const std::int32_t fore = orElse([&] { return grid.cellForeColor(); }, kBlack);
        const std::int16_t align = orElse([&] { return grid.cellAlignment(); }, std::int16_t(9));
        // Alignment: 0-2 left, 3-5 centre, 6-8 right (top, centre, bottom in
        // each); 9, general, puts numbers on the right and texts on the left.
        int horizontal = align >= 0 && align <= 8 ? (align / 3 == 0   ? 0
                                                     : align / 3 == 1 ? 2
                                                                      : 1)
                                                  : (looksNumeric(text) && !fixed ? 1 : 0);
        const int vertical = align >= 0 && align <= 8 ? align % 3 : 1;
        const double textW = std::max(0.0, w - 2 * kPad);
        // A row tall enough for two lines wraps its texts; else each is cut
        // to the column's width.
        const double lineH = printing_.lineHeight(font);
        auto lines = h >= 2 * lineH ? printing_.splitLines(text, textW, font) : cutLine(printing_, text, textW, font);
        Cell cell{x,
                  y,
                  w,
                  h,
                  std::nullopt,
                  block(printing_, std::move(lines), font, fore ? fore : kBlack, horizontal, vertical),
                  Variant()};
        if (back != 0)
            cell.fill = back;
        else if (fixed)
            cell.fill = kFixedCells;
        const Variant picture = orElse([&] { return grid.cellPicture(); }, Variant());
        if (picture.isObject() && picture.object()) cell.picture = picture;
        return cell;
    }

    Printing& printing_;
    SkipErrors& onError_;
};

void choosePrinterByPort(Printing& printing, StringView port) {
    String chosen;
    bool found = false;
    for (const auto& p : printing.printers()) {
        if (textEquals(p.port, port)) {
            chosen = p.name;
            found = true;
        }
    }
    if (found) printing.setCurrentPrinter(chosen);
}

}  // namespace

void fn_FijaImpresora(Fun& fun, const String& Puerto) { choosePrinterByPort(fun.platform().printing(), Puerto); }

void ImprimeForm(Fun& fun, const ObjectRef& Formulario, const String& NoEstosTags, const String& NombreContenedor,
                 double X_ini, double Y_ini, Boolean SelecPrinter, std::int32_t AnchoPapel, std::int32_t AltoPapel,
                 std::int16_t Copias, std::int16_t MismoPapel, const String& PuertoPrn, std::int16_t LineaRegresar) {
    if (Copias < 1) return;  // no copy asked for: nothing goes to the printer
    SkipErrors onError;
    Printing* printing = nullptr;
    onError([&] { printing = &fun.platform().printing(); });
    if (!printing) return;
    if (!PuertoPrn.empty()) onError([&] { choosePrinterByPort(*printing, PuertoPrn); });
    if (SelecPrinter.isTrue()) {
        const auto chosen = onError.value([&] { return printing->choosePrinter(); });
        if (chosen && !*chosen) return;  // the user cancelled
    }
    std::pair<double, double> page{0, 0};
    onError([&] { page = printing->pageSize(); });
    const double pageWidth = AnchoPapel > 0 ? AnchoPapel : page.first;
    const double pageHeight = AltoPapel > 0 ? AltoPapel : page.second;

    const Variant form(Formulario);
    String title = u"Formulario";
    onError([&] { title = callers::Control{form}.name(); });
    FormReader reader(*printing, onError);
    onError([&] { reader.read(callers::Control{form}, NoEstosTags, NombreContenedor); });

    // As the runtime's printer, a document with nothing drawn on it is never
    // started: a form that could not be read prints no blank sheet.
    if (reader.items.empty()) return;
    std::unique_ptr<PrintDocument> doc;
    onError([&] { doc = printing->startDocument(title, pageWidth, pageHeight); });
    if (!doc) return;
    // Continuous-form paper fed too far: the print goes back up.
    const double raise = static_cast<double>(LineaRegresar) * kLinePitch;
    const double copyHeight = reader.bottom + Y_ini;
    double top = 0;
    for (std::int16_t copy = 0; copy < Copias; ++copy) {
        if (copy > 0) {
            // Copies on one sheet go one below the other while they fit.
            const bool fits = MismoPapel != 0 && top + 2 * copyHeight <= pageHeight;
            if (fits) {
                top += copyHeight;
            } else {
                onError([&] { doc->newPage(); });
                top = 0;
            }
        }
        for (const auto& item : reader.items) onError([&] { item.draw(*doc, X_ini, top + Y_ini - raise); });
    }
    onError([&] { doc->finish(); });
}

Variant SeparaEnLineasImprimir(Fun& fun, std::int16_t& Indices, const String& Texto, double Tamanio,
                               const ObjectRef& Letra) {
    if (!std::isfinite(Tamanio) || Tamanio < 0) raise(err::InvalidProcedureCall);
    const PrintFont font = fontOf(callers::FontObject{Variant(Letra)});
    const auto lines = fun.platform().printing().splitLines(Texto, Tamanio, font);
    const Int16 count = Int16::of(static_cast<std::int64_t>(lines.size()));
    Array result = Array::vector(0, count.value() - 1, VarType::String);
    for (std::int16_t i = 0; i < count.value(); ++i) result.at(i) = Variant(lines[static_cast<std::size_t>(i)]);
    Indices = count.value();
    return Variant(std::move(result));
}

String LimitaTamTexto(Fun& fun, const String& Texto, double Tamanio, const ObjectRef& Letra) {
    if (!std::isfinite(Tamanio) || Tamanio < 0) raise(err::InvalidProcedureCall);
    const PrintFont font = fontOf(callers::FontObject{Variant(Letra)});
    return cutLine(fun.platform().printing(), Texto, Tamanio, font).front();
}

}  // namespace telvaro::forms

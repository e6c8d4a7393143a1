// ImprimeForm: a form's controls at their places on the page, read back
// from the PDF it leaves under <home>/prints/ (no printer in these tests).
#include <filesystem>
#include <tuple>

#include "objects/check_box.h"
#include "objects/flex_grid.h"
#include "objects/form.h"
#include "objects/frame.h"
#include "objects/label.h"
#include "objects/option_button.h"
#include "objects/text_box.h"
#include "printing/printing_fixture.h"

namespace telvaro {
namespace {

constexpr double kTwipsPerPoint = 20;

template <typename T>
std::shared_ptr<T> placed(std::shared_ptr<T> c, double left, double top, double width, double height) {
    std::tie(c->left, c->top, c->width, c->height) = std::tie(left, top, width, height);
    c->setFont(std::make_shared<objects::Font>(objects::FontDescription{u"DejaVu Sans", 10}));
    return c;
}

std::shared_ptr<objects::Label> label(String name, String caption, double left, double top, String tag = u"") {
    auto l = placed(std::make_shared<objects::Label>(std::move(name)), left, top, 3000, 300);
    l->caption = std::move(caption);
    l->tag = std::move(tag);
    return l;
}

class PrintForm : public PrintingTest {
protected:
    // An invoice form: a title, a client, a paid check box, a cash option, a
    // frame holding one label, a grid, a hidden label and one tagged not to
    // be printed.
    PrintForm() {
        form_->setFont(std::make_shared<objects::Font>(objects::FontDescription{u"DejaVu Sans", 10}));
        auto client = placed(std::make_shared<objects::TextBox>(u"txtCliente"), 600, 900, 3000, 300);
        client->setText(u"Cliente Pérez");
        auto paid = placed(std::make_shared<objects::CheckBox>(u"chkPagado"), 600, 1500, 1800, 300);
        paid->caption = u"Pagado";
        paid->setValue(1);
        auto cash = placed(std::make_shared<objects::OptionButton>(u"optContado"), 3000, 1500, 1800, 300);
        cash->caption = u"Contado";
        frame_->caption = u"Detalle";
        for (int i = 0; i < 3; ++i) grid_->setColWidth(i, 1500), grid_->setRowHeight(i, 300);
        grid_->setTextMatrix(0, 1, u"Producto");
        grid_->setTextMatrix(1, 1, u"ABCDEFGHIJKLMNOPQRSTUVWXYZ");
        grid_->setTextMatrix(1, 2, u"1234.50");
        auto hidden = label(u"lblOculto", u"OCULTO", 600, 7000);
        hidden->visible = false;
        for (ObjectRef c :
             std::vector<ObjectRef>{label(u"lblTitulo", u"FACTURA", 600, 300), client, paid, cash, frame_, grid_,
                                    hidden, label(u"lblSecreto", u"SECRETO", 600, 7500, u"NOPRINT")})
            form_->add(c);
        form_->add(label(u"lblDentro", u"Dentro", 240, 480), frame_);
    }

    // ImprimeForm with the arguments after the form and the tags.
    void print(std::vector<Variant> more = {}) {
        std::vector<Variant> args{Variant(ObjectRef(form_)), Variant(String(u"x, NOPRINT"))};
        for (auto& m : more) args.push_back(std::move(m));
        call("ImprimeForm", args);
    }

    static const PdfWord* find(const std::vector<PdfWord>& words, const std::string& text) {
        for (const auto& w : words)
            if (w.text == text) return &w;
        return nullptr;
    }

    std::shared_ptr<objects::Form> form_ = std::make_shared<objects::Form>(u"frmFactura");
    std::shared_ptr<objects::Frame> frame_ =
        placed(std::make_shared<objects::Frame>(u"fraDetalle"), 300, 2100, 6000, 1500);
    std::shared_ptr<objects::FlexGrid> grid_ =
        placed(std::make_shared<objects::FlexGrid>(u"grdItems", 3, 3), 600, 4000, 4500, 900);
};

// The controls at their places from the starting point; grid cells cut as
// LimitaTamTexto cuts them to their column, numbers on the right; the file
// whole and alone in <home>/prints/, named by the form.
TEST_F(PrintForm, EachControlIsPrintedAtItsPlaceFromTheStartingPoint) {
    // Through a port that matches no printer: still kept as a file.
    print({Variant(String()), Variant(720.0), Variant(360.0), Variant(False), Variant(std::int32_t(0)),
           Variant(std::int32_t(0)), Variant(std::int16_t(1)), Variant(std::int16_t(0)), Variant(String(u"LPT9:"))});
    const std::filesystem::path file = printedFile();
    const auto words = pdfWords(file);
    struct Case {
        const char* word;
        double left, top, height;  // twips: the box the word must start in
    };
    const Case cases[] = {
        {"FACTURA", 720 + 600, 360 + 300, 300},
        {"Cliente", 720 + 600 + 30, 360 + 900, 300},  // inside the box's margin
        {"Pagado", 720 + 600 + 195 + 60, 360 + 1500, 300},
        {"Contado", 720 + 3000 + 195 + 60, 360 + 1500, 300},
        {"Detalle", 720 + 300 + 60, 360 + 2100, 300},
        {"Dentro", 720 + 300 + 240, 360 + 2100 + 480, 300},  // from its frame
        {"Producto", 720 + 600 + 1500 + 30, 360 + 4000, 300},
    };
    for (const auto& c : cases) {
        const PdfWord* w = find(words, c.word);
        ASSERT_NE(w, nullptr) << c.word;
        EXPECT_NEAR(w->xMin * kTwipsPerPoint, c.left, 20) << c.word;
        EXPECT_GE(w->yMin * kTwipsPerPoint, c.top - 20) << c.word;
        EXPECT_LE(w->yMax * kTwipsPerPoint, c.top + c.height + 20) << c.word;
    }
    for (const char* absent : {"SECRETO", "OCULTO"}) EXPECT_EQ(find(words, absent), nullptr) << absent;
    EXPECT_EQ(pdfInfo(file, "Page size"), "595.3 x 841.9 pts (A4)");

    const Variant cut =
        call("LimitaTamTexto", {Variant(String(u"ABCDEFGHIJKLMNOPQRSTUVWXYZ")), Variant(1500.0 - 60), Variant(font())});
    ASSERT_LT(toString(cut).size(), 26u);
    EXPECT_NE(find(words, toUtf8(toString(cut))), nullptr) << "the cell as LimitaTamTexto cuts it";
    const PdfWord* amount = find(words, "1234.50");
    ASSERT_NE(amount, nullptr);
    EXPECT_NEAR(amount->xMax * kTwipsPerPoint, 720 + 600 + 3 * 1500 - 30, 20) << "general alignment: on the right";

    EXPECT_EQ(file.parent_path().filename(), "prints");
    EXPECT_EQ(file.extension(), ".pdf");
    for (const auto& entry : std::filesystem::directory_iterator(file.parent_path()))
        EXPECT_EQ(entry.path().filename().string().find("telvaro-tmp"), std::string::npos) << entry.path();
    EXPECT_EQ(pdfInfo(file, "Title"), "frmFactura");
}

TEST_F(PrintForm, PaperSizeContainerAndLinesBack) {
    print({Variant(String(u"fraDetalle")), Variant(100.0), Variant(200.0), Variant(False), Variant(std::int32_t(7920)),
           Variant(std::int32_t(12240)), Variant(std::int16_t(1)), Variant(std::int16_t(0)), Variant(String()),
           Variant(std::int16_t(1))});
    const std::string file = printedFile();
    EXPECT_EQ(pdfInfo(file, "Page size"), "396 x 612 pts");
    const auto words = pdfWords(file);
    ASSERT_EQ(words.size(), 1u) << "only what the frame holds";
    EXPECT_EQ(words[0].text, "Dentro");
    EXPECT_NEAR(words[0].xMin * kTwipsPerPoint, 100 + 240, 20) << "placed from the frame";
    // One line of continuous paper back: 240 twips up.
    EXPECT_GE(words[0].yMin * kTwipsPerPoint, 200 + 480 - 240 - 20);
    EXPECT_LE(words[0].yMax * kTwipsPerPoint, 200 + 480 - 240 + 300 + 20);
}

TEST_F(PrintForm, WhatCannotBePrintedIsSkippedWithoutAnError) {
    // A text box has no Controls: nothing is drawn and no blank sheet comes out.
    const auto box = std::make_shared<objects::TextBox>(u"txt");
    EXPECT_EQ(errorOf("ImprimeForm", {Variant(ObjectRef(box)), Variant(String())}), 0);
    EXPECT_TRUE(printing_->deliveries().empty());
    // A port that matches no printer leaves the printer alone.
    EXPECT_EQ(errorOf("fn_FijaImpresora", {Variant(String(u"LPT9:"))}), 0);
    EXPECT_EQ(printing_->currentPrinter(), u"");
}

}  // namespace
}  // namespace telvaro

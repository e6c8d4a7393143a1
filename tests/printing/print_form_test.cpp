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
#include "objects/picture_box.h"
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

// A label whose Caption cannot be read.
class BrokenLabel : public objects::Label {
protected:
    Variant dispatch(int id, const objects::MemberCall& call) override {
        if (id == CommonMemberCount) raise(err::InvalidProcedureCall);  // Caption, its first own member
        return Label::dispatch(id, call);
    }
};

class PrintForm : public PrintingTest {
protected:
    // An invoice form: a title, a client, a paid check box, a cash option, a
    // frame holding one label, a grid, a red picture, a hidden label and
    // one tagged not to be printed.
    PrintForm() {
        form_->setFont(std::make_shared<objects::Font>(objects::FontDescription{u"DejaVu Sans", 10}));
        form_->add(label(u"lblTitulo", u"FACTURA", 600, 300));
        auto client = placed(std::make_shared<objects::TextBox>(u"txtCliente"), 600, 900, 3000, 300);
        client->setText(u"Cliente Pérez");
        form_->add(client);
        auto paid = placed(std::make_shared<objects::CheckBox>(u"chkPagado"), 600, 1500, 1800, 300);
        paid->caption = u"Pagado";
        paid->setValue(1);
        form_->add(paid);
        auto cash = placed(std::make_shared<objects::OptionButton>(u"optContado"), 3000, 1500, 1800, 300);
        cash->caption = u"Contado";
        form_->add(cash);
        frame_ = placed(std::make_shared<objects::Frame>(u"fraDetalle"), 300, 2100, 6000, 1500);
        frame_->caption = u"Detalle";
        form_->add(frame_);
        form_->add(label(u"lblDentro", u"Dentro", 240, 480), frame_);
        grid_ = placed(std::make_shared<objects::FlexGrid>(u"grdItems", 3, 3), 600, 4000, 4500, 900);
        for (int i = 0; i < 3; ++i) grid_->setColWidth(i, 1500), grid_->setRowHeight(i, 300);
        grid_->setTextMatrix(0, 1, u"Producto");
        grid_->setTextMatrix(0, 2, u"Valor");
        grid_->setTextMatrix(1, 1, u"ABCDEFGHIJKLMNOPQRSTUVWXYZ");
        grid_->setTextMatrix(1, 2, u"1234.50");
        form_->add(grid_);
        auto photo = placed(std::make_shared<objects::PictureBox>(u"picFoto"), 600, 6000, 600, 600);
        photo->setPicture(std::make_shared<objects::Picture>(8, 8, objects::rgbPixel(255, 0, 0)));
        form_->add(photo);
        auto hidden = label(u"lblOculto", u"OCULTO", 600, 7000);
        hidden->visible = false;
        form_->add(hidden);
        form_->add(label(u"lblSecreto", u"SECRETO", 600, 7500, u"NOPRINT"));
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
    std::shared_ptr<objects::Frame> frame_;
    std::shared_ptr<objects::FlexGrid> grid_;
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

TEST_F(PrintForm, CopiesGoOnPagesOfTheirOwnOrOneBelowTheOther) {
    struct Case {
        const char* label;
        std::int16_t copies, samePaper;
        const char* pages;
        int titles;
    };
    const Case cases[] = {
        {"three copies, three pages", 3, 0, "3", 3},
        {"two copies on one sheet", 2, 1, "1", 2},
        {"no copy prints nothing", 0, 0, nullptr, 0},
    };
    for (const auto& c : cases) {
        const auto before = printing_->deliveries().size();
        print({Variant(String()), Variant(0.0), Variant(0.0), Variant(False), Variant(std::int32_t(0)),
               Variant(std::int32_t(0)), Variant(c.copies), Variant(c.samePaper)});
        if (!c.pages) {
            EXPECT_EQ(printing_->deliveries().size(), before) << c.label;
            continue;
        }
        ASSERT_EQ(printing_->deliveries().size(), before + 1) << c.label;
        const std::string file = toUtf8(printing_->deliveries().back().file);
        EXPECT_EQ(pdfInfo(file, "Pages"), c.pages) << c.label;
        int titles = 0;
        for (const auto& w : pdfWords(file)) titles += w.text == "FACTURA";
        EXPECT_EQ(titles, c.titles) << c.label;
    }
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

TEST_F(PrintForm, GridCellsKeepTheirBackColoursAndPicturesAreDrawnInTheirBox) {
    grid_->formatCell(2, 2, [](objects::CellFormat& c) { c.backColor = 0xFF0000; });  // blue, as 0x00BBGGRR
    print();
    struct Case {
        const char* label;
        int x, y;  // points: the middle of the cell
        std::uint32_t rgb;
    };
    const Case cases[] = {
        {"a fixed cell is light grey", (600 + 750) / 20, (4000 + 150) / 20, 0xE0E0E0},
        {"a plain cell is the paper", (600 + 1500 + 750) / 20, (4000 + 600 + 150) / 20, 0xFFFFFF},
        {"a coloured cell", (600 + 3000 + 750) / 20, (4000 + 600 + 150) / 20, 0x0000FF},
        // The picture box at (600, 6000), 600 twips a side: 30 to 60 points.
        {"the picture", 45, 315, 0xFF0000},
    };
    for (const auto& c : cases) EXPECT_EQ(pdfPixel(printedFile(), c.x, c.y), c.rgb) << c.label;
}

TEST_F(PrintForm, AFailingStatementIsSkipped) {
    // A text box has no Controls: nothing is drawn and no blank sheet comes out.
    const auto box = std::make_shared<objects::TextBox>(u"txt");
    EXPECT_EQ(errorOf("ImprimeForm", {Variant(ObjectRef(box)), Variant(String())}), 0);
    EXPECT_TRUE(printing_->deliveries().empty());
    // A port that matches no printer leaves the printer alone.
    EXPECT_EQ(errorOf("fn_FijaImpresora", {Variant(String(u"LPT9:"))}), 0);
    EXPECT_EQ(printing_->currentPrinter(), u"");
    // A label whose Caption fails is left out; the rest is printed.
    form_->add(placed(std::make_shared<BrokenLabel>(), 600, 7600, 3000, 300));
    form_->add(label(u"lblPie", u"PIE", 600, 8000));
    print();
    EXPECT_NE(find(pdfWords(printedFile()), "PIE"), nullptr);
}

}  // namespace
}  // namespace telvaro

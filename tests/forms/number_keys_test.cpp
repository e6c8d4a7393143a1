// The numeric key filter and the backspace, key by key.
#include "forms_fixture.h"
#include "objects/label.h"

namespace telvaro {
namespace {

struct KeyCase {
    const char* before;
    char16_t key;
    std::int16_t decimals;
    std::int16_t sign;  // bits of ConSigno
    std::int16_t maxLength;
    const char* after;
};

TEST_F(FormsTest, VerificaNumeroAppendsOnlyAcceptableKeys) {
    // clang-format off
    const std::vector<KeyCase> cases = {
        {"12.34", u'5', 2, 0, 100, "12.34"}, {"12.3", u'5', 2, 0, 100, "12.35"},  // decimals full, and not
        {"", u'.', 2, 0, 100, ""}, {"-", u'.', 2, -1, 100, "-"},  // no point in an empty box nor after the sign
        {"0", u'.', 2, 0, 100, "0."}, {"1.5", u'.', 2, 0, 100, "1.5"},  // one point only
        {"12", u'.', 0, 0, 100, "12"}, {"12", u'.', -1, 0, 100, "12."},  // no decimals; negative ones: no test
        {"1234", u'.', 2, 0, 5, "1234"}, {"1234", u'5', 2, 0, 5, "12345"}, {"12345", u'6', 2, 0, 5, "12345"},
        {"", u'-', 2, 0, 100, ""}, {"", u'-', 2, -1, 100, "-"},  // no sign asked for, and asked for
        {"5", u'-', 2, -1, 100, "5"}, {"5", u'-', 2, 1, 100, "5-"},  // first only; a True other than -1 skips both
        {"12", u'a', 2, 0, 100, "12"}, {"", u'7', 2, 0, 0, ""},  // a zero length takes nothing
    };
    // clang-format on
    for (const auto& c : cases) {
        auto box = textBox(fromUtf8(c.before));
        const Variant result =
            call("VerificaNumero", {Variant(ObjectRef(box)), Variant(std::int16_t(c.key)), Variant(c.decimals),
                                    Variant(Boolean::fromBits(c.sign)), Variant(c.maxLength)});
        SCOPED_TRACE(std::string(c.before) + " + " + char(c.key));
        EXPECT_TRUE(identical(result, Variant(std::int16_t(0))));
        EXPECT_EQ(toUtf8(box->text()), c.after);
        if (toUtf8(box->text()) != c.before) {
            EXPECT_EQ(box->selStart(), static_cast<std::int32_t>(box->text().size()));
        }
    }
}

TEST_F(FormsTest, BackspaceRemovesTheLastCharacterUnlessTheBoxIsFull) {
    auto box = textBox(u"abc");
    EXPECT_TRUE(identical(call("fn_Backspace", {Variant(ObjectRef(box))}), Variant(std::int16_t(0))));
    EXPECT_EQ(box->text(), u"ab");
    EXPECT_EQ(box->selStart(), 2);
    // Through the key filter: backspace is done, never appended.
    call("VerificaNumero", {Variant(ObjectRef(box)), Variant(std::int16_t(8))});
    EXPECT_EQ(box->text(), u"a");
    // A full box refuses even the backspace.
    auto full = textBox(u"12345");
    call("VerificaNumero", {Variant(ObjectRef(full)), Variant(std::int16_t(8)), Variant(std::int16_t(2)),
                            Variant(False), Variant(std::int16_t(5))});
    EXPECT_EQ(full->text(), u"12345");
    auto empty = textBox(u"");
    call("fn_Backspace", {Variant(ObjectRef(empty))});
    EXPECT_TRUE(empty->calls() == std::vector<String>{u"Text"});
}

TEST_F(FormsTest, OnAGridTheCellEditorTextIsEdited) {
    auto grid = std::make_shared<objects::FlexGrid>(u"grd", 3, 3);
    grid->setTextMatrix(1, 1, u"4.");
    call("VerificaNumero", {Variant(ObjectRef(grid)), Variant(std::int16_t('2')), Variant(std::int16_t(3)),
                            Variant::missing(), Variant::missing(), Variant(True)});
    EXPECT_EQ(grid->textMatrix(1, 1), u"4.2");
    EXPECT_TRUE(grid->calls() == (std::vector<String>{u"CellText", u"CellText", u"CellText="}));
    // Without EsGridEx a grid is read through Text; a label has neither.
    auto label = std::make_shared<objects::Label>(u"lbl");
    EXPECT_EQ(errorOf("VerificaNumero", {Variant(ObjectRef(label)), Variant(std::int16_t('2'))}), 438);
}

}  // namespace
}  // namespace telvaro

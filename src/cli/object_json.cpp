#include "cli/object_json.h"

#include <algorithm>
#include <cmath>

#include "cli/json_values.h"
#include "objects/chart.h"
#include "objects/check_box.h"
#include "objects/check_box_pictures.h"
#include "objects/data_grid.h"
#include "objects/data_report.h"
#include "objects/flex_grid.h"
#include "objects/form.h"
#include "objects/frame.h"
#include "objects/label.h"
#include "objects/list_control.h"
#include "objects/option_button.h"
#include "objects/picture_box.h"
#include "objects/text_box.h"
#include "runtime/error.h"
#include "runtime/text.h"

namespace telvaro::cli {

using namespace objects;

namespace {

constexpr std::int64_t kLongMin = INT32_MIN, kLongMax = INT32_MAX;

// The fields of one description, each read with what it must hold.
class Fields {
public:
    Fields(const Json& d, std::string kind) : d_(d), kind_(std::move(kind)) {}

    [[noreturn]] void fail(const std::string& field, const std::string& expects) const {
        raise(err::InvalidProcedureCall,
              fromUtf8("Invalid object description: \"" + field + "\" of a " + kind_ + " expects " + expects));
    }

    const Json* find(const char* field) const {
        auto it = d_.find(field);
        return it == d_.end() || it->is_null() ? nullptr : &*it;
    }

    std::optional<std::int64_t> whole(const char* field, std::int64_t min, std::int64_t max) const {
        const Json* v = find(field);
        if (!v) return std::nullopt;
        return wholeValue(*v, field, min, max);
    }

    std::int64_t wholeValue(const Json& v, const std::string& field, std::int64_t min, std::int64_t max) const {
        const std::string expects = "a whole number from " + std::to_string(min) + " to " + std::to_string(max);
        if (v.is_number_integer()) {
            if (v.is_number_unsigned() && v.get<std::uint64_t>() > static_cast<std::uint64_t>(INT64_MAX))
                fail(field, expects);
            const auto n = v.get<std::int64_t>();
            if (n < min || n > max) fail(field, expects);
            return n;
        }
        if (v.is_number_float()) {
            const double d = v.get<double>();
            if (std::trunc(d) == d && d >= static_cast<double>(min) && d <= static_cast<double>(max))
                return static_cast<std::int64_t>(d);
        }
        fail(field, expects);
    }

    std::optional<bool> flag(const char* field) const {
        const Json* v = find(field);
        if (!v) return std::nullopt;
        return flagValue(*v, field);
    }

    bool flagValue(const Json& v, const std::string& field) const {
        if (v.is_boolean()) return v.get<bool>();
        if (v.is_number_integer() && (v.get<std::int64_t>() == 0 || v.get<std::int64_t>() == -1))
            return v.get<std::int64_t>() != 0;
        fail(field, "true or false");
    }

    std::optional<double> number(const char* field, double min, double max) const {
        const Json* v = find(field);
        if (!v) return std::nullopt;
        if (!v->is_number() || !(v->get<double>() >= min && v->get<double>() <= max))
            fail(field, "a number from " + shortNumber(min) + " to " + shortNumber(max));
        return v->get<double>();
    }

    std::optional<String> text(const char* field) const {
        const Json* v = find(field);
        if (!v) return std::nullopt;
        return textValue(*v, field);
    }

    String textValue(const Json& v, const std::string& field) const {
        if (v.is_string()) return fromUtf8(v.get<std::string>());
        if (v.is_number_integer()) return ascii(std::to_string(v.get<std::int64_t>()));
        if (v.is_number_float()) return ascii(v.dump());
        fail(field, "a text");
    }

    const Json* array(const char* field) const {
        const Json* v = find(field);
        if (v && !v->is_array()) fail(field, "a list");
        return v;
    }

    const std::string& kind() const { return kind_; }
    const Json& description() const { return d_; }

private:
    static std::string shortNumber(double d) {
        std::string s = std::to_string(d);
        s.erase(s.find_last_not_of('0') + 1);
        if (s.back() == '.') s.pop_back();
        return s;
    }

    const Json& d_;
    std::string kind_;
};

String nameOr(const Fields& f, const char16_t* fallback) { return f.text("name").value_or(fallback); }

void applyFont(FontDescription& font, const Json& d) {
    if (!d.is_object()) Fields(d, "font").fail("font", "a font description");
    Fields f(d, "font");
    if (auto v = f.text("name")) font.name = *v;
    if (auto v = f.number("size", 0.01, 2160)) font.size = *v;
    if (auto v = f.flag("bold")) font.bold = *v;
    if (auto v = f.flag("italic")) font.italic = *v;
    if (auto v = f.flag("underline")) font.underline = *v;
    if (auto v = f.flag("strikethrough")) font.strikethrough = *v;
}

void applyCommon(Control& c, const Fields& f) {
    if (auto v = f.text("tag")) c.tag = *v;
    if (auto v = f.flag("enabled")) c.enabled = *v;
    if (auto v = f.flag("visible")) c.visible = *v;
    if (auto v = f.number("left", kLongMin, kLongMax)) c.left = *v;
    if (auto v = f.number("top", kLongMin, kLongMax)) c.top = *v;
    if (auto v = f.number("width", 0, kLongMax)) c.width = *v;
    if (auto v = f.number("height", 0, kLongMax)) c.height = *v;
    if (auto v = f.whole("tabIndex", 0, INT16_MAX)) c.tabIndex = static_cast<std::int16_t>(*v);
    if (auto v = f.number("fontSize", 0.01, 2160)) c.font()->description().size = *v;
    if (const Json* font = f.find("font")) applyFont(c.font()->description(), *font);
}

ObjectRef namedPicture(const String& name) {
    if (auto kind = checkBoxPictureNamed(name)) return makeCheckBoxPicture(*kind);
    auto picture = std::make_shared<Picture>();
    picture->setSource(name);
    return picture;
}

ObjectRef buildPicture(const Fields& f) {
    const auto source = f.text("source");
    const auto width = f.whole("width", 0, Picture::kMaxSide), height = f.whole("height", 0, Picture::kMaxSide);
    if (source && !width && !height) return namedPicture(*source);
    auto picture = std::make_shared<Picture>(static_cast<std::int32_t>(width.value_or(0)),
                                             static_cast<std::int32_t>(height.value_or(0)));
    if (source) picture->setSource(*source);
    return picture;
}

void applyCellFormat(FlexGrid& grid, const Fields& grid_fields, const Json& d) {
    if (!d.is_object()) grid_fields.fail("formats", "a list of cell formats");
    Fields f(d, "cell format");
    const auto row = f.whole("row", 0, grid.rows() - 1), col = f.whole("col", 0, grid.cols() - 1);
    if (!row || !col) grid_fields.fail("formats", "cells with their \"row\" and \"col\" inside the grid");
    CellFormat format;
    if (auto v = f.whole("backColor", kLongMin, kLongMax); v && *v) format.backColor = static_cast<std::int32_t>(*v);
    if (auto v = f.whole("foreColor", kLongMin, kLongMax); v && *v) format.foreColor = static_cast<std::int32_t>(*v);
    if (auto v = f.whole("alignment", 0, 9)) format.alignment = static_cast<std::int16_t>(*v);
    if (auto v = f.text("fontName")) format.fontName = *v;
    if (auto v = f.number("fontSize", 0.01, 2160)) format.fontSize = *v;
    if (auto v = f.flag("fontBold")) format.fontBold = *v;
    if (auto v = f.flag("fontItalic")) format.fontItalic = *v;
    if (auto v = f.flag("fontUnderline")) format.fontUnderline = *v;
    if (auto v = f.text("picture")) format.picture = namedPicture(*v);
    if (auto v = f.whole("pictureAlignment", 0, 8)) format.pictureAlignment = static_cast<std::int16_t>(*v);
    grid.formatCell(static_cast<std::int32_t>(*row), static_cast<std::int32_t>(*col),
                    [&](CellFormat& cell) { cell = std::move(format); });
}

ObjectRef buildGrid(const Fields& f) {
    const Json* cells = f.array("cells");
    std::size_t longest = 0;
    if (cells)
        for (const auto& row : *cells) {
            if (!row.is_array()) f.fail("cells", "a list of rows, each a list of texts");
            longest = std::max(longest, row.size());
        }
    const auto rows = f.whole("rows", 0, FlexGrid::kMaxCells)
                          .value_or(std::max<std::int64_t>(2, cells ? static_cast<std::int64_t>(cells->size()) : 0));
    const auto cols = f.whole("cols", 0, FlexGrid::kMaxCells).value_or(std::max<std::int64_t>(2, longest));
    if (rows * cols > FlexGrid::kMaxCells) f.fail("rows", "with \"cols\" at most 10000000 cells");
    if (cells && (static_cast<std::int64_t>(cells->size()) > rows || static_cast<std::int64_t>(longest) > cols))
        f.fail("cells", "at most \"rows\" rows of at most \"cols\" texts");
    auto grid = std::make_shared<FlexGrid>(nameOr(f, u"Grid1"), static_cast<std::int32_t>(rows),
                                           static_cast<std::int32_t>(cols));
    applyCommon(*grid, f);
    if (auto v = f.whole("fixedRows", 0, rows)) grid->setFixedRows(static_cast<std::int32_t>(*v));
    if (auto v = f.whole("fixedCols", 0, cols)) grid->setFixedCols(static_cast<std::int32_t>(*v));
    if (cells)
        for (std::size_t r = 0; r < cells->size(); ++r)
            for (std::size_t c = 0; c < (*cells)[r].size(); ++c)
                grid->setTextMatrix(static_cast<std::int32_t>(r), static_cast<std::int32_t>(c),
                                    f.textValue((*cells)[r][c], "cells"));
    if (const Json* widths = f.array("colWidths")) {
        if (static_cast<std::int64_t>(widths->size()) > cols) f.fail("colWidths", "at most one width a column");
        for (std::size_t c = 0; c < widths->size(); ++c)
            grid->setColWidth(static_cast<std::int32_t>(c),
                              static_cast<std::int32_t>(f.wholeValue((*widths)[c], "colWidths", -1, kLongMax)));
    }
    if (const Json* heights = f.array("rowHeights")) {
        if (static_cast<std::int64_t>(heights->size()) > rows) f.fail("rowHeights", "at most one height a row");
        for (std::size_t r = 0; r < heights->size(); ++r)
            grid->setRowHeight(static_cast<std::int32_t>(r),
                               static_cast<std::int32_t>(f.wholeValue((*heights)[r], "rowHeights", -1, kLongMax)));
    }
    if (const Json* alignments = f.array("colAlignments")) {
        if (static_cast<std::int64_t>(alignments->size()) > cols)
            f.fail("colAlignments", "at most one alignment a column");
        for (std::size_t c = 0; c < alignments->size(); ++c)
            grid->setColAlignment(static_cast<std::int32_t>(c),
                                  static_cast<std::int16_t>(f.wholeValue((*alignments)[c], "colAlignments", 0, 9)));
    }
    if (const Json* formats = f.array("formats"))
        for (const auto& format : *formats) applyCellFormat(*grid, f, format);
    if (rows > 0)
        if (auto v = f.whole("row", 0, rows - 1)) grid->setRow(static_cast<std::int32_t>(*v));
    if (cols > 0)
        if (auto v = f.whole("col", 0, cols - 1)) grid->setCol(static_cast<std::int32_t>(*v));
    if (auto v = f.flag("redraw")) grid->setRedraw(*v);
    return grid;
}

ObjectRef buildList(const Fields& f, ListControl::Kind kind) {
    auto list =
        std::make_shared<ListControl>(kind, nameOr(f, kind == ListControl::Kind::ListBox ? u"List1" : u"Combo1"));
    applyCommon(*list, f);
    if (auto v = f.whole("style", 0, kind == ListControl::Kind::ListBox ? 1 : 2))
        list->setStyle(static_cast<std::int16_t>(*v));
    const Json* items = f.array("items");
    if (items && items->size() > static_cast<std::size_t>(ListControl::kMaxItems))
        f.fail("items", "at most 1000000 items");
    if (items)
        for (const auto& item : *items) list->addItem(f.textValue(item, "items"));
    if (const Json* data = f.array("itemData")) {
        if (data->size() > list->items().size()) f.fail("itemData", "at most one number an item");
        for (std::size_t i = 0; i < data->size(); ++i)
            list->setItemData(static_cast<std::int32_t>(i),
                              static_cast<std::int32_t>(f.wholeValue((*data)[i], "itemData", kLongMin, kLongMax)));
    }
    if (auto v = f.whole("listIndex", -1, list->listCount() - 1)) list->setListIndex(static_cast<std::int32_t>(*v));
    if (kind == ListControl::Kind::ComboBox) {
        if (auto v = f.text("text")) {
            try {
                list->setText(*v);
            } catch (const RuntimeError&) {
                f.fail("text", "one of the items of a drop-down list");
            }
        }
        if (auto v = f.whole("selStart", 0, kLongMax)) list->setSelStart(static_cast<std::int32_t>(*v));
    }
    return list;
}

ObjectRef buildTextBox(const Fields& f) {
    auto box = std::make_shared<TextBox>(nameOr(f, u"Text1"));
    applyCommon(*box, f);
    if (auto v = f.text("text")) box->setText(*v);
    if (auto v = f.whole("maxLength", 0, kLongMax)) box->maxLength = static_cast<std::int32_t>(*v);
    if (auto v = f.flag("locked")) box->locked = *v;
    if (auto v = f.whole("selStart", 0, kLongMax)) box->setSelStart(static_cast<std::int32_t>(*v));
    if (auto v = f.whole("selLength", 0, kLongMax)) box->setSelLength(static_cast<std::int32_t>(*v));
    return box;
}

ObjectRef buildCheckBox(const Fields& f) {
    auto box = std::make_shared<CheckBox>(nameOr(f, u"Check1"));
    applyCommon(*box, f);
    if (auto v = f.whole("value", 0, 2)) box->setValue(static_cast<std::int16_t>(*v));
    if (auto v = f.text("caption")) box->caption = *v;
    return box;
}

ObjectRef buildOptionButton(const Fields& f) {
    auto option = std::make_shared<OptionButton>(nameOr(f, u"Option1"));
    applyCommon(*option, f);
    if (auto v = f.flag("value")) option->setValue(*v);
    if (auto v = f.text("caption")) option->caption = *v;
    return option;
}

ObjectRef buildLabel(const Fields& f) {
    auto label = std::make_shared<Label>(nameOr(f, u"Label1"));
    applyCommon(*label, f);
    if (auto v = f.text("caption")) label->caption = *v;
    if (auto v = f.whole("alignment", 0, 2)) label->alignment = static_cast<std::int16_t>(*v);
    return label;
}

ObjectRef buildPictureBox(const Fields& f) {
    auto box = std::make_shared<PictureBox>(nameOr(f, u"Picture1"));
    applyCommon(*box, f);
    if (auto v = f.flag("autoRedraw")) box->autoRedraw = *v;
    if (auto v = f.flag("autoSize")) box->autoSize = *v;
    if (auto v = f.whole("scaleMode", 0, 7)) box->scaleMode = static_cast<std::int16_t>(*v);
    if (const Json* picture = f.find("picture")) {
        if (picture->is_string())
            box->setPicture(namedPicture(fromUtf8(picture->get<std::string>())));
        else if (picture->is_object())
            box->setPicture(buildPicture(Fields(*picture, "picture")));
        else
            f.fail("picture", "the name of a picture or a picture description");
    }
    return box;
}

ObjectRef buildFont(const Fields& f) {
    auto font = std::make_shared<Font>();
    applyFont(font->description(), f.description());
    return font;
}

// A report control inside a section: rpttextbox, rptfunction, rptlabel,
// rptline, rptimage or rptshape.
constexpr std::pair<const char*, ReportControl::Kind> kReportControlKinds[] = {
    {"rpttextbox", ReportControl::Kind::TextBox}, {"rptfunction", ReportControl::Kind::Function},
    {"rptlabel", ReportControl::Kind::Label},     {"rptline", ReportControl::Kind::Line},
    {"rptimage", ReportControl::Kind::Image},     {"rptshape", ReportControl::Kind::Shape}};

std::shared_ptr<ReportControl> buildReportControl(const Json& d, const Fields& report) {
    const auto& kinds = kReportControlKinds;
    const std::string expects =
        "lists of report controls (rpttextbox, rptfunction, rptlabel, rptline, rptimage, rptshape)";
    if (!d.is_object() || !d.contains("object") || !d.at("object").is_string()) report.fail("sections", expects);
    const std::string kind = d.at("object").get<std::string>();
    const auto* found =
        std::find_if(std::begin(kinds), std::end(kinds), [&](const auto& k) { return kind == k.first; });
    if (found == std::end(kinds)) report.fail("sections", expects);
    const Fields f(d, kind);
    auto control = std::make_shared<ReportControl>(found->second, nameOr(f, u"Control1"));
    if (auto v = f.flag("visible")) control->visible = *v;
    if (control->isBound()) {
        if (auto v = f.text("dataMember")) control->dataMember = *v;
        if (auto v = f.text("dataField")) control->dataField = *v;
    }
    if (found->second == ReportControl::Kind::Label)
        if (auto v = f.text("caption")) control->caption = *v;
    if (found->second == ReportControl::Kind::Function)
        if (auto v = f.whole("functionType", 0, 7)) control->functionType = static_cast<std::int16_t>(*v);
    return control;
}

// {"object": "report", "sections": {"Sección3": [controls], ...}}: the
// sections named, in order, and no others; without "sections" the five
// standard ones, empty.
ObjectRef buildReport(const Fields& f) {
    const String name = nameOr(f, u"DataReport1");
    std::shared_ptr<DataReport> report;
    const Json* sections = f.find("sections");
    if (!sections) {
        report = std::make_shared<DataReport>(name);
    } else {
        if (!sections->is_object()) f.fail("sections", "an object of section names and their controls");
        std::vector<String> names;
        for (const auto& [sectionName, controls] : sections->items()) {
            names.push_back(fromUtf8(sectionName));
            for (const auto& other : std::vector<String>(names.begin(), names.end() - 1))
                if (textEquals(other, names.back())) f.fail("sections", "sections of different names");
        }
        report = std::make_shared<DataReport>(name, names);
        std::size_t i = 0;
        for (const auto& [sectionName, controls] : sections->items()) {
            if (!controls.is_array()) f.fail("sections", "lists of report controls");
            for (const auto& c : controls) {
                auto control = buildReportControl(c, f);
                if (report->sections()[i]->controlNamed(control->name()))
                    f.fail("sections", "controls of different names within a section");
                report->sections()[i]->add(control);
            }
            ++i;
        }
    }
    if (auto v = f.text("caption")) report->caption = *v;
    if (auto v = f.text("dataMember")) report->dataMember = *v;
    return report;
}

ObjectRef buildChart(const Fields& f) {
    auto chart = std::make_shared<Chart>(nameOr(f, u"MSChart1"));
    applyCommon(*chart, f);
    return chart;
}

std::string kindOf(const Json& d) {
    if (!d.is_object()) Fields(d, "object").fail("object", "an object description");
    auto it = d.find("object");
    if (it == d.end() || !it->is_string()) Fields(d, "object").fail("object", "the kind of object as a text");
    return it->get<std::string>();
}

// A control a form holds, and the name of its container when it gave one.
struct Placed {
    std::shared_ptr<Control> control;
    std::shared_ptr<Control> container;  // a frame it was nested in
    std::optional<String> containerName;
};

void collectControls(const Fields& owner, const std::shared_ptr<Control>& container,
                     const std::function<ObjectRef(const Json&)>& build, std::vector<Placed>& placed);
void placeControls(Form& form, const Fields& f, std::vector<Placed>& placed);

}  // namespace

ObjectRef ObjectBuilder::build(const Json& description) {
    const std::string kind = kindOf(description);
    if (kind != "frame") return buildKind(kind, description);
    // A frame given on its own sits on a form of its own, which holds the
    // controls nested in it, so that they have a Parent and Controls.
    auto frame = std::static_pointer_cast<Control>(buildFrame(description));
    auto form = std::make_shared<Form>(u"Form1");
    std::vector<Placed> placed{{frame, nullptr, std::nullopt}};
    const Fields f(description, kind);
    collectControls(
        f, frame, [this](const Json& c) { return buildKind(kindOf(c), c); }, placed);
    placeControls(*form, f, placed);
    kept_.push_back(form);
    return frame;
}

ObjectRef ObjectBuilder::buildKind(const std::string& kind, const Json& d) {
    const Fields f(d, kind);
    if (kind == "grid") return buildGrid(f);
    if (kind == "list") return buildList(f, ListControl::Kind::ListBox);
    if (kind == "combobox") return buildList(f, ListControl::Kind::ComboBox);
    if (kind == "textbox") return buildTextBox(f);
    if (kind == "checkbox") return buildCheckBox(f);
    if (kind == "optionbutton") return buildOptionButton(f);
    if (kind == "label") return buildLabel(f);
    if (kind == "font") return buildFont(f);
    if (kind == "picturebox") return buildPictureBox(f);
    if (kind == "picture") return buildPicture(f);
    if (kind == "frame") return buildFrame(d);
    if (kind == "form") return buildForm(d);
    if (kind == "report") return buildReport(f);
    if (kind == "chart") return buildChart(f);
    if (kind == "datagrid") {
        auto grid = std::make_shared<DataGrid>(nameOr(f, u"DataGrid1"));
        applyCommon(*grid, f);
        if (auto v = f.text("dataMember")) grid->dataMember = *v;
        if (const Json* source = f.find("dataSource")) grid->dataSource = build(*source);
        return grid;
    }
    if (hooks_.build)
        if (ObjectRef object = hooks_.build(kind, d)) return object;
    raise(err::ObjectDoesNotSupportAction, u"Object kind not supported yet: " + fromUtf8(Json(kind).dump()));
}

namespace {

// Builds the controls of a form or frame description, frames with the
// controls nested in them, in the order given.
void collectControls(const Fields& owner, const std::shared_ptr<Control>& container,
                     const std::function<ObjectRef(const Json&)>& build, std::vector<Placed>& placed) {
    const Json* controls = owner.array("controls");
    if (!controls) return;
    for (const auto& d : *controls) {
        auto control = std::dynamic_pointer_cast<Control>(build(d));
        if (!control || std::dynamic_pointer_cast<Form>(control))
            owner.fail("controls", "a list of control descriptions");
        const Fields f(d, kindOf(d));
        placed.push_back({control, container, f.text("container")});
        if (std::dynamic_pointer_cast<Frame>(control)) collectControls(f, control, build, placed);
    }
}

void placeControls(Form& form, const Fields& f, std::vector<Placed>& placed) {
    for (auto& p : placed) {
        std::shared_ptr<Control> container = p.container;
        if (p.containerName) {
            container = form.controlNamed(*p.containerName);
            if (!container) {
                for (const auto& other : placed)
                    if (textEquals(other.control->name(), *p.containerName)) container = other.control;
            }
            if (!std::dynamic_pointer_cast<Frame>(container) && !std::dynamic_pointer_cast<PictureBox>(container))
                f.fail("container", "the name of a frame or picture box of the same form");
        }
        p.container = container;
    }
    // Following the containers up must reach the form.
    auto containerOf = [&](const std::shared_ptr<Control>& c) -> std::shared_ptr<Control> {
        for (const auto& p : placed)
            if (p.control == c) return p.container;
        return nullptr;
    };
    for (const auto& p : placed) {
        std::size_t steps = 0;
        for (auto c = p.container; c; c = containerOf(c))
            if (++steps > placed.size()) f.fail("container", "a frame or picture box not inside the control itself");
    }
    for (const auto& p : placed) form.add(p.control, p.container);
}

}  // namespace

ObjectRef ObjectBuilder::buildForm(const Json& d) {
    const Fields f(d, "form");
    auto form = std::make_shared<Form>(nameOr(f, u"Form1"), f.flag("mdi").value_or(false));
    applyCommon(*form, f);
    if (auto v = f.text("caption")) form->caption = *v;
    if (auto v = f.flag("changed")) form->changed = *v;
    if (const Json* answers = f.find("saveSucceeds")) {
        if (answers->is_array()) {
            for (const auto& a : *answers) form->saveSucceeds.push_back(f.flagValue(a, "saveSucceeds"));
        } else {
            form->saveSucceeds.push_back(f.flagValue(*answers, "saveSucceeds"));
        }
    }
    if (const Json* active = f.find("activeForm")) {
        if (!form->isMdi()) f.fail("activeForm", "an MDI parent form (\"mdi\": true)");
        form->activeForm = build(*active);
        if (!std::dynamic_pointer_cast<Form>(form->activeForm)) f.fail("activeForm", "a form description");
    }
    if (const Json* lista = f.find("lista")) form->lista = build(*lista);
    std::vector<Placed> placed;
    collectControls(
        f, nullptr, [this](const Json& c) { return buildKind(kindOf(c), c); }, placed);
    placeControls(*form, f, placed);
    return form;
}

ObjectRef ObjectBuilder::buildFrame(const Json& d) {
    const Fields f(d, "frame");
    auto frame = std::make_shared<Frame>(nameOr(f, u"Frame1"));
    applyCommon(*frame, f);
    if (auto v = f.text("caption")) frame->caption = *v;
    return frame;
}

namespace {

Json fontState(const Font& font) {
    const FontDescription& d = font.description();
    return Json{{"object", "font"},
                {"name", toUtf8(d.name)},
                {"size", d.size},
                {"bold", d.bold},
                {"italic", d.italic},
                {"underline", d.underline},
                {"strikethrough", d.strikethrough}};
}

Json callsOf(const CallerObject& object) {
    Json calls = Json::array();
    for (const auto& call : object.calls()) calls.push_back(toUtf8(call));
    return calls;
}

void commonState(Json& out, const Control& c) {
    out["name"] = toUtf8(c.name());
    out["tag"] = toUtf8(c.tag);
    out["enabled"] = c.enabled;
    out["visible"] = c.visible;
    out["left"] = c.left;
    out["top"] = c.top;
    out["width"] = c.width;
    out["height"] = c.height;
    out["tabIndex"] = c.tabIndex;
    out["font"] = fontState(*c.font());
}

Json pictureFields(const Picture& picture) {
    return Json{{"object", "picture"},
                {"source", toUtf8(picture.source())},
                {"width", picture.width()},
                {"height", picture.height()}};
}

Json pictureState(const ObjectRef& object, const ObjectKindHooks& hooks) {
    if (!object) return nullptr;
    return objectState(*object, hooks);
}

Json cellFormatState(std::int32_t row, std::int32_t col, const CellFormat& f, const ObjectKindHooks& hooks) {
    Json out{{"row", row}, {"col", col}};
    if (f.backColor) out["backColor"] = *f.backColor;
    if (f.foreColor) out["foreColor"] = *f.foreColor;
    if (f.alignment) out["alignment"] = *f.alignment;
    if (f.fontName) out["fontName"] = toUtf8(*f.fontName);
    if (f.fontSize) out["fontSize"] = *f.fontSize;
    if (f.fontBold) out["fontBold"] = *f.fontBold;
    if (f.fontItalic) out["fontItalic"] = *f.fontItalic;
    if (f.fontUnderline) out["fontUnderline"] = *f.fontUnderline;
    if (f.picture) {
        auto picture = std::dynamic_pointer_cast<Picture>(f.picture);
        out["picture"] = picture ? Json(toUtf8(picture->source())) : pictureState(f.picture, hooks);
    }
    if (f.pictureAlignment) out["pictureAlignment"] = *f.pictureAlignment;
    return out;
}

Json gridState(const FlexGrid& g, const ObjectKindHooks& hooks) {
    Json out{{"object", "grid"}};
    commonState(out, g);
    out["rows"] = g.rows();
    out["cols"] = g.cols();
    out["fixedRows"] = g.fixedRows();
    out["fixedCols"] = g.fixedCols();
    out["row"] = g.row();
    out["col"] = g.col();
    out["rowSel"] = g.rowSel();
    out["colSel"] = g.colSel();
    out["redraw"] = g.redraw();
    Json cells = Json::array(), widths = Json::array(), heights = Json::array(), alignments = Json::array();
    for (std::int32_t r = 0; r < g.rows(); ++r) {
        Json row = Json::array();
        for (std::int32_t c = 0; c < g.cols(); ++c) row.push_back(toUtf8(g.textMatrix(r, c)));
        cells.push_back(std::move(row));
        heights.push_back(g.rowHeight(r));
    }
    for (std::int32_t c = 0; c < g.cols(); ++c) {
        widths.push_back(g.colWidth(c));
        alignments.push_back(g.colAlignment(c));
    }
    out["cells"] = std::move(cells);
    out["colWidths"] = std::move(widths);
    out["rowHeights"] = std::move(heights);
    out["colAlignments"] = std::move(alignments);
    Json formats = Json::array();
    g.forEachFormattedCell([&](std::int32_t r, std::int32_t c, const CellFormat& f) {
        formats.push_back(cellFormatState(r, c, f, hooks));
    });
    out["formats"] = std::move(formats);
    return out;
}

Json listState(const ListControl& l) {
    Json out{{"object", l.kind() == ListControl::Kind::ListBox ? "list" : "combobox"}};
    commonState(out, l);
    Json items = Json::array(), data = Json::array();
    for (const auto& item : l.items()) {
        items.push_back(toUtf8(item.text));
        data.push_back(item.data);
    }
    out["items"] = std::move(items);
    out["itemData"] = std::move(data);
    out["listIndex"] = l.listIndex();
    out["newIndex"] = l.newIndex();
    out["style"] = l.style();
    out["fontSize"] = l.font()->description().size;
    out["text"] = toUtf8(l.text());
    if (l.kind() == ListControl::Kind::ComboBox) out["selStart"] = l.selStart();
    return out;
}

Json controlState(const Control& c, const ObjectKindHooks& hooks) {
    if (auto* g = dynamic_cast<const FlexGrid*>(&c)) return gridState(*g, hooks);
    if (auto* l = dynamic_cast<const ListControl*>(&c)) return listState(*l);
    Json out;
    if (auto* t = dynamic_cast<const TextBox*>(&c)) {
        out = Json{{"object", "textbox"}};
        commonState(out, c);
        out["text"] = toUtf8(t->text());
        out["selStart"] = t->selStart();
        out["selLength"] = t->selLength();
        out["maxLength"] = t->maxLength;
        out["locked"] = t->locked;
    } else if (auto* k = dynamic_cast<const CheckBox*>(&c)) {
        out = Json{{"object", "checkbox"}};
        commonState(out, c);
        out["value"] = k->value();
        out["caption"] = toUtf8(k->caption);
    } else if (auto* o = dynamic_cast<const OptionButton*>(&c)) {
        out = Json{{"object", "optionbutton"}};
        commonState(out, c);
        out["value"] = o->value();
        out["caption"] = toUtf8(o->caption);
    } else if (auto* b = dynamic_cast<const Label*>(&c)) {
        out = Json{{"object", "label"}};
        commonState(out, c);
        out["caption"] = toUtf8(b->caption);
        out["alignment"] = b->alignment;
    } else if (auto* fr = dynamic_cast<const Frame*>(&c)) {
        out = Json{{"object", "frame"}};
        commonState(out, c);
        out["caption"] = toUtf8(fr->caption);
    } else if (auto* p = dynamic_cast<const PictureBox*>(&c)) {
        out = Json{{"object", "picturebox"}};
        commonState(out, c);
        out["picture"] = pictureState(p->picture(), hooks);
        out["autoRedraw"] = p->autoRedraw;
        out["autoSize"] = p->autoSize;
        out["scaleMode"] = p->scaleMode;
    } else if (auto* d = dynamic_cast<const DataGrid*>(&c)) {
        out = Json{{"object", "datagrid"}};
        commonState(out, c);
        out["dataSource"] = d->dataSource ? objectState(*d->dataSource, hooks) : Json(nullptr);
        out["dataMember"] = toUtf8(d->dataMember);
        out["refreshes"] = d->refreshes();
    } else if (auto* chart = dynamic_cast<const Chart*>(&c)) {
        out = Json{{"object", "chart"}};
        commonState(out, c);
        out["chartData"] = encodeValue(chart->chartData(), &hooks);
    } else if (auto* form = dynamic_cast<const Form*>(&c)) {
        out = Json{{"object", "form"}};
        commonState(out, c);
        out["caption"] = toUtf8(form->caption);
        out["mdi"] = form->isMdi();
        out["changed"] = form->changed;
        out["saves"] = form->saves();
        Json loaded = Json::array();
        for (const auto& key : form->loaded()) loaded.push_back(encodeValue(key));
        out["loaded"] = std::move(loaded);
        if (form->activeForm) out["activeForm"] = objectState(*form->activeForm, hooks);
        if (form->lista) out["lista"] = objectState(*form->lista, hooks);
        Json controls = Json::array();
        for (const auto& control : form->controls()) {
            Json state = objectState(*control, hooks);
            auto* container = dynamic_cast<const Control*>(control->container().get());
            if (container && container != form) state["container"] = toUtf8(container->name());
            controls.push_back(std::move(state));
        }
        out["controls"] = std::move(controls);
    } else {
        out = Json{{"object", toUtf8(c.typeName())}};
        commonState(out, c);
    }
    return out;
}

Json reportControlState(const ReportControl& c) {
    const auto* kind = std::find_if(std::begin(kReportControlKinds), std::end(kReportControlKinds),
                                    [&](const auto& k) { return k.second == c.kind(); });
    Json out{{"object", kind->first}, {"name", toUtf8(c.name())}, {"visible", c.visible}};
    if (c.isBound()) {
        out["dataMember"] = toUtf8(c.dataMember);
        out["dataField"] = toUtf8(c.dataField);
    }
    if (c.kind() == ReportControl::Kind::Label) out["caption"] = toUtf8(c.caption);
    if (c.kind() == ReportControl::Kind::Function) out["functionType"] = c.functionType;
    out["calls"] = callsOf(c);
    return out;
}

Json reportState(const DataReport& r, const ObjectKindHooks& hooks) {
    Json out{{"object", "report"}, {"name", toUtf8(r.name())}, {"caption", toUtf8(r.caption)}};
    out["dataSource"] = r.dataSource ? objectState(*r.dataSource, hooks) : Json(nullptr);
    out["dataMember"] = toUtf8(r.dataMember);
    out["refreshes"] = r.refreshes();
    Json sections = Json::object();
    for (const auto& section : r.sections()) {
        Json controls = Json::array();
        for (const auto& c : section->controls()) controls.push_back(reportControlState(*c));
        sections[toUtf8(section->name())] = std::move(controls);
    }
    out["sections"] = std::move(sections);
    return out;
}

}  // namespace

Json objectState(const Object& object, const ObjectKindHooks& hooks) {
    Json out;
    if (auto* control = dynamic_cast<const Control*>(&object))
        out = controlState(*control, hooks);
    else if (auto* font = dynamic_cast<const Font*>(&object))
        out = fontState(*font);
    else if (auto* picture = dynamic_cast<const Picture*>(&object))
        out = pictureFields(*picture);
    else if (auto* report = dynamic_cast<const DataReport*>(&object))
        out = reportState(*report, hooks);
    else if (hooks.state)
        if (auto state = hooks.state(object)) return *state;
    if (out.is_null()) return Json{{"object", toUtf8(object.typeName())}};
    if (auto* caller = dynamic_cast<const CallerObject*>(&object)) out["calls"] = callsOf(*caller);
    return out;
}

}  // namespace telvaro::cli

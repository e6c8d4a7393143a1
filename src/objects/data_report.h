// The data report: a designer that prints the rows of the recordset it is
// bound to, laid out in sections. Here it records what is bound to it.
//
//  - DataReport: Name (read-only), Caption, DataSource (an object, assigned
//    with Set; Nothing at first), DataMember, Sections, Font (Arial at
//    first), and Refresh (counted). A new report has the five sections
//    "Sección1" to "Sección5": report header, page header, detail, page
//    footer, report footer.
//  - Sections: Count, Item (the default member: a number from 1, or a
//    section's name) and _NewEnum; `Sections(3)` reaches Item directly.
//  - A section: Name (read-only), Visible, Height (twips), Controls.
//  - Controls of a section: Count, Item (from 1, or a control's name) and
//    _NewEnum. A number outside the collection or an unknown name is
//    error 9.
//  - The report controls, told apart by TypeName: "RptTextBox" and
//    "RptFunction" (DataMember, DataField; a function also FunctionType,
//    0 to 7), "RptLabel" (Caption), "RptLine", "RptImage", "RptShape"; all
//    have Name (read-only), Visible, Left, Top, Width, Height. A member of
//    another kind is error 438.
#pragma once

#include <memory>
#include <vector>

#include "objects/caller_object.h"
#include "objects/font.h"

namespace telvaro::objects {

class ReportControl : public CallerObject {
public:
    enum class Kind { TextBox, Function, Label, Line, Image, Shape };

    ReportControl(Kind kind, String name) : kind_(kind), name_(std::move(name)) {}

    String typeName() const override;
    Kind kind() const { return kind_; }
    const String& name() const { return name_; }
    // True for the kinds that show a field: text boxes and functions.
    bool isBound() const { return kind_ == Kind::TextBox || kind_ == Kind::Function; }

    bool visible = true;
    double left = 0, top = 0, width = 1500, height = 285;  // twips
    String dataMember;
    String dataField;
    String caption;
    std::int16_t functionType = 0;  // 0 the sum of the field

protected:
    const MemberTable& members() const override;
    bool hasMember(int id) const override;
    Variant dispatch(int id, const MemberCall& call) override;

private:
    Kind kind_;
    String name_;
};

class ReportSection : public CallerObject {
public:
    explicit ReportSection(String name) : name_(std::move(name)) {}

    String typeName() const override { return u"Section"; }
    const String& name() const { return name_; }
    // Adds a control; error 5 when the section has one of that name.
    void add(std::shared_ptr<ReportControl> control);
    const std::vector<std::shared_ptr<ReportControl>>& controls() const { return controls_; }
    std::shared_ptr<ReportControl> controlNamed(StringView name) const;

    bool visible = true;
    double height = 450;  // twips

protected:
    const MemberTable& members() const override;
    Variant dispatch(int id, const MemberCall& call) override;

private:
    String name_;
    std::vector<std::shared_ptr<ReportControl>> controls_;
};

class DataReport : public CallerObject {
public:
    // A report with the five standard sections.
    explicit DataReport(String name = u"DataReport1");
    // A report with the sections named, in order, and no others.
    DataReport(String name, const std::vector<String>& sectionNames);

    String typeName() const override { return u"DataReport"; }
    const String& name() const { return name_; }
    const std::vector<std::shared_ptr<ReportSection>>& sections() const { return sections_; }
    std::shared_ptr<ReportSection> sectionNamed(StringView name) const;
    const std::shared_ptr<Font>& font() const { return font_; }
    std::int32_t refreshes() const { return refreshes_; }

    String caption;
    ObjectRef dataSource;
    String dataMember;

protected:
    const MemberTable& members() const override;
    Variant dispatch(int id, const MemberCall& call) override;

private:
    String name_;
    std::vector<std::shared_ptr<ReportSection>> sections_;
    std::shared_ptr<Font> font_;
    std::int32_t refreshes_ = 0;
};

}  // namespace telvaro::objects

#include "objects/data_report.h"

#include "runtime/error.h"
#include "runtime/text.h"

namespace telvaro::objects {

namespace {

// A collection of a report (its sections, a section's controls): Count,
// Item (from 1, or a name) as the default member, and _NewEnum, which gives
// the items as an array of objects for a For Each over them. The
// collection holds its owner, so it stays usable while the caller keeps it.
template <typename Owner, typename Item>
class ReportCollection : public CallerObject {
public:
    using Items = const std::vector<std::shared_ptr<Item>>& (Owner::*)() const;
    using Named = std::shared_ptr<Item> (Owner::*)(StringView) const;

    ReportCollection(std::shared_ptr<const Owner> owner, Items items, Named named)
        : owner_(std::move(owner)), items_(items), named_(named) {}

    String typeName() const override { return u"Object"; }

    // Item(which): a number from 1 or a name; error 9 for anything else.
    static ObjectRef item(const Owner& owner, Items items, Named named, const Variant& which) {
        if (which.isString()) {
            if (auto found = (owner.*named)(which.get<String>())) return found;
            raise(err::SubscriptOutOfRange);
        }
        const std::int32_t i = longValue(which);
        const auto& all = (owner.*items)();
        if (i < 1 || static_cast<std::size_t>(i) > all.size()) raise(err::SubscriptOutOfRange);
        return all[static_cast<std::size_t>(i - 1)];
    }

protected:
    const MemberTable& members() const override {
        static const MemberTable table{u"Count", u"Item", u"_NewEnum"};
        return table;
    }
    int defaultMember() const override { return 1; }
    Variant dispatch(int id, const MemberCall& call) override {
        const auto& all = ((*owner_).*items_)();
        switch (id) {
            case 0: return readOnlyProperty(call, [&] { return Variant(static_cast<std::int32_t>(all.size())); });
            case 1: call.readOnly(); return Variant(item(*owner_, items_, named_, call.indices(1)[0]));
            case 2: {
                call.readOnly();
                call.indices(0);
                std::vector<Variant> each;
                for (const auto& x : all) each.emplace_back(ObjectRef(x));
                return Variant(Array::ofValues(std::move(each), 0));
            }
        }
        raiseNoSuchMember();
    }

private:
    std::shared_ptr<const Owner> owner_;
    Items items_;
    Named named_;
};

using SectionCollection = ReportCollection<DataReport, ReportSection>;
using ControlCollectionOfSection = ReportCollection<ReportSection, ReportControl>;

// A collection member: without an index the collection, with one its item
// (`Sections(3)`, `Controls("txtNombre")`).
template <typename Collection, typename Owner>
Variant collectionMember(const MemberCall& call, const std::shared_ptr<const Owner>& owner,
                         typename Collection::Items items, typename Collection::Named named) {
    call.readOnly();
    const auto args = call.arguments(0, 1);
    if (args.empty()) return Variant(ObjectRef(std::make_shared<Collection>(owner, items, named)));
    return Variant(Collection::item(*owner, items, named, args[0]));
}

Variant text(const MemberCall& call, String& field) {
    return property(
        call, [&] { return Variant(field); }, [&](const Variant& v) { field = textValue(v); });
}

enum ControlMember { CName, CVisible, CLeft, CTop, CWidth, CHeight, CDataMember, CDataField, CCaption, CFunctionType };
enum SectionMember { SName, SVisible, SHeight, SControls };
enum ReportMember { RName, RCaption, RDataSource, RDataMember, RSections, RFont, RRefresh };

}  // namespace

String ReportControl::typeName() const {
    switch (kind_) {
        case Kind::TextBox: return u"RptTextBox";
        case Kind::Function: return u"RptFunction";
        case Kind::Label: return u"RptLabel";
        case Kind::Line: return u"RptLine";
        case Kind::Image: return u"RptImage";
        case Kind::Shape: return u"RptShape";
    }
    return u"Object";
}

const MemberTable& ReportControl::members() const {
    static const MemberTable table{u"Name",   u"Visible",    u"Left",      u"Top",     u"Width",
                                   u"Height", u"DataMember", u"DataField", u"Caption", u"FunctionType"};
    return table;
}

bool ReportControl::hasMember(int id) const {
    switch (id) {
        case CDataMember:
        case CDataField: return isBound();
        case CCaption: return kind_ == Kind::Label;
        case CFunctionType: return kind_ == Kind::Function;
        default: return true;
    }
}

Variant ReportControl::dispatch(int id, const MemberCall& call) {
    switch (id) {
        case CName: return readOnlyProperty(call, [&] { return Variant(name_); });
        case CVisible: return flagProperty(call, visible);
        case CLeft: return twipsProperty(call, left, true);
        case CTop: return twipsProperty(call, top, true);
        case CWidth: return twipsProperty(call, width, false);
        case CHeight: return twipsProperty(call, height, false);
        case CDataMember: return text(call, dataMember);
        case CDataField: return text(call, dataField);
        case CCaption: return text(call, caption);
        case CFunctionType: return choiceProperty(call, functionType, 7);
    }
    raiseNoSuchMember();
}

void ReportSection::add(std::shared_ptr<ReportControl> control) {
    if (!control || controlNamed(control->name())) raise(err::InvalidProcedureCall);
    controls_.push_back(std::move(control));
}

std::shared_ptr<ReportControl> ReportSection::controlNamed(StringView name) const {
    for (const auto& c : controls_)
        if (textEquals(c->name(), name)) return c;
    return nullptr;
}

const MemberTable& ReportSection::members() const {
    static const MemberTable table{u"Name", u"Visible", u"Height", u"Controls"};
    return table;
}

Variant ReportSection::dispatch(int id, const MemberCall& call) {
    switch (id) {
        case SName: return readOnlyProperty(call, [&] { return Variant(name_); });
        case SVisible: return flagProperty(call, visible);
        case SHeight: return twipsProperty(call, height, false);
        case SControls:
            return collectionMember<ControlCollectionOfSection>(
                call, std::static_pointer_cast<const ReportSection>(shared_from_this()), &ReportSection::controls,
                &ReportSection::controlNamed);
    }
    raiseNoSuchMember();
}

DataReport::DataReport(String name)
    : DataReport(std::move(name), {u"Sección1", u"Sección2", u"Sección3", u"Sección4", u"Sección5"}) {}

DataReport::DataReport(String name, const std::vector<String>& sectionNames)
    : name_(std::move(name)), font_(std::make_shared<Font>(FontDescription{u"Arial", 8.25})) {
    for (const auto& sectionName : sectionNames) {
        if (sectionNamed(sectionName)) raise(err::InvalidProcedureCall);
        sections_.push_back(std::make_shared<ReportSection>(sectionName));
    }
}

std::shared_ptr<ReportSection> DataReport::sectionNamed(StringView name) const {
    for (const auto& s : sections_)
        if (textEquals(s->name(), name)) return s;
    return nullptr;
}

const MemberTable& DataReport::members() const {
    static const MemberTable table{u"Name", u"Caption", u"DataSource", u"DataMember", u"Sections", u"Font", u"Refresh"};
    return table;
}

Variant DataReport::dispatch(int id, const MemberCall& call) {
    switch (id) {
        case RName: return readOnlyProperty(call, [&] { return Variant(name_); });
        case RCaption: return text(call, caption);
        case RDataSource:
            return property(
                call, [&] { return Variant(dataSource); }, [&](const Variant& v) { dataSource = objectValue(v); });
        case RDataMember: return text(call, dataMember);
        case RSections:
            return collectionMember<SectionCollection>(call,
                                                       std::static_pointer_cast<const DataReport>(shared_from_this()),
                                                       &DataReport::sections, &DataReport::sectionNamed);
        case RFont:
            return property(
                call, [&] { return Variant(ObjectRef(font_)); },
                [&](const Variant& v) {
                    auto font = std::dynamic_pointer_cast<Font>(objectValue(v));
                    if (!font) raise(err::InvalidPropertyValue);
                    font_ = std::move(font);
                });
        case RRefresh: call.arguments(0, 0); return ++refreshes_, Variant();
    }
    raiseNoSuchMember();
}

}  // namespace telvaro::objects

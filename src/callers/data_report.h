// The caller's data report, with the members PreparaReportes uses: its
// binding (DataSource, assigned with Set, and DataMember), its sections by
// number (Sections(3), the detail) and the controls of a section, walked
// as For Each walks them. Every member is looked up by name when called.
//
// Report controls are told apart as the runtime's TypeOf tells them, by
// their class: here by TypeName, "RptTextBox" and "RptFunction" (a
// caller's object on Windows answers the name in its type information,
// "IRptTextBox" for the interface itself, which counts the same).
#pragma once

#include <functional>

#include "callers/caller_object.h"
#include "callers/control.h"

namespace telvaro::callers {

class ReportControl : public CallerObject {
public:
    using CallerObject::CallerObject;

    bool isTextBox() const { return isClass(u"RptTextBox"); }
    bool isFunction() const { return isClass(u"RptFunction"); }
    void setDataMember(const Variant& member) const { put(u"DataMember", member); }

private:
    bool isClass(StringView name) const {
        const String type = typeName();
        return type == name ||
               (type.size() == name.size() + 1 && type[0] == u'I' && StringView(type).substr(1) == name);
    }
};

class ReportSection : public CallerObject {
public:
    using CallerObject::CallerObject;

    // For Each control In section.Controls, in order.
    void forEachControl(const std::function<void(const Variant&)>& body) const {
        Control(asVariant()).forEachControl(body);
    }
};

class DataReport : public CallerObject {
public:
    using CallerObject::CallerObject;

    // Set DataSource = source (an object reference, Nothing included).
    void setDataSource(const Variant& source) const {
        Variant arg = source;
        object().invoke(u"DataSource", InvokeKind::PropertyPutRef, std::span<Variant>(&arg, 1));
    }
    void setDataMember(const Variant& member) const { put(u"DataMember", member); }
    // Sections(index): the Sections collection, then its Item at that
    // position (from 1), as the runtime reaches a collection's default
    // member.
    ReportSection section(std::int32_t index) const {
        return ReportSection(objectOf(get(u"Sections")).get(u"Item", {Variant(index)}));
    }
};

}  // namespace telvaro::callers

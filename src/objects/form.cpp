#include "objects/form.h"

#include "runtime/error.h"
#include "runtime/text.h"

namespace telvaro::objects {

namespace {

enum Member { Caption = 0, Controls, ScaleMode, Changed, GuardaRegistro, CargaDatosRegistro, Lista, ActiveForm };

}  // namespace

Form::Form(String name, bool mdi) : Control(std::move(name)), mdi_(mdi) {
    width = 4800;
    height = 3600;
}

const MemberTable& Form::members() const {
    static const MemberTable form(commonMemberNames(), {u"Caption", u"Controls", u"ScaleMode", u"Changed",
                                                        u"GuardaRegistro", u"CargaDatosRegistro", u"Lista"});
    static const MemberTable mdi(commonMemberNames(),
                                 {u"Caption", u"Controls", u"ScaleMode", u"Changed", u"GuardaRegistro",
                                  u"CargaDatosRegistro", u"Lista", u"ActiveForm"});
    return mdi_ ? mdi : form;
}

void Form::add(const ObjectRef& control, const ObjectRef& container) {
    auto c = std::dynamic_pointer_cast<Control>(control);
    if (!c || c.get() == this) raise(err::TypeMismatch);
    c->setParent(shared_from_this());
    c->setContainer(container ? container : shared_from_this());
    controls_.push_back(std::move(c));
}

std::shared_ptr<Control> Form::controlNamed(StringView name) const {
    for (const auto& c : controls_)
        if (textEquals(c->name(), name)) return c;
    return nullptr;
}

Variant Form::dispatch(int id, const MemberCall& call) {
    if (id < CommonMemberCount) return dispatchCommon(id, call);
    switch (id - CommonMemberCount) {
        case Caption:
            return property(
                call, [&] { return Variant(caption); }, [&](const Variant& v) { caption = textValue(v); });
        case Controls:
            return readOnlyProperty(call, [&] {
                return Variant(
                    ObjectRef(std::make_shared<ControlCollection>(std::static_pointer_cast<Form>(shared_from_this()))));
            });
        case ScaleMode: return choiceProperty(call, scaleMode, 7);
        case Changed:
            return property(
                call, [&] { return Variant(Boolean(changed)); },
                [&](const Variant& v) { changed = booleanValue(v).isTrue(); });
        case GuardaRegistro: {
            call.arguments(0, 0);
            const auto answer = static_cast<std::size_t>(saves_);
            const bool succeeds = saveSucceeds.empty() || saveSucceeds[std::min(answer, saveSucceeds.size() - 1)];
            ++saves_;
            if (succeeds) changed = false;
            return {};
        }
        case CargaDatosRegistro: {
            const Variant& key = call.arguments(1, 1)[0];
            if (key.isObject() && key.get<ObjectRef>())
                loaded_.push_back(key.get<ObjectRef>()->get(u""));
            else
                loaded_.push_back(key);
            return {};
        }
        case Lista: return readOnlyProperty(call, [&] { return Variant(lista); });
        case ActiveForm: return readOnlyProperty(call, [&] { return Variant(activeForm); });
    }
    raiseNoSuchMember();
}

const MemberTable& ControlCollection::members() const {
    static const MemberTable table{u"Count", u"Item", u"_NewEnum"};
    return table;
}

Variant ControlCollection::dispatch(int id, const MemberCall& call) {
    const auto& controls = items();
    switch (id) {
        case 0: return readOnlyProperty(call, [&] { return Variant(static_cast<std::int32_t>(controls.size())); });
        case 1: {
            call.readOnly();
            const Variant& which = call.indices(1)[0];
            if (which.isString()) {
                if (auto c = form_->controlNamed(which.get<String>())) return Variant(ObjectRef(c));
                raise(730, u"Control '" + which.get<String>() + u"' not found");
            }
            const auto i = longValue(which);
            if (i < 0 || static_cast<std::size_t>(i) >= controls.size()) raise(err::SubscriptOutOfRange);
            return Variant(ObjectRef(controls[static_cast<std::size_t>(i)]));
        }
        case 2: {
            call.readOnly();
            call.indices(0);
            std::vector<Variant> all;
            for (const auto& c : controls) all.emplace_back(ObjectRef(c));
            return Variant(Array::ofValues(std::move(all), 0));
        }
    }
    raiseNoSuchMember();
}

}  // namespace telvaro::objects

#include "callers/control.h"

#include "runtime/error.h"

namespace telvaro::callers {

void Control::forEachControl(const std::function<void(const Variant&)>& body) const {
    const ObjectHandle controls = objectOf(get(u"Controls"));
    Variant enumeration;
    try {
        enumeration = controls.call(u"_NewEnum");
    } catch (const RuntimeError& e) {
        // A collection without an enumerator (a script's own class) is
        // walked by position below.
        if (e.number() != err::ObjectDoesNotSupport) throw;
    }
    if (enumeration.isArray()) {
        // The enumerator is a snapshot: the items as they were when the
        // loop started.
        const std::vector<Variant> items = enumeration.array().elements();
        for (const Variant& item : items) body(item);
        return;
    }
    // No enumerator, or one the runtime cannot walk here: the collection by
    // position (Count, Item(i) from 0), as the same For Each sees it.
    const std::int32_t count = toLong(controls.get(u"Count"));
    for (std::int32_t i = 0; i < count; ++i) body(controls.call(u"Item", {Variant(i)}));
}

}  // namespace telvaro::callers

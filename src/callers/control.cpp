#include "callers/control.h"

namespace telvaro::callers {

void Control::forEachControl(const std::function<void(const Variant&)>& body) const {
    const ObjectHandle controls = objectOf(get(u"Controls"));
    Variant enumeration = controls.call(u"_NewEnum");
    if (enumeration.isArray()) {
        // The enumerator is a snapshot: the items as they were when the
        // loop started.
        const std::vector<Variant> items = enumeration.array().elements();
        for (const Variant& item : items) body(item);
        return;
    }
    // An enumerator object the runtime cannot walk here: the collection by
    // position (Count, Item(i) from 0), as the same For Each sees it.
    const std::int32_t count = toLong(controls.get(u"Count"));
    for (std::int32_t i = 0; i < count; ++i) body(controls.call(u"Item", {Variant(i)}));
}

}  // namespace telvaro::callers

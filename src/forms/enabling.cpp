#include "forms/enabling.h"

#include "callers/control.h"
#include "context/error_modes.h"
#include "runtime/text.h"

namespace telvaro::forms {

namespace {
constexpr int kContainerLevels = 4;
}  // namespace

void HabilitaControles(Fun&, const ObjectRef& NomControl, Boolean Habilitar) {
    SkipErrors onError;
    const Variant target(NomControl);
    onError([&] {
        const callers::Control container{target};
        container.parent().forEachControl([&](const Variant& item) {
            const auto control = onError.value([&] { return callers::Control{item}; });
            if (!control) {
                onError.clear();
                return;
            }
            // Each level is its own statement, walking the chain again.
            for (int level = 1; level <= kContainerLevels; ++level) {
                const auto matches = onError.value([&] {
                    callers::Control outer = control->container();
                    for (int up = 1; up < level; ++up) outer = outer.container();
                    return textEquals(outer.name(), container.name());
                });
                if (matches && *matches && !onError.failed()) onError([&] { control->setEnabled(Habilitar); });
                onError.clear();
            }
        });
    });
    onError([&] { callers::Control{target}.setEnabled(Habilitar); });
}

}  // namespace telvaro::forms

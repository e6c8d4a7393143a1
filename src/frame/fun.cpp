#include "frame/fun.h"

#include "frame/catalogue.h"
#include "frame/dispatch.h"
#include "frame/thread_state.h"
#include "platform/default_platform.h"
#include "runtime/error.h"

namespace telvaro {

Fun::Fun() : platform_(&defaultPlatform()) {}
Fun::Fun(Platform& platform) : platform_(&platform) {}

int Fun::showMessage(StringView prompt, int style, StringView title) const {
    if (threadState().messageBoxCapture) return closingAnswer(style);
    return platform_->messageBoxes().show(prompt, style, title);
}

Variant Fun::invoke(const MethodInfo& method, std::vector<Variant>& args) {
    try {
        return dispatch(*this, method, args);
    } catch (RuntimeError& e) {
        if (e.source().empty()) e.setSource(u"Telvaro.Fun");
        throw;
    }
}

Variant Fun::invoke(StringView method, std::vector<Variant>& args) {
    const MethodInfo* m = findMethod(method);
    if (!m) raise(err::ObjectDoesNotSupport);
    return invoke(*m, args);
}

Variant Fun::invoke(std::string_view method, std::vector<Variant>& args) {
    const MethodInfo* m = findMethod(method);
    if (!m) raise(err::ObjectDoesNotSupport);
    return invoke(*m, args);
}

Variant Fun::invoke(std::int32_t dispid, std::vector<Variant>& args) {
    const MethodInfo* m = findMethod(dispid);
    if (!m) raise(err::ObjectDoesNotSupport);
    return invoke(*m, args);
}

}  // namespace telvaro

// The methods of Fun built so far, bound to their C++ functions. A method
// of the catalogue that is not listed here raises "not implemented".
#include "frame/bind.h"

#include <unordered_map>

#include "text/strings.h"

namespace telvaro {

const std::vector<Binding>& bindings() {
    static const std::vector<Binding> all = {
        // Text and vectors
        bind<&text::strCuentaCaracteres>("strCuentaCaracteres"),
        bind<&text::strCadenaEntrePosicion>("strCadenaEntrePosicion"),
        bind<&text::strPosicion_XAvo_Caracter>("strPosicion_XAvo_Caracter"),
        bind<&text::fn_LlenaVector>("fn_LlenaVector"),
        bind<&text::fn_BuscaEnVector>("fn_BuscaEnVector"),
    };
    return all;
}

const Binding* findBinding(std::string_view name) {
    static const std::unordered_map<std::string_view, const Binding*> byName = [] {
        std::unordered_map<std::string_view, const Binding*> m;
        for (const auto& b : bindings()) m.emplace(b.name, &b);
        return m;
    }();
    auto it = byName.find(name);
    return it == byName.end() ? nullptr : it->second;
}

}  // namespace telvaro

#include "system/registry.h"

#include "context/fun.h"
#include "platform/ansi.h"
#include "runtime/convert.h"

namespace telvaro::system {

namespace {

Registry& registry(Fun& fun) { return fun.platform().registry(); }

// Closes a key however the method ends.
class KeyCloser {
public:
    KeyCloser(Registry& registry, std::int32_t key) : registry_(registry), key_(key) {}
    ~KeyCloser() { registry_.closeKey(key_); }
    KeyCloser(const KeyCloser&) = delete;
    KeyCloser& operator=(const KeyCloser&) = delete;

private:
    Registry& registry_;
    std::int32_t key_;
};

// Writes a value of type 1 (text and its ending zero) or 4 (32-bit
// number); other types write nothing. The status is not reported.
void FijaValorRegistro(Registry& registry, std::int32_t key, const String& name, std::int32_t type,
                       const Variant& value) {
    if (type == static_cast<std::int32_t>(regtype::Text)) {
        registry.setValue(key, name, regtype::Text, toAnsi(toString(value)) + '\0');
    } else if (type == static_cast<std::int32_t>(regtype::Number)) {
        const auto n = static_cast<std::uint32_t>(toLong(value));
        std::string bytes;
        for (int i = 0; i < 4; ++i) bytes += static_cast<char>((n >> (8 * i)) & 0xFF);
        registry.setValue(key, name, regtype::Number, bytes);
    }
}

// The value as the method returns it: the text without its ending zero, the
// number as a Long; Empty when it is missing, of another type, or cannot be
// read.
Variant LeeValorRegistro(Registry& registry, std::int32_t key, const String& name) {
    const auto value = registry.queryValue(key, name);
    if (!value) return Variant();
    if (value->type == regtype::Text) {
        if (value->data.empty()) return Variant();  // no room even for the ending zero
        return Variant(fromAnsi(std::string_view(value->data).substr(0, value->data.size() - 1)));
    }
    if (value->type == regtype::Number) {
        if (value->data.size() > 4) return Variant();  // does not fit the 32-bit buffer
        std::uint32_t n = 0;
        for (std::size_t i = value->data.size(); i-- > 0;) n = n * 256 + static_cast<unsigned char>(value->data[i]);
        return Variant(static_cast<std::int32_t>(n));
    }
    return Variant();
}

}  // namespace

std::int32_t REG_CreaClave(Fun& fun, ClavesRegistro Donde, const String& NuevaClave, Boolean CerrarClave) {
    const std::int32_t key = registry(fun).createKey(static_cast<std::int32_t>(Donde), NuevaClave);
    if (CerrarClave.isTrue()) registry(fun).closeKey(key);
    return key;  // also when closed; 0 when the key could not be created
}

std::int32_t REG_PoneValor(Fun& fun, ClavesRegistro Donde, const String& NombreClave, const String& NombreValor,
                           const Variant& ValoraPoner, std::int32_t TipoValor, const String& /*Nota*/) {
    const std::int32_t key = REG_CreaClave(fun, Donde, NombreClave, Boolean(false));
    KeyCloser closer(registry(fun), key);
    FijaValorRegistro(registry(fun), key, NombreValor, TipoValor, ValoraPoner);
    return key;
}

Variant REG_BuscaRegistro(Fun& fun, ClavesRegistro Donde, const String& ClaveBuscar, const String& ValorBuscar) {
    const std::int32_t key = registry(fun).openKey(static_cast<std::int32_t>(Donde), ClaveBuscar);
    KeyCloser closer(registry(fun), key);
    return LeeValorRegistro(registry(fun), key, ValorBuscar);
}

}  // namespace telvaro::system

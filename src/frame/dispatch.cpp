#include "frame/dispatch.h"

#include "frame/bind.h"
#include "frame/fun.h"
#include "runtime/convert.h"
#include "runtime/error.h"

namespace telvaro {

Variant coerceArgument(const Variant& value, const ParamInfo& param) {
    if (param.type == ArgType::Variant) return value;
    if (param.type == ArgType::Object) {
        if (!value.isObject()) raise(err::TypeMismatch);
        return value;
    }
    switch (value.type()) {
        case VarType::Null:
        case VarType::Error:
        case VarType::Array:
            raise(err::TypeMismatch);
        default:
            return coerce(value, varTypeOf(param.type));
    }
}

std::vector<Variant> prepareArguments(const MethodInfo& method, const std::vector<Variant>& args) {
    if (args.size() > method.params.size()) raise(err::WrongNumberOfArguments);
    std::vector<Variant> prepared;
    prepared.reserve(method.params.size());
    for (std::size_t i = 0; i < method.params.size(); ++i) {
        const ParamInfo& param = method.params[i];
        bool given = i < args.size() && !args[i].isMissing();
        if (given) {
            prepared.push_back(coerceArgument(args[i], param));
        } else if (param.optional) {
            prepared.push_back(param.defaultValue);
        } else {
            raise(err::ArgumentNotOptional);
        }
    }
    return prepared;
}

Variant dispatch(Fun& fun, const MethodInfo& method, std::vector<Variant>& args) {
    const Binding* binding = findBinding(method);
    if (!binding) raiseNotImplemented(ascii(method.name));

    std::vector<Variant> prepared = prepareArguments(method, args);
    auto writeBack = [&] {
        for (std::size_t i = 0; i < args.size() && i < prepared.size(); ++i)
            if (method.params[i].byRef && !args[i].isMissing()) args[i] = prepared[i];
    };
    try {
        Variant result = binding->entry(fun, prepared);
        writeBack();
        return result;
    } catch (...) {
        writeBack();
        throw;
    }
}

}  // namespace telvaro

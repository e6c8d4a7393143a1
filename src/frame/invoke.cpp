#include "frame/invoke.h"

#include <new>
#include <stdexcept>

#include "frame/bind.h"
#include "runtime/error.h"

namespace telvaro {

namespace {

const MethodInfo& known(const MethodInfo* method) {
    if (!method) raise(err::ObjectDoesNotSupport);
    return *method;
}

Variant run(Fun& fun, const MethodInfo& method, std::span<Variant> args) {
    const Binding* binding = findBinding(method);
    if (!binding) raiseNotImplemented(ascii(method.name));
    return binding->entry(fun, method, args);
}

// Every error leaves the library as a run-time error with the library as
// its source.
template <class Call>
Variant asLibrary(Call&& call) {
    try {
        return call();
    } catch (RuntimeError& e) {
        if (e.source().empty()) e.setSource(String(kErrorSource));
        throw;
    } catch (const std::bad_alloc&) {
        throw RuntimeError(err::OutOfMemory, standardDescription(err::OutOfMemory), String(kErrorSource));
    } catch (const std::length_error&) {
        throw RuntimeError(err::OutOfStringSpace, standardDescription(err::OutOfStringSpace), String(kErrorSource));
    }
}

}  // namespace

Variant invoke(Fun& fun, const MethodInfo& method, std::span<Variant> args) {
    return asLibrary([&] { return run(fun, method, args); });
}

Variant invoke(Fun& fun, std::string_view method, std::span<Variant> args) {
    return asLibrary([&] { return run(fun, known(findMethod(method)), args); });
}

Variant invoke(Fun& fun, StringView method, std::span<Variant> args) {
    return asLibrary([&] { return run(fun, known(findMethod(method)), args); });
}

Variant invoke(Fun& fun, std::int32_t dispid, std::span<Variant> args) {
    return asLibrary([&] { return run(fun, known(findMethod(dispid)), args); });
}

}  // namespace telvaro

// Binding a typed C++ method to late-bound dispatch. A method is written as
// a plain function whose first parameter is the Fun and whose other
// parameters have the C++ types of its declared types:
//
//     std::int16_t strCuentaCaracteres(Fun&, const String& Cadena,
//                                      const String& Caracter, std::int16_t PosInicio);
//
// bind<&strCuentaCaracteres>() makes the entry that dispatch calls with the
// arguments already coerced to the declared types. A parameter taken as a
// non-const reference is by reference: whatever the method leaves in it is
// written back, also when the method fails. The binding also records the
// C++ signature so that a test can check it against the catalogue.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <vector>

#include "frame/catalogue.h"
#include "frame/enums.h"
#include "runtime/checked.h"
#include "runtime/convert.h"
#include "runtime/object.h"

namespace telvaro {

class Fun;

using MethodEntry = Variant (*)(Fun&, std::span<Variant>);

struct Binding {
    std::string_view name;
    MethodEntry entry = nullptr;
    ArgType result = ArgType::None;
    std::vector<ArgType> params;
    std::vector<bool> byRef;
};

// How a C++ parameter type maps to a declared type and back.
template <typename T, typename Enable = void>
struct ArgTraits;

template <>
struct ArgTraits<String> {
    static constexpr ArgType type = ArgType::String;
    static String from(const Variant& v) { return toString(v); }
    static Variant to(const String& x) { return Variant(x); }
};
template <>
struct ArgTraits<std::int16_t> {
    static constexpr ArgType type = ArgType::Integer;
    static std::int16_t from(const Variant& v) { return toInteger(v); }
    static Variant to(std::int16_t x) { return Variant(x); }
};
template <>
struct ArgTraits<Int16> {
    static constexpr ArgType type = ArgType::Integer;
    static Int16 from(const Variant& v) { return Int16(toInteger(v)); }
    static Variant to(Int16 x) { return Variant(x.value()); }
};
template <>
struct ArgTraits<std::int32_t> {
    static constexpr ArgType type = ArgType::Long;
    static std::int32_t from(const Variant& v) { return toLong(v); }
    static Variant to(std::int32_t x) { return Variant(x); }
};
template <>
struct ArgTraits<Int32> {
    static constexpr ArgType type = ArgType::Long;
    static Int32 from(const Variant& v) { return Int32(toLong(v)); }
    static Variant to(Int32 x) { return Variant(x.value()); }
};
template <>
struct ArgTraits<double> {
    static constexpr ArgType type = ArgType::Double;
    static double from(const Variant& v) { return toDouble(v); }
    static Variant to(double x) { return Variant(x); }
};
template <>
struct ArgTraits<Boolean> {
    static constexpr ArgType type = ArgType::Boolean;
    static Boolean from(const Variant& v) { return toBoolean(v); }
    static Variant to(Boolean x) { return Variant(x); }
};
template <>
struct ArgTraits<std::uint8_t> {
    static constexpr ArgType type = ArgType::Byte;
    static std::uint8_t from(const Variant& v) { return toByteValue(v); }
    static Variant to(std::uint8_t x) { return Variant(x); }
};
template <>
struct ArgTraits<Date> {
    static constexpr ArgType type = ArgType::Date;
    static Date from(const Variant& v) { return toDate(v); }
    static Variant to(Date x) { return Variant(x); }
};
template <>
struct ArgTraits<Currency> {
    static constexpr ArgType type = ArgType::Currency;
    static Currency from(const Variant& v) { return toCurrency(v); }
    static Variant to(Currency x) { return Variant(x); }
};
template <>
struct ArgTraits<Variant> {
    static constexpr ArgType type = ArgType::Variant;
    static Variant from(const Variant& v) { return v; }
    static Variant to(const Variant& x) { return x; }
};
template <>
struct ArgTraits<ObjectRef> {
    static constexpr ArgType type = ArgType::Object;
    static ObjectRef from(const Variant& v) { return v.isObject() ? v.get<ObjectRef>() : ObjectRef(); }
    static Variant to(const ObjectRef& x) { return Variant(x); }
};
// The published enumerations travel as Long.
template <typename E>
struct ArgTraits<E, std::enable_if_t<std::is_enum_v<E>>> {
    static constexpr ArgType type = ArgType::Long;
    static E from(const Variant& v) { return static_cast<E>(toLong(v)); }
    static Variant to(E x) { return Variant(static_cast<std::int32_t>(x)); }
};

namespace detail {

template <typename P>
using Value = std::remove_cvref_t<P>;

template <typename P>
inline constexpr bool isByRef = std::is_lvalue_reference_v<P> && !std::is_const_v<std::remove_reference_t<P>>;

template <typename F>
struct Signature;
template <typename R, typename... Ps>
struct Signature<R (*)(Fun&, Ps...)> {
    using Result = R;
    using Params = std::tuple<Ps...>;
    static constexpr std::size_t arity = sizeof...(Ps);
};

// The arguments of one call, converted from the Variants; by-reference ones
// are written back when the call ends, however it ends.
template <typename... Ps>
class CallFrame {
public:
    explicit CallFrame(std::span<Variant> args) : args_(args), values_(load(args, std::index_sequence_for<Ps...>{})) {}
    ~CallFrame() { store(std::index_sequence_for<Ps...>{}); }
    CallFrame(const CallFrame&) = delete;
    CallFrame& operator=(const CallFrame&) = delete;

    std::tuple<Value<Ps>...>& values() { return values_; }

private:
    template <std::size_t... I>
    static std::tuple<Value<Ps>...> load([[maybe_unused]] std::span<Variant> args, std::index_sequence<I...>) {
        return std::tuple<Value<Ps>...>(ArgTraits<Value<Ps>>::from(args[I])...);
    }
    template <std::size_t... I>
    void store(std::index_sequence<I...>) noexcept {
        ((isByRef<Ps> ? void(args_[I] = ArgTraits<Value<Ps>>::to(std::get<I>(values_))) : void()), ...);
    }

    std::span<Variant> args_;
    std::tuple<Value<Ps>...> values_;
};

template <auto F, typename R, typename... Ps, std::size_t... I>
Variant callWith(Fun& fun, [[maybe_unused]] std::span<Variant> args, std::index_sequence<I...>) {
    CallFrame<Ps...> frame(args);
    auto& values = frame.values();
    if constexpr (std::is_void_v<R>) {
        F(fun, std::get<I>(values)...);
        return Variant();
    } else {
        return ArgTraits<Value<R>>::to(F(fun, std::get<I>(values)...));
    }
}

template <auto F, typename R, typename... Ps>
Variant entryOf(Fun& fun, std::span<Variant> args, std::tuple<Ps...>*) {
    return callWith<F, R, Ps...>(fun, args, std::index_sequence_for<Ps...>{});
}

template <auto F>
Variant entry(Fun& fun, std::span<Variant> args) {
    using S = Signature<decltype(F)>;
    return entryOf<F, typename S::Result>(fun, args, static_cast<typename S::Params*>(nullptr));
}

template <typename R>
constexpr ArgType resultType() {
    if constexpr (std::is_void_v<R>)
        return ArgType::None;
    else
        return ArgTraits<Value<R>>::type;
}

template <typename... Ps>
void describe(Binding& b, std::tuple<Ps...>*) {
    b.params = {ArgTraits<Value<Ps>>::type...};
    b.byRef = {isByRef<Ps>...};
}

}  // namespace detail

template <auto F>
Binding bind(std::string_view name) {
    using S = detail::Signature<decltype(F)>;
    Binding b;
    b.name = name;
    b.entry = &detail::entry<F>;
    b.result = detail::resultType<typename S::Result>();
    detail::describe(b, static_cast<typename S::Params*>(nullptr));
    return b;
}

// The methods built so far (frame/bindings.cpp). Methods of the catalogue
// without a binding raise "not implemented".
const std::vector<Binding>& bindings();
const Binding* findBinding(std::string_view name);
const Binding* findBinding(const MethodInfo& method);

}  // namespace telvaro

// Binding a typed C++ method to late-bound dispatch. A method is written as
// a plain function whose first parameter is the Fun and whose other
// parameters have the C++ types of its declared types:
//
//     std::int16_t strCuentaCaracteres(Fun&, const String& Cadena,
//                                      const String& Caracter, std::int16_t PosInicio);
//
// bind<&strCuentaCaracteres>() makes the entry that invoke calls: it
// coerces the caller's arguments straight into the C++ parameter types and
// supplies the defaults of omitted optional ones. A parameter taken as a
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

#include "context/enums.h"
#include "frame/catalogue.h"
#include "runtime/checked.h"
#include "runtime/convert.h"
#include "runtime/error.h"
#include "runtime/object.h"

namespace telvaro {

class Fun;

// Runs a method on the caller's arguments as given (one per parameter at
// most; an omitted optional one absent or the missing marker).
using MethodEntry = Variant (*)(Fun&, const MethodInfo&, std::span<Variant>);

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

// A text the method reads but cannot change: the caller's own String when
// the argument already is one (no copy), else the converted text.
class TextArgument {
public:
    explicit TextArgument(const String* caller) : caller_(caller) {}
    explicit TextArgument(String converted) : caller_(nullptr), converted_(std::move(converted)) {}
    operator const String&() const { return caller_ ? *caller_ : converted_; }  // NOLINT: stands for the text

private:
    const String* caller_;
    String converted_;
};

// What a parameter is held as during the call: its value, or for a
// read-only text the TextArgument above.
template <typename P>
struct HeldAs {
    using type = Value<P>;
};
template <>
struct HeldAs<const String&> {
    using type = TextArgument;
};
template <typename P>
using Held = typename HeldAs<P>::type;

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

inline bool given(std::span<const Variant> args, std::size_t i) { return i < args.size() && !args[i].isMissing(); }

// The value parameter `i` takes: the caller's argument coerced to the
// declared type, as a late-bound call coerces it (a Null, an error value or
// an array for a typed parameter, or a non-object for an object parameter,
// is error 13), or the default of an omitted optional parameter; error 449
// for an omitted required one.
template <typename T>
T argument(const ParamInfo& param, std::span<Variant> args, std::size_t i) {
    if (!given(args, i)) {
        if (!param.optional) raise(err::ArgumentNotOptional);
        return ArgTraits<T>::from(param.defaultValue);
    }
    const Variant& v = args[i];
    if constexpr (ArgTraits<T>::type == ArgType::Object) {
        if (!v.isObject()) raise(err::TypeMismatch);
    } else if constexpr (ArgTraits<T>::type != ArgType::Variant) {
        const VarType t = v.type();
        if (t == VarType::Null || t == VarType::Error || t == VarType::Array) raise(err::TypeMismatch);
    }
    return ArgTraits<T>::from(v);
}

template <>
inline TextArgument argument<TextArgument>(const ParamInfo& param, std::span<Variant> args, std::size_t i) {
    if (given(args, i) && args[i].isString()) return TextArgument(&args[i].get<String>());
    return TextArgument(argument<String>(param, args, i));
}

// The arguments of one call, converted from the caller's Variants in
// parameter order; the arguments the caller gave for by-reference
// parameters go back into the caller's Variants, in the declared type and
// with whatever the method left in them, when the call ends, however it
// ends. This is
// the one place where by-reference arguments go back.
template <typename... Ps>
class CallFrame {
public:
    CallFrame(const MethodInfo& method, std::span<Variant> args)
        : method_(method), args_(args), values_(load(method, args, std::index_sequence_for<Ps...>{})) {}
    ~CallFrame() { store(std::index_sequence_for<Ps...>{}); }
    CallFrame(const CallFrame&) = delete;
    CallFrame& operator=(const CallFrame&) = delete;

    std::tuple<Held<Ps>...>& values() { return values_; }

private:
    // Braces: the arguments are taken left to right, as the caller wrote them.
    template <std::size_t... I>
    static std::tuple<Held<Ps>...> load(const MethodInfo& method, [[maybe_unused]] std::span<Variant> args,
                                        std::index_sequence<I...>) {
        if (args.size() > sizeof...(Ps)) raise(err::WrongNumberOfArguments);
        return std::tuple<Held<Ps>...>{argument<Held<Ps>>(method.params[I], args, I)...};
    }
    // A parameter the method cannot change and an argument that already had
    // the declared type need nothing written: the caller's value stands.
    template <std::size_t I, typename P>
    void storeOne() noexcept {
        if (!method_.params[I].byRef || !given(args_, I)) return;
        if constexpr (!isByRef<P>) {
            if (ArgTraits<Value<P>>::type == ArgType::Variant ||
                args_[I].type() == varTypeOf(ArgTraits<Value<P>>::type))
                return;
        }
        args_[I] = ArgTraits<Value<P>>::to(static_cast<const Value<P>&>(std::get<I>(values_)));
    }
    template <std::size_t... I>
    void store(std::index_sequence<I...>) noexcept {
        (storeOne<I, Ps>(), ...);
    }

    const MethodInfo& method_;
    std::span<Variant> args_;
    std::tuple<Held<Ps>...> values_;
};

template <auto F, typename R, typename... Ps, std::size_t... I>
Variant callWith(Fun& fun, const MethodInfo& method, std::span<Variant> args, std::index_sequence<I...>) {
    CallFrame<Ps...> frame(method, args);
    [[maybe_unused]] auto& values = frame.values();
    if constexpr (std::is_void_v<R>) {
        F(fun, std::get<I>(values)...);
        return Variant();
    } else {
        return ArgTraits<Value<R>>::to(F(fun, std::get<I>(values)...));
    }
}

template <auto F, typename R, typename... Ps>
Variant entryOf(Fun& fun, const MethodInfo& method, std::span<Variant> args, std::tuple<Ps...>*) {
    return callWith<F, R, Ps...>(fun, method, args, std::index_sequence_for<Ps...>{});
}

template <auto F>
Variant entry(Fun& fun, const MethodInfo& method, std::span<Variant> args) {
    using S = Signature<decltype(F)>;
    return entryOf<F, typename S::Result>(fun, method, args, static_cast<typename S::Params*>(nullptr));
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

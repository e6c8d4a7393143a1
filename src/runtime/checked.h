// Integer (16-bit) and Long (32-bit) with the runtime's checked arithmetic:
// any result outside the type's range raises error 6 (overflow) instead of
// wrapping. Method bodies use Int16 and Int32 wherever a counter, position or
// argument is an Integer or a Long.
#pragma once

#include <cmath>
#include <concepts>
#include <cstdint>
#include <limits>
#include <type_traits>

#include "runtime/error.h"

namespace telvaro {

// Round half to even, as the runtime does when a Double becomes an integer.
inline double roundHalfEven(double x) {
    double r = std::nearbyint(x);  // default rounding mode is to-nearest-even
    return r;
}

template <typename T>
class Checked {
public:
    using value_type = T;
    static constexpr std::int64_t min = std::numeric_limits<T>::min();
    static constexpr std::int64_t max = std::numeric_limits<T>::max();

    constexpr Checked() = default;
    constexpr Checked(T v) : v_(v) {}  // NOLINT: implicit from the exact type

    // Any wider integer, range-checked.
    static Checked of(std::int64_t v) {
        if (v < min || v > max) raise(err::Overflow);
        return Checked(static_cast<T>(v));
    }
    // A Double, rounded half to even, then range-checked.
    static Checked ofDouble(double d) {
        if (std::isnan(d)) raise(err::Overflow);
        double r = roundHalfEven(d);
        if (r < static_cast<double>(min) || r > static_cast<double>(max)) raise(err::Overflow);
        return Checked(static_cast<T>(r));
    }

    constexpr T value() const { return v_; }
    constexpr operator T() const { return v_; }  // NOLINT: reads like the plain value

    Checked& operator+=(Checked o) { return *this = of(std::int64_t(v_) + o.v_); }
    Checked& operator-=(Checked o) { return *this = of(std::int64_t(v_) - o.v_); }
    Checked& operator*=(Checked o) { return *this = of(std::int64_t(v_) * o.v_); }
    Checked& operator++() { return *this += Checked(T(1)); }
    Checked& operator--() { return *this -= Checked(T(1)); }

    friend Checked operator+(Checked a, Checked b) { return of(std::int64_t(a.v_) + b.v_); }
    friend Checked operator-(Checked a, Checked b) { return of(std::int64_t(a.v_) - b.v_); }
    friend Checked operator*(Checked a, Checked b) { return of(std::int64_t(a.v_) * b.v_); }
    friend Checked operator-(Checked a) { return of(-std::int64_t(a.v_)); }

    // Mixed with plain integers (literals): still checked, result in this type.
    template <std::integral U>
    friend Checked operator+(Checked a, U b) {
        return of(std::int64_t(a.v_) + std::int64_t(b));
    }
    template <std::integral U>
    friend Checked operator+(U a, Checked b) {
        return of(std::int64_t(a) + b.v_);
    }
    template <std::integral U>
    friend Checked operator-(Checked a, U b) {
        return of(std::int64_t(a.v_) - std::int64_t(b));
    }
    template <std::integral U>
    friend Checked operator-(U a, Checked b) {
        return of(std::int64_t(a) - b.v_);
    }
    template <std::integral U>
    friend Checked operator*(Checked a, U b) {
        return of(std::int64_t(a.v_) * std::int64_t(b));
    }
    template <std::integral U>
    friend Checked operator*(U a, Checked b) {
        return of(std::int64_t(a) * b.v_);
    }

private:
    T v_ = 0;
};

using Int16 = Checked<std::int16_t>;
using Int32 = Checked<std::int32_t>;

// The runtime's For loop over a checked counter: the end bound is first
// converted to the counter's type (error 6 when it does not fit), and after
// the last round the counter still steps past the end, which overflows when
// the end is the type's maximum. The body may return false to leave the loop
// early (Exit For).
template <typename T, typename Body>
void forLoop(Checked<T> from, std::int64_t to, Body&& body) {
    const Checked<T> end = Checked<T>::of(to);
    for (Checked<T> i = from; i.value() <= end.value(); ++i) {
        if constexpr (std::is_same_v<decltype(body(i)), bool>) {
            if (!body(i)) return;
        } else {
            body(i);
        }
    }
}

// Range-checked narrowing helpers for code that computes in a wider type.
inline std::int16_t toInt16(std::int64_t v) { return Int16::of(v).value(); }
inline std::int32_t toInt32(std::int64_t v) { return Int32::of(v).value(); }
inline std::uint8_t toByte(std::int64_t v) {
    if (v < 0 || v > 255) raise(err::Overflow);
    return static_cast<std::uint8_t>(v);
}

}  // namespace telvaro

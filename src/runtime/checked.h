// Integer (16-bit) and Long (32-bit) with the runtime's checked arithmetic:
// any result outside the type's range raises error 6 (overflow) instead of
// wrapping. Method bodies use Int16 and Int32 wherever a counter, position or
// argument is an Integer or a Long.
#pragma once

#include <cmath>
#include <cstdint>
#include <limits>

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

private:
    T v_ = 0;
};

using Int16 = Checked<std::int16_t>;
using Int32 = Checked<std::int32_t>;

// Range-checked narrowing helpers for code that computes in a wider type.
inline std::int16_t toInt16(std::int64_t v) { return Int16::of(v).value(); }
inline std::int32_t toInt32(std::int64_t v) { return Int32::of(v).value(); }
inline std::uint8_t toByte(std::int64_t v) {
    if (v < 0 || v > 255) raise(err::Overflow);
    return static_cast<std::uint8_t>(v);
}

}  // namespace telvaro

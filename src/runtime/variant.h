// Variant: the automation runtime's value. Each alternative is a distinct
// C++ type so that Integer is never confused with Long, Date with Double, or
// Currency with a plain 64-bit number. Arrays have value semantics (copy on
// write) like the runtime's arrays; objects are shared references.
#pragma once

#include <cstdint>
#include <iterator>
#include <memory>
#include <variant>
#include <vector>

#include "runtime/decimal.h"
#include "runtime/ustring.h"

namespace telvaro {

class Object;
class Array;
class Variant;

// Type codes; the numbers are the automation VARTYPE codes.
enum class VarType : std::uint16_t {
    Empty = 0,
    Null = 1,
    Integer = 2,
    Long = 3,
    Double = 5,
    Currency = 6,
    Date = 7,
    String = 8,
    Object = 9,
    Error = 10,
    Boolean = 11,
    Variant = 12,  // only as an array element type
    Decimal = 14,
    Byte = 17,
    Array = 0x2000,
};

struct Null {
    friend bool operator==(Null, Null) { return true; }
};
// The Error subtype; the only one in use is the missing-argument marker.
struct ErrorCode {
    std::int32_t scode = 0;
    friend bool operator==(ErrorCode, ErrorCode) = default;
};
inline constexpr std::int32_t kMissingArgument = static_cast<std::int32_t>(0x80020004u);

// Boolean keeps the caller's 16 bits: True is -1, False 0, and any other
// value passed in is kept as it came.
struct Boolean {
    std::int16_t bits = 0;
    constexpr Boolean() = default;
    constexpr explicit Boolean(bool b) : bits(b ? -1 : 0) {}
    static constexpr Boolean fromBits(std::int16_t bits) {
        Boolean b;
        b.bits = bits;
        return b;
    }
    constexpr bool isTrue() const { return bits != 0; }
    friend bool operator==(Boolean, Boolean) = default;
};
inline constexpr Boolean True{true};
inline constexpr Boolean False{false};

// Currency: a count of 1/10000 units in 64 bits.
struct Currency {
    std::int64_t scaled = 0;
    friend bool operator==(Currency, Currency) = default;
};

// Date: days since 30 December 1899; the fraction is the time of day.
struct Date {
    double serial = 0;
    friend bool operator==(Date, Date) = default;
};

using ObjectRef = std::shared_ptr<Object>;

class Variant {
public:
    using Storage = std::variant<std::monostate, Null, ErrorCode, Boolean, std::uint8_t, std::int16_t, std::int32_t,
                                 Currency, Decimal, double, Date, String, ObjectRef, std::shared_ptr<const Array>>;

    Variant() = default;
    Variant(Null v) : v_(v) {}                     // NOLINT
    Variant(ErrorCode v) : v_(v) {}                // NOLINT
    Variant(Boolean v) : v_(v) {}                  // NOLINT
    Variant(std::uint8_t v) : v_(v) {}             // NOLINT Byte
    Variant(std::int16_t v) : v_(v) {}             // NOLINT Integer
    Variant(std::int32_t v) : v_(v) {}             // NOLINT Long (a plain int literal is a Long)
    Variant(Currency v) : v_(v) {}                 // NOLINT
    Variant(const Decimal& v) : v_(v) {}           // NOLINT
    Variant(double v) : v_(v) {}                   // NOLINT Double
    Variant(Date v) : v_(v) {}                     // NOLINT
    Variant(String v) : v_(std::move(v)) {}        // NOLINT
    Variant(const char16_t* v) : v_(String(v)) {}  // NOLINT
    Variant(ObjectRef v) : v_(std::move(v)) {}     // NOLINT (a null reference is Nothing)
    Variant(Array v);                              // NOLINT
    Variant(bool) = delete;                        // say Boolean(b): a C++ bool is ambiguous

    static Variant missing() { return Variant(ErrorCode{kMissingArgument}); }

    VarType type() const {
        static constexpr VarType byIndex[] = {VarType::Empty,   VarType::Null,    VarType::Error, VarType::Boolean,
                                              VarType::Byte,    VarType::Integer, VarType::Long,  VarType::Currency,
                                              VarType::Decimal, VarType::Double,  VarType::Date,  VarType::String,
                                              VarType::Object,  VarType::Array};
        static_assert(std::size(byIndex) == std::variant_size_v<Storage>);
        return byIndex[v_.index()];
    }
    bool isEmpty() const { return v_.index() == 0; }
    bool isNull() const { return std::holds_alternative<Null>(v_); }
    bool isMissing() const {
        auto* e = std::get_if<ErrorCode>(&v_);
        return e && e->scode == kMissingArgument;
    }
    bool isArray() const { return std::holds_alternative<std::shared_ptr<const Array>>(v_); }
    bool isObject() const { return std::holds_alternative<ObjectRef>(v_); }
    bool isString() const { return std::holds_alternative<String>(v_); }
    // Integer, Long, Byte, Double, Currency, Decimal, Boolean (not Date, not String).
    bool isNumber() const;

    template <typename T>
    bool holds() const {
        return std::holds_alternative<T>(v_);
    }
    template <typename T>
    const T& get() const {
        return std::get<T>(v_);
    }
    template <typename T>
    T& get() {
        return std::get<T>(v_);
    }

    const Storage& storage() const { return v_; }

    // Array access; error 13 when the value is not an array.
    const Array& array() const;
    Array& mutableArray();  // copies first when the array is shared

    const ObjectRef& object() const;  // error 13 when not an object

private:
    Storage v_;
};

// The runtime's type name of a value: "Integer", "String", "Variant()", ...
String typeName(const Variant& v);
// The VarType name used by the batch protocol and tests ("Integer", "Array", ...).
const char* varTypeName(VarType t);

struct ArrayDimension {
    std::int32_t lower = 0;
    std::int32_t count = 0;
    std::int32_t upper() const { return lower + count - 1; }
};

// A one- or two-dimensional array with any lower bounds. Elements are
// Variants; elementType records the declared element type (Variant for
// arrays of Variants, Byte for byte arrays, String for string arrays) so the
// COM edge can build the matching SAFEARRAY.
class Array {
public:
    Array() = default;
    static Array vector(std::int32_t lower, std::int32_t upper, VarType elementType = VarType::Variant);
    static Array matrix(std::int32_t lower1, std::int32_t upper1, std::int32_t lower2, std::int32_t upper2,
                        VarType elementType = VarType::Variant);
    static Array ofValues(std::vector<Variant> values, std::int32_t lower = 0);
    // A one-dimensional Byte array held compactly, a byte an element (binary
    // field values, files read whole). Its elements become Variants only when
    // they are reached one by one (at, elements); compactBytes() reads them
    // without that.
    static Array bytes(std::vector<std::uint8_t> data, std::int32_t lower = 0);

    int dimensions() const { return static_cast<int>(dims_.size()); }
    // Bounds of dimension 1 or 2; error 9 for a dimension the array lacks.
    std::int32_t lbound(int dimension = 1) const;
    std::int32_t ubound(int dimension = 1) const;
    const ArrayDimension& dimension(int dimension) const;
    VarType elementType() const { return elementType_; }
    std::size_t size() const { return compact_ ? bytes_.size() : items_.size(); }
    // The bytes of an array made by bytes() and not changed since; nullptr
    // for any other array.
    const std::vector<std::uint8_t>* compactBytes() const { return compact_ ? &bytes_ : nullptr; }

    // Element access by subscripts; error 9 when out of range.
    const Variant& at(std::int32_t i) const;
    Variant& at(std::int32_t i);
    const Variant& at(std::int32_t i, std::int32_t j) const;
    Variant& at(std::int32_t i, std::int32_t j);

    // All elements, first subscript varying fastest (the SAFEARRAY order).
    const std::vector<Variant>& elements() const {
        materialize();
        return items_;
    }
    std::vector<Variant>& elements() {
        loosen();
        return items_;
    }

    friend bool operator==(const Array& a, const Array& b);

private:
    std::size_t offset(std::int32_t i) const;
    std::size_t offset(std::int32_t i, std::int32_t j) const;

    // A compact array's elements as Variants, made on first reach and kept
    // beside the bytes while the array is only read (the lazy fill of a
    // shared const array: arrays belong to the thread that made them).
    void materialize() const;
    // Before a change through a mutable reference: the Variants become the
    // elements and the bytes are dropped.
    void loosen();

    std::vector<ArrayDimension> dims_;
    mutable std::vector<Variant> items_;
    std::vector<std::uint8_t> bytes_;
    bool compact_ = false;
    VarType elementType_ = VarType::Variant;
};

// Same type and same value (arrays element by element, objects by identity).
// Used by tests and the batch protocol; not the runtime's "=" operator.
bool identical(const Variant& a, const Variant& b);

}  // namespace telvaro

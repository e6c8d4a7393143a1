#include "runtime/variant.h"

#include "runtime/error.h"
#include "runtime/object.h"

namespace telvaro {

Variant::Variant(Array v) : v_(std::make_shared<const Array>(std::move(v))) {}

bool Variant::isNumber() const {
    switch (type()) {
        case VarType::Integer:
        case VarType::Long:
        case VarType::Byte:
        case VarType::Double:
        case VarType::Currency:
        case VarType::Decimal:
        case VarType::Boolean: return true;
        default: return false;
    }
}

const Array& Variant::array() const {
    auto* a = std::get_if<std::shared_ptr<const Array>>(&v_);
    if (!a || !*a) raise(err::TypeMismatch);
    return **a;
}

Array& Variant::mutableArray() {
    auto* a = std::get_if<std::shared_ptr<const Array>>(&v_);
    if (!a || !*a) raise(err::TypeMismatch);
    if (a->use_count() > 1) *a = std::make_shared<const Array>(**a);
    return const_cast<Array&>(**a);  // sole owner: safe to modify
}

const ObjectRef& Variant::object() const {
    auto* o = std::get_if<ObjectRef>(&v_);
    if (!o) raise(err::TypeMismatch);
    return *o;
}

const char* varTypeName(VarType t) {
    switch (t) {
        case VarType::Empty: return "Empty";
        case VarType::Null: return "Null";
        case VarType::Integer: return "Integer";
        case VarType::Long: return "Long";
        case VarType::Double: return "Double";
        case VarType::Currency: return "Currency";
        case VarType::Date: return "Date";
        case VarType::String: return "String";
        case VarType::Object: return "Object";
        case VarType::Error: return "Error";
        case VarType::Boolean: return "Boolean";
        case VarType::Variant: return "Variant";
        case VarType::Decimal: return "Decimal";
        case VarType::Byte: return "Byte";
        case VarType::Array: return "Array";
    }
    return "Unknown";
}

String typeName(const Variant& v) {
    if (v.isArray()) return ascii(varTypeName(v.array().elementType())) + u"()";
    if (v.isObject()) {
        const auto& o = v.get<ObjectRef>();
        return o ? o->typeName() : String(u"Nothing");
    }
    return ascii(varTypeName(v.type()));
}

// ---- Array ----

Array Array::vector(std::int32_t lower, std::int32_t upper, VarType elementType) {
    Array a;
    std::int64_t count = std::int64_t(upper) - lower + 1;
    if (count < 0) raise(err::SubscriptOutOfRange);
    a.dims_.push_back({lower, static_cast<std::int32_t>(count)});
    a.items_.resize(static_cast<std::size_t>(count));
    a.elementType_ = elementType;
    return a;
}

Array Array::matrix(std::int32_t lower1, std::int32_t upper1, std::int32_t lower2, std::int32_t upper2,
                    VarType elementType) {
    Array a;
    std::int64_t c1 = std::int64_t(upper1) - lower1 + 1, c2 = std::int64_t(upper2) - lower2 + 1;
    if (c1 < 0 || c2 < 0) raise(err::SubscriptOutOfRange);
    if (c1 * c2 > (std::int64_t(1) << 28)) raise(err::OutOfMemory);
    a.dims_.push_back({lower1, static_cast<std::int32_t>(c1)});
    a.dims_.push_back({lower2, static_cast<std::int32_t>(c2)});
    a.items_.resize(static_cast<std::size_t>(c1 * c2));
    a.elementType_ = elementType;
    return a;
}

Array Array::ofValues(std::vector<Variant> values, std::int32_t lower) {
    Array a;
    a.dims_.push_back({lower, static_cast<std::int32_t>(values.size())});
    a.items_ = std::move(values);
    return a;
}

Array Array::bytes(std::vector<std::uint8_t> data, std::int32_t lower) {
    if (data.size() > static_cast<std::size_t>(INT32_MAX)) raise(err::OutOfMemory);
    Array a;
    a.dims_.push_back({lower, static_cast<std::int32_t>(data.size())});
    a.bytes_ = std::move(data);
    a.compact_ = true;
    a.elementType_ = VarType::Byte;
    return a;
}

void Array::materialize() const {
    if (!compact_ || items_.size() == bytes_.size()) return;
    items_.assign(bytes_.begin(), bytes_.end());
}

void Array::loosen() {
    if (!compact_) return;
    materialize();
    bytes_.clear();
    bytes_.shrink_to_fit();
    compact_ = false;
}

const ArrayDimension& Array::dimension(int d) const {
    if (d < 1 || d > dimensions()) raise(err::SubscriptOutOfRange);
    return dims_[static_cast<std::size_t>(d - 1)];
}

std::int32_t Array::lbound(int d) const { return dimension(d).lower; }
std::int32_t Array::ubound(int d) const { return dimension(d).upper(); }

std::size_t Array::offset(std::int32_t i) const {
    if (dims_.size() != 1) raise(err::SubscriptOutOfRange);
    std::int64_t k = std::int64_t(i) - dims_[0].lower;
    if (k < 0 || k >= dims_[0].count) raise(err::SubscriptOutOfRange);
    return static_cast<std::size_t>(k);
}

std::size_t Array::offset(std::int32_t i, std::int32_t j) const {
    if (dims_.size() != 2) raise(err::SubscriptOutOfRange);
    std::int64_t a = std::int64_t(i) - dims_[0].lower, b = std::int64_t(j) - dims_[1].lower;
    if (a < 0 || a >= dims_[0].count || b < 0 || b >= dims_[1].count) raise(err::SubscriptOutOfRange);
    return static_cast<std::size_t>(a + b * dims_[0].count);
}

const Variant& Array::at(std::int32_t i) const {
    const std::size_t k = offset(i);
    materialize();
    return items_[k];
}
Variant& Array::at(std::int32_t i) {
    const std::size_t k = offset(i);
    loosen();
    return items_[k];
}
const Variant& Array::at(std::int32_t i, std::int32_t j) const {
    const std::size_t k = offset(i, j);
    materialize();
    return items_[k];
}
Variant& Array::at(std::int32_t i, std::int32_t j) {
    const std::size_t k = offset(i, j);
    loosen();
    return items_[k];
}

bool operator==(const Array& a, const Array& b) {
    if (a.elementType_ != b.elementType_ || a.dims_.size() != b.dims_.size()) return false;
    for (std::size_t d = 0; d < a.dims_.size(); ++d)
        if (a.dims_[d].lower != b.dims_[d].lower || a.dims_[d].count != b.dims_[d].count) return false;
    if (a.compact_ && b.compact_) return a.bytes_ == b.bytes_;
    const auto& x = a.elements();
    const auto& y = b.elements();
    for (std::size_t k = 0; k < x.size(); ++k)
        if (!identical(x[k], y[k])) return false;
    return true;
}

bool identical(const Variant& a, const Variant& b) {
    if (a.type() != b.type()) return false;
    if (a.isArray()) return a.array() == b.array();
    if (a.holds<double>()) {
        double x = a.get<double>(), y = b.get<double>();
        return x == y || (x != x && y != y);
    }
    if (a.holds<Decimal>()) {
        const auto &x = a.get<Decimal>(), &y = b.get<Decimal>();
        return x == y && x.scale() == y.scale();
    }
    return a.storage() == b.storage();
}

}  // namespace telvaro

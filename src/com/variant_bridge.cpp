#include "com/variant_bridge.h"

#include <oleauto.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>

#include "com/com_handles.h"
#include "com/core_dispatch.h"
#include "com/dispatch_object.h"
#include "host/win32_pictures.h"
#include "runtime/convert.h"
#include "runtime/decimal.h"
#include "runtime/error.h"

namespace telvaro::com {

namespace {

Variant fromDecimal(const DECIMAL& d) {
    return Decimal::fromParts(d.Lo32, d.Mid32, d.Hi32, d.scale, (d.sign & DECIMAL_NEG) != 0);
}

DECIMAL toDecimalStruct(const Decimal& d) {
    DECIMAL out{};
    out.Lo32 = d.lo();
    out.Mid32 = d.mid();
    out.Hi32 = d.hi();
    out.scale = static_cast<BYTE>(d.scale());
    out.sign = d.isNegative() ? DECIMAL_NEG : 0;
    return out;
}

// A 64-bit or unsigned integer: Long while it fits, else Decimal.
Variant fromWide(long long v) {
    if (v >= std::numeric_limits<std::int32_t>::min() && v <= std::numeric_limits<std::int32_t>::max())
        return static_cast<std::int32_t>(v);
    return Decimal::fromInt64(v);
}

Variant fromObject(IUnknown* unknown) {
    if (!unknown) return Variant(ObjectRef());
    // One of the library's own objects coming back is itself again.
    if (ObjectRef core = coreObjectBehind(unknown)) return Variant(std::move(core));
    ComPtr<IDispatch> dispatch;
    if (FAILED(unknown->QueryInterface(IID_IDispatch, reinterpret_cast<void**>(dispatch.put()))))
        raise(err::UnsupportedAutomationType);
    return Variant(ObjectRef(std::make_shared<DispatchObject>(std::move(dispatch))));
}

// The element a SAFEARRAY holds at `data`, of automation type `vt`.
Variant fromElement(VARTYPE vt, void* data) {
    VARIANT v;
    VariantInit(&v);
    if (vt == VT_VARIANT) return fromVariant(*static_cast<VARIANT*>(data));
    V_VT(&v) = static_cast<VARTYPE>(vt | VT_BYREF);
    V_BYREF(&v) = data;
    return fromVariant(v);
}

VarType elementTypeOf(VARTYPE vt) {
    switch (vt) {
        case VT_UI1: return VarType::Byte;
        case VT_I2: return VarType::Integer;
        case VT_I4: return VarType::Long;
        case VT_R8: return VarType::Double;
        case VT_CY: return VarType::Currency;
        case VT_DATE: return VarType::Date;
        case VT_BSTR: return VarType::String;
        case VT_BOOL: return VarType::Boolean;
        case VT_DISPATCH: return VarType::Object;
        default: return VarType::Variant;
    }
}

VARTYPE automationTypeOf(VarType t) {
    switch (t) {
        case VarType::Byte: return VT_UI1;
        case VarType::Integer: return VT_I2;
        case VarType::Long: return VT_I4;
        case VarType::Double: return VT_R8;
        case VarType::Currency: return VT_CY;
        case VarType::Date: return VT_DATE;
        case VarType::String: return VT_BSTR;
        case VarType::Boolean: return VT_BOOL;
        case VarType::Object: return VT_DISPATCH;
        default: return VT_VARIANT;
    }
}

// Holds a SAFEARRAY's data locked for the scope.
class ArrayLock {
public:
    explicit ArrayLock(SAFEARRAY* a) : a_(a) {
        if (FAILED(SafeArrayLock(a))) raise(err::ArrayFixedOrLocked);
    }
    ~ArrayLock() { SafeArrayUnlock(a_); }
    ArrayLock(const ArrayLock&) = delete;
    ArrayLock& operator=(const ArrayLock&) = delete;

private:
    SAFEARRAY* a_;
};

// Holds a SAFEARRAY's data reached through SafeArrayAccessData.
class ArrayData {
public:
    explicit ArrayData(SAFEARRAY* a) : a_(a) {
        if (FAILED(SafeArrayAccessData(a, &data_))) raise(err::ArrayFixedOrLocked);
    }
    ~ArrayData() { SafeArrayUnaccessData(a_); }
    ArrayData(const ArrayData&) = delete;
    ArrayData& operator=(const ArrayData&) = delete;
    std::uint8_t* bytes() const { return static_cast<std::uint8_t*>(data_); }

private:
    SAFEARRAY* a_;
    void* data_ = nullptr;
};

// A one-dimensional Byte array (binary field values, files read whole)
// arrives in one copy, as the core's compact byte array.
Variant fromByteVector(SAFEARRAY* a) {
    const SAFEARRAYBOUND& bound = a->rgsabound[0];
    ArrayData data(a);
    const std::uint8_t* first = data.bytes();
    return Variant(
        Array::bytes(first ? std::vector<std::uint8_t>(first, first + bound.cElements) : std::vector<std::uint8_t>(),
                     bound.lLbound));
}

// A compact byte array leaves in one copy.
SAFEARRAY* toByteVector(const Array& array, const std::vector<std::uint8_t>& bytes) {
    SAFEARRAY* a = SafeArrayCreateVector(VT_UI1, array.lbound(), static_cast<ULONG>(bytes.size()));
    if (!a) raise(err::OutOfMemory);
    if (!bytes.empty()) {
        try {
            ArrayData data(a);
            std::memcpy(data.bytes(), bytes.data(), bytes.size());
        } catch (...) {
            SafeArrayDestroy(a);
            throw;
        }
    }
    return a;
}

// One- and two-dimensional arrays; the first subscript varies fastest in
// both the SAFEARRAY and the core's Array.
Variant fromSafeArray(SAFEARRAY* a, VARTYPE vt) {
    if (!a) return Variant(Array::vector(0, -1));
    const UINT dims = SafeArrayGetDim(a);
    if (dims < 1 || dims > 2) raise(err::UnsupportedAutomationType);
    if (vt == VT_UI1 && dims == 1) return fromByteVector(a);
    // rgsabound lists the dimensions from the last to the first.
    const SAFEARRAYBOUND& first = a->rgsabound[dims - 1];
    Array out =
        dims == 1
            ? Array::vector(first.lLbound, first.lLbound + static_cast<LONG>(first.cElements) - 1, elementTypeOf(vt))
            : Array::matrix(
                  first.lLbound, first.lLbound + static_cast<LONG>(first.cElements) - 1, a->rgsabound[0].lLbound,
                  a->rgsabound[0].lLbound + static_cast<LONG>(a->rgsabound[0].cElements) - 1, elementTypeOf(vt));
    ArrayLock lock(a);
    auto* bytes = static_cast<unsigned char*>(a->pvData);
    for (std::size_t i = 0; i < out.elements().size(); ++i)
        out.elements()[i] = fromElement(vt, bytes + i * a->cbElements);
    return Variant(std::move(out));
}

SAFEARRAY* toSafeArray(const Array& array) {
    const VARTYPE vt = automationTypeOf(array.elementType());
    if (vt == VT_UI1 && array.dimensions() == 1) {
        if (const std::vector<std::uint8_t>* bytes = array.compactBytes()) return toByteVector(array, *bytes);
    }
    SAFEARRAYBOUND bounds[2] = {};
    // The last dimension first.
    const int dims = array.dimensions();
    for (int d = 0; d < dims; ++d) {
        bounds[dims - 1 - d].lLbound = array.dimension(d + 1).lower;
        bounds[dims - 1 - d].cElements = static_cast<ULONG>(array.dimension(d + 1).count);
    }
    SAFEARRAY* a = SafeArrayCreate(vt, static_cast<UINT>(dims), bounds);
    if (!a) raise(err::OutOfMemory);
    try {
        ArrayLock lock(a);
        auto* bytes = static_cast<unsigned char*>(a->pvData);
        for (std::size_t i = 0; i < array.elements().size(); ++i) {
            void* slot = bytes + i * a->cbElements;
            if (vt == VT_VARIANT)
                toVariant(array.elements()[i], static_cast<VARIANT*>(slot));
            else
                storeInto(vt, slot, array.elements()[i]);
        }
    } catch (...) {
        SafeArrayDestroy(a);
        throw;
    }
    return a;
}

// Whether a caller's BSTR holds exactly `text`; a null one never does.
bool says(BSTR b, StringView text) {
    return b && SysStringLen(b) == text.size() &&
           std::equal(text.begin(), text.end(), reinterpret_cast<const char16_t*>(b));
}

IDispatch* dispatchOf(const Variant& value) {
    if (!value.isObject()) raise(err::TypeMismatch);
    const ObjectRef& object = value.get<ObjectRef>();
    if (!object) return nullptr;
    if (auto* caller = dynamic_cast<DispatchObject*>(object.get())) return caller->share();
    // A picture the library made (a capture, a loaded file) goes out as the platform's own.
    if (IDispatch* picture = win32::pictureDispatch(*object)) return picture;
    return dispatchFaceOf(object);
}

}  // namespace

Variant fromVariant(const VARIANT& v) {
    const VARTYPE vt = V_VT(&v);
    if (vt & VT_ARRAY) {
        SAFEARRAY* a = (vt & VT_BYREF) ? *V_ARRAYREF(&v) : V_ARRAY(&v);
        return fromSafeArray(a, static_cast<VARTYPE>(vt & VT_TYPEMASK));
    }
    if (vt & VT_BYREF) {
        void* p = V_BYREF(&v);
        if (!p) raise(err::InvalidProcedureCall);
        switch (vt & VT_TYPEMASK) {
            case VT_VARIANT: return fromVariant(*static_cast<VARIANT*>(p));
            case VT_I1: return static_cast<std::int16_t>(*static_cast<signed char*>(p));
            case VT_UI1: return *static_cast<std::uint8_t*>(p);
            case VT_I2: return *static_cast<std::int16_t*>(p);
            case VT_UI2: return static_cast<std::int32_t>(*static_cast<unsigned short*>(p));
            case VT_I4:
            case VT_INT: return static_cast<std::int32_t>(*static_cast<LONG*>(p));
            case VT_UI4:
            case VT_UINT: return fromWide(*static_cast<ULONG*>(p));
            case VT_I8: return fromWide(*static_cast<LONGLONG*>(p));
            case VT_R4: return static_cast<double>(*static_cast<float*>(p));
            case VT_R8: return *static_cast<double*>(p);
            case VT_CY: return Currency{static_cast<CY*>(p)->int64};
            case VT_DATE: return Date{*static_cast<DATE*>(p)};
            case VT_BSTR: return textOf(*static_cast<BSTR*>(p));
            case VT_BOOL: return Boolean::fromBits(*static_cast<VARIANT_BOOL*>(p));
            case VT_ERROR: return ErrorCode{*static_cast<SCODE*>(p)};
            case VT_DECIMAL: return fromDecimal(*static_cast<DECIMAL*>(p));
            case VT_DISPATCH:
            case VT_UNKNOWN: return fromObject(*static_cast<IUnknown**>(p));
            default: raise(err::UnsupportedAutomationType);
        }
    }
    switch (vt) {
        case VT_EMPTY: return Variant();
        case VT_NULL: return Null{};
        case VT_I1: return static_cast<std::int16_t>(V_I1(&v));
        case VT_UI1: return V_UI1(&v);
        case VT_I2: return V_I2(&v);
        case VT_UI2: return static_cast<std::int32_t>(V_UI2(&v));
        case VT_I4: return static_cast<std::int32_t>(V_I4(&v));
        case VT_INT: return static_cast<std::int32_t>(V_INT(&v));
        case VT_UI4: return fromWide(V_UI4(&v));
        case VT_UINT: return fromWide(V_UINT(&v));
        case VT_I8: return fromWide(V_I8(&v));
        case VT_R4: return static_cast<double>(V_R4(&v));
        case VT_R8: return V_R8(&v);
        case VT_CY: return Currency{V_CY(&v).int64};
        case VT_DATE: return Date{V_DATE(&v)};
        case VT_BSTR: return textOf(V_BSTR(&v));
        case VT_BOOL: return Boolean::fromBits(V_BOOL(&v));
        case VT_ERROR: return ErrorCode{V_ERROR(&v)};
        case VT_DECIMAL: return fromDecimal(V_DECIMAL(&v));
        case VT_DISPATCH:
        case VT_UNKNOWN: return fromObject(V_UNKNOWN(&v));
        default: raise(err::UnsupportedAutomationType);
    }
}

void toVariant(const Variant& value, VARIANT* out) {
    VariantInit(out);
    switch (value.type()) {
        case VarType::Empty: return;
        case VarType::Null: V_VT(out) = VT_NULL; return;
        case VarType::Error:
            V_VT(out) = VT_ERROR;
            V_ERROR(out) = value.get<ErrorCode>().scode;
            return;
        case VarType::Decimal: {
            // The DECIMAL overlays the whole VARIANT, type word included.
            DECIMAL d = toDecimalStruct(value.get<Decimal>());
            V_DECIMAL(out) = d;
            V_VT(out) = VT_DECIMAL;
            return;
        }
        case VarType::Array:
            V_ARRAY(out) = toSafeArray(value.array());
            V_VT(out) = static_cast<VARTYPE>(VT_ARRAY | automationTypeOf(value.array().elementType()));
            return;
        default: {
            const VARTYPE vt = automationTypeOf(value.type());
            if (vt == VT_VARIANT) raise(err::UnsupportedAutomationType);
            // Filled first, typed last: a failure leaves an empty VARIANT.
            VARIANT filled{};
            storeInto(vt, &filled.bVal, value);
            *out = filled;
            V_VT(out) = vt;
        }
    }
}

void storeInto(VARTYPE vt, void* target, const Variant& value) {
    switch (vt) {
        case VT_VARIANT: {
            VARIANT fresh;
            toVariant(value, &fresh);
            VariantClear(static_cast<VARIANT*>(target));
            *static_cast<VARIANT*>(target) = fresh;
            return;
        }
        case VT_UI1: *static_cast<BYTE*>(target) = toByteValue(value); return;
        case VT_I2: *static_cast<SHORT*>(target) = toInteger(value); return;
        case VT_I4: *static_cast<LONG*>(target) = toLong(value); return;
        case VT_R4: {
            const double d = toDouble(value);
            if (std::isfinite(d) && std::fabs(d) > std::numeric_limits<float>::max()) raise(err::Overflow);
            *static_cast<float*>(target) = static_cast<float>(d);
            return;
        }
        case VT_R8: *static_cast<double*>(target) = toDouble(value); return;
        case VT_CY: static_cast<CY*>(target)->int64 = toCurrency(value).scaled; return;
        case VT_DATE: *static_cast<DATE*>(target) = toDate(value).serial; return;
        case VT_BOOL: {
            // A Boolean keeps its bits; anything else converts as CBool does.
            *static_cast<VARIANT_BOOL*>(target) =
                value.holds<Boolean>() ? value.get<Boolean>().bits : toBoolean(value).bits;
            return;
        }
        case VT_BSTR: {
            BSTR* slot = static_cast<BSTR*>(target);
            // A string that already says it stays the caller's own: no new
            // allocation, and the caller's pointer does not change.
            if (value.holds<String>() && says(*slot, value.get<String>())) return;
            Bstr fresh(toString(value));
            if (!fresh.get()) raise(err::OutOfMemory);
            SysFreeString(*slot);
            *slot = fresh.detach();
            return;
        }
        case VT_DECIMAL: *static_cast<DECIMAL*>(target) = toDecimalStruct(toDecimal(value)); return;
        case VT_DISPATCH: {
            IDispatch* fresh = dispatchOf(value);
            IDispatch** slot = static_cast<IDispatch**>(target);
            if (*slot) (*slot)->Release();
            *slot = fresh;
            return;
        }
        case VT_ERROR: {
            if (!value.holds<ErrorCode>()) raise(err::TypeMismatch);
            *static_cast<SCODE*>(target) = value.get<ErrorCode>().scode;
            return;
        }
        default: raise(err::UnsupportedAutomationType);
    }
}

}  // namespace telvaro::com

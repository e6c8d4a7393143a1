// The arguments of a v-table call as VARIANTs over the caller's own
// storage, so that one path serves the v-table and IDispatch::Invoke:
// a by-reference argument is a by-reference VARIANT of its declared type
// (a null pointer is an omitted argument), a by-value one a VARIANT that
// borrows the value. Nothing here owns what it points at.
#pragma once

#include <oaidl.h>

#include <cstring>
#include <type_traits>

namespace telvaro::com {

inline VARIANTARG missingArgument() {
    VARIANTARG v;
    VariantInit(&v);
    V_VT(&v) = VT_ERROR;
    V_ERROR(&v) = DISP_E_PARAMNOTFOUND;
    return v;
}

inline VARIANTARG byRef(VARTYPE vt, void* storage) {
    if (!storage) return missingArgument();
    VARIANTARG v;
    VariantInit(&v);
    V_VT(&v) = static_cast<VARTYPE>(vt | VT_BYREF);
    V_BYREF(&v) = storage;
    return v;
}

// By value: the VARIANT borrows the value; the caller keeps ownership.
template <class T>
VARIANTARG byVal(VARTYPE vt, T value) {
    VARIANTARG v{};
    V_VT(&v) = vt;
    if constexpr (std::is_same_v<T, VARIANT>) {
        return value;
    } else {
        static_assert(sizeof(T) <= sizeof(v.llVal), "by-value arguments are at most 8 bytes");
        std::memcpy(&v.llVal, &value, sizeof(T));
    }
    return v;
}

// Where a method's result goes: storage of the declared type, or nowhere
// for a procedure.
struct ResultSlot {
    VARTYPE vt = VT_EMPTY;
    void* target = nullptr;
    bool expected = false;
};

inline ResultSlot resultSlot(VARTYPE vt, void* target) { return {vt, target, true}; }
inline ResultSlot noResult() { return {}; }

}  // namespace telvaro::com

// What a compiled client of Telvaro.Fun needs: the object created by
// ProgID, a method's v-table slot, VARIANT arguments, and Invoke.
#pragma once

#include <windows.h>
#include <oleauto.h>

#include <vector>

namespace automation_client {

constexpr DISPID kValidaCedula2 = 0x60030087;
constexpr DISPID kCuentaCaracteres = 0x60030000;
constexpr int kDispatchSlots = 7;  // IUnknown and IDispatch come first

// fn_ValidaCedula2(NumCedula As String, Advertir As Boolean) As Boolean
using ValidaCedula2 = HRESULT(STDMETHODCALLTYPE*)(IDispatch*, BSTR*, VARIANT_BOOL*, VARIANT_BOOL*);
// strCuentaCaracteres(Cadena As String, Caracter As String, [PosInicio As Integer = 1]) As Integer
using CuentaCaracteres = HRESULT(STDMETHODCALLTYPE*)(IDispatch*, BSTR*, BSTR*, short*, short*);

// The function in v-table slot `method` (1 for the first method of _Fun).
template <class F>
F slot(IDispatch* object, int method) {
    void** table = *reinterpret_cast<void***>(object);
    return reinterpret_cast<F>(table[kDispatchSlots + method - 1]);
}

inline VARIANT text(const wchar_t* s) {
    VARIANT v;
    VariantInit(&v);
    V_VT(&v) = VT_BSTR;
    V_BSTR(&v) = SysAllocString(s);
    return v;
}

inline VARIANT variantBool(bool b) {
    VARIANT v;
    VariantInit(&v);
    V_VT(&v) = VT_BOOL;
    V_BOOL(&v) = b ? VARIANT_TRUE : VARIANT_FALSE;
    return v;
}

// Invoke as a method call, `reversed` holding the arguments last first as
// DISPPARAMS wants them; the arguments stay the caller's.
inline HRESULT invokeReversed(IDispatch* object, DISPID id, std::vector<VARIANT>& reversed, VARIANT* result,
                              EXCEPINFO* exception) {
    DISPPARAMS params{reversed.data(), nullptr, static_cast<UINT>(reversed.size()), 0};
    UINT bad = 0;
    VariantInit(result);
    return object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD | DISPATCH_PROPERTYGET, &params, result,
                          exception, &bad);
}

// A new Telvaro.Fun through its ProgID, or null with the failure in `hr`.
inline IDispatch* createFun(HRESULT& hr) {
    CLSID clsid;
    hr = CLSIDFromProgID(L"Telvaro.Fun", &clsid);
    if (FAILED(hr)) return nullptr;
    IDispatch* fun = nullptr;
    hr = CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch, reinterpret_cast<void**>(&fun));
    return SUCCEEDED(hr) ? fun : nullptr;
}

}  // namespace automation_client

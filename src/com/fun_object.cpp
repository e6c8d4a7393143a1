#include "com/fun_object.h"

#include <algorithm>
#include <cstring>
#include <exception>
#include <new>
#include <vector>

#include "com/com_error.h"
#include "com/com_handles.h"
#include "com/identities.h"
#include "com/server_module.h"
#include "com/variant_bridge.h"
#include "frame/invoke.h"
#include "runtime/text.h"

namespace telvaro::com {

namespace {

bool isFunInterface(REFIID iid) {
    return IsEqualIID(iid, kFunInterfaceId) || IsEqualIID(iid, kFunV0InterfaceId) || IsEqualIID(iid, kFunV1InterfaceId);
}

// Empties a result's storage before any work, so that a failing call
// leaves nothing the caller would have to free.
void clearResult(const ResultSlot& slot) {
    if (!slot.expected) return;
    if (slot.vt == VT_VARIANT) {
        VariantInit(static_cast<VARIANT*>(slot.target));
        return;
    }
    switch (slot.vt) {
        case VT_UI1: *static_cast<BYTE*>(slot.target) = 0; break;
        case VT_I2:
        case VT_BOOL: *static_cast<SHORT*>(slot.target) = 0; break;
        case VT_I4: *static_cast<LONG*>(slot.target) = 0; break;
        case VT_R8:
        case VT_DATE: *static_cast<double*>(slot.target) = 0; break;
        case VT_CY: static_cast<CY*>(slot.target)->int64 = 0; break;
        case VT_BSTR: *static_cast<BSTR*>(slot.target) = nullptr; break;
        case VT_DISPATCH: *static_cast<IDispatch**>(slot.target) = nullptr; break;
        default: break;
    }
}

// Writes a by-reference argument back into the caller's storage, in the
// storage's own type. An array goes back only into an array variable of
// the same element type.
void writeBack(VARIANTARG& arg, const Variant& value) {
    const VARTYPE vt = V_VT(&arg);
    if (!(vt & VT_BYREF)) return;
    if (vt & VT_ARRAY) {
        if (!value.isArray()) return;
        UniqueVariant fresh;
        toVariant(value, fresh.get());
        if ((V_VT(fresh.get()) & VT_TYPEMASK) != (vt & VT_TYPEMASK)) return;
        SAFEARRAY** slot = V_ARRAYREF(&arg);
        if (*slot) SafeArrayDestroy(*slot);
        *slot = V_ARRAY(fresh.get());
        V_VT(fresh.get()) = VT_EMPTY;
        return;
    }
    storeInto(static_cast<VARTYPE>(vt & VT_TYPEMASK), V_BYREF(&arg), value);
}

// A name as GetIDsOfNames receives it: a zero-ended string, not a BSTR.
String nameText(const OLECHAR* name) {
    if (!name) return {};
    return String(reinterpret_cast<const char16_t*>(name), wcslen(name));
}

}  // namespace

HRESULT FunObject::create(REFIID iid, void** object) {
    if (!object) return E_POINTER;
    *object = nullptr;
    FunObject* fun = new (std::nothrow) FunObject();
    if (!fun) return E_OUTOFMEMORY;
    const HRESULT hr = fun->QueryInterface(iid, object);
    fun->Release();
    return hr;
}

FunObject::FunObject() { ServerModule::objectCreated(); }
FunObject::~FunObject() { ServerModule::objectDestroyed(); }

HRESULT FunObject::QueryInterface(REFIID iid, void** object) {
    if (!object) return E_POINTER;
    *object = nullptr;
    if (IsEqualIID(iid, IID_IUnknown) || IsEqualIID(iid, IID_IDispatch) || isFunInterface(iid))
        *object = static_cast<FunMethods<FunObject>*>(this);
    else if (IsEqualIID(iid, IID_ISupportErrorInfo))
        *object = static_cast<ISupportErrorInfo*>(this);
    else
        return E_NOINTERFACE;
    AddRef();
    return S_OK;
}

ULONG FunObject::AddRef() { return ++references_; }

ULONG FunObject::Release() {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
}

HRESULT FunObject::GetTypeInfoCount(UINT* count) {
    if (!count) return E_POINTER;
    *count = 1;
    return S_OK;
}

HRESULT FunObject::GetTypeInfo(UINT index, LCID, ITypeInfo** info) {
    if (!info) return E_POINTER;
    *info = nullptr;
    if (index != 0) return DISP_E_BADINDEX;
    return ServerModule::funTypeInfo(info);
}

HRESULT FunObject::GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID, DISPID* ids) {
    if (!IsEqualIID(iid, IID_NULL)) return DISP_E_UNKNOWNINTERFACE;
    if (!names || !ids || count == 0) return E_INVALIDARG;
    std::fill(ids, ids + count, DISPID_UNKNOWN);
    const MethodInfo* method = findMethod(nameText(names[0]));
    if (!method) return DISP_E_UNKNOWNNAME;
    ids[0] = method->dispid;
    HRESULT hr = S_OK;
    // Named arguments: the position of the parameter.
    for (UINT i = 1; i < count; ++i) {
        const String name = nameText(names[i]);
        const auto found = std::find_if(method->params.begin(), method->params.end(), [&](const ParamInfo& p) {
            return textEquals(fromUtf8(std::string(p.name)), name);
        });
        if (found == method->params.end())
            hr = DISP_E_UNKNOWNNAME;
        else
            ids[i] = static_cast<DISPID>(found - method->params.begin());
    }
    return hr;
}

HRESULT FunObject::Invoke(DISPID id, REFIID iid, LCID, WORD flags, DISPPARAMS* params, VARIANT* result,
                          EXCEPINFO* exception, UINT*) {
    if (!IsEqualIID(iid, IID_NULL)) return DISP_E_UNKNOWNINTERFACE;
    const MethodInfo* method = findMethod(static_cast<std::int32_t>(id));
    if (!method) return DISP_E_MEMBERNOTFOUND;
    if (!(flags & (DISPATCH_METHOD | DISPATCH_PROPERTYGET))) return DISP_E_MEMBERNOTFOUND;
    if (result) VariantInit(result);
    DISPPARAMS none{};
    if (!params) params = &none;
    if (params->cNamedArgs > params->cArgs || (params->cNamedArgs && !params->rgdispidNamedArgs)) return E_INVALIDARG;

    try {
        // Positional arguments come last to first; named ones by position.
        const UINT positional = params->cArgs - params->cNamedArgs;
        std::size_t count = positional;
        for (UINT j = 0; j < params->cNamedArgs; ++j) {
            const DISPID at = params->rgdispidNamedArgs[j];
            if (at < 0 || static_cast<std::size_t>(at) >= method->params.size()) return DISP_E_PARAMNOTFOUND;
            count = std::max(count, static_cast<std::size_t>(at) + 1);
        }
        std::vector<VARIANTARG*> args(count, nullptr);
        for (UINT k = 0; k < positional; ++k) args[k] = &params->rgvarg[params->cArgs - 1 - k];
        for (UINT j = 0; j < params->cNamedArgs; ++j) args[params->rgdispidNamedArgs[j]] = &params->rgvarg[j];

        Variant value = run(*method, args);
        if (result && method->result != ArgType::None) toVariant(value, result);
        return S_OK;
    } catch (...) {
        return reportError(currentError(), exception);
    }
}

HRESULT FunObject::InterfaceSupportsErrorInfo(REFIID iid) { return isFunInterface(iid) ? S_OK : S_FALSE; }

HRESULT FunObject::callMethod(int order, VARIANTARG* args, std::size_t count, ResultSlot result) {
    if (result.expected && !result.target) return E_POINTER;
    clearResult(result);
    try {
        std::vector<VARIANTARG*> pointers(count);
        for (std::size_t i = 0; i < count; ++i) pointers[i] = &args[i];
        Variant value = run(catalogue()[static_cast<std::size_t>(order - 1)], pointers);
        if (result.expected) storeInto(result.vt, result.target, value);
        return S_OK;
    } catch (...) {
        return reportError(currentError());
    }
}

Variant FunObject::run(const MethodInfo& method, std::span<VARIANTARG* const> args) {
    std::vector<Variant> values;
    values.reserve(args.size());
    for (VARIANTARG* arg : args) values.push_back(arg ? fromVariant(*arg) : Variant::missing());

    auto giveBack = [&] {
        for (std::size_t i = 0; i < args.size() && i < method.params.size(); ++i)
            if (args[i] && method.params[i].byRef && !values[i].isMissing()) writeBack(*args[i], values[i]);
    };
    // The arguments go back also when the method fails, before its error
    // leaves.
    Variant result;
    std::exception_ptr failure;
    try {
        result = invoke(fun_, method, values);
    } catch (...) {
        failure = std::current_exception();
    }
    giveBack();
    if (failure) std::rethrow_exception(failure);
    return result;
}

}  // namespace telvaro::com

// The Fun object of the automation server: _Fun through its v-table and
// through IDispatch, with ISupportErrorInfo. Both ways of calling meet in
// one path: the arguments, as VARIANTs, become the core's Variants, the
// core's catalogue-driven dispatcher coerces them, fills in omitted
// optional arguments and calls the method, and by-reference arguments are
// written back into the caller's storage (also when the method fails).
#pragma once

#include <atomic>
#include <span>

#include "com/com_object_factory.h"
#include "com/fun_interface.h"
#include "context/fun.h"
#include "frame/catalogue.h"

namespace telvaro::com {

class FunObject final : public FunMethods<FunObject>, public ISupportErrorInfo {
public:
    // A new object, queried for `iid`.
    static HRESULT create(REFIID iid, void** object);

    // IUnknown
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override;
    ULONG STDMETHODCALLTYPE AddRef() override;
    ULONG STDMETHODCALLTYPE Release() override;

    // IDispatch
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID lcid, ITypeInfo** info) override;
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID lcid, DISPID* ids) override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID iid, LCID lcid, WORD flags, DISPPARAMS* params, VARIANT* result,
                                     EXCEPINFO* exception, UINT* badArgument) override;

    // ISupportErrorInfo
    HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID iid) override;

    // A v-table call: method `order` of the catalogue with its arguments in
    // declaration order.
    HRESULT callMethod(int order, VARIANTARG* args, std::size_t count, ResultSlot result);

private:
    FunObject();
    ~FunObject();

    Variant run(const MethodInfo& method, std::span<VARIANTARG* const> args);

    std::atomic<ULONG> references_{1};
    Fun fun_{serverPlatform()};
};

}  // namespace telvaro::com

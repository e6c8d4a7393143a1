#include "com/core_dispatch.h"

#include <atomic>
#include <mutex>
#include <vector>

#include "com/com_error.h"
#include "com/com_handles.h"
#include "com/variant_bridge.h"
#include "runtime/text.h"

namespace telvaro::com {

namespace {

// Asked for by coreObjectBehind: only a face answers it.
// {5C1E0D9B-4F7A-4B53-9E2D-7A31C0B6E8F4}
constexpr IID kCoreFaceId = {0x5c1e0d9b, 0x4f7a, 0x4b53, {0x9e, 0x2d, 0x7a, 0x31, 0xc0, 0xb6, 0xe8, 0xf4}};

InvokeKind kindOf(WORD flags) {
    if (flags & DISPATCH_PROPERTYPUTREF) return InvokeKind::PropertyPutRef;
    if (flags & DISPATCH_PROPERTYPUT) return InvokeKind::PropertyPut;
    if (flags & DISPATCH_METHOD) return InvokeKind::Method;
    return InvokeKind::PropertyGet;
}

class CoreDispatch final : public IDispatch {
public:
    explicit CoreDispatch(ObjectRef object) : object_(std::move(object)) {}

    const ObjectRef& object() const { return object_; }
    // Whether the face was made by this module: a face of another module
    // (a second server linking the same code) holds objects of its own
    // runtime, which this one must reach through IDispatch only.
    bool madeHere() const { return module_ == &kCoreFaceId; }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** out) override {
        if (!out) return E_POINTER;
        *out = nullptr;
        if (iid == IID_IUnknown || iid == IID_IDispatch || iid == kCoreFaceId) {
            *out = static_cast<IDispatch*>(this);
            AddRef();
            return S_OK;
        }
        return E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
    ULONG STDMETHODCALLTYPE Release() override {
        const ULONG left = --references_;
        if (left == 0) delete this;
        return left;
    }

    // The members are known by name only: no type information.
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
        if (!count) return E_POINTER;
        *count = 0;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo** info) override {
        if (info) *info = nullptr;
        return DISP_E_BADINDEX;
    }

    // Every name gets a number, the first time it is asked for; whether the
    // object has such a member is found out when it is called (438), as
    // late binding finds it out.
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) override {
        if (!names || !ids) return E_POINTER;
        if (count == 0) return S_OK;
        try {
            ids[0] = idOf(textOf(names[0]));
        } catch (...) {
            return E_OUTOFMEMORY;
        }
        // Named arguments are not supported by the library's objects.
        for (UINT i = 1; i < count; ++i) ids[i] = DISPID_UNKNOWN;
        return count > 1 ? DISP_E_UNKNOWNNAME : S_OK;
    }

    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* params, VARIANT* result,
                                     EXCEPINFO* exception, UINT* badArgument) override {
        if (badArgument) *badArgument = 0;
        if (result) VariantInit(result);
        const InvokeKind kind = kindOf(flags);
        const bool put = kind == InvokeKind::PropertyPut || kind == InvokeKind::PropertyPutRef;
        const UINT count = params ? params->cArgs : 0;
        // The only named argument the library's objects take is the value
        // of a property assignment.
        if (params && params->cNamedArgs > (put ? 1u : 0u)) return DISP_E_NONAMEDARGS;
        String member;
        if (id != DISPID_VALUE) {
            std::lock_guard lock(namesMutex_);
            if (id < 1 || static_cast<std::size_t>(id) > names_.size()) return DISP_E_MEMBERNOTFOUND;
            member = names_[static_cast<std::size_t>(id) - 1];
        }
        try {
            // DISPPARAMS hold the arguments last first.
            std::vector<Variant> args;
            args.reserve(count);
            for (UINT i = 0; i < count; ++i) {
                const VARIANTARG& arg = params->rgvarg[count - 1 - i];
                if (V_VT(&arg) == VT_ERROR && V_ERROR(&arg) == DISP_E_PARAMNOTFOUND)
                    args.push_back(Variant::missing());
                else
                    args.push_back(fromVariant(arg));
            }
            Variant value = object_->invoke(member, kind, args);
            // By-reference arguments take what the member wrote into them.
            for (UINT i = 0; i < count; ++i) {
                VARIANTARG& arg = params->rgvarg[count - 1 - i];
                if ((V_VT(&arg) & VT_BYREF) && !(V_VT(&arg) & VT_ARRAY) && !args[i].isMissing()) {
                    const VARTYPE vt = static_cast<VARTYPE>(V_VT(&arg) & ~VT_BYREF);
                    if (vt == VT_VARIANT)
                        storeIntoVariant(*V_VARIANTREF(&arg), args[i]);
                    else
                        storeInto(vt, V_BYREF(&arg), args[i]);
                }
            }
            if (result && !put) toVariant(value, result);
            return S_OK;
        } catch (...) {
            return reportError(currentError(), exception);
        }
    }

private:
    ~CoreDispatch() = default;

    static void storeIntoVariant(VARIANT& target, const Variant& value) {
        VARIANT fresh;
        VariantInit(&fresh);
        toVariant(value, &fresh);
        VariantClear(&target);
        target = fresh;
    }

    DISPID idOf(const String& name) {
        std::lock_guard lock(namesMutex_);
        for (std::size_t i = 0; i < names_.size(); ++i)
            if (textEquals(names_[i], name)) return static_cast<DISPID>(i + 1);
        names_.push_back(name);
        return static_cast<DISPID>(names_.size());
    }

    std::atomic<ULONG> references_{1};
    const IID* module_ = &kCoreFaceId;
    ObjectRef object_;
    std::mutex namesMutex_;
    std::vector<String> names_;
};

}  // namespace

IDispatch* dispatchFaceOf(ObjectRef object) { return new CoreDispatch(std::move(object)); }

ObjectRef coreObjectBehind(IUnknown* unknown) {
    if (!unknown) return nullptr;
    void* face = nullptr;
    if (FAILED(unknown->QueryInterface(kCoreFaceId, &face)) || !face) return nullptr;
    auto* core = static_cast<CoreDispatch*>(static_cast<IDispatch*>(face));
    ObjectRef object = core->madeHere() ? core->object() : nullptr;
    core->Release();
    return object;
}

}  // namespace telvaro::com

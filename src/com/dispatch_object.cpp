#include "com/dispatch_object.h"

#include <dispex.h>

#include <vector>

#include "com/com_error.h"
#include "com/variant_bridge.h"
#include "runtime/error.h"
#include "runtime/text.h"

namespace telvaro::com {

namespace {

WORD invokeFlags(InvokeKind kind) {
    switch (kind) {
        case InvokeKind::Method: return DISPATCH_METHOD | DISPATCH_PROPERTYGET;
        case InvokeKind::PropertyGet: return DISPATCH_PROPERTYGET | DISPATCH_METHOD;
        case InvokeKind::PropertyPut: return DISPATCH_PROPERTYPUT;
        case InvokeKind::PropertyPutRef: return DISPATCH_PROPERTYPUTREF;
    }
    return DISPATCH_METHOD;
}

// The arguments as the callee sees them: in reverse order, each a
// by-reference VARIANT over a VARIANT of its own, so the callee may write
// back; a put passes its value (the last argument) by value.
class ArgumentFrame {
public:
    ArgumentFrame(std::span<Variant> args, bool put) : values_(args.size()), refs_(args.size()) {
        for (std::size_t i = 0; i < args.size(); ++i) {
            if (args[i].isMissing()) {
                V_VT(values_[i].get()) = VT_ERROR;
                V_ERROR(values_[i].get()) = DISP_E_PARAMNOTFOUND;
            } else {
                toVariant(args[i], values_[i].get());
            }
            VARIANT& ref = refs_[args.size() - 1 - i];
            VariantInit(&ref);
            if (put && i + 1 == args.size()) {
                ref = *values_[i].get();
            } else {
                V_VT(&ref) = VT_VARIANT | VT_BYREF;
                V_VARIANTREF(&ref) = values_[i].get();
            }
        }
    }

    VARIANTARG* data() { return refs_.empty() ? nullptr : refs_.data(); }
    UINT count() const { return static_cast<UINT>(refs_.size()); }
    void writeBack(std::span<Variant> args) {
        for (std::size_t i = 0; i < args.size(); ++i)
            if (!args[i].isMissing()) args[i] = fromVariant(*values_[i].get());
    }

private:
    std::vector<UniqueVariant> values_;
    std::vector<VARIANT> refs_;
};

}  // namespace

DISPID DispatchObject::memberId(StringView member) const {
    Bstr name(member);
    DISPID id = DISPID_UNKNOWN;
    // Script objects answer names through IDispatchEx (Wine's script
    // classes only there); other objects through GetIDsOfNames.
    ComPtr<IDispatchEx> expando;
    if (SUCCEEDED(dispatch_->QueryInterface(__uuidof(IDispatchEx), reinterpret_cast<void**>(expando.put()))) &&
        expando && SUCCEEDED(expando->GetDispID(name.get(), fdexNameCaseInsensitive, &id)))
        return id;
    LPOLESTR names[] = {name.get()};
    if (FAILED(dispatch_->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id)))
        raise(err::ObjectDoesNotSupport);
    return id;
}

Variant DispatchObject::enumerate() const {
    DISPPARAMS none{nullptr, nullptr, 0, 0};
    UniqueVariant result;
    EXCEPINFO exception{};
    const HRESULT hr =
        dispatch_->Invoke(DISPID_NEWENUM, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD | DISPATCH_PROPERTYGET, &none,
                          result.get(), &exception, nullptr);
    if (hr == DISP_E_MEMBERNOTFOUND || hr == DISP_E_UNKNOWNNAME) raise(err::ObjectDoesNotSupport);
    if (FAILED(hr)) throwFromFailure(hr, exception);
    const VARTYPE vt = V_VT(result.get());
    IUnknown* unknown = vt == VT_UNKNOWN    ? V_UNKNOWN(result.get())
                        : vt == VT_DISPATCH ? V_DISPATCH(result.get())
                                            : nullptr;
    ComPtr<IEnumVARIANT> enumerator;
    if (!unknown || FAILED(unknown->QueryInterface(IID_IEnumVARIANT, reinterpret_cast<void**>(enumerator.put()))) ||
        !enumerator)
        raise(err::ObjectDoesNotSupport);
    std::vector<Variant> items;
    for (;;) {
        UniqueVariant item;
        ULONG fetched = 0;
        if (enumerator->Next(1, item.get(), &fetched) != S_OK || fetched != 1) break;
        items.push_back(fromVariant(*item.get()));
    }
    return Variant(Array::ofValues(std::move(items), 0));
}

Variant DispatchObject::invoke(StringView member, InvokeKind kind, std::span<Variant> args) {
    // For Each: the runtime asks the collection for its enumerator by the
    // reserved number and walks it; the items come back as one array.
    if (args.empty() && kind != InvokeKind::PropertyPut && kind != InvokeKind::PropertyPutRef &&
        textEquals(member, u"_NewEnum"))
        return enumerate();
    const DISPID id = member.empty() ? DISPID_VALUE : memberId(member);
    const bool put = kind == InvokeKind::PropertyPut || kind == InvokeKind::PropertyPutRef;
    ArgumentFrame frame(args, put);
    DISPID putId = DISPID_PROPERTYPUT;
    DISPPARAMS params{frame.data(), put ? &putId : nullptr, frame.count(), put ? 1u : 0u};
    UniqueVariant result;
    EXCEPINFO exception{};
    UINT badArgument = 0;
    const HRESULT hr = dispatch_->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, invokeFlags(kind), &params,
                                         put ? nullptr : result.get(), &exception, &badArgument);
    if (FAILED(hr)) throwFromFailure(hr, exception);
    frame.writeBack(args);
    return fromVariant(*result.get());
}

String DispatchObject::typeName() const {
    ComPtr<ITypeInfo> info;
    if (FAILED(dispatch_->GetTypeInfo(0, LOCALE_USER_DEFAULT, info.put())) || !info) return u"Object";
    Bstr name;
    if (FAILED(info->GetDocumentation(MEMBERID_NIL, name.put(), nullptr, nullptr, nullptr))) return u"Object";
    String text = textOf(name.get());
    // Classes name their default interface "_Class"; TypeName shows "Class".
    if (!text.empty() && text.front() == u'_') text.erase(0, 1);
    return text;
}

}  // namespace telvaro::com

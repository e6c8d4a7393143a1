// The registered type library, read by the platform, against the core's
// catalogue: identity, version and flags of the library, _Fun, the class and
// the earlier interface versions; every method, parameter, enumeration
// member and record field.
#include <windows.h>
#include <oleauto.h>

#include <cmath>
#include <string>

#include "check.h"
#include "frame/catalogue.h"
#include "runtime/convert.h"

using namespace telvaro;
using wine_test::check;
using wine_test::hex;

namespace {

const GUID kLibraryId = {0x4C93F8DD, 0x15B8, 0x41E9, {0xA1, 0x25, 0x4A, 0x84, 0xD7, 0x7E, 0x1B, 0x1A}};
const GUID kFunClassId = {0x6CE2A736, 0x78E9, 0x4882, {0xB1, 0x38, 0x70, 0x48, 0xAE, 0x8A, 0x27, 0x8F}};
const GUID kFunInterfaceId = {0xCC6D850A, 0x0003, 0x43B1, {0xAE, 0xE8, 0x89, 0xE5, 0x2B, 0x79, 0xC2, 0x00}};
const GUID kV0 = {0xD41F957A, 0x54AD, 0x4162, {0x83, 0x5A, 0x6F, 0x91, 0x46, 0x62, 0xBC, 0x33}};
const GUID kV1 = {0x4C0D0C89, 0x3622, 0x494B, {0x8A, 0x64, 0x7A, 0x49, 0x49, 0x21, 0xF4, 0x48}};

std::string narrow(const wchar_t* s) {
    std::string out;
    for (; s && *s; ++s) out += static_cast<char>(*s < 0x80 ? *s : '?');
    return out;
}

std::string nameOf(ITypeInfo* info, MEMBERID id = MEMBERID_NIL) {
    BSTR name = nullptr;
    info->GetDocumentation(id, &name, nullptr, nullptr, nullptr);
    std::string out = narrow(name);
    SysFreeString(name);
    return out;
}

ITypeInfo* typeNamed(ITypeLib* library, const char* name) {
    for (UINT i = 0; i < library->GetTypeInfoCount(); ++i) {
        ITypeInfo* info = nullptr;
        if (SUCCEEDED(library->GetTypeInfo(i, &info))) {
            if (nameOf(info) == name) return info;
            info->Release();
        }
    }
    return nullptr;
}

// The automation type a declared parameter type must have.
VARTYPE expectedType(ArgType t) {
    switch (t) {
        case ArgType::String: return VT_BSTR;
        case ArgType::Integer: return VT_I2;
        case ArgType::Long: return VT_I4;
        case ArgType::Double: return VT_R8;
        case ArgType::Boolean: return VT_BOOL;
        case ArgType::Byte: return VT_UI1;
        case ArgType::Date: return VT_DATE;
        case ArgType::Currency: return VT_CY;
        case ArgType::Variant: return VT_VARIANT;
        case ArgType::Object: return VT_DISPATCH;
        case ArgType::None: break;
    }
    return VT_EMPTY;
}

// Checks a type description against a declared type: enumerations are
// user-defined types of their name, objects dispatch interfaces.
void checkType(ITypeInfo* owner, const TYPEDESC& desc, ArgType type, std::string_view typeName,
               const std::string& where) {
    if (type == ArgType::Object) {
        const bool dispatch = desc.vt == VT_DISPATCH || (desc.vt == VT_PTR && desc.lptdesc->vt == VT_USERDEFINED);
        check(dispatch, where + " is an object", std::to_string(desc.vt));
        return;
    }
    if (type == ArgType::Long && typeName != "Long") {
        bool ok = desc.vt == VT_USERDEFINED;
        if (ok) {
            ITypeInfo* enumeration = nullptr;
            ok = SUCCEEDED(owner->GetRefTypeInfo(desc.hreftype, &enumeration)) && nameOf(enumeration) == typeName;
            if (enumeration) enumeration->Release();
        }
        check(ok, where + " is the enumeration " + std::string(typeName));
        return;
    }
    check(desc.vt == expectedType(type), where + " type", std::to_string(desc.vt));
}

void checkDefault(const PARAMDESCEX& stored, const ParamInfo& p, const std::string& where) {
    VARIANT value;
    VariantInit(&value);
    if (p.defaultValue.isString()) {
        check(SUCCEEDED(VariantChangeType(&value, const_cast<VARIANT*>(&stored.varDefaultValue), 0, VT_BSTR)) &&
                  toUtf8(String(reinterpret_cast<const char16_t*>(V_BSTR(&value)))) ==
                      toUtf8(p.defaultValue.get<String>()),
              where + " default text");
    } else {
        check(SUCCEEDED(VariantChangeType(&value, const_cast<VARIANT*>(&stored.varDefaultValue), 0, VT_R8)) &&
                  V_R8(&value) == toDouble(p.defaultValue),
              where + " default value");
    }
    VariantClear(&value);
}

void checkMethod(ITypeInfo* vtable, UINT index, const MethodInfo& m) {
    FUNCDESC* f = nullptr;
    if (FAILED(vtable->GetFuncDesc(index, &f))) {
        check(false, std::string(m.name) + " missing");
        return;
    }
    const std::string where(m.name);
    BSTR names[40] = {};
    UINT count = 0;
    vtable->GetNames(f->memid, names, 40, &count);
    check(narrow(names[0]) == m.name, where + " name", narrow(names[0]));
    check(f->memid == m.dispid, where + " DISPID", hex(f->memid));
    check(f->oVft == static_cast<SHORT>((7 + m.order - 1) * sizeof(void*)), where + " v-table offset",
          std::to_string(f->oVft));
    const bool hasResult = m.result != ArgType::None;
    check(f->cParams == static_cast<SHORT>(m.params.size() + (hasResult ? 1 : 0)), where + " parameter count");
    for (std::size_t i = 0; i < m.params.size() && i < static_cast<std::size_t>(f->cParams); ++i) {
        const ParamInfo& p = m.params[i];
        const std::string at = where + "." + std::string(p.name);
        check(i + 1 < count && narrow(names[i + 1]) == p.name, at + " name");
        const ELEMDESC& e = f->lprgelemdescParam[i];
        const USHORT flags = e.paramdesc.wParamFlags;
        check(((flags & PARAMFLAG_FOUT) != 0) == p.byRef && (flags & PARAMFLAG_FIN), at + " in/out", hex(flags));
        check(((flags & PARAMFLAG_FOPT) != 0) == p.optional, at + " optional", hex(flags));
        const bool stored = storedDefault(p) == StoredDefault::Everywhere;
        check(((flags & PARAMFLAG_FHASDEFAULT) != 0) == stored, at + " has default", hex(flags));
        if (stored && (flags & PARAMFLAG_FHASDEFAULT)) checkDefault(*e.paramdesc.pparamdescex, p, at);
        const TYPEDESC& t = p.byRef ? *e.tdesc.lptdesc : e.tdesc;
        check(!p.byRef || e.tdesc.vt == VT_PTR, at + " by reference is a pointer");
        checkType(vtable, t, p.type, p.typeName, at);
    }
    if (hasResult) {
        const ELEMDESC& r = f->lprgelemdescParam[f->cParams - 1];
        check((r.paramdesc.wParamFlags & (PARAMFLAG_FOUT | PARAMFLAG_FRETVAL)) == (PARAMFLAG_FOUT | PARAMFLAG_FRETVAL),
              where + " result is out, retval");
        checkType(vtable, *r.tdesc.lptdesc, m.result, m.resultName, where + " result");
    }
    for (UINT i = 0; i < count; ++i) SysFreeString(names[i]);
    vtable->ReleaseFuncDesc(f);
}

void checkInterface(ITypeLib* library) {
    ITypeInfo* dispatch = nullptr;
    check(SUCCEEDED(library->GetTypeInfoOfGuid(kFunInterfaceId, &dispatch)), "_Fun present");
    if (!dispatch) return;
    TYPEATTR* a = nullptr;
    dispatch->GetTypeAttr(&a);
    const WORD both = TYPEFLAG_FHIDDEN | TYPEFLAG_FDUAL | TYPEFLAG_FNONEXTENSIBLE;
    check(a->typekind == TKIND_DISPATCH &&
              (a->wTypeFlags & (both | TYPEFLAG_FDISPATCHABLE)) == (both | TYPEFLAG_FDISPATCHABLE),
          "_Fun dispatch flags", hex(a->wTypeFlags));
    dispatch->ReleaseTypeAttr(a);

    HREFTYPE ref = 0;
    ITypeInfo* vtable = nullptr;
    check(SUCCEEDED(dispatch->GetRefTypeOfImplType(-1, &ref)) && SUCCEEDED(dispatch->GetRefTypeInfo(ref, &vtable)),
          "_Fun v-table side");
    if (vtable) {
        vtable->GetTypeAttr(&a);
        check(a->typekind == TKIND_INTERFACE &&
                  (a->wTypeFlags & (both | TYPEFLAG_FOLEAUTOMATION)) == (both | TYPEFLAG_FOLEAUTOMATION),
              "_Fun v-table flags", hex(a->wTypeFlags));
        check(a->cFuncs == catalogue().size(), "_Fun method count", std::to_string(a->cFuncs));
        for (UINT i = 0; i < a->cFuncs && i < catalogue().size(); ++i) checkMethod(vtable, i, catalogue()[i]);
        vtable->ReleaseTypeAttr(a);
        vtable->Release();
    }
    dispatch->Release();
}

void checkAliasesAndClass(ITypeLib* library) {
    for (const auto& [guid, name] : {std::pair{kV0, "Fun___v0"}, std::pair{kV1, "Fun___v1"}}) {
        ITypeInfo* alias = nullptr;
        check(SUCCEEDED(library->GetTypeInfoOfGuid(guid, &alias)), std::string(name) + " present");
        if (!alias) continue;
        TYPEATTR* a = nullptr;
        alias->GetTypeAttr(&a);
        check(a->typekind == TKIND_ALIAS && (a->wTypeFlags & TYPEFLAG_FHIDDEN) && nameOf(alias) == name,
              std::string(name) + " hidden alias");
        alias->ReleaseTypeAttr(a);
        alias->Release();
    }
    ITypeInfo* coclass = nullptr;
    check(SUCCEEDED(library->GetTypeInfoOfGuid(kFunClassId, &coclass)), "Fun present");
    if (!coclass) return;
    TYPEATTR* a = nullptr;
    coclass->GetTypeAttr(&a);
    check(a->typekind == TKIND_COCLASS && nameOf(coclass) == "Fun", "coclass Fun");
    check(a->wTypeFlags == (TYPEFLAG_FCANCREATE | TYPEFLAG_FAPPOBJECT | TYPEFLAG_FPREDECLID),
          "Fun is creatable, an application object and pre-declared", hex(a->wTypeFlags));
    // A client binding a bare method name to the application object finds it on the default interface.
    HREFTYPE ref = 0;
    ITypeInfo* first = nullptr;
    INT implFlags = 0;
    coclass->GetImplTypeFlags(0, &implFlags);
    const bool isFun = SUCCEEDED(coclass->GetRefTypeOfImplType(0, &ref)) &&
                       SUCCEEDED(coclass->GetRefTypeInfo(ref, &first)) && nameOf(first) == "_Fun";
    check(isFun && (implFlags & IMPLTYPEFLAG_FDEFAULT), "the default interface of Fun is _Fun", hex(implFlags));
    if (first) first->Release();
    coclass->ReleaseTypeAttr(a);
    coclass->Release();
}

// The enumeration or record `name` of `kind` with `members`; `each` checks
// a member against its variable description, `size` (when not 0) the size.
template <class Members, class Each>
void checkVariables(ITypeLib* library, std::string_view name, TYPEKIND kind, const Members& members, std::size_t size,
                    Each each) {
    ITypeInfo* info = typeNamed(library, std::string(name).c_str());
    check(info != nullptr, std::string(name) + " present");
    if (!info) return;
    TYPEATTR* a = nullptr;
    info->GetTypeAttr(&a);
    check(a->typekind == kind && a->cVars == members.size(), std::string(name) + " members");
    check(!size || a->cbSizeInstance == size, std::string(name) + " size", std::to_string(a->cbSizeInstance));
    for (UINT i = 0; i < a->cVars && i < members.size(); ++i) {
        VARDESC* v = nullptr;
        info->GetVarDesc(i, &v);
        const std::string where = std::string(name) + "." + std::string(members[i].name);
        check(nameOf(info, v->memid) == members[i].name, where + " name");
        each(members[i], *v, where);
        info->ReleaseVarDesc(v);
    }
    info->ReleaseTypeAttr(a);
    info->Release();
}

void checkEnumerationsAndRecords(ITypeLib* library) {
    for (const EnumInfo& e : enumerations()) {
        checkVariables(library, e.name, TKIND_ENUM, e.members, 0, [](const auto& m, VARDESC& v, const std::string& at) {
            VARIANT value;
            VariantInit(&value);
            check(SUCCEEDED(VariantChangeType(&value, v.lpvarValue, 0, VT_I4)) && V_I4(&value) == m.value,
                  at + " value");
        });
    }
    for (const RecordInfo& r : records()) {
        std::size_t size = 0;
        for (const auto& f : r.fields) size += f.typeName == "Long" ? 4 : sizeof(VARIANT);
        checkVariables(library, r.name, TKIND_RECORD, r.fields, size,
                       [](const auto& f, VARDESC& v, const std::string& at) {
                           check(v.elemdescVar.tdesc.vt == (f.typeName == "Long" ? VT_I4 : VT_VARIANT), at + " type");
                       });
    }
}

}  // namespace

int main() {
    CoInitialize(nullptr);
    ITypeLib* library = nullptr;
    const HRESULT hr = LoadRegTypeLib(kLibraryId, 1, 2, LOCALE_NEUTRAL, &library);
    check(hr == S_OK && library, "registered type library 1.2", hex(hr));
    if (library) {
        TLIBATTR* attr = nullptr;
        library->GetLibAttr(&attr);
        check(attr->wMajorVerNum == 1 && attr->wMinorVerNum == 2, "version 1.2");
        library->ReleaseTLibAttr(attr);
        BSTR name = nullptr;
        library->GetDocumentation(-1, &name, nullptr, nullptr, nullptr);
        check(narrow(name) == "Telvaro", "library name", narrow(name));
        SysFreeString(name);
        checkInterface(library);
        checkAliasesAndClass(library);
        checkEnumerationsAndRecords(library);
        library->Release();
    }
    CoUninitialize();
    return wine_test::finish("typelib_check");
}

// An early- and late-bound client of Telvaro.Fun: creates the object by
// ProgID, calls fn_ValidaCedula2 through v-table slot 116 and through
// Invoke with its DISPID, and checks errors, by-reference write-back and
// omitted optional arguments as a compiled client and a script see them.
#include <string>

#include "automation_client.h"
#include "check.h"

using wine_test::check;
using wine_test::hex;

namespace {

using namespace automation_client;

void sameAnswerThroughSlotAndDispid(IDispatch* fun) {
    const wchar_t* cedulas[] = {L"1710034065", L"1710034066", L"0926687856", L"abc", L""};
    for (const wchar_t* cedula : cedulas) {
        BSTR number = SysAllocString(cedula);
        const BSTR given = number;
        VARIANT_BOOL warn = VARIANT_FALSE, answer = 1;
        const HRESULT hr = slot<ValidaCedula2>(fun, 116)(fun, &number, &warn, &answer);
        // The method leaves NumCedula as it was: the caller keeps its own BSTR.
        check(number == given, "an unchanged by-reference String keeps the caller's BSTR");
        SysFreeString(number);

        VARIANT result;
        EXCEPINFO exception{};
        const HRESULT hrInvoke = invoke(fun, kValidaCedula2, {text(cedula), variantBool(false)}, &result, &exception);
        const std::string label = "fn_ValidaCedula2 slot 116 and DISPID 0x60030087";
        check(hr == S_OK && hrInvoke == S_OK, label, hex(hr) + " " + hex(hrInvoke));
        check(V_VT(&result) == VT_BOOL && V_BOOL(&result) == answer, label, "different answers");
        check(answer == VARIANT_TRUE || answer == VARIANT_FALSE, label, "a Boolean is -1 or 0");
        VariantClear(&result);
    }
}

void runtimeErrorsReachTheCaller(IDispatch* fun) {
    // InStr from position 0: invalid procedure call (5).
    BSTR cadena = SysAllocString(L"a,b"), caracter = SysAllocString(L",");
    short start = 0, count = 99;
    const HRESULT hr = slot<CuentaCaracteres>(fun, 1)(fun, &cadena, &caracter, &start, &count);
    check(hr == static_cast<HRESULT>(0x800A0005), "v-table error HRESULT", hex(hr));
    check(count == 0, "a failed call leaves its result cleared");
    IErrorInfo* info = nullptr;
    check(GetErrorInfo(0, &info) == S_OK && info, "IErrorInfo is set");
    if (info) {
        BSTR description = nullptr, source = nullptr;
        info->GetDescription(&description);
        info->GetSource(&source);
        check(description && std::wstring(description) == L"Invalid procedure call or argument", "error description");
        check(source && std::wstring(source) == L"Telvaro.Fun", "error source");
        SysFreeString(description);
        SysFreeString(source);
        info->Release();
    }
    ISupportErrorInfo* support = nullptr;
    check(SUCCEEDED(fun->QueryInterface(IID_ISupportErrorInfo, reinterpret_cast<void**>(&support))),
          "ISupportErrorInfo");
    if (support) {
        const IID funIid = {0xCC6D850A, 0x0003, 0x43B1, {0xAE, 0xE8, 0x89, 0xE5, 0x2B, 0x79, 0xC2, 0x00}};
        check(support->InterfaceSupportsErrorInfo(funIid) == S_OK, "_Fun supports error info");
        support->Release();
    }
    SysFreeString(cadena);
    SysFreeString(caracter);

    VARIANT result;
    EXCEPINFO exception{};
    const HRESULT hrInvoke =
        invoke(fun, kCuentaCaracteres, {text(L"a,b"), text(L","), text(L"0")}, &result, &exception);
    check(hrInvoke == DISP_E_EXCEPTION && exception.scode == static_cast<SCODE>(0x800A0005), "Invoke error",
          hex(hrInvoke) + " " + hex(exception.scode));
    SysFreeString(exception.bstrDescription);
    SysFreeString(exception.bstrSource);
}

void scriptVariablesAreCoercedAndWrittenBack(IDispatch* fun) {
    // A script passes its variable as a by-reference Variant holding "2"
    // to the by-reference Integer PosInicio: coerced, and written back.
    VARIANT variable = text(L"2");
    VARIANT ref;
    VariantInit(&ref);
    V_VT(&ref) = VT_VARIANT | VT_BYREF;
    V_VARIANTREF(&ref) = &variable;
    VARIANT result;
    EXCEPINFO exception{};
    const HRESULT hr = invoke(fun, kCuentaCaracteres, {text(L"a,b,c"), text(L","), ref}, &result, &exception);
    check(hr == S_OK, "by-reference Variant to a typed parameter", hex(hr));
    check(V_VT(&result) == VT_I2 && V_I2(&result) == 2, "count from position 2");
    check(V_VT(&variable) == VT_I2 && V_I2(&variable) == 2, "the variable holds the coerced Integer");
    VariantClear(&variable);
}

void omittedOptionalArgumentsTakeTheirDefaults(IDispatch* fun) {
    VARIANT omitted, given;
    EXCEPINFO exception{};
    check(invoke(fun, kCuentaCaracteres, {text(L"a,b,c"), text(L",")}, &omitted, &exception) == S_OK, "omitted");
    VARIANT missing;
    VariantInit(&missing);
    V_VT(&missing) = VT_ERROR;
    V_ERROR(&missing) = DISP_E_PARAMNOTFOUND;
    check(invoke(fun, kCuentaCaracteres, {text(L"a,b,c"), text(L","), missing}, &given, &exception) == S_OK,
          "missing marker");
    check(V_I2(&omitted) == 2 && V_I2(&given) == 2, "default PosInicio = 1");

    // A compiled client passes a null pointer for nothing: also the default.
    BSTR cadena = SysAllocString(L"a,b,c"), caracter = SysAllocString(L",");
    short count = 0;
    check(slot<CuentaCaracteres>(fun, 1)(fun, &cadena, &caracter, nullptr, &count) == S_OK && count == 2,
          "null optional pointer takes the default");
    SysFreeString(cadena);
    SysFreeString(caracter);
}

void namesAndNamedArguments(IDispatch* fun) {
    LPOLESTR names[] = {const_cast<LPOLESTR>(L"STRCUENTACARACTERES"), const_cast<LPOLESTR>(L"posinicio")};
    DISPID ids[2] = {};
    check(fun->GetIDsOfNames(IID_NULL, names, 2, LOCALE_USER_DEFAULT, ids) == S_OK, "GetIDsOfNames");
    check(ids[0] == kCuentaCaracteres && ids[1] == 2, "DISPID and parameter position");
    LPOLESTR unknown[] = {const_cast<LPOLESTR>(L"NoSuchMethod")};
    DISPID none = 0;
    check(fun->GetIDsOfNames(IID_NULL, unknown, 1, LOCALE_USER_DEFAULT, &none) == DISP_E_UNKNOWNNAME, "unknown name");
}

// The attributes of a type, released with the type.
struct TypeAttributes {
    ITypeInfo* type;
    TYPEATTR* attributes = nullptr;
    explicit TypeAttributes(ITypeInfo* t) : type(t) {
        if (type) type->GetTypeAttr(&attributes);
    }
    ~TypeAttributes() {
        if (attributes) type->ReleaseTypeAttr(attributes);
    }
};

// A compiled client that references the library calls the methods of the
// application object as global functions. Its compiler binds the bare
// name through the library's ITypeComp and learns that it belongs to the
// implicit application object (the pre-declared instance of the class);
// it binds the name again on the class to find the method of its
// interface, creates the instance and calls through the v-table.
void globalFunctionsOfTheApplicationObject() {
    const GUID libid = {0x4C93F8DD, 0x15B8, 0x41E9, {0xA1, 0x25, 0x4A, 0x84, 0xD7, 0x7E, 0x1B, 0x1A}};
    const CLSID funClass = {0x6CE2A736, 0x78E9, 0x4882, {0xB1, 0x38, 0x70, 0x48, 0xAE, 0x8A, 0x27, 0x8F}};
    ITypeLib* library = nullptr;
    check(LoadRegTypeLib(libid, 1, 2, 0, &library) == S_OK && library, "the registered library 1.2 loads");
    if (!library) return;
    ITypeComp* libraryNames = nullptr;
    library->GetTypeComp(&libraryNames);
    LPOLESTR name = const_cast<LPOLESTR>(L"strCuentaCaracteres");
    const ULONG hash = LHashValOfNameSys(SYS_WIN64, 0, name);
    ITypeInfo* owner = nullptr;
    DESCKIND kind = DESCKIND_NONE;
    BINDPTR binding{};
    HRESULT hr = libraryNames ? libraryNames->Bind(name, hash, INVOKE_FUNC, &owner, &kind, &binding) : E_FAIL;
    check(hr == S_OK && kind == DESCKIND_IMPLICITAPPOBJ, "a bare method name binds to the application object",
          hex(hr) + " kind " + std::to_string(kind));
    if (kind == DESCKIND_IMPLICITAPPOBJ && owner) {
        owner->ReleaseVarDesc(binding.lpvardesc);
        const TypeAttributes ownerType(owner);
        check(ownerType.attributes && ownerType.attributes->typekind == TKIND_COCLASS &&
                  ownerType.attributes->guid == funClass,
              "the application object is the class Fun");

        ITypeComp* classNames = nullptr;
        owner->GetTypeComp(&classNames);
        ITypeInfo* interfaceType = nullptr;
        hr = classNames ? classNames->Bind(name, hash, INVOKE_FUNC, &interfaceType, &kind, &binding) : E_FAIL;
        check(hr == S_OK && kind == DESCKIND_FUNCDESC, "the class binds the name to its method", hex(hr));
        if (kind == DESCKIND_FUNCDESC && interfaceType) {
            const MEMBERID member = binding.lpfuncdesc->memid;
            check(member == kCuentaCaracteres, "bound to strCuentaCaracteres", hex(member));
            interfaceType->ReleaseFuncDesc(binding.lpfuncdesc);
            const TypeAttributes interfaceAttributes(interfaceType);
            IUnknown* instance = nullptr;
            CoCreateInstance(funClass, nullptr, CLSCTX_INPROC_SERVER, IID_IUnknown,
                             reinterpret_cast<void**>(&instance));
            void* object = nullptr;
            if (instance && interfaceAttributes.attributes)
                instance->QueryInterface(interfaceAttributes.attributes->guid, &object);
            check(object != nullptr, "the instance has the interface of the method");
            if (object) {
                // Through the v-table slot the library describes.
                std::vector<VARIANT> reversed = {text(L"3"), text(L","), text(L"a,b,c")};
                DISPPARAMS params{reversed.data(), nullptr, 3, 0};
                VARIANT result;
                VariantInit(&result);
                EXCEPINFO exception{};
                UINT bad = 0;
                hr = interfaceType->Invoke(object, member, DISPATCH_METHOD, &params, &result, &exception, &bad);
                check(hr == S_OK && V_VT(&result) == VT_I2 && V_I2(&result) == 1, "the global call answers",
                      hex(hr) + " type " + std::to_string(V_VT(&result)) + " value " + std::to_string(V_I2(&result)));
                VariantClear(&result);
                for (auto& a : reversed) VariantClear(&a);
                static_cast<IUnknown*>(object)->Release();
            }
            if (instance) instance->Release();
            interfaceType->Release();
        }
        if (classNames) classNames->Release();
        owner->Release();
    }
    if (libraryNames) libraryNames->Release();
    library->Release();
}

}  // namespace

int main() {
    CoInitialize(nullptr);
    HRESULT hr = S_OK;
    IDispatch* fun = createFun(hr);
    check(hr == S_OK && fun, "Telvaro.Fun created by its ProgID", hex(hr));
    if (fun) {
        scriptVariablesAreCoercedAndWrittenBack(fun);
        sameAnswerThroughSlotAndDispid(fun);
        runtimeErrorsReachTheCaller(fun);
        omittedOptionalArgumentsTakeTheirDefaults(fun);
        namesAndNamedArguments(fun);
        fun->Release();
    }
    globalFunctionsOfTheApplicationObject();
    CoUninitialize();
    return wine_test::finish("com_client");
}

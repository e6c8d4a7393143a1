// An early- and late-bound client of Telvaro.Fun: creates the object by
// ProgID, calls through the v-table of _Fun and through Invoke with the
// DISPIDs, and checks errors, by-reference write-back and omitted optional
// arguments as a compiled client and a script see them.
#include <string>

#include "automation_client.h"
#include "check.h"

using wine_test::check;
using wine_test::hex;

namespace {

using namespace automation_client;

const IID kFunIid = {0xCC6D850A, 0x0003, 0x43B1, {0xAE, 0xE8, 0x89, 0xE5, 0x2B, 0x79, 0xC2, 0x00}};

// A compiled client holds _Fun itself: fn_ValidaCedula2 in slot 116 answers
// as Invoke with its DISPID does.
void sameAnswerThroughSlotAndDispid(IDispatch* fun) {
    IDispatch* face = nullptr;
    check(fun->QueryInterface(kFunIid, reinterpret_cast<void**>(&face)) == S_OK && face, "QueryInterface for _Fun");
    if (!face) return;
    for (const wchar_t* cedula : {L"1710034065", L"1710034066"}) {
        BSTR number = SysAllocString(cedula);
        const BSTR given = number;
        VARIANT_BOOL warn = VARIANT_FALSE, answer = 1;
        const HRESULT hr = slot<ValidaCedula2>(face, 116)(face, &number, &warn, &answer);
        // The method leaves NumCedula as it was: the caller keeps its own BSTR.
        check(number == given, "an unchanged by-reference String keeps the caller's BSTR");
        SysFreeString(number);

        VARIANT result;
        EXCEPINFO exception{};
        const HRESULT hrInvoke = invoke(fun, kValidaCedula2, {text(cedula), variantBool(false)}, &result, &exception);
        const std::string label = "fn_ValidaCedula2 slot 116 and DISPID 0x60030087";
        check(hr == S_OK && hrInvoke == S_OK, label, hex(hr) + " " + hex(hrInvoke));
        check(V_VT(&result) == VT_BOOL && V_BOOL(&result) == answer, label, "different answers");
        check(answer == (cedula[9] == L'5' ? VARIANT_TRUE : VARIANT_FALSE), label, "a Boolean is -1 or 0");
    }
    face->Release();
}

void runtimeErrorsReachTheCaller(IDispatch* fun) {
    // InStr from position 0: invalid procedure call (5).
    BSTR cadena = SysAllocString(L"a,b"), caracter = SysAllocString(L",");
    short start = 0, count = 99;
    const HRESULT hr = slot<CuentaCaracteres>(fun, 1)(fun, &cadena, &caracter, &start, &count);
    check(hr == static_cast<HRESULT>(0x800A0005), "v-table error HRESULT", hex(hr));
    check(count == 0, "a failed call leaves its result cleared");
    SysFreeString(cadena);
    SysFreeString(caracter);
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
    fun->QueryInterface(IID_ISupportErrorInfo, reinterpret_cast<void**>(&support));
    check(support && support->InterfaceSupportsErrorInfo(kFunIid) == S_OK, "_Fun supports error info");
    if (support) support->Release();

    VARIANT result;
    EXCEPINFO exception{};
    const HRESULT hrInvoke =
        invoke(fun, kCuentaCaracteres, {text(L"a,b"), text(L","), text(L"0")}, &result, &exception);
    check(hrInvoke == DISP_E_EXCEPTION && exception.scode == static_cast<SCODE>(0x800A0005), "Invoke error",
          hex(hrInvoke) + " " + hex(exception.scode));
    SysFreeString(exception.bstrDescription);
    SysFreeString(exception.bstrSource);
}

// A script passes its variable as a by-reference Variant holding "2" to the
// by-reference Integer PosInicio: coerced, and written back.
void scriptVariablesAreCoercedAndWrittenBack(IDispatch* fun) {
    VARIANT variable = text(L"2");
    VARIANT ref;
    VariantInit(&ref);
    V_VT(&ref) = VT_VARIANT | VT_BYREF;
    V_VARIANTREF(&ref) = &variable;
    VARIANT result;
    EXCEPINFO exception{};
    const HRESULT hr = invoke(fun, kCuentaCaracteres, {text(L",a,b"), text(L","), ref}, &result, &exception);
    check(hr == S_OK && V_VT(&result) == VT_I2 && V_I2(&result) == 1, "count from position 2", hex(hr));
    check(V_VT(&variable) == VT_I2 && V_I2(&variable) == 2, "the variable holds the coerced Integer");
    VariantClear(&variable);
}

// PosInicio left out, passed as the missing marker, or (from a compiled
// client) as a null pointer: each is 1.
void omittedOptionalArgumentsTakeTheirDefaults(IDispatch* fun) {
    VARIANT omitted, given, missing;
    EXCEPINFO exception{};
    VariantInit(&missing);
    V_VT(&missing) = VT_ERROR;
    V_ERROR(&missing) = DISP_E_PARAMNOTFOUND;
    check(invoke(fun, kCuentaCaracteres, {text(L",a,b"), text(L",")}, &omitted, &exception) == S_OK &&
              invoke(fun, kCuentaCaracteres, {text(L",a,b"), text(L","), missing}, &given, &exception) == S_OK,
          "omitted and missing PosInicio");
    check(V_I2(&omitted) == 2 && V_I2(&given) == 2, "default PosInicio = 1");
    BSTR cadena = SysAllocString(L",a,b"), caracter = SysAllocString(L",");
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
    CoUninitialize();
    return wine_test::finish("com_client");
}

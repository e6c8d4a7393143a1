// A compiled client of Telvaro.Fun: the object by ProgID, the v-table of
// _Fun against Invoke, errors through IErrorInfo, a null optional pointer,
// and named arguments (the scripts cover the rest of the late-bound side).
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
        std::vector<VARIANT> args = {variantBool(false), text(cedula)};
        const HRESULT hrInvoke = invokeReversed(fun, kValidaCedula2, args, &result, &exception);
        VariantClear(&args[1]);
        const std::string label = "fn_ValidaCedula2 slot 116 and DISPID 0x60030087";
        check(hr == S_OK && hrInvoke == S_OK, label, hex(hr) + " " + hex(hrInvoke));
        check(V_VT(&result) == VT_BOOL && V_BOOL(&result) == answer, label, "different answers");
        check(answer == (cedula[9] == L'5' ? VARIANT_TRUE : VARIANT_FALSE), label, "a Boolean is -1 or 0");
    }
    face->Release();
}

// From position 0: invalid procedure call (5); a null pointer for the
// optional PosInicio takes its default, 1.
void errorsAndOmittedArgumentsThroughTheVtable(IDispatch* fun) {
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
    fun->QueryInterface(IID_ISupportErrorInfo, reinterpret_cast<void**>(&support));
    check(support && support->InterfaceSupportsErrorInfo(kFunIid) == S_OK, "_Fun supports error info");
    if (support) support->Release();
    check(slot<CuentaCaracteres>(fun, 1)(fun, &cadena, &caracter, nullptr, &count) == S_OK && count == 1,
          "null optional pointer takes the default");
    SysFreeString(cadena);
    SysFreeString(caracter);
}

void namesAndNamedArguments(IDispatch* fun) {
    LPOLESTR names[] = {const_cast<LPOLESTR>(L"STRCUENTACARACTERES"), const_cast<LPOLESTR>(L"posinicio")};
    DISPID ids[2] = {};
    check(fun->GetIDsOfNames(IID_NULL, names, 2, LOCALE_USER_DEFAULT, ids) == S_OK, "GetIDsOfNames");
    check(ids[0] == kCuentaCaracteres && ids[1] == 2, "DISPID and parameter position");
}

}  // namespace

int main() {
    CoInitialize(nullptr);
    HRESULT hr = S_OK;
    IDispatch* fun = createFun(hr);
    check(hr == S_OK && fun, "Telvaro.Fun created by its ProgID", hex(hr));
    if (fun) {
        sameAnswerThroughSlotAndDispid(fun);
        errorsAndOmittedArgumentsThroughTheVtable(fun);
        namesAndNamedArguments(fun);
        fun->Release();
    }
    CoUninitialize();
    return wine_test::finish("com_client");
}

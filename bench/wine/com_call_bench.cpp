// The cost of late binding on the automation server: the same call made
// through IDispatch::Invoke by DISPID, as a script makes it, and through
// the v-table slot of _Fun, as a compiled client makes it, with the ratio.
// Each way runs a few rounds of many calls; the fastest round counts, so a
// busy moment of the machine does not decide the ratio.
#include <cstdio>
#include <functional>
#include <string>

#include "automation_client.h"

using namespace automation_client;

namespace {

constexpr int kRounds = 5;
constexpr int kCallsPerRound = 100000;

// Microseconds per call of the fastest round; -1 when a call failed.
double microsecondsPerCall(const std::function<bool()>& call) {
    LARGE_INTEGER frequency, start, stop;
    QueryPerformanceFrequency(&frequency);
    double best = -1;
    for (int round = 0; round < kRounds; ++round) {
        QueryPerformanceCounter(&start);
        for (int i = 0; i < kCallsPerRound; ++i) {
            if (!call()) return -1;
        }
        QueryPerformanceCounter(&stop);
        const double us = 1e6 * double(stop.QuadPart - start.QuadPart) / double(frequency.QuadPart) / kCallsPerRound;
        if (best < 0 || us < best) best = us;
    }
    return best;
}

bool report(const char* call, double vtable, double invoke) {
    if (vtable <= 0 || invoke <= 0) {
        std::printf("%s: a call failed\n", call);
        return false;
    }
    std::printf("%-44s v-table %6.3f us/call   Invoke by DISPID %6.3f us/call   ratio %.2f\n", call, vtable, invoke,
                invoke / vtable);
    return true;
}

bool validaCedula(IDispatch* fun) {
    BSTR number = SysAllocString(L"1710034065");
    VARIANT_BOOL warn = VARIANT_FALSE, answer = VARIANT_FALSE;
    const auto method = slot<ValidaCedula2>(fun, 116);
    const double vtable = microsecondsPerCall([&] {
        // NumCedula is by reference: the server may write it back as a new BSTR.
        return method(fun, &number, &warn, &answer) == S_OK && answer == VARIANT_TRUE;
    });
    SysFreeString(number);

    std::vector<VARIANT> args = {variantBool(false), text(L"1710034065")};
    const double invoke = microsecondsPerCall([&] {
        VARIANT result;
        EXCEPINFO exception{};
        const bool ok = invokeReversed(fun, kValidaCedula2, args, &result, &exception) == S_OK &&
                        V_VT(&result) == VT_BOOL && V_BOOL(&result) == VARIANT_TRUE;
        VariantClear(&result);
        return ok;
    });
    for (auto& a : args) VariantClear(&a);
    return report("fn_ValidaCedula2(\"1710034065\", False)", vtable, invoke);
}

bool cuentaCaracteres(IDispatch* fun) {
    BSTR cadena = SysAllocString(L"uno,dos,tres,cuatro"), caracter = SysAllocString(L",");
    short count = 0;
    const auto method = slot<CuentaCaracteres>(fun, 1);
    const double vtable = microsecondsPerCall([&] {
        // PosInicio left out: a null pointer, as a compiled client omits it.
        return method(fun, &cadena, &caracter, nullptr, &count) == S_OK && count == 3;
    });
    SysFreeString(cadena);
    SysFreeString(caracter);

    std::vector<VARIANT> args = {text(L","), text(L"uno,dos,tres,cuatro")};
    const double invoke = microsecondsPerCall([&] {
        VARIANT result;
        EXCEPINFO exception{};
        const bool ok = invokeReversed(fun, kCuentaCaracteres, args, &result, &exception) == S_OK &&
                        V_VT(&result) == VT_I2 && V_I2(&result) == 3;
        VariantClear(&result);
        return ok;
    });
    for (auto& a : args) VariantClear(&a);
    return report("strCuentaCaracteres(\"uno,dos,tres,cuatro\", \",\")", vtable, invoke);
}

}  // namespace

int main() {
    CoInitialize(nullptr);
    HRESULT hr = S_OK;
    IDispatch* fun = createFun(hr);
    bool ok = fun != nullptr;
    if (!fun) std::printf("Telvaro.Fun could not be created: 0x%08lX\n", static_cast<unsigned long>(hr));
    if (fun) {
        std::printf("%d rounds of %d calls each way; the fastest round counts\n", kRounds, kCallsPerRound);
        ok = validaCedula(fun) && ok;
        ok = cuentaCaracteres(fun) && ok;
        fun->Release();
    }
    CoUninitialize();
    return ok ? 0 : 1;
}

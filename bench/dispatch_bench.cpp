// The cost of a late-bound call: the same method called through the
// dispatcher by name (lookup, coercion, defaults, write-back) and called
// directly as a C++ function.
#include <benchmark/benchmark.h>

#include "context/fun.h"
#include "frame/invoke.h"
#include "host/default_platform.h"
#include "text/strings.h"

namespace telvaro {
namespace {

const String kText = u"uno,dos,tres,cuatro,cinco,seis,siete,ocho,nueve,diez";

void countByName(benchmark::State& state) {
    Fun fun(defaultPlatform());
    for (auto _ : state) {
        Variant args[] = {Variant(kText), Variant(u","), Variant(std::int16_t(1))};
        benchmark::DoNotOptimize(invoke(fun, "strCuentaCaracteres", args));
    }
}
BENCHMARK(countByName)->Name("strCuentaCaracteres/library");

void countDirect(benchmark::State& state) {
    Fun fun(defaultPlatform());
    for (auto _ : state) {
        String text = kText, sep = u",";
        benchmark::DoNotOptimize(text::strCuentaCaracteres(fun, text, sep, 1));
    }
}
BENCHMARK(countDirect)->Name("strCuentaCaracteres/direct");

void locateByName(benchmark::State& state) {
    Fun fun(defaultPlatform());
    for (auto _ : state) {
        Variant args[] = {Variant(u"a,b"), Variant(u","), Variant(std::int32_t(3))};
        benchmark::DoNotOptimize(invoke(fun, "strPosicion_XAvo_Caracter", args));
    }
}
BENCHMARK(locateByName)->Name("strPosicion_XAvo_Caracter/library");

void locateDirect(benchmark::State& state) {
    Fun fun(defaultPlatform());
    for (auto _ : state) {
        String text = u"a,b", sep = u",";
        benchmark::DoNotOptimize(text::strPosicion_XAvo_Caracter(fun, text, sep, 3));
    }
}
BENCHMARK(locateDirect)->Name("strPosicion_XAvo_Caracter/direct");

}  // namespace
}  // namespace telvaro

// Formulas, identity numbers and amounts in words: the library's calls
// against the direct way of doing the same work. Formulas are measured
// against muparser, a well-kept expression parser, on the same texts (the
// evaluator rewrites text and computes in Decimal, so it is expected to be
// slower); the validation and amount methods against their C++ functions
// called without dispatch.
#include <benchmark/benchmark.h>

#include <muParser.h>

#include "context/fun.h"
#include "frame/invoke.h"
#include "host/default_platform.h"
#include "ident/cedula_ruc.h"
#include "text/amount_in_words.h"
#include "text/formula.h"

namespace telvaro {
namespace {

const char* const kFormulas[] = {"2*3+1", "1+2*3-4/2", "150*12/100", "(2+3)*(4+5)", "2^3^2", "1000+250*3/4"};

void formulaLibrary(benchmark::State& state) {
    Fun fun(defaultPlatform());
    for (auto _ : state) {
        for (const char* f : kFormulas) {
            std::vector<Variant> args{Variant(fromUtf8(f))};
            benchmark::DoNotOptimize(invoke(fun, "numCalculaFormula", args));
        }
    }
}
BENCHMARK(formulaLibrary)->Name("numCalculaFormula vs muparser/library");

void formulaMuparser(benchmark::State& state) {
    mu::Parser parser;
    for (auto _ : state) {
        for (const char* f : kFormulas) {
            parser.SetExpr(f);
            benchmark::DoNotOptimize(parser.Eval());
        }
    }
}
BENCHMARK(formulaMuparser)->Name("numCalculaFormula vs muparser/direct");

void rucLibrary(benchmark::State& state) {
    Fun fun(defaultPlatform());
    for (auto _ : state) {
        std::vector<Variant> args{Variant(u"1790011674001"), Variant(False)};
        benchmark::DoNotOptimize(invoke(fun, "fn_ValidaRUC2", args));
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(rucLibrary)->Name("fn_ValidaRUC2/library");

void rucDirect(benchmark::State& state) {
    Fun fun(defaultPlatform());
    const String number = u"1790011674001";
    for (auto _ : state) benchmark::DoNotOptimize(ident::fn_ValidaRUC2(fun, number, False));
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(rucDirect)->Name("fn_ValidaRUC2/direct");

void wordsLibrary(benchmark::State& state) {
    Fun fun(defaultPlatform());
    for (auto _ : state) {
        Variant args[] = {Variant(u"1234567.89"), Variant(std::int32_t(0)), Variant(std::int32_t(2)),
                          Variant(u"dólares"),    Variant(u"centavos"),     Variant(std::int32_t(1))};
        benchmark::DoNotOptimize(invoke(fun, "Numero2Letra", args));
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(wordsLibrary)->Name("Numero2Letra/library");

void wordsDirect(benchmark::State& state) {
    Fun fun(defaultPlatform());
    for (auto _ : state)
        benchmark::DoNotOptimize(
            text::Numero2Letra(fun, u"1234567.89", 0, 2, u"dólares", u"centavos", eSexo::Masculino, eSexo::Masculino));
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(wordsDirect)->Name("Numero2Letra/direct");

}  // namespace
}  // namespace telvaro

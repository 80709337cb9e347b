// Time to read an expression, by its length: a sum of N terms and N nested
// parentheses, in each engine, for N of 10^4, 10^5 and 10^6. Reading is
// linear when the time per term stays flat across the three sizes (the
// per-term rate is reported as "terms/s"). The compiled engine is timed
// through SetExpr, which compiles; the general engine through its first
// Eval, which builds the list.

#include "expr/engine_fast/mup_parser.h"
#include "expr/engine_fastest/mu_parser.h"
#include "expr/expr_context.h"

#include "../tests/long_texts.h"

#include <benchmark/benchmark.h>

#include <string>

namespace {

QString sumOf(int terms)
{
    return longtext::sumOf(terms);
}

QString nested(int depth)
{
    return longtext::nested(depth);
}

void readFastest(benchmark::State &state, QString (*make)(int))
{
    const int n = static_cast<int>(state.range(0));
    const std::wstring text = make(n).toStdWString();
    ExprContext context;
    double a = 1.0;
    for (auto _ : state) {
        mu::Parser parser(&context);
        parser.DefineVar(L"a", &a);
        parser.SetExpr(text);
        benchmark::DoNotOptimize(parser.Eval());
    }
    state.counters["terms/s"] = benchmark::Counter(double(n) * state.iterations(),
                                                   benchmark::Counter::kIsRate);
}

void readFast(benchmark::State &state, QString (*make)(int))
{
    const int n = static_cast<int>(state.range(0));
    const QString text = make(n);
    mup::Value a(1.0);
    for (auto _ : state) {
        mup::ParserX parser(mup::pckALL_NON_COMPLEX);
        parser.DefineVar(QStringLiteral("a"), mup::Variable(&a));
        parser.SetExpr(text);
        benchmark::DoNotOptimize(parser.Eval().GetFloat());
    }
    state.counters["terms/s"] = benchmark::Counter(double(n) * state.iterations(),
                                                   benchmark::Counter::kIsRate);
}

void fastestSum(benchmark::State &state) { readFastest(state, sumOf); }
void fastestNested(benchmark::State &state) { readFastest(state, nested); }
void fastSum(benchmark::State &state) { readFast(state, sumOf); }
void fastNested(benchmark::State &state) { readFast(state, nested); }

} // namespace

BENCHMARK(fastestSum)->RangeMultiplier(10)->Range(10000, 1000000)->Unit(benchmark::kMillisecond);
BENCHMARK(fastestNested)->RangeMultiplier(10)->Range(10000, 1000000)->Unit(benchmark::kMillisecond);
BENCHMARK(fastSum)->RangeMultiplier(10)->Range(10000, 1000000)->Unit(benchmark::kMillisecond);
BENCHMARK(fastNested)->RangeMultiplier(10)->Range(10000, 1000000)->Unit(benchmark::kMillisecond);

BENCHMARK_MAIN();

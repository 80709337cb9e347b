// Nanoseconds per evaluation of typical target and line-selection
// expressions over a million rows of changing values: the compiled engine,
// the general engine, the same expression written as native code with the
// same NULL rules (the limit), and the same expression compiled by Lua 5.4.

#include "expr/engine_fast/mup_parser.h"
#include "expr/engine_fastest/mu_math.h"
#include "expr/engine_fastest/mu_parser.h"
#include "expr/expr_context.h"
#include "expr/null_value.h"

#include <benchmark/benchmark.h>

#ifdef QUVA_HAVE_LUA
#include <lua.hpp>
#endif

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <map>
#include <memory>
#include <random>
#include <string>
#include <vector>

namespace {

constexpr int varCount = 5;
constexpr size_t rowCount = size_t(1) << 20; // a little over a million rows
const char *const varNames[varCount] = {"a", "b", "c", "d", "e"};

// Rows of a, b, c, d (values from -5 to 10, 3% NULL) and e (integers 0 to 9).
const std::vector<double> &rows()
{
    static const std::vector<double> data = [] {
        std::vector<double> v(rowCount * varCount);
        std::mt19937 rng(42);
        std::uniform_real_distribution<double> value(-5.0, 10.0);
        std::uniform_int_distribution<int> percent(0, 99), digit(0, 9);
        for (size_t r = 0; r < rowCount; ++r) {
            for (int i = 0; i < varCount - 1; ++i)
                v[r * varCount + i] = percent(rng) < 3 ? quva::nullValue() : value(rng);
            v[r * varCount + varCount - 1] = digit(rng);
        }
        return v;
    }();
    return data;
}

using namespace mu; // the NULL-aware operators of the native versions

double nullSafeSqrt(double x) { return quva::isNull(x) ? x : std::sqrt(x); }
double nullSafeAbs(double x) { return quva::isNull(x) ? x : std::fabs(x); }
double minOf(double a, double b) { return b < a ? b : a; }
double maxOf(double a, double b) { return b > a ? b : a; }
bool takesElse(double c) { return c == 0.0 || quva::isNull(c); }
double isNullFun(double x) { return quva::isNull(x) ? 1.0 : 0.0; }

// isNull for the general engine, as the functions of the language will add it.
class BenchIsNull : public mup::CallbackImpl<BenchIsNull, mup::ICallback>
{
public:
    BenchIsNull() : CallbackImpl(mup::cmFUNC, "isNull", 1) {}
    void Eval(mup::IValue &ret, const mup::IValue *const *args, int) override
    {
        const bool isNull = quva::isNull(args[0]->GetFloat());
        ret = isNull;
    }
    QString GetDesc() const override { return "isNull(x)"; }
};

// Benchmark name -> CPU ns per evaluation; CPU time, as the machine is
// shared and wall time counts the waits for a core.
std::map<std::string, double> g_times;

template <class Eval>
void runRows(benchmark::State &state, Eval eval)
{
    const double *data = rows().data();
    size_t r = 0;
    double sink = 0;
    for (auto _ : state) {
        sink += eval(data + r * varCount);
        r = (r + 1) & (rowCount - 1);
    }
    benchmark::DoNotOptimize(sink);
}

void benchFastest(benchmark::State &state, const char *expression)
{
    ExprContext context;
    double vars[varCount] = {};
    mu::Parser parser(&context);
    for (int i = 0; i < varCount; ++i)
        parser.DefineVar(QString(varNames[i]).toStdWString(), &vars[i]);
    parser.DefineFun(L"isNull", isNullFun);
    parser.SetExpr(QString(expression).toStdWString());
    runRows(state, [&](const double *row) {
        std::memcpy(vars, row, sizeof vars);
        return parser.Eval();
    });
}

void benchFast(benchmark::State &state, const char *expression)
{
    mup::Value values[varCount];
    mup::ParserX parser(mup::pckALL_NON_COMPLEX);
    for (int i = 0; i < varCount; ++i) {
        values[i] = 0.0;
        parser.DefineVar(varNames[i], mup::Variable(&values[i]));
    }
    parser.DefineFun(std::make_unique<BenchIsNull>());
    parser.SetExpr(expression);
    runRows(state, [&](const double *row) {
        for (int i = 0; i < varCount; ++i)
            values[i] = row[i];
        return parser.Eval().GetFloat();
    });
}

#ifdef QUVA_HAVE_LUA
void benchLua(benchmark::State &state, const char *body)
{
    lua_State *L = luaL_newstate();
    luaL_openlibs(L);
    const std::string chunk = "local sqrt, abs, min, max, fmod = math.sqrt, math.abs, math.min,"
                              " math.max, math.fmod\n"
                              "return function(a, b, c, d, e) "
                              + std::string(body) + " end";
    if (luaL_loadstring(L, chunk.c_str()) != LUA_OK || lua_pcall(L, 0, 1, 0) != LUA_OK) {
        state.SkipWithError(lua_tostring(L, -1));
        lua_close(L);
        return;
    }
    const int ref = luaL_ref(L, LUA_REGISTRYINDEX);
    runRows(state, [&](const double *row) {
        lua_rawgeti(L, LUA_REGISTRYINDEX, ref);
        for (int i = 0; i < varCount; ++i)
            lua_pushnumber(L, row[i]);
        lua_call(L, varCount, 1);
        const double r = lua_tonumber(L, -1);
        lua_pop(L, 1);
        return r;
    });
    lua_close(L);
}
#endif

struct Case
{
    std::string name;
    const char *expression;
    const char *lua; // the body of a Lua function of a, b, c, d, e
};

std::vector<Case> g_cases;

// Registers the four versions of one expression; `native` is inlined into
// its loop.
template <class Native>
void addCase(const char *name, const char *expression, const char *lua, Native native)
{
    g_cases.push_back({name, expression, lua});
    const std::string base = std::string(name) + "/";
    benchmark::RegisterBenchmark((base + "native").c_str(), [native](benchmark::State &s) {
        runRows(s, [&](const double *v) { return native(v[0], v[1], v[2], v[3], v[4]); });
    });
    benchmark::RegisterBenchmark((base + "fastest").c_str(),
                                 [expression](benchmark::State &s) { benchFastest(s, expression); });
    benchmark::RegisterBenchmark((base + "fast").c_str(),
                                 [expression](benchmark::State &s) { benchFast(s, expression); });
#ifdef QUVA_HAVE_LUA
    benchmark::RegisterBenchmark((base + "lua").c_str(),
                                 [lua](benchmark::State &s) { benchLua(s, lua); });
#endif
}

void addCases()
{
    addCase("poly2", "3*a^2 + 2*a + 1", "return 3*a^2 + 2*a + 1",
            [](double a, double, double, double, double) { return 3 * (a * a) + 2 * a + 1; });
    addCase("poly3", "a^3 - 2*a*b + b^2/4", "return a^3 - 2*a*b + b^2/4",
            [](double a, double b, double, double, double) {
                return a * a * a - 2 * a * b + b * b / 4;
            });
    addCase("and", "a > 0.5 && b < 3", "return (a > 0.5 and b < 3) and 1 or 0",
            [](double a, double b, double, double, double) {
                return landOp(gtOp(a, 0.5), ltOp(b, 3));
            });
    addCase("or3", "a > 2 || b <= 1 || c == 3",
            "return (a > 2 or b <= 1 or c == 3) and 1 or 0",
            [](double a, double b, double c, double, double) {
                return lorOp(lorOp(gtOp(a, 2), leOp(b, 1)), eqOp(c, 3));
            });
    addCase("ternary", "a > b ? a - b : b - a",
            "if a > b then return a - b else return b - a end",
            [](double a, double b, double, double, double) {
                return takesElse(gtOp(a, b)) ? b - a : a - b;
            });
    addCase("sqrt", "sqrt(a*a + b*b)", "return sqrt(a*a + b*b)",
            [](double a, double b, double, double, double) {
                return nullSafeSqrt(a * a + b * b);
            });
    addCase("minmax", "min(a, b) + max(c, d)", "return min(a, b) + max(c, d)",
            [](double a, double b, double c, double d, double) {
                return minOf(a, b) + maxOf(c, d);
            });
    addCase("modulo", "e % 7 == 3", "return fmod(e, 7) == 3 and 1 or 0",
            [](double, double, double, double, double e) { return eqOp(modOp(e, 7), 3); });
    addCase("range", "a >= 1 && a <= 5 && b != 0",
            "return (a >= 1 and a <= 5 and b ~= 0) and 1 or 0",
            [](double a, double b, double, double, double) {
                return landOp(landOp(geOp(a, 1), leOp(a, 5)), neqOp(b, 0));
            });
    addCase("linear", "(2*a + 3*b - c)/4 > d", "return (2*a + 3*b - c)/4 > d and 1 or 0",
            [](double a, double b, double c, double d, double) {
                return gtOp((2 * a + 3 * b - c) / 4, d);
            });
    addCase("mixed", "(a + b)*(c - d) > 0 ? sqrt(abs(a*b)) : min(c, d, e)",
            "if (a + b)*(c - d) > 0 then return sqrt(abs(a*b)) else return min(c, d, e) end",
            [](double a, double b, double c, double d, double e) {
                return takesElse(gtOp((a + b) * (c - d), 0))
                           ? minOf(minOf(c, d), e)
                           : nullSafeSqrt(nullSafeAbs(a * b));
            });
    addCase("nested", "e < 2 ? 1 : e < 4 ? 2 : 3",
            "if e < 2 then return 1 elseif e < 4 then return 2 else return 3 end",
            [](double, double, double, double, double e) {
                return !takesElse(ltOp(e, 2)) ? 1.0 : (!takesElse(ltOp(e, 4)) ? 2.0 : 3.0);
            });
    addCase("relative", "abs(a - b) < 0.1*max(abs(a), abs(b))",
            "return abs(a - b) < 0.1*max(abs(a), abs(b)) and 1 or 0",
            [](double a, double b, double, double, double) {
                return ltOp(nullSafeAbs(a - b), 0.1 * maxOf(nullSafeAbs(a), nullSafeAbs(b)));
            });
    addCase("nulltest", "isNull(a) ? b : a + b",
            "if a ~= a then return b else return a + b end",
            [](double a, double b, double, double, double) {
                return takesElse(isNullFun(a)) ? a + b : b;
            });
    addCase("avgtest", "sum(a, b, c, d, e)/5 >= 2 && (a || b)",
            "return ((a + b + c + d + e)/5 >= 2 and (a ~= 0 or b ~= 0)) and 1 or 0",
            [](double a, double b, double c, double d, double e) {
                return landOp(geOp((a + b + c + d + e) / 5, 2), lorOp(a, b));
            });
}

class TableReporter : public benchmark::ConsoleReporter
{
public:
    void ReportRuns(const std::vector<Run> &runs) override
    {
        ConsoleReporter::ReportRuns(runs);
        for (const Run &run : runs)
            g_times[run.benchmark_name()] = run.GetAdjustedCPUTime();
    }
};

double median(std::vector<double> v)
{
    std::sort(v.begin(), v.end());
    const size_t n = v.size();
    return n == 0 ? 0.0 : (n % 2 ? v[n / 2] : (v[n / 2 - 1] + v[n / 2]) / 2);
}

void printTable()
{
    std::printf("\n| expression | native ns | fastest ns | fast ns | lua ns | fastest/native |"
                " fast/native | fastest/lua |\n|---|---|---|---|---|---|---|---|\n");
    std::vector<double> fastestRatios, fastRatios;
    for (const Case &c : g_cases) {
        const double native = g_times[c.name + "/native"];
        const double fastest = g_times[c.name + "/fastest"];
        const double fast = g_times[c.name + "/fast"];
        const double lua = g_times.count(c.name + "/lua") ? g_times[c.name + "/lua"] : 0.0;
        fastestRatios.push_back(fastest / native);
        fastRatios.push_back(fast / native);
        std::printf("| `%s` | %.2f | %.2f | %.2f | %.2f | %.2f | %.2f | %.2f |\n", c.expression,
                    native, fastest, fast, lua, fastest / native, fast / native,
                    lua > 0 ? fastest / lua : 0.0);
    }
    std::printf("\nmedian fastest/native %.2f, max %.2f; median fast/native %.2f\n",
                median(fastestRatios),
                *std::max_element(fastestRatios.begin(), fastestRatios.end()),
                median(fastRatios));
}

} // namespace

int main(int argc, char **argv)
{
    rows();
    addCases();
    benchmark::Initialize(&argc, argv);
    TableReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    benchmark::Shutdown();
    printTable();
    return 0;
}

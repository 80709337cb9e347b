// Evaluating a compiled expression allocates nothing: counted by hooks on
// the C allocator and on the global operator new.

#include "expr/engine_fast/mup_parser.h"
#include "expr/engine_fastest/mu_parser.h"
#include "expr/expr_context.h"
#include "expr/null_value.h"

#include <QtTest>

#include <cstdlib>
#include <new>

#if defined(__SANITIZE_ADDRESS__)
#define QUVA_ALLOC_HOOKS 0 // the sanitizer owns the allocator
#else
#define QUVA_ALLOC_HOOKS 1
#endif

namespace {
bool g_counting = false;
long g_allocations = 0;

[[maybe_unused]] void countOne()
{
    if (g_counting)
        ++g_allocations;
}
} // namespace

#if QUVA_ALLOC_HOOKS
extern "C" {
void *__libc_malloc(size_t);
void *__libc_calloc(size_t, size_t);
void *__libc_realloc(void *, size_t);
void __libc_free(void *);

void *malloc(size_t n)
{
    countOne();
    return __libc_malloc(n);
}
void *calloc(size_t n, size_t size)
{
    countOne();
    return __libc_calloc(n, size);
}
void *realloc(void *p, size_t n)
{
    countOne();
    return __libc_realloc(p, n);
}
void free(void *p) { __libc_free(p); }
}

void *operator new(size_t n)
{
    countOne();
    if (void *p = __libc_malloc(n ? n : 1))
        return p;
    throw std::bad_alloc();
}
void *operator new[](size_t n) { return operator new(n); }
void operator delete(void *p) noexcept { __libc_free(p); }
void operator delete[](void *p) noexcept { __libc_free(p); }
void operator delete(void *p, size_t) noexcept { __libc_free(p); }
void operator delete[](void *p, size_t) noexcept { __libc_free(p); }
#endif

namespace {

// Counts the allocations made while `work` runs.
template <class Work>
long allocationsDuring(Work work)
{
    g_allocations = 0;
    g_counting = true;
    work();
    g_counting = false;
    return g_allocations;
}

const char *const expressions[] = {
    "3*a^2 + 2*a + 1",
    "a^3 - 2*a*b + b^2/4",
    "a > 0.5 && b < 3",
    "a > 2 || b <= 1 || c == 3",
    "a > b ? a - b : b - a",
    "sqrt(a*a + b*b)",
    "min(a, b) + max(c, d)",
    "e % 7 == 3",
    "a >= 1 && a <= 5 && b != 0",
    "(2*a + 3*b - c)/4 > d",
    "(a + b)*(c - d) > 0 ? sqrt(abs(a*b)) : min(c, d, e)",
    "e < 2 ? 1 : e < 4 ? 2 : 3",
    "abs(a - b) < 0.1*max(abs(a), abs(b))",
    "sum(a, b, c, d, e)/5 >= 2 && (a || b)",
};

const char *const names[] = {"a", "b", "c", "d", "e"};

double rowValue(int row, int var)
{
    if ((row + var) % 9 == 0)
        return quva::nullValue();
    return (row * 7 + var * 3) % 11 - 3.5;
}

} // namespace

class tst_expr_alloc : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void hooksCount();
    void fastestEvalAllocatesNothing_data();
    void fastestEvalAllocatesNothing();
    void fastEvalAllocatesNothing_data();
    void fastEvalAllocatesNothing();
};

void tst_expr_alloc::init()
{
    if (!QUVA_ALLOC_HOOKS)
        QSKIP("allocation hooks are off under the address sanitizer");
}

// The hooks see both kinds of allocation, so a zero below means something.
void tst_expr_alloc::hooksCount()
{
    volatile size_t size = 16;
    QCOMPARE(allocationsDuring([&] {
                 int *volatile p = new int(3);
                 delete p;
             }),
             1L);
    QCOMPARE(allocationsDuring([&] { std::free(std::malloc(size)); }), 1L);
    QVERIFY(allocationsDuring([&] { QString s(100, 'x'); }) >= 1);
    mu::Parser parser;
    QVERIFY(allocationsDuring([&] { parser.SetExpr(L"1 + 2"); }) >= 1);
}

void tst_expr_alloc::fastestEvalAllocatesNothing_data()
{
    QTest::addColumn<QString>("expression");
    for (const char *e : expressions)
        QTest::newRow(e) << QString(e);
}

void tst_expr_alloc::fastestEvalAllocatesNothing()
{
    QFETCH(QString, expression);
    ExprContext context;
    double vars[5] = {};
    mu::Parser parser(&context);
    for (int i = 0; i < 5; ++i)
        parser.DefineVar(QString(names[i]).toStdWString(), &vars[i]);
    parser.SetExpr(expression.toStdWString());
    double total = 0;
    const long n = allocationsDuring([&] {
        for (int row = 0; row < 2000; ++row) {
            for (int i = 0; i < 5; ++i)
                vars[i] = rowValue(row, i);
            total += parser.Eval();
        }
    });
    QCOMPARE(n, 0L);
    Q_UNUSED(total);
}

void tst_expr_alloc::fastEvalAllocatesNothing_data()
{
    fastestEvalAllocatesNothing_data();
}

// After the first evaluation, which builds the list and its stack.
void tst_expr_alloc::fastEvalAllocatesNothing()
{
    QFETCH(QString, expression);
    mup::Value values[5];
    mup::ParserX parser(mup::pckALL_NON_COMPLEX);
    for (int i = 0; i < 5; ++i) {
        values[i] = 1.0;
        parser.DefineVar(names[i], mup::Variable(&values[i]));
    }
    parser.SetExpr(expression);
    parser.Eval();
    double total = 0;
    const long n = allocationsDuring([&] {
        for (int row = 0; row < 2000; ++row) {
            for (int i = 0; i < 5; ++i)
                values[i] = rowValue(row, i);
            total += parser.Eval().GetFloat();
        }
    });
    QCOMPARE(n, 0L);
    Q_UNUSED(total);
}

QTEST_APPLESS_MAIN(tst_expr_alloc)
#include "tst_expr_alloc.moc"

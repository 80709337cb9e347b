#pragma once

#include "expr/engine_fastest/mu_tokens.h"

struct ExprContext;

namespace mu {

// Signatures a function of the language may have. Plain ones take only
// numbers (code 28); the context ones get the ExprContext pointer behind their
// numbers (code 29); the string ones take a string literal first and the
// context last (code 30). A multi-argument function gets the arguments as an
// array with its length.
using FunType0 = double (*)();
using FunType1 = double (*)(double);
using FunType2 = double (*)(double, double);
using FunType3 = double (*)(double, double, double);
using FunType4 = double (*)(double, double, double, double);
using FunType5 = double (*)(double, double, double, double, double);
using MultiFunType = double (*)(const double *, int);
using CtxFunType0 = double (*)(ExprContext *);
using CtxFunType1 = double (*)(double, ExprContext *);
using CtxFunType2 = double (*)(double, double, ExprContext *);
using CtxFunType3 = double (*)(double, double, double, ExprContext *);
using CtxFunType4 = double (*)(double, double, double, double, ExprContext *);
using StrFunType0 = double (*)(const wchar_t *, ExprContext *);
using StrFunType1 = double (*)(const wchar_t *, double, ExprContext *);
using StrFunType2 = double (*)(const wchar_t *, double, double, ExprContext *);

// Every signature above, as one switch can dispatch it.
enum class CallShape : int {
    Fun0, Fun1, Fun2, Fun3, Fun4, Fun5, Multi,
    Ctx0, Ctx1, Ctx2, Ctx3, Ctx4,
    Str0, Str1, Str2
};

using GenericFun = void (*)();

struct Callback
{
    GenericFun fun = nullptr;
    CallShape shape = CallShape::Fun0;
    int argc = 0;          // numeric arguments; -1 for a multi-argument function
    int code = cmFUNC;     // cmFUNC, cmFUNC_CTX or cmFUNC_STR
    bool foldable = true;  // may be called once at compile time on constants
};

// Calls `fun` of the given shape on `n` numbers at `a`. Shared by the
// running loop and by constant folding so both compute alike.
inline double invokeCallback(CallShape shape, GenericFun fun, const double *a, int n,
                             ExprContext *ctx, const wchar_t *text)
{
    switch (shape) {
    case CallShape::Fun0: return reinterpret_cast<FunType0>(fun)();
    case CallShape::Fun1: return reinterpret_cast<FunType1>(fun)(a[0]);
    case CallShape::Fun2: return reinterpret_cast<FunType2>(fun)(a[0], a[1]);
    case CallShape::Fun3: return reinterpret_cast<FunType3>(fun)(a[0], a[1], a[2]);
    case CallShape::Fun4: return reinterpret_cast<FunType4>(fun)(a[0], a[1], a[2], a[3]);
    case CallShape::Fun5:
        return reinterpret_cast<FunType5>(fun)(a[0], a[1], a[2], a[3], a[4]);
    case CallShape::Multi: return reinterpret_cast<MultiFunType>(fun)(a, n);
    case CallShape::Ctx0: return reinterpret_cast<CtxFunType0>(fun)(ctx);
    case CallShape::Ctx1: return reinterpret_cast<CtxFunType1>(fun)(a[0], ctx);
    case CallShape::Ctx2: return reinterpret_cast<CtxFunType2>(fun)(a[0], a[1], ctx);
    case CallShape::Ctx3: return reinterpret_cast<CtxFunType3>(fun)(a[0], a[1], a[2], ctx);
    case CallShape::Ctx4:
        return reinterpret_cast<CtxFunType4>(fun)(a[0], a[1], a[2], a[3], ctx);
    case CallShape::Str0: return reinterpret_cast<StrFunType0>(fun)(text, ctx);
    case CallShape::Str1: return reinterpret_cast<StrFunType1>(fun)(text, a[0], ctx);
    case CallShape::Str2: return reinterpret_cast<StrFunType2>(fun)(text, a[0], a[1], ctx);
    }
    return 0.0;
}

} // namespace mu

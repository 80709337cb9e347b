#include "expr/engine_fastest/mu_bytecode.h"

#include "expr/engine_fastest/mu_error.h"
#include "expr/engine_fastest/mu_math.h"

namespace mu {

namespace {

// The summand of a fused variable that has none yet. -0.0 is the exact
// identity of addition (x + -0.0 is x for every x, -0.0 included), so
// "x*2" fused into a factor and this summand gives the very bits of x*2.
constexpr double noSummand = -0.0;

bool isNoSummand(double s) { return quva::toBits(s) == 0x8000000000000000ull; }

Instr valInstr(double value)
{
    Instr in;
    in.code = cmVAL;
    in.summand = value;
    return in;
}

Instr opInstr(int code)
{
    Instr in;
    in.code = code;
    return in;
}

// Folding of two constants. It knows nothing of NULL but for the power:
// comparisons are plain floating-point ones, '&&' and '||' look at the
// operands truncated to integers. A '%' by a divisor truncating to 0 is left
// to the running loop, which gives it its defined value.
bool foldConstants(int op, double x, double y, double *out)
{
    switch (op) {
    case cmLE: *out = truth(x <= y); return true;
    case cmGE: *out = truth(x >= y); return true;
    case cmNEQ: *out = truth(x != y); return true;
    case cmEQ: *out = truth(x == y); return true;
    case cmLT: *out = truth(x < y); return true;
    case cmGT: *out = truth(x > y); return true;
    case cmADD: *out = addOp(x, y); return true;
    case cmSUB: *out = subOp(x, y); return true;
    case cmMUL: *out = mulOp(x, y); return true;
    case cmDIV: *out = divOp(x, y); return true;
    case cmMOD:
        if (truncToInt64(y) == 0)
            return false;
        *out = modTruncated(x, y);
        return true;
    case cmPOW: *out = powOp(x, y); return true;
    case cmLAND: *out = truth(truncToInt64(x) != 0 && truncToInt64(y) != 0); return true;
    case cmLOR: *out = truth(truncToInt64(x) != 0 || truncToInt64(y) != 0); return true;
    default: return false;
    }
}

// A variable, a fused variable or a constant seen as factor * var + summand.
struct Linear
{
    double *var;
    double factor;
    double summand;
};

bool asLinear(const Instr &in, Linear *out)
{
    switch (in.code) {
    case cmVAR: *out = {in.var, 1.0, noSummand}; return true;
    case cmVARMUL: *out = {in.var, in.factor, in.summand}; return true;
    case cmVAL: *out = {nullptr, 0.0, in.summand}; return true;
    default: return false;
    }
}

Instr linearInstr(const Linear &l)
{
    Instr in;
    in.code = cmVARMUL;
    in.var = l.var;
    in.factor = l.factor;
    in.summand = l.summand;
    return in;
}

double scaleSummand(double s, double c, bool divide)
{
    if (isNoSummand(s))
        return noSummand;
    return divide ? s / c : s * c;
}

// '*' or '/' of a linear form by a constant.
bool fuseScale(const Linear &l, double c, bool divide, Instr *out)
{
    Linear r = l;
    r.factor = divide ? l.factor / c : l.factor * c;
    r.summand = scaleSummand(l.summand, c, divide);
    *out = linearInstr(r);
    return true;
}

bool fuseMul(const Instr &a, const Instr &b, Instr *out)
{
    if (a.code == cmVAR && b.code == cmVAR && a.var == b.var) {
        *out = a;
        out->code = cmVARPOW2;
        return true;
    }
    Linear l;
    if (b.code == cmVAL && (a.code == cmVAR || a.code == cmVARMUL) && asLinear(a, &l))
        return fuseScale(l, b.summand, false, out);
    if (a.code == cmVAL && (b.code == cmVAR || b.code == cmVARMUL) && asLinear(b, &l))
        return fuseScale(l, a.summand, false, out);
    return false;
}

bool fuseAddSub(int op, const Instr &a, const Instr &b, Instr *out)
{
    Linear l, r;
    if (!asLinear(a, &l) || !asLinear(b, &r))
        return false;
    if (l.var && r.var && l.var != r.var)
        return false;
    if (!l.var && !r.var)
        return false;
    Linear sum{l.var ? l.var : r.var, 0.0, 0.0};
    if (op == cmADD) {
        sum.factor = l.factor + r.factor;
        sum.summand = l.summand + r.summand;
    } else {
        sum.factor = l.factor - r.factor;
        sum.summand = l.summand - r.summand;
    }
    *out = linearInstr(sum);
    return true;
}

bool fusePow(const Instr &a, const Instr &b, Instr *out)
{
    if (a.code != cmVAR || b.code != cmVAL)
        return false;
    const double e = b.summand;
    if (e != 2.0 && e != 3.0 && e != 4.0)
        return false;
    *out = a;
    out->code = e == 2.0 ? cmVARPOW2 : (e == 3.0 ? cmVARPOW3 : cmVARPOW4);
    return true;
}

// The special forms: a variable to a small power, a variable times a
// factor plus a summand.
bool fuse(int op, const Instr &a, const Instr &b, Instr *out)
{
    switch (op) {
    case cmPOW: return fusePow(a, b, out);
    case cmMUL: return fuseMul(a, b, out);
    case cmDIV:
        return a.code == cmVARMUL && b.code == cmVAL
               && fuseScale({a.var, a.factor, a.summand}, b.summand, true, out);
    case cmADD:
    case cmSUB: return fuseAddSub(op, a, b, out);
    default: return false;
    }
}

[[noreturn]] void unbalanced()
{
    throw ParserError(ErrorCode::UnbalancedBranches, L"unbalanced stack in conditional");
}

} // namespace

void Bytecode::clear()
{
    code.clear();
    exec.clear();
    strings.clear();
    stackSize = 0;
    resultIndex = 0;
}

void Bytecode::addVar(double *var)
{
    Instr in;
    in.code = cmVAR;
    in.var = var;
    in.factor = 1.0;
    in.summand = noSummand;
    code.push_back(in);
}

void Bytecode::addVal(double value) { code.push_back(valInstr(value)); }

void Bytecode::addBinary(int opCode)
{
    const size_t n = code.size();
    if (n >= 2) {
        const Instr &a = code[n - 2];
        const Instr &b = code[n - 1];
        double folded;
        if (a.code == cmVAL && b.code == cmVAL && foldConstants(opCode, a.summand, b.summand, &folded)) {
            code.pop_back();
            code.back() = valInstr(folded);
            return;
        }
        Instr fused;
        if (fuse(opCode, a, b, &fused)) {
            code.pop_back();
            code.back() = fused;
            return;
        }
    }
    code.push_back(opInstr(opCode));
}

void Bytecode::addPrefixMinus()
{
    if (!code.empty() && code.back().code == cmVAL) {
        code.back().summand = negOp(code.back().summand);
        return;
    }
    code.push_back(opInstr(cmOPRT_INFIX));
}

void Bytecode::addFunction(const Callback &cb, int numericArgs, int stringIndex,
                           ExprContext *context)
{
    const size_t n = code.size();
    const size_t args = static_cast<size_t>(numericArgs);
    bool allConstant = cb.foldable && n >= args;
    for (size_t i = n - (allConstant ? args : 0); allConstant && i < n; ++i)
        allConstant = code[i].code == cmVAL;
    if (allConstant) {
        std::vector<double> values;
        for (size_t i = n - args; i < n; ++i)
            values.push_back(code[i].summand);
        const wchar_t *text = stringIndex >= 0 ? strings[stringIndex].c_str() : nullptr;
        const double r = invokeCallback(cb.shape, cb.fun, values.data(), numericArgs, context, text);
        code.resize(n - args);
        code.push_back(valInstr(r));
        return;
    }
    Instr in;
    in.code = cb.code;
    in.argc = numericArgs;
    in.shape = cb.shape;
    in.fun = cb.fun;
    in.stringIndex = stringIndex;
    code.push_back(in);
}

void Bytecode::addIf() { code.push_back(opInstr(cmIF)); }
void Bytecode::addElse() { code.push_back(opInstr(cmELSE)); }
void Bytecode::addEndIf() { code.push_back(opInstr(cmENDIF)); }

void Bytecode::finish(int resultCount)
{
    code.push_back(opInstr(cmEND));
    struct Open
    {
        int index;
        int depth; // stack depth in front of the branches
    };
    std::vector<Open> ifs, elses;
    int depth = 0;
    int deepest = 0;
    for (int i = 0; i < static_cast<int>(code.size()); ++i) {
        Instr &in = code[i];
        const bool isFun = isFunctionCode(in.code);
        const int pops = isFun ? in.argc : opTable[in.code].pops;
        const int pushes = opTable[in.code].pushes;
        if (depth < pops)
            throw ParserError(ErrorCode::InternalError, L"stack underflow");
        depth += pushes - pops;
        if (depth > deepest)
            deepest = depth;
        if (in.code == cmIF) {
            ifs.push_back({i, depth});
        } else if (in.code == cmELSE) {
            if (ifs.empty() || depth != ifs.back().depth + 1)
                unbalanced();
            code[ifs.back().index].argc = i - ifs.back().index;
            elses.push_back({i, ifs.back().depth});
            depth = ifs.back().depth;
            ifs.pop_back();
        } else if (in.code == cmENDIF) {
            if (elses.empty() || depth != elses.back().depth + 1)
                unbalanced();
            code[elses.back().index].argc = i - elses.back().index;
            elses.pop_back();
        }
    }
    if (!ifs.empty() || !elses.empty())
        unbalanced();
    if (depth == 0)
        throw ParserError(ErrorCode::NoValue, L"no value to evaluate");
    if (depth != resultCount)
        throw ParserError(ErrorCode::StringResult, L"the values left are not all numbers");
    stackSize = deepest;
    resultIndex = resultCount;
    buildExecForm();
}

} // namespace mu

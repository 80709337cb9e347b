#include "expr/engine_fastest/mu_bytecode.h"
#include "expr/engine_fastest/mu_error.h"
#include "expr/engine_fastest/mu_parser.h"

namespace mu {

namespace {

bool isBinary(int code) { return code >= cmLE && code <= cmLOR; }

// The operand form of a leaf that a binary operator right behind it can
// take over, or -1.
int operandForm(int code)
{
    switch (code) {
    case cmVAR: return exLE_V - exLE;
    case cmVAL: return exLE_C - exLE;
    case cmVARMUL: return exLE_L - exLE;
    default: return -1;
    }
}

ExecInstr leafOrSimple(const Instr &in)
{
    ExecInstr ex;
    ex.var = in.var;
    ex.factor = in.factor;
    ex.summand = in.summand;
    switch (in.code) {
    case cmVAR: ex.op = exVAR; break;
    case cmVAL: ex.op = exVAL; break;
    case cmVARPOW2: ex.op = exVARPOW2; break;
    case cmVARPOW3: ex.op = exVARPOW3; break;
    case cmVARPOW4: ex.op = exVARPOW4; break;
    case cmVARMUL: ex.op = exVARMUL; break;
    case cmIF: ex.op = exIF; break;
    case cmELSE: ex.op = exELSE; break;
    case cmOPRT_INFIX: ex.op = exNEG; break;
    case cmEND: ex.op = exEND; break;
    default:
        if (!isBinary(in.code)) // the compiler never emits any other code
            throw ParserError(ErrorCode::InternalError, L"unexpected instruction");
        ex.op = 4 * in.code; // a binary operator on two stack values
        break;
    }
    return ex;
}

} // namespace

// One walk: fuse each leaf with the binary operator behind it, drop the ends
// of conditionals, then turn the jump distances into distances of the new
// form. No jump lands on an operator that follows a leaf, since a jump always
// lands behind a ":" or the end of a conditional.
void Bytecode::buildExecForm()
{
    exec.clear();
    std::vector<int> start(code.size() + 1, 0); // exec index where each instruction begins
    for (size_t i = 0; i < code.size(); ++i) {
        const Instr &in = code[i];
        start[i] = static_cast<int>(exec.size());
        const int form = operandForm(in.code);
        if (form >= 0 && i + 1 < code.size() && isBinary(code[i + 1].code)) {
            ExecInstr ex = leafOrSimple(in);
            ex.op = 4 * code[i + 1].code + form;
            exec.push_back(ex);
            start[i + 1] = start[i];
            ++i;
            continue;
        }
        if (in.code == cmENDIF)
            continue;
        if (isFunctionCode(in.code))
            addExecFunction(in);
        else
            exec.push_back(leafOrSimple(in));
    }
    for (size_t i = 0; i < code.size(); ++i) {
        if (code[i].code != cmIF && code[i].code != cmELSE)
            continue;
        const int from = start[i];
        const int target = start[i + code[i].argc + 1];
        exec[from].jump = target - from - 1;
    }
}

// A call, in the shortest form that computes the same.
void Bytecode::addExecFunction(const Instr &in)
{
    ExecInstr ex;
    ex.op = exFUNC;
    ex.argc = in.argc;
    ex.shape = in.shape;
    ex.fun = in.fun;
    ex.stringIndex = in.stringIndex;
    const int builtIn = builtInExecOp(in.fun, in.argc);
    if (builtIn >= 0)
        ex.op = builtIn;
    else if (in.shape == CallShape::Fun1)
        ex.op = exFUNC1;
    else if (in.shape == CallShape::Fun2)
        ex.op = exFUNC2;
    exec.push_back(ex);
}

} // namespace mu

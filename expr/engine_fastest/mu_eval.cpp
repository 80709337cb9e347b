#include "expr/engine_fastest/mu_math.h"
#include "expr/engine_fastest/mu_parser.h"

namespace mu {

// The running loop, dispatched through a table of labels. The top of the
// stack is kept in `top`; the values under it are in `stack`, with `sp`
// pointing at the highest one. The first push stores the meaningless
// starting `top` in slot 1, so `sp` is always stack + depth and never goes
// below the array; a function call stores `top` one slot above before it
// pops its arguments, hence the two slots beyond stackSize. The list was
// checked when it was compiled: no instruction pops more than is there.
double runBytecode(const Bytecode &code, double *stack, ExprContext *context)
{
    static const void *const labels[exOpCount] = {
#define MU_EXEC_LABELS(name, fn) &&op##name, &&op##name##_V, &&op##name##_C, &&op##name##_L,
        MU_BINARY_OPS(MU_EXEC_LABELS)
#undef MU_EXEC_LABELS
        &&opVAR, &&opVAL, &&opVARPOW2, &&opVARPOW3, &&opVARPOW4, &&opVARMUL,
        &&opIF, &&opELSE, &&opFUNC, &&opFUNC1, &&opFUNC2, &&opABS, &&opSQRT, &&opMIN2,
        &&opMAX2, &&opNEG, &&opEND,
    };
    const ExecInstr *ip = code.exec.data();
    double *sp = stack;
    double top = 0.0;
#define MU_NEXT goto *labels[(++ip)->op]
    goto *labels[ip->op];

#define MU_EXEC_BINARY(name, fn)                                                       \
    op##name : top = fn(*sp--, top);                                                   \
    MU_NEXT;                                                                           \
    op##name##_V : top = fn(top, *ip->var);                                            \
    MU_NEXT;                                                                           \
    op##name##_C : top = fn(top, ip->summand);                                         \
    MU_NEXT;                                                                           \
    op##name##_L : top = fn(top, *ip->var * ip->factor + ip->summand);                 \
    MU_NEXT;
    MU_BINARY_OPS(MU_EXEC_BINARY)
#undef MU_EXEC_BINARY

opVAR:
    *++sp = top;
    top = *ip->var;
    MU_NEXT;
opVAL:
    *++sp = top;
    top = ip->summand;
    MU_NEXT;
opVARPOW2 : {
    const double x = *ip->var;
    *++sp = top;
    top = x * x;
    MU_NEXT;
}
opVARPOW3 : {
    const double x = *ip->var;
    *++sp = top;
    top = x * x * x;
    MU_NEXT;
}
opVARPOW4 : {
    const double x = *ip->var;
    *++sp = top;
    top = x * x * x * x;
    MU_NEXT;
}
opVARMUL:
    *++sp = top;
    top = *ip->var * ip->factor + ip->summand;
    MU_NEXT;
opIF : {
    const double c = top;
    top = *sp--;
    if (c == 0.0 || isNullValue(c))
        ip += ip->jump;
    MU_NEXT;
}
opELSE:
    ip += ip->jump;
    MU_NEXT;
opFUNC : {
    *++sp = top;
    double *args = sp - ip->argc + 1;
    const wchar_t *text =
        ip->stringIndex >= 0 ? code.strings[ip->stringIndex].c_str() : nullptr;
    top = invokeCallback(ip->shape, ip->fun, args, ip->argc, context, text);
    sp -= ip->argc;
    MU_NEXT;
}
opFUNC1:
    top = reinterpret_cast<FunType1>(ip->fun)(top);
    MU_NEXT;
opFUNC2:
    top = reinterpret_cast<FunType2>(ip->fun)(*sp--, top);
    MU_NEXT;
opABS:
    top = isNullValue(top) ? top : std::fabs(top);
    MU_NEXT;
opSQRT:
    top = isNullValue(top) ? top : std::sqrt(top);
    MU_NEXT;
opMIN2 : {
    const double y = top;
    top = *sp--;
    if (y < top)
        top = y;
    MU_NEXT;
}
opMAX2 : {
    const double y = top;
    top = *sp--;
    if (y > top)
        top = y;
    MU_NEXT;
}
opNEG:
    top = negOp(top);
    MU_NEXT;
opEND:
    return top;
#undef MU_NEXT
}

} // namespace mu

#pragma once

#include "expr/engine_fastest/mu_callback.h"
#include "expr/engine_fastest/mu_tokens.h"

#include <string>
#include <vector>

namespace mu {

// One instruction of the compiled form.
struct Instr
{
    int code = cmEND;
    int argc = 0;         // functions: numeric arguments; "?" and ":": jump distance
    CallShape shape = CallShape::Fun0;
    int stringIndex = -1; // cmFUNC_STR: index into Bytecode::strings
    double *var = nullptr;
    GenericFun fun = nullptr;
    double factor = 0.0;  // cmVARMUL: factor; constants keep 0
    double summand = 0.0; // cmVAL: the value; cmVARMUL: the summand
};

// What each code does to the stack of doubles. `pops` and `pushes` hold for
// every code whose effect is fixed; functions take their numeric argument
// count from the instruction.
struct OpInfo
{
    const char *name;
    int pops;
    int pushes;
};

constexpr OpInfo opTable[] = {
    {"<=", 2, 1},        // cmLE: pop y, x; push x <= y, NULL if either is NULL
    {">=", 2, 1},        // cmGE: likewise x >= y
    {"!=", 2, 1},        // cmNEQ: likewise x != y
    {"==", 2, 1},        // cmEQ: likewise x == y
    {"<", 2, 1},         // cmLT: likewise x < y
    {">", 2, 1},         // cmGT: likewise x > y
    {"+", 2, 1},         // cmADD: pop y, x; push x + y
    {"-", 2, 1},         // cmSUB: pop y, x; push x - y
    {"*", 2, 1},         // cmMUL: pop y, x; push x * y
    {"%", 2, 1},         // cmMOD: pop y, x; push truncated remainder, -1 for y 0
    {"/", 2, 1},         // cmDIV: pop y, x; push x / y
    {"^", 2, 1},         // cmPOW: pop y, x; push x to the y, NULL if either is NULL
    {"&&", 2, 1},        // cmLAND: pop y, x; push three-valued and
    {"||", 2, 1},        // cmLOR: pop y, x; push three-valued or
    {"=", 2, 1},         // cmASSIGN: never emitted, read as cmEQ
    {"(", 0, 0},         // cmBO: never emitted
    {")", 0, 0},         // cmBC: never emitted
    {"?", 1, 0},         // cmIF: pop c; jump to the else branch if c is 0 or NULL
    {":", 0, 0},         // cmELSE: end of the then branch, jump behind the else branch
    {"endif", 0, 0},     // cmENDIF: end of the else branch, nothing to do
    {",", 0, 0},         // cmARG_SEP: never emitted
    {"var", 0, 1},       // cmVAR: push *var
    {"val", 0, 1},       // cmVAL: push summand
    {"var^2", 0, 1},     // cmVARPOW2: push (*var)^2
    {"var^3", 0, 1},     // cmVARPOW3: push (*var)^3
    {"var^4", 0, 1},     // cmVARPOW4: push (*var)^4
    {"var*f+s", 0, 1},   // cmVARMUL: push *var * factor + summand
    {"unused27", 0, 0},  // no code 27
    {"func", 0, 1},      // cmFUNC: pop argc numbers; push fun(numbers)
    {"func_ctx", 0, 1},  // cmFUNC_CTX: pop argc numbers; push fun(numbers, context)
    {"func_str", 0, 1},  // cmFUNC_STR: pop argc numbers; push fun(string, numbers, context)
    {"unused31", 0, 0},  // no code 31
    {"string", 0, 0},    // cmSTRING: never emitted, the literal goes to the string list
    {"oprt_bin", 2, 1},  // cmOPRT_BIN: no user binary operators are defined
    {"oprt_post", 1, 1}, // cmOPRT_POSTFIX: no postfix operators are defined
    {"neg", 1, 1},       // cmOPRT_INFIX: flip the sign bit of the top (prefix minus)
    {"end", 0, 0},       // cmEND: return the result slot
};
static_assert(sizeof(opTable) / sizeof(opTable[0]) == cmCodeCount,
              "one entry per instruction code");

inline bool isFunctionCode(int code)
{
    return code == cmFUNC || code == cmFUNC_CTX || code == cmFUNC_STR;
}

// The binary operators as the running loop knows them, in code order.
#define MU_BINARY_OPS(X)                                                              \
    X(LE, leOp)                                                                       \
    X(GE, geOp)                                                                       \
    X(NEQ, neqOp)                                                                     \
    X(EQ, eqOp)                                                                       \
    X(LT, ltOp)                                                                       \
    X(GT, gtOp)                                                                       \
    X(ADD, addOp)                                                                     \
    X(SUB, subOp)                                                                     \
    X(MUL, mulOp)                                                                     \
    X(MOD, modOp)                                                                     \
    X(DIV, divOp)                                                                     \
    X(POW, powOp)                                                                     \
    X(LAND, landOp)                                                                   \
    X(LOR, lorOp)

// The form the running loop executes, made from the checked instruction list:
// a binary operator whose right operand is a variable, a constant or a fused
// variable right in front of it takes that operand from the instruction
// instead of the stack, and the end of a conditional, which does nothing,
// is dropped. The top of the stack lives in a register of the loop.
enum ExecOp : int {
#define MU_EXEC_FORMS(name, fn) ex##name, ex##name##_V, ex##name##_C, ex##name##_L,
    MU_BINARY_OPS(MU_EXEC_FORMS) // for each: top = top2 op top; top op *var;
                                 // top op value; top op (*var * factor + summand)
#undef MU_EXEC_FORMS
    exVAR,     // push *var
    exVAL,     // push summand
    exVARPOW2, // push (*var)^2
    exVARPOW3, // push (*var)^3
    exVARPOW4, // push (*var)^4
    exVARMUL,  // push *var * factor + summand
    exIF,      // pop c; jump if c is 0 or NULL
    exELSE,    // jump
    exFUNC,    // pop argc numbers; push fun(numbers[, string][, context])
    exFUNC1,   // top = fun(top), a function of one number
    exFUNC2,   // pop y; top = fun(top, y), a function of two numbers
    exABS,     // the built-in abs of the top, NULL kept
    exSQRT,    // the built-in sqrt of the top, NULL kept
    exMIN2,    // the built-in min of two: pop y; top = y < top ? y : top
    exMAX2,    // the built-in max of two: pop y; top = y > top ? y : top
    exNEG,     // flip the sign bit of the top
    exEND,     // return the top
    exOpCount
};
static_assert(exVAR == 4 * (cmLOR + 1), "four forms per binary operator, in code order");

struct ExecInstr
{
    int op = exEND;
    int argc = 0;         // exFUNC: numeric arguments
    int jump = 0;         // exIF, exELSE: instructions to skip
    CallShape shape = CallShape::Fun0;
    double *var = nullptr;
    GenericFun fun = nullptr;
    double factor = 0.0;
    double summand = 0.0;
    int stringIndex = -1; // exFUNC of a string function: index into Bytecode::strings
};

// The instruction list with everything the running loop needs.
struct Bytecode
{
    std::vector<Instr> code;
    std::vector<ExecInstr> exec;
    std::vector<std::wstring> strings;
    int stackSize = 0;   // deepest stack the list can reach; the loop needs 2 more slots
    // 1-based slot of the result: the top argument count, checked at finish
    // to be the depth at the end, so the result is always the top.
    int resultIndex = 0;

    void clear();
    void addVar(double *var);
    void addVal(double value);
    // Emits a binary operator, folding or fusing it with the instructions
    // in front of it where that is allowed.
    void addBinary(int opCode);
    void addPrefixMinus();
    void addFunction(const Callback &cb, int numericArgs, int stringIndex,
                     ExprContext *context);
    void addIf();
    void addElse();
    void addEndIf();
    // Appends the end, stores the jump distances and checks the stack
    // balance; throws ParserError when the list could leave its stack.
    void finish(int resultCount);

private:
    void addExecFunction(const Instr &in);
    void buildExecForm();
};

} // namespace mu

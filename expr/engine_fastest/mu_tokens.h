#pragma once

// Token and instruction codes of the compiled engine. Tokens and instructions
// share one numbering: the compiler emits most tokens unchanged.

namespace mu {

enum Code : int {
    cmLE = 0,        // "<="
    cmGE = 1,        // ">="
    cmNEQ = 2,       // "!="
    cmEQ = 3,        // "=="
    cmLT = 4,        // "<"
    cmGT = 5,        // ">"
    cmADD = 6,       // "+"
    cmSUB = 7,       // "-"
    cmMUL = 8,       // "*"
    cmMOD = 9,       // "%"
    cmDIV = 10,      // "/"
    cmPOW = 11,      // "^"
    cmLAND = 12,     // "&&"
    cmLOR = 13,      // "||"
    cmASSIGN = 14,   // "=", read as "=="
    cmBO = 15,       // "("
    cmBC = 16,       // ")"
    cmIF = 17,       // "?"
    cmELSE = 18,     // ":"
    cmENDIF = 19,    // end of a conditional
    cmARG_SEP = 20,  // ","
    cmVAR = 21,      // a variable
    cmVAL = 22,      // a constant value
    cmVARPOW2 = 23,  // a variable squared
    cmVARPOW3 = 24,  // a variable cubed
    cmVARPOW4 = 25,  // a variable to the fourth
    cmVARMUL = 26,   // a variable times a factor plus a summand
    cmFUNC = 28,     // a function of numbers
    cmFUNC_CTX = 29, // a function that also receives the context
    cmFUNC_STR = 30, // a function of a string, numbers and the context
    cmSTRING = 32,   // a string literal
    cmOPRT_BIN = 33, // a user binary operator
    cmOPRT_POSTFIX = 34, // a postfix operator
    cmOPRT_INFIX = 35,   // a prefix operator
    cmEND = 36,      // the end
    cmCodeCount = 37
};

// Bits of the reader's mask; a set bit refuses that kind of token next.
enum SyntaxBits : int {
    noBO = 1,
    noBC = 2,
    noVAL = 4,
    noVAR = 8,
    noARG_SEP = 16,
    noFUN = 32,
    noOPT = 64,
    noPOSTOP = 128,
    noINFIXOP = 256,
    noEND = 512,
    noSTR = 1024,
    noASSIGN = 2048,
    noIF = 4096,
    noELSE = 8192
};

// The mask after each kind of token.
enum SyntaxMask : int {
    maskStart = noBC | noARG_SEP | noOPT | noPOSTOP | noASSIGN | noIF | noELSE,
    maskAfterOpeningBracket = noBC | noARG_SEP | noOPT | noPOSTOP | noEND | noASSIGN | noIF
                              | noELSE,
    maskAfterFunctionBracket = maskAfterOpeningBracket & ~noBC, // so that f() is accepted
    maskAfterClosingBracket = noBO | noVAL | noVAR | noFUN | noINFIXOP | noSTR | noASSIGN,
    maskAfterComma = noBC | noARG_SEP | noOPT | noPOSTOP | noEND | noASSIGN,
    maskAfterConditional = noBC | noOPT | noPOSTOP | noEND | noIF | noELSE,
    maskAfterOperator = maskAfterOpeningBracket,
    maskAfterUserOperator = maskAfterComma,
    maskAfterValue = maskAfterClosingBracket,
    maskAfterVariable = noBO | noVAL | noVAR | noFUN | noINFIXOP | noSTR,
    maskAfterFunction = ~noBO,
    maskAfterPrefix = noBC | noOPT | noPOSTOP | noINFIXOP | noSTR | noASSIGN,
    maskAfterPostfix = noBO | noVAL | noVAR | noFUN | noPOSTOP | noSTR | noASSIGN,
    maskAfterString = ~(noBC | noARG_SEP | noOPT | noEND),
    maskAfterEnd = 0
};

// The masks as numbers, which the reader's tests and the language's
// description give.
static_assert(maskStart == 14546 && maskAfterOpeningBracket == 15058);
static_assert(maskAfterFunctionBracket == 15056 && maskAfterClosingBracket == 3373);
static_assert(maskAfterComma == 2770 && maskAfterConditional == 12994);
static_assert(maskAfterOperator == 15058 && maskAfterUserOperator == 2770);
static_assert(maskAfterValue == 3373 && maskAfterVariable == 1325);
static_assert(maskAfterPrefix == 3522 && maskAfterPostfix == 3245);
static_assert(maskAfterString == -595);

// Precedence of a code as the compiler compares them; user and prefix
// operators carry their own.
int precedenceOf(int code);

} // namespace mu

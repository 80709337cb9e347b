#pragma once

#include <QChar>

// Codes shared by the reader, the list builder and the evaluation walk of the
// Fast parser. The numbers are part of the engine's behaviour: token codes
// appear in the list and error codes reach the user.

namespace mup {

// Token codes.
enum ECmdCode : int {
    cmBO = 0,           // "("
    cmBC = 1,           // ")"
    cmARG_SEP = 2,      // ","
    cmIF = 3,           // "?"
    cmELSE = 4,         // ":"
    cmENDIF = 7,        // end of a conditional, added by the engine
    cmVAL = 9,          // value or constant
    cmVAR = 10,         // variable
    cmFUNC = 11,        // function
    cmOPRT_BIN = 12,    // binary operator
    cmOPRT_INFIX = 13,  // prefix operator
    cmOPRT_POSTFIX = 14,// postfix operator
    cmEND = 15,         // end of the expression
    cmUNKNOWN = 25      // the reader's "last token" before the first
};

enum EOprtAssociativity : int { oaLEFT = 1, oaRIGHT = 2 };

// Bits of the reader's mask; each refuses one kind of token.
enum ESynFlags : int {
    noBO = 1,
    noBC = 2,
    // Three bits that the masks have always carried and that no step of the
    // reader looks at.
    noBIT4 = 4,
    noBIT8 = 8,
    noVAL = 16,
    noVAR = 32,
    noARG_SEP = 64,
    noFUN = 128,
    noOPT = 256,
    noPFX = 512,
    noINFIXOP = 1024,
    noEND = 2048,
    noIF = 4096,
    noELSE = 8192,
    noBIT16384 = 16384
};

// The mask after each kind of token.
enum ESynMasks : int {
    sfSTART = noBC | noBIT4 | noBIT8 | noARG_SEP | noOPT | noPFX | noIF | noELSE,
    sfAFTER_BO = noBC | noBIT4 | noBIT8 | noARG_SEP | noOPT | noPFX | noEND | noIF | noELSE
                 | noBIT16384,
    sfAFTER_BO_OF_FUN = sfAFTER_BO & ~noBC, // so that f() is accepted
    sfAFTER_BC = noBO | noBIT4 | noVAL | noVAR | noFUN | noINFIXOP,
    sfAFTER_ARG_SEP = sfAFTER_BO,
    sfAFTER_IF_ELSE = sfAFTER_BO,
    sfAFTER_VAL = sfAFTER_BC,
    sfAFTER_VAR = noBO | noVAL | noVAR | noFUN | noINFIXOP,
    sfAFTER_FUN = ~noBO,
    sfAFTER_OPRT_BIN = noBC | noBIT4 | noBIT8 | noARG_SEP | noOPT | noPFX | noEND | noBIT16384,
    sfAFTER_OPRT_INFIX = sfAFTER_OPRT_BIN | noINFIXOP,
    sfAFTER_OPRT_POSTFIX = noBO | noBIT4 | noVAL | noVAR | noFUN | noPFX,
    sfAFTER_END = 0
};

// The masks as numbers, which the reader's tests and the language's
// description give.
static_assert(sfSTART == 13134 && sfAFTER_BO == 31566 && sfAFTER_BO_OF_FUN == 31564);
static_assert(sfAFTER_BC == 1205 && sfAFTER_VAL == 1205 && sfAFTER_VAR == 1201);
static_assert(sfAFTER_ARG_SEP == 31566 && sfAFTER_IF_ELSE == 31566);
static_assert(sfAFTER_OPRT_BIN == 19278 && sfAFTER_OPRT_INFIX == 20302);
static_assert(sfAFTER_OPRT_POSTFIX == 693);

// Error codes; their message templates are in mup_error_texts.cpp.
enum EErrorCodes : int {
    ecUNEXPECTED_OPERATOR = 0,
    ecUNASSIGNABLE_TOKEN = 1,
    ecUNEXPECTED_EOF = 2,
    ecUNEXPECTED_ARG_SEP = 3,
    ecUNEXPECTED_VAL = 4,
    ecUNEXPECTED_VAR = 5,
    ecUNEXPECTED_PARENS = 6,
    ecUNEXPECTED_STR = 7,
    ecUNEXPECTED_CONDITIONAL = 8,
    ecUNEXPECTED_NEWLINE = 9,
    ecSTRING_EXPECTED = 10,
    ecVAL_EXPECTED = 11,
    ecMISSING_PARENS = 12,
    ecMISSING_ELSE_CLAUSE = 13,
    ecMISPLACED_COLON = 14,
    ecUNEXPECTED_FUN = 15,
    ecUNTERMINATED_STRING = 16,
    ecTOO_MANY_PARAMS = 17,
    ecTOO_FEW_PARAMS = 18,
    ecTYPE_CONFLICT = 19,
    ecTYPE_CONFLICT_FUN = 20,
    ecTYPE_CONFLICT_IDX = 21,
    ecINVALID_TYPE = 22,
    ecINVALID_TYPECAST = 23,
    ecARRAY_SIZE_MISMATCH = 24,
    ecNOT_AN_ARRAY = 25,
    ecUNEXPECTED_SQR_BRACKET = 26,
    ecINVALID_NAME = 27,
    ecBUILTIN_OVERLOAD = 28,
    ecINVALID_FUN_PTR = 29,
    ecINVALID_VAR_PTR = 30,
    ecINVALID_PARAMETER = 31,
    ecINVALID_NUMBER_OF_PARAMETERS = 32,
    ecNAME_CONFLICT = 33,
    ecOPT_PRI = 34,
    ecASSIGNEMENT_TO_VALUE = 35,
    ecDOMAIN_ERROR = 36,
    ecDIV_BY_ZERO = 37,
    ecGENERIC = 38,
    ecINVALID_PROTOTYPE = 39,
    ecNOT_AN_ARRAY_2 = 40,
    ecMATRIX_DIMENSION_MISMATCH = 41,
    ecINDEX_OUT_OF_BOUNDS = 42,
    ecINDEX_DIMENSION = 43,
    ecMISSING_SQR_BRACKET = 44,
    ecEVAL = 45,
    ecINTERNAL_ERROR = 46,
    ecCOUNT = 47
};

// Construction flags of ParserX: which packages to load.
enum EPackages : unsigned {
    pckCOMMON = 1,
    pckNON_COMPLEX = 2,
    pckSTRING = 4,
    pckUNIT = 8,
    pckALL_NON_COMPLEX = pckCOMMON | pckNON_COMPLEX | pckSTRING | pckUNIT
};

// Character classes of names.
bool isIdentChar(QChar c);
bool isOprtChar(QChar c);   // binary and postfix operators
bool isInfixChar(QChar c);  // prefix operators

} // namespace mup

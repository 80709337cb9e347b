#include "expr/engine_fast/mup_error.h"

#include <iterator>

namespace mup {

namespace {

// Indexed by EErrorCodes. The spellings are those the users have always seen,
// mistakes included; the expression check dialog looks for "Undefined token"
// and "There is no implicit conversion to type".
constexpr const char *errorTemplates[] = {
    "Unexpected operator \"$IDENT$\" found at position $POS$",
    "Undefined token \"$IDENT$\" found at position $POS$",
    "Unexpected end of expression at position $POS$",
    "Unexpected comma at position $POS$",
    "Unexpected value \"$IDENT$\" found at position $POS$",
    "Unexpected variable \"$IDENT$\" found at position $POS$",
    "Unexpected parenthesis \"$IDENT$\" at position $POS$",
    "Unexpected string token found at position $POS$",
    "The \"$IDENT$\" operator must be preceeded by a closing bracket",
    "Unexprected newline",
    "String function called with a non string type of argument",
    "Numerical function called with a non value type of argument",
    "Missing parenthesis",
    "If-then-else operator is missing an else clause",
    "Misplaced colon at position $POS$",
    "Unexpected function \"$IDENT$\" at position $POS$",
    "Unterminated string starting at position $POS$",
    "Too many parameters for function \"$IDENT$\"",
    "Too few parameters for function \"$IDENT$\"",
    "Value \"$IDENT$\" is of type '$TYPE1$'. There is no implicit conversion to type "
    "'$TYPE2$'",
    "Argument $ARG$ of function/operator \"$IDENT$\" is of type '$TYPE1$' whereas type "
    "'$TYPE2$' was expected",
    "Index to \"$IDENT$\" must be a positive integer value. '$TYPE1$' is not an "
    "acceptable type.",
    "Invalid argument type",
    "Value type conversion from type '$TYPE1$' to '$TYPE2$' is not supported!",
    "Array size mismatch",
    "Using the index operator on the scalar variable \"$IDENT$\" is not allowed",
    "Unexpected \"]\"",
    "Invalid variable name: \"$IDENT$\".",
    "Binary operator identifier conflicts with a built in operator",
    "Invalid pointer to callback function",
    "Invalid pointer to variable",
    "Parameter $ARG$ of function \"$IDENT$\" is invalid",
    "Invalid number of function arguments",
    "Name conflict",
    "Invalid value for operator priority (must be greater or equal to zero)",
    "Assignment operator \"$IDENT$\" can't be used in this context",
    "Domain error",
    "Divide by zero",
    "Parser error",
    "Invalid prototype (use something like: \"f:fff\")",
    "Not an array",
    "Invalid matrix dimensions",
    "Index to variable \"$IDENT$\" is out of bounds",
    "Index operator dimension error",
    "Missing \"]\"",
    "Can't evaluate function/operator \"$IDENT$\": $HINT$",
    "Internal error",
};
static_assert(std::size(errorTemplates) == ecCOUNT, "one template per error code");

} // namespace

QString errorTemplate(int code)
{
    if (code < 0 || code >= ecCOUNT)
        return QString();
    return QString::fromUtf8(errorTemplates[code]);
}

} // namespace mup

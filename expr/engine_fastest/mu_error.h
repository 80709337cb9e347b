#pragma once

#include <string>

namespace mu {

// Why the compiled engine refused an expression. The facade only learns from
// a ParserError that this engine cannot take the expression, so the codes
// exist for tests and for whoever debugs a refusal.
enum class ErrorCode {
    UnexpectedOperator,   // an operator where none may stand
    UnexpectedEnd,        // the text ends where something must follow
    UnexpectedComma,
    UnexpectedValue,
    UnexpectedVariable,
    UnexpectedParenthesis,
    UnexpectedString,
    UnexpectedFunction,
    UnexpectedConditional, // "?" or ":" where none may stand
    UnknownToken,
    MissingParenthesis,
    MissingElse,           // "?" without its ":"
    MisplacedColon,        // ":" without its "?"
    UnterminatedString,
    TooManyParams,
    TooFewParams,
    StringArgument,        // a string where a number is needed, or the reverse
    StringResult,          // the expression's value would be a string
    NoValue,               // nothing to evaluate
    UnbalancedBranches,    // a branch of "?:" that leaves no single value
    InvalidName,
    InvalidPointer,
    FunctionFailure,       // thrown by a function of the language
    InternalError
};

class ParserError
{
public:
    ParserError(ErrorCode code, std::wstring message, int position = -1,
                std::wstring token = std::wstring())
        : m_code(code), m_message(std::move(message)), m_position(position),
          m_token(std::move(token))
    {
    }
    // For the functions of the language, which refuse their arguments with a
    // text of their own.
    explicit ParserError(std::wstring message)
        : ParserError(ErrorCode::FunctionFailure, std::move(message))
    {
    }

    ErrorCode GetCode() const { return m_code; }
    const std::wstring &GetMsg() const { return m_message; }
    // Index of the first character of the offending token, -1 when the
    // failure has no place in the text.
    int GetPos() const { return m_position; }
    const std::wstring &GetToken() const { return m_token; }

private:
    ErrorCode m_code;
    std::wstring m_message;
    int m_position;
    std::wstring m_token;
};

} // namespace mu
